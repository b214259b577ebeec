// SPDX-License-Identifier: MIT
// Profiles with very many items, candidates or groups. Their names come from files, so that somebody may
// choose them: besides plain ones there are names that share one value of the polynomial hash with factor 31.
#include <algorithm>
#include <memory>
#include <stdexcept>

#include "bench/Folder.h"
#include "bench/GrowthCases.h"
#include "document/Format.h"
#include "kmArguments.h"
#include "kmFolders.h"
#include "kmManager.h"
#include "kmProfile.h"
#include "kmProfileList.h"
#include "text/Numbers.h"
#include "xml/XMLNode.h"

namespace {

using Naming = kmString (*)(std::size_t number);

kmString PlainName(std::size_t number) { return KM_TEXT("name") + IntegerText(static_cast<int>(number)); }

// "Aa" and "BB" have the same hash, and so has every row of as many of them.
kmString CollidingName(std::size_t number) {
    constexpr int kBits = 20;
    kmString name;
    for (int bit = 0; bit < kBits; ++bit) name += (number >> bit & 1) == 0 ? KM_TEXT("Aa") : KM_TEXT("BB");
    return name;
}

struct NamingRow {
    const char* name;
    Naming nameOf;
};

constexpr NamingRow kNamings[] = {{"", PlainName}, {" with colliding names", CollidingName}};

std::vector<kmString> Names(Naming nameOf, std::size_t count) {
    std::vector<kmString> names;
    for (std::size_t i = 0; i < count; ++i) names.push_back(nameOf(i));
    return names;
}

kmProfileItem ItemOf(const kmString& id, const std::vector<kmString>& candidates) {
    kmProfileItem item;
    item.SetID(id);
    item.SetValue(candidates.front());
    item.SetSimpleName(id);
    item.GetSimpleCandidatesDisplay() = item.GetSimpleCandidatesValue() = candidates;
    item.GetAdvCandidatesDisplay() = item.GetAdvCandidatesValue() = candidates;
    return item;
}

std::vector<kmProfileItem> ManyItems(Naming nameOf, std::size_t count) {
    std::vector<kmProfileItem> items;
    for (const kmString& id : Names(nameOf, count)) items.push_back(ItemOf(id, Names(PlainName, 3)));
    return items;
}

std::vector<kmProfileItem> OneItem(Naming nameOf, std::size_t candidates) {
    return {ItemOf(KM_TEXT("vcodec"), Names(nameOf, candidates))};
}

using MakeItems = std::vector<kmProfileItem> (*)(Naming nameOf, std::size_t count);

constexpr const kmChar* kID = KM_TEXT("growth");

void Check(bool isDone) {
    if (!isDone) throw std::runtime_error("an operation on a profile fails");
}

// A folder with one profile, which is in the catalogue.
class OneProfile {
public:
    explicit OneProfile(const XMLNode& document) {
        const kmString root = ListProfiles(m_temporary.Path()).textRoot;
        m_folder = kmUserFolder(root);
        const kmString path = m_folder + kID + KM_TEXT(".pf");
        Check(document.SaveToFile(path.c_str(), nullptr, /*formatted=*/true) == XML_ERROR_NONE);
        kmManager::GetInstance().Load(root);
    }

    kmProfile Load() const {
        kmProfile profile;
        profile.SetID(kID);
        Check(profile.Load(m_folder));
        return profile;
    }

private:
    TemporaryProfiles m_temporary{0, 1};
    kmString m_folder;
};

XMLNode EmptyProfile() {
    XMLNode root = XMLNode::CreateRoot(format::kRoot, /*isDeclaration=*/false);
    root.AppendChild(format::kMain, /*isDeclaration=*/false);
    return root;
}

// A user's profile of these items, stored by the library itself.
std::shared_ptr<OneProfile> Stored(const std::vector<kmProfileItem>& items) {
    auto stored = std::make_shared<OneProfile>(EmptyProfile());
    kmProfile profile = stored->Load();
    profile.GetProfileItems() = items;
    Check(profile.Save(kID, /*overwrite=*/true) == PROFILE_ERROR_NONE);
    return stored;
}

GrowthStep Loading(const std::vector<kmProfileItem>& items, std::size_t count) {
    return {count, [stored = Stored(items)] { stored->Load(); }};
}

GrowthStep Saving(const std::vector<kmProfileItem>& items, std::size_t count) {
    const std::shared_ptr<OneProfile> stored = Stored(items);
    const auto profile = std::make_shared<kmProfile>(stored->Load());
    return {count,
            [stored, profile] { Check(profile->Save(kID, /*overwrite=*/true) == PROFILE_ERROR_NONE); }};
}

// Two profiles that have the same in opposite orders, the worst case of finding what they share.
GrowthStep Sharing(std::vector<kmProfileItem> items, std::size_t count) {
    const auto profiles = std::make_shared<std::vector<kmProfile>>(2);
    profiles->front().GetProfileItems() = items;
    std::reverse(items.begin(), items.end());
    for (kmProfileItem& item : items) {
        for (auto* texts : {&item.GetSimpleCandidatesDisplay(), &item.GetAdvCandidatesDisplay()}) {
            std::reverse(texts->begin(), texts->end());
        }
    }
    profiles->back().GetProfileItems() = std::move(items);
    return {count, [profiles, expected = profiles->front().GetProfileItems().size()] {
                const std::vector<kmProfile*> selection{&profiles->front(), &profiles->back()};
                Check(kmProfileList::GetSimpleItems(selection).size() == expected);
                Check(kmProfileList::GetAdvanceItems(selection).size() == expected);
            }};
}

// Each of these settings stands with the value of another one in its arguments, which comes last.
GrowthStep Translating(std::size_t count) {
    const auto profile = std::make_shared<kmProfile>();
    profile->GetProfileItems().assign(count, ItemOf(KM_TEXT("padtop"), {KM_TEXT("2")}));
    profile->GetProfileItems().push_back(ItemOf(KM_TEXT("padcolor"), {KM_TEXT("ff0000")}));
    return {count, [profile] {
                const kmArgumentList list = kmBuildArguments(*profile, {KM_DIALECT_FFMPEG});
                Check(list.settings.back().fate == ARGUMENT_COVERED);
            }};
}

GrowthStep ReReading(Naming nameOf, std::size_t count) {
    XMLNode root = EmptyProfile();
    root.FindChild(format::kMain).AppendChild(KM_TEXT("IsSysProfile"), false).SetText(format::kYes, 0);
    XMLNode group = root.AppendChild(format::kGroup, /*isDeclaration=*/false);
    for (const kmString& name : Names(nameOf, count)) {
        group.AppendChild(format::kGroupName, /*isDeclaration=*/false)
            .AppendAttribute(format::kLanguage, name.c_str());
    }
    return {count, [stored = std::make_shared<OneProfile>(root)] {
                kmManager::GetInstance().ProfileChanged(PROFILE_SAVED, kID, nullptr);
                Check(kmManager::GetInstance().ProfileExist(kID));
            }};
}

struct StepRow {
    const char* name;
    GrowthStep (*prepare)(std::vector<kmProfileItem> items, std::size_t count);
};

constexpr StepRow kSteps[] = {
    {", loaded", [](std::vector<kmProfileItem> items, std::size_t count) { return Loading(items, count); }},
    {", saved", [](std::vector<kmProfileItem> items, std::size_t count) { return Saving(items, count); }},
    {", shared by two profiles", Sharing},
};

constexpr struct {
    const char* name;
    MakeItems make;
} kKinds[] = {{"items", ManyItems}, {"candidates of an item", OneItem}};

}  // namespace

std::vector<GrowthCase> ProfileCases() {
    std::vector<GrowthCase> cases;
    for (const auto& kind : kKinds) {
        for (const NamingRow& naming : kNamings) {
            for (const StepRow& step : kSteps) {
                cases.push_back({std::string(kind.name) + naming.name + step.name,
                                 [make = kind.make, nameOf = naming.nameOf, prepare = step.prepare](
                                     std::size_t count) { return prepare(make(nameOf, count), count); }});
            }
        }
    }
    cases.push_back({"settings that use another one, as arguments", Translating});
    const auto addGroups = [&cases](const char* name, Naming nameOf) {
        cases.push_back({std::string("group names of a profile") + name + ", read anew",
                         [nameOf](std::size_t count) { return ReReading(nameOf, count); }});
    };
    for (const NamingRow& naming : kNamings) addGroups(naming.name, naming.nameOf);
    addGroups(", all the same", [](std::size_t) { return PlainName(0); });
    return cases;
}
