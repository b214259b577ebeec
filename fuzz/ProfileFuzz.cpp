// SPDX-License-Identifier: MIT
// The input is a profile's file. Whatever it holds, everything that a profile can tell is told; building the
// option string settles in one step; each setting's arguments are told; a saved profile comes back as it was,
// but for an empty value, which becomes the option's default, items whose IDs differ in letter case alone,
// which become one with the later one's fields, and white space around texts; and saving that changes no
// byte.
#include <algorithm>
#include <cstdint>
#include <tuple>
#include <vector>

#include "fuzz/Law.h"
#include "kmArgOption.h"
#include "kmArguments.h"
#include "kmCompare.h"
#include "kmLint.h"
#include "kmProfile.h"
#include "kmSizeEstimate.h"
#include "tests/faults/MemoryFileSystem.h"
#include "text/Ascii.h"
#include "xml/XMLNode.h"

namespace {

using Items = std::vector<kmProfileItem>;

const kmString kFolder = KM_TEXT("\\p\\");

auto FieldsOf(const kmProfileItem& item) {
    return std::tuple(item.GetID(), item.GetValue(), item.GetAdvPriority(), item.GetAdvName(),
                      item.GetAdvGroup(), item.GetAdvReadOnly(), item.GetAdvHasCandidates(),
                      item.GetAdvCandidatesDisplay(), item.GetAdvCandidatesValue(), item.GetSimplePriority(),
                      item.GetSimpleName(), item.GetSimpleReadOnly(), item.GetSimpleHasCandidates(),
                      item.GetSimpleCandidatesDisplay(), item.GetSimpleCandidatesValue());
}

// Reads items one by one, with every text and list made at once.
struct ItemReader : kmProfile {
    Items Read(const XMLNode& parameter) {
        Items items;
        for (int i = 0; i < parameter.CountChildren(); ++i)
            GetValueFromFile(items.emplace_back(), parameter.ChildAt(i));
        return items;
    }
};

bool AreSame(const Items& a, const Items& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](const auto& x, const auto& y) { return FieldsOf(x) == FieldsOf(y); });
}

void AskItems(const kmProfile& profile) {
    for (const kmProfileItem& item : profile.GetProfileItems()) {
        const kmString id = item.GetID();
        const int position = profile.GetSimpleItemValue(id.c_str());
        Require(profile.ItemExist(id) && position >= -1, "an item is there and its position makes sense");
        kmString message;
        if (kmProfileItem::Check(message, id.c_str(), profile.GetItemValue(id.c_str()).c_str()))
            Require(message.empty(), "an accepted value has no message");
    }
}

void AskDerivedValues(const kmProfile& profile) {
    int width = 0, height = 0;
    const bool hasSize = profile.GetSize(width, height);
    Require((width > 0) == (height > 0) && (hasSize || width == 0), "a frame has both sides or none");
    Require(profile.GetSimpleItems().size() <= profile.GetProfileItems().size(),
            "a view shows what there is");
    static_cast<void>(profile.GetType() + profile.GetZoom() + profile.GetAspectratio());
    static_cast<void>(profile.GetStartTime() + profile.GetDuration());
    for (const std::int64_t time : {std::int64_t{-1}, std::int64_t{600'000'000}, INT64_MAX, INT64_MIN}) {
        static_cast<void>(profile.CalcP2VOutputFileSize(time));
        for (const int number : {-1, 1920, INT32_MAX, INT32_MIN}) {
            static_cast<void>(profile.CalcOutputFileSize(time, number > 0, number, 2));
            static_cast<void>(profile.CalcAVOutputFileSize(time, number, number, number & 3));
            static_cast<void>(profile.CalcImageOutputFileSize(time, number, number));
        }
    }
}

void CheckOptionString(kmProfile profile, bool withAudio) {
    const kmString options = profile.GetAvcString(withAudio);
    const Items items = profile.GetProfileItems();
    profile.SetChangedFlag(false);
    RequireSame(profile.GetAvcString(withAudio), options, "the option string settles in one step");
    Require(!profile.GetChangedFlag() && AreSame(profile.GetProfileItems(), items),
            "a settled profile is not corrected again");
}

// What a list tells of each setting adds up to the list, in every dialect.
void CheckArguments(const kmProfile& profile) {
    for (const KM_DIALECT dialect : {KM_DIALECT_OWN, KM_DIALECT_FFMPEG}) {
        for (const bool hasAll : {false, true}) {
            const kmArgumentList list = kmBuildArguments(profile, {dialect, hasAll, hasAll, hasAll});
            Require(list.settings.size() == profile.GetProfileItems().size(), "every setting is explained");
            std::size_t filters = 0, told = list.streams.size() + list.format.arguments.size();
            for (const kmArgument& setting : list.settings) {
                Require(setting.sentence.size() > 1, "every setting has a sentence");
                told += setting.arguments.size();
                filters += dialect != KM_DIALECT_OWN && setting.arguments.size() == 2 ? 1 : 0;
            }
            Require(list.arguments.size() <= told && told <= list.arguments.size() + 2 * filters,
                    "the settings' arguments are the list's, filters joined");
        }
        static_cast<void>(kmFindMissingAbilities(profile, dialect, {}));
    }
    for (const std::int64_t size : {std::int64_t{-1}, std::int64_t{700} << 20, INT64_MAX})
        static_cast<void>(kmFitVideoBitrate(profile, size, size, true));
}

kmString Trimmed(const kmString& text) {
    const kmChar* const space = KM_TEXT(" \t\r\n");
    const std::size_t begin = text.find_first_not_of(space);
    return begin == kmString::npos ? kmString()
                                   : text.substr(begin, text.find_last_not_of(space) + 1 - begin);
}

// What a file can keep of the items.
Items WhatIsKept(const Items& items) {
    Items kept;
    for (const kmProfileItem& item : items) {
        const auto same = std::find_if(kept.begin(), kept.end(), [&item](const kmProfileItem& other) {
            return EqualNoCase(other.GetID(), item.GetID());
        });
        kmProfileItem& keeper = same == kept.end() ? kept.emplace_back(item) : *same;
        const kmString id = keeper.GetID();
        keeper = item;
        keeper.SetID(id);
    }
    for (kmProfileItem& item : kept) {
        const kmChar* byDefault = kmArgOption::GetOptionDefVal(item.GetID().c_str());
        if (item.GetValue().empty() && byDefault != nullptr) item.SetValue(byDefault);
    }
    return kept;
}

// Names that any file can carry.
bool HasPlainNames(const Items& items) {
    const kmChar* const plain = KM_TEXT("-0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
    return std::all_of(items.begin(), items.end(), [plain](const kmProfileItem& item) {
        return !item.GetID().empty() && item.GetID().find_first_not_of(plain) == kmString::npos;
    });
}

// What the first saving lost, such as empty values, may change the file once more, but nothing does after
// that.
void CheckSavingAgain(kmProfile& profile, bool isWhole) {
    for (const bool mayChange : {!isWhole, false}) {
        const auto files = memory::Files();
        Require(profile.Save(profile.GetID(), /*overwrite=*/false) == PROFILE_ERROR_NONE,
                "what was saved is saved again");
        Require(mayChange || memory::Files() == files, "saving again changes no byte");
        Require(profile.Load(kFolder), "what was saved again can be loaded");
    }
}

void CheckSaving(kmProfile& profile) {
    const kmString newID = KM_TEXT("saved");
    const auto before = memory::Files();
    const PROFILE_EERROR result = profile.Save(newID, /*overwrite=*/false);
    if (result != PROFILE_ERROR_NONE) {
        Require(result == PROFILE_ERROR_FILE && memory::Files() == before, "a refusal changes no file");
        Require(!HasPlainNames(profile.GetProfileItems()), "a profile with plain names can be saved");
        return;
    }
    kmProfile saved;
    saved.SetID(newID);
    Require(saved.Load(kFolder), "a saved profile can be loaded");
    Require(!saved.IsSystem(), "what is saved is the user's");
    Require(AreSame(saved.GetProfileItems(), WhatIsKept(profile.GetProfileItems())), "items are kept");
    for (const auto get : {&kmProfile::GetSName, &kmProfile::GetFormat, &kmProfile::GetExtName})
        RequireSame((saved.*get)(), Trimmed((profile.*get)()), "texts are kept");
    const bool isWhole = AreSame(saved.GetProfileItems(), profile.GetProfileItems()) &&
                         saved.GetSName() == profile.GetSName() && saved.GetFormat() == profile.GetFormat() &&
                         saved.GetExtName() == profile.GetExtName();
    CheckSavingAgain(saved, isWhole);
}

// A file is either loaded or has a finding that says why not.
void CheckAdvice(bool isLoaded) {
    bool isRefused = false;
    for (const kmLintFinding& finding : kmLintFile(kFolder + KM_TEXT("x.pf"))) {
        isRefused = isRefused || finding.code == LINT_XML_ERROR || finding.code == LINT_UNREADABLE_FILE ||
                    finding.code == LINT_NO_HEADER;
        Require((finding.line > 0) == (finding.column > 0), "a place has a line and a column");
    }
    Require(isLoaded != isRefused, "a file is loaded or it is said why not");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    memory::Format();
    memory::WriteFile(kFolder + KM_TEXT("x.pf"), {reinterpret_cast<const char*>(data), size});
    kmProfile profile;
    profile.SetID(KM_TEXT("x"));
    const bool isLoaded = profile.Load(kFolder);
    Require(isLoaded || profile.GetProfileItems().empty(), "a failed load leaves no items");
    CheckAdvice(isLoaded);
    if (!isLoaded) return 0;
    const XMLNode root = XMLNode::ParseDocumentFile((kFolder + KM_TEXT("x.pf")).c_str(), KM_TEXT("Profiles"));
    Require(AreSame(ItemReader().Read(root.FindChild(KM_TEXT("Parameter"))), profile.GetProfileItems()),
            "items read together are as items read one by one");
    Require(kmCompareWithFile(profile).result == FILE_COMPARISON_EQUAL, "loading is no change");
    AskItems(profile);
    AskDerivedValues(profile);
    CheckOptionString(profile, /*withAudio=*/true);
    CheckOptionString(profile, /*withAudio=*/false);
    CheckArguments(profile);
    CheckSaving(profile);
    return 0;
}
