// SPDX-License-Identifier: MIT
// From the files of a folder to records and groups.
#include <algorithm>
#include <utility>

#include "catalogue/Filing.h"
#include "catalogue/GroupOrder.h"
#include "catalogue/LoadNotes.h"
#include "document/DefaultFolder.h"
#include "document/Format.h"
#include "document/Header.h"
#include "document/ProfileID.h"
#include "icons/IconNotes.h"
#include "kmIconParser.h"
#include "kmManager.h"
#include "platform/Files.h"
#include "text/Folders.h"
#include "xml/XMLNode.h"

namespace {

bool IsSilent(const LoadNotes* notes) { return notes != nullptr && notes->IsSilent(); }

// A null stands for an entry without a name.
std::vector<const kmChar*> GroupNamesOf(const XMLNode& group) {
    std::vector<const kmChar*> names;
    int position = 0;
    for (;;) {
        const XMLNode name = group.FindChild(format::kGroupName, &position);
        if (name.IsEmpty()) return names;
        names.push_back(name.FindAttribute(format::kLanguage));
    }
}

}  // namespace

void kmManager::Delete() {
    m_systemGroups.clear();
    ++m_groupChanges;
    m_userGroup.m_profileIDs.clear();
    m_profiles.clear();
}

// The folder ends at its first null unit.
bool kmManager::Load(const kmString& folder) {
    LoadNoting(folder, nullptr);
    return true;
}

void kmManager::LoadNoting(const kmString& folder, LoadNotes* notes) {
    kmString profilesFolder = folder.c_str();
    if (profilesFolder.empty()) profilesFolder = GetDefaultProfilesFolder();
    NormalizeFolder(profilesFolder);
    Delete();
    m_profilesFolder = profilesFolder;
    m_userGroup.SetName(KM_TEXT("User Defined"));
    m_recentGroup.SetName(KM_TEXT("Recent"));

    Filing filing(*this);
    ReadFolder(profilesFolder, /*skipSystem=*/false, filing, notes);
    ReadFolder(GetUserFolder(profilesFolder.c_str()), /*skipSystem=*/false, filing, notes);
    filing.Finish();
    if (m_iconParser == nullptr) m_iconParser = &kmIconParser::GetInstance();
    IconNotes icons;
    icons.isSilent = IsSilent(notes);
    m_iconParser->InitNoting(m_profilesFolder.c_str(), icons);
    if (notes != nullptr) notes->AddIcons(icons);
    Sort();
}

void kmManager::LoadProfile(const kmString& folder, bool skipSystem) {
    Filing filing(*this);
    ReadFolder(folder, skipSystem, filing, nullptr);
    filing.Finish();
}

void kmManager::ReadFolder(const kmString& folder, bool skipSystem, Filing& filing, LoadNotes* notes) {
    const InputFolder files(folder);
    std::vector<kmString> names;
    ListingNotes listing;
    const bool isComplete = files.List(format::kSuffix, names, notes == nullptr ? nullptr : &listing);
    // Part of the profiles is then missing, which must not pass unnoticed.
    if (!isComplete && !IsSilent(notes))
        ReportXMLError(folder.c_str(), {XML_ERROR_FILE_NOT_FOUND, 0, 0}, format::kRoot);
    if (notes != nullptr) notes->AddListing(folder, isComplete, listing);
    for (const kmString& name : names) {
        XMLParseResult result;
        const XMLNode root = XMLNode::ParseDocumentIn(files, name, format::kRoot, result);
        if (result.code != XML_ERROR_NONE && !IsSilent(notes))
            ReportXMLError((folder + name).c_str(), result, format::kRoot);
        const FilingResult filed = AddDocument(name, root, skipSystem, filing);
        if (notes != nullptr) notes->AddFile(folder, name, result, filed);
    }
}

void kmManager::AddProfileInfo(const kmString& fileName, const kmString& folder, bool skipSystem) {
    Filing filing(*this);
    AddDocument(fileName, XMLNode::OpenDocument((folder + fileName).c_str(), format::kRoot), skipSystem,
                filing);
    filing.Finish();
}

FilingResult kmManager::AddDocument(const kmString& fileName, const XMLNode& root, bool skipSystem,
                                    Filing& filing) {
    const XMLNode main = root.FindChild(format::kMain);
    if (main.IsEmpty()) return FilingResult::NoHeader;
    kmProfileHeader header;
    ReadHeader(main, header);
    if (header.isSystem && skipSystem) return FilingResult::SystemSkipped;

    kmProfileInfo info;
    info.m_id = ProfileIDOf(fileName);
    info.m_name = std::move(header.name);
    info.m_desc = std::move(header.desc);
    info.m_extName = std::move(header.extName);
    info.m_isSystem = header.isSystem;
    if (!header.isSystem) {
        filing.AddToUserGroup(info.m_id);
        m_profiles.push_back(std::move(info));
        return FilingResult::Taken;
    }

    const XMLNode group = root.FindChild(format::kGroup);
    const std::vector<const kmChar*> groupNames = GroupNamesOf(group);
    const auto canLoad = [&](const kmChar* name) {
        return CanLoad(info.m_id.c_str(), name == nullptr ? KM_TEXT("") : name);
    };
    if (!groupNames.empty() && std::none_of(groupNames.begin(), groupNames.end(), canLoad))
        return FilingResult::Filtered;
    bool isInGroup = group.IsEmpty();
    if (isInGroup) filing.AddToSystemGroup(kOtherGroup, info.m_id);
    for (const kmChar* name : groupNames) {
        if (name == nullptr) continue;
        filing.AddToSystemGroup(name, info.m_id);
        isInGroup = true;
    }
    m_profiles.push_back(std::move(info));
    return isInGroup ? FilingResult::Taken : FilingResult::TakenIntoNoGroup;
}

void kmManager::AddGroup(const kmProfileInfo& info, const kmChar* groupName) {
    if (groupName == nullptr) return;
    Filing filing(*this);
    filing.AddToSystemGroup(groupName, info.m_id);
    filing.Finish();
}

void kmManager::AddProfileIDToGroup(kmGroup& group, const kmString& id) {
    std::vector<kmString>& ids = group.m_profileIDs;
    if (std::find(ids.begin(), ids.end(), id) == ids.end()) ids.push_back(id);
}
