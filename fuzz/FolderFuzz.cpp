// SPDX-License-Identifier: MIT
// The input is a profiles folder and what an application does with it. Nothing outside the folder and its
// "user" subfolder is ever written or removed, and in them only profiles and the user's icons; after a save
// or a renaming that succeeded a new load of the folder knows the profile; no ID stands twice in a group of
// system profiles.
#include <algorithm>
#include <regex>
#include <set>
#include <vector>

#include "fuzz/Law.h"
#include "fuzzer/FuzzedDataProvider.h"
#include "kmIconParser.h"
#include "kmLint.h"
#include "kmLoadReport.h"
#include "kmManager.h"
#include "kmProfile.h"
#include "kmProfileFile.h"
#include "kmProfileID.h"
#include "tests/faults/MemoryFileSystem.h"
#include "text/Ascii.h"

namespace {

using Input = FuzzedDataProvider;
using Files = std::map<std::string, std::string>;

const kmString kFolder = KM_TEXT("\\p\\");
const kmString kUserFolder = KM_TEXT("\\p\\user\\");

// Catalogues and icons of their own, which only heirs may have.
class Catalogue : public kmManager {};
class Icons : public kmIconParser {
public:
    Icons() = default;
    explicit Icons(const kmIconParser& other) : kmIconParser(other) {}
};

void MakeDisk() {
    memory::Format();
    for (const kmChar* outside : {KM_TEXT("\\x.pf"), KM_TEXT("\\user\\a.pf"), KM_TEXT("\\p\\deep\\a.pf"),
                                  KM_TEXT("\\p\\user\\deep\\a.pf")})
        memory::WriteFile(outside, "<Profiles><Main/></Profiles>");
    kmManager::GetInstance() = Catalogue();
    static_cast<kmIconParser&>(kmIconParser::GetInstance()) = Icons();
}

bool OneIn(Input& input, int count) { return input.ConsumeIntegralInRange(1, count) == 1; }

// Few of them, so that they meet; some that lead elsewhere; some of the fuzzer's own.
kmString TakeID(Input& input) {
    constexpr const char* kIDs[] = {"a",       "A",  "b",  "Sys",  "sYS",    "..\\x", "../x", "user\\a",
                                    "deep\\a", ".a", "..", "a.pf", "userpf", "con",   "a ",   "default"};
    if (!OneIn(input, 4)) return kmTextFromUtf8(input.PickValueInArray(kIDs));
    return kmTextFromUtf8(input.ConsumeRandomLengthString(12));
}

// What a listing can give as a name.
kmString TakeFileName(Input& input) {
    kmString name = TakeID(input).c_str();
    for (kmChar& c : name) {
        if (c == '\\' || c == '/' || c == 0xDC00 + '\\' || c == 0xDC00 + '/') c = KM_TEXT('_');
    }
    return name + (OneIn(input, 8) ? KM_TEXT(".PF") : KM_TEXT(".pf"));
}

std::string TakeProfile(Input& input) {
    if (OneIn(input, 8)) return input.ConsumeRandomLengthString(200);
    constexpr const char* kGroups[] = {
        "", "<Group/>", "<Group><GroupName/><GroupName language='g'/></Group>",
        "<Group><GroupName language='^h'/><GroupName language='g'/><GroupName language='^h'/></Group>"};
    return "<Profiles><Main><Name language='" + kmUtf8FromText(TakeID(input)) + "'/><IsSysProfile>" +
           (OneIn(input, 2) ? "yes" : "no") + "</IsSysProfile></Main>" + input.PickValueInArray(kGroups) +
           "<Parameter><b/>" + input.ConsumeRandomLengthString(20) + "</Parameter></Profiles>";
}

std::string TakeIcons(Input& input) {
    if (OneIn(input, 8)) return input.ConsumeRandomLengthString(200);
    std::string icons;
    for (int count = input.ConsumeIntegralInRange(0, 3); count > 0; --count)
        icons += "<item id='" + kmUtf8FromText(TakeID(input)) + "' image='i' index='" +
                 std::to_string(count) + "'/>";
    return "<items><profiles>" + icons + "</profiles><user_pf>" + icons + "</user_pf></items>";
}

void FillFolder(Input& input) {
    for (int count = input.ConsumeIntegralInRange(0, 5); count > 0; --count) {
        const kmString path = (OneIn(input, 2) ? kFolder : kUserFolder) + TakeFileName(input);
        memory::WriteFile(path, TakeProfile(input));
    }
    if (OneIn(input, 2)) memory::WriteFile(kFolder + KM_TEXT("pficon.con"), TakeIcons(input));
    if (OneIn(input, 2)) memory::WriteFile(kUserFolder + KM_TEXT("userpf.con"), TakeIcons(input));
}

// A profile of the folder or its "user" subfolder, or the icons of the latter.
bool MayChange(const std::string& path) {
    static const std::regex allowed(R"(\\p\\(user\\)?[^\\/]*\.[pP][fF]|\\p\\user\\userpf\.con)");
    return std::regex_match(path, allowed);
}

// Of the profiles that were there, `mayLose` at most are gone or hold something else.
void CheckFiles(const Files& before, int mayLose) {
    Files now = memory::Files();
    for (const auto& [path, bytes] : before) {
        const auto found = now.find(path);
        const bool isSame = found != now.end() && found->second == bytes;
        Require(isSame || MayChange(path), "only profiles and icons change", path);
        Require(isSame || path.ends_with(".con") || --mayLose >= 0, "no other profile is lost", path);
        now.erase(path);
    }
    for (const auto& [path, bytes] : now) Require(MayChange(path), "only profiles and icons are added", path);
}

bool IsKnown(const kmString& id) {
    const Icons icons(kmIconParser::GetInstance());
    Catalogue fresh;
    fresh.Load(kFolder);
    static_cast<kmIconParser&>(kmIconParser::GetInstance()) = icons;
    return fresh.ProfileExist(id.c_str());
}

// Whether a load takes the profile's own file.
bool IsTaken(const kmProfile& profile) {
    const kmString path = kmProfilePath(kmFolderOf(profile), profile.GetID());
    const std::vector<kmString> taken = kmReportLoad(kFolder).taken;
    return std::any_of(taken.begin(), taken.end(),
                       [&path](const kmString& each) { return EqualNoCase(each, path); });
}

// A system profile in the "user" subfolder has a "user" subfolder of its own there, which is another story.
bool StoresElsewhere(const kmProfile& profile) {
    return profile.IsSystem() && kmFolderOf(profile) != kFolder;
}

void ChangeProfile(Input& input, kmProfile& profile) {
    if (StoresElsewhere(profile)) return;
    const kmString newID = OneIn(input, 4) ? profile.GetID() : TakeID(input);
    const int choice = input.ConsumeIntegralInRange(0, 2);
    const bool overwrite = OneIn(input, 2);
    // Listings pass over names that begin with "."; and a file that no load takes, such as one without a
    // header, can only be renamed, and stays one.
    const bool isListed = !newID.empty() && newID.front() != '.' && (choice != 1 || IsTaken(profile));
    const Files before = memory::Files();
    const PROFILE_EERROR result = choice == 0   ? profile.Save(newID, overwrite)
                                  : choice == 1 ? profile.ReName(newID)
                                                : kmSaveAsNew(profile, newID);
    // A file that cannot be read is renamed all the same, and the result says that it failed.
    const bool mayLose = choice == 1 || (choice == 0 && result == PROFILE_ERROR_NONE);
    CheckFiles(before, mayLose ? 1 : 0);
    if (result == PROFILE_ERROR_NONE && isListed)
        Require(IsKnown(newID.c_str()), "a new load knows what was saved", kmUtf8FromText(newID));
}

void Load(Input& input, kmProfile& profile) {
    profile.SetID(TakeID(input));
    profile.Load(OneIn(input, 2) ? kFolder : kUserFolder);
}

void ChangeCatalogue(Input& input, kmProfile& /*profile*/) {
    kmManager& catalogue = kmManager::GetInstance();
    const kmString id = TakeID(input);
    const kmString other = TakeID(input);
    const Files before = memory::Files();
    // clang-format off
    switch (input.ConsumeIntegralInRange(0, 6)) {
        case 0: catalogue.Load(kFolder); break;
        case 1: catalogue.AddRecentProfile(id.c_str()); break;
        case 2: catalogue.AddUserProfile(id.c_str()); break;
        case 3: catalogue.DeleteProfile(id); break;
        case 4: catalogue.ProfileChanged(PROFILE_SAVED, id.c_str(), nullptr); break;
        case 5: catalogue.ProfileChanged(PROFILE_RENAMED, id.c_str(), other.c_str()); break;
        default: kmIconParser::GetInstance().CopyIconFrom(id.c_str(), other.c_str());
    }
    // clang-format on
    CheckFiles(before, 1);
    Require(catalogue.ProfileExist(id.c_str()) == (catalogue.GetProfileInfo(id.c_str()) != nullptr),
            "a profile exists when it has a record");
    for (kmGroup& group : catalogue.GetSystemGroups()) {
        const std::vector<kmString>& ids = group.GetProfileIDs();
        Require(std::set(ids.begin(), ids.end()).size() == ids.size(), "no ID stands twice in a group");
    }
}

// Whatever a load leaves out has a finding, and advice changes nothing.
void CheckAdvice() {
    const Files before = memory::Files();
    std::set<kmString> paths;
    for (const kmLintFinding& finding : kmLintFolder(kFolder)) paths.insert(finding.path);
    for (const kmLoadFinding& finding : kmReportLoad(kFolder).findings)
        Require(finding.isUsed || paths.count(finding.path) != 0, "what is left out is found",
                kmUtf8FromText(finding.path));
    Require(memory::Files() == before, "advice changes no file");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    MakeDisk();
    FillFolder(input);
    if (!OneIn(input, 8)) kmManager::GetInstance().Load(kFolder);
    kmProfile profile;
    for (int steps = 0; steps < 20 && input.remaining_bytes() > 0; ++steps)
        input.PickValueInArray({Load, ChangeProfile, ChangeCatalogue})(input, profile);
    CheckAdvice();
    return 0;
}
