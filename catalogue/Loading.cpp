// From the files of a folder to records and groups.
#include <algorithm>
#include <utility>

#include "catalogue/Filing.h"
#include "document/DefaultFolder.h"
#include "document/Format.h"
#include "document/Header.h"
#include "document/ProfileID.h"
#include "kmIconParser.h"
#include "kmManager.h"
#include "platform/Files.h"
#include "text/Folders.h"
#include "xml/XMLNode.h"

namespace {

// The group of system profiles whose files name none.
constexpr const kmChar* kOthers = KM_TEXT("others");

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
    kmString profilesFolder = folder.c_str();
    if (profilesFolder.empty()) profilesFolder = GetDefaultProfilesFolder();
    NormalizeFolder(profilesFolder);
    Delete();
    m_profilesFolder = profilesFolder;
    m_userGroup.SetName(KM_TEXT("User Defined"));
    m_recentGroup.SetName(KM_TEXT("Recent"));

    Filing filing(*this);
    ReadFolder(profilesFolder, /*skipSystem=*/false, filing);
    ReadFolder(GetUserFolder(profilesFolder.c_str()), /*skipSystem=*/false, filing);
    filing.Finish();
    if (m_iconParser == nullptr) m_iconParser = &kmIconParser::GetInstance();
    m_iconParser->InitParser(m_profilesFolder.c_str());
    Sort();
    return true;
}

void kmManager::LoadProfile(const kmString& folder, bool skipSystem) {
    Filing filing(*this);
    ReadFolder(folder, skipSystem, filing);
    filing.Finish();
}

void kmManager::ReadFolder(const kmString& folder, bool skipSystem, Filing& filing) {
    const InputFolder files(folder);
    std::vector<kmString> names;
    // Part of the profiles is then missing, which must not pass unnoticed.
    if (!files.List(format::kSuffix, names))
        ReportXMLError(folder.c_str(), {XML_ERROR_FILE_NOT_FOUND, 0, 0}, format::kRoot);
    for (const kmString& name : names) {
        AddDocument(name, XMLNode::OpenDocumentIn(files, name, format::kRoot), skipSystem, filing);
    }
}

void kmManager::AddProfileInfo(const kmString& fileName, const kmString& folder, bool skipSystem) {
    Filing filing(*this);
    AddDocument(fileName, XMLNode::OpenDocument((folder + fileName).c_str(), format::kRoot), skipSystem,
                filing);
    filing.Finish();
}

void kmManager::AddDocument(const kmString& fileName, const XMLNode& root, bool skipSystem, Filing& filing) {
    const XMLNode main = root.FindChild(format::kMain);
    if (main.IsEmpty()) return;
    kmProfileHeader header;
    ReadHeader(main, header);
    if (header.isSystem && skipSystem) return;

    kmProfileInfo info;
    info.m_id = ProfileIDOf(fileName);
    info.m_name = std::move(header.name);
    info.m_desc = std::move(header.desc);
    info.m_extName = std::move(header.extName);
    info.m_isSystem = header.isSystem;
    if (!header.isSystem) {
        filing.AddToUserGroup(info.m_id);
        m_profiles.push_back(std::move(info));
        return;
    }

    const XMLNode group = root.FindChild(format::kGroup);
    const std::vector<const kmChar*> groupNames = GroupNamesOf(group);
    const auto canLoad = [&](const kmChar* name) {
        return CanLoad(info.m_id.c_str(), name == nullptr ? KM_TEXT("") : name);
    };
    if (!groupNames.empty() && std::none_of(groupNames.begin(), groupNames.end(), canLoad)) return;
    if (group.IsEmpty()) filing.AddToSystemGroup(kOthers, info.m_id);
    for (const kmChar* name : groupNames) {
        if (name != nullptr) filing.AddToSystemGroup(name, info.m_id);
    }
    m_profiles.push_back(std::move(info));
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
