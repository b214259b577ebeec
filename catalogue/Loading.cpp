#include <algorithm>
#include <utility>

#include "catalogue/LoadIndex.h"
#include "kmIconParser.h"
#include "kmManager.h"
#include "platform/Folder.h"
#include "document/DefaultFolder.h"
#include "text/Folders.h"
#include "text/kmCTString.h"
#include "xml/XMLNode.h"

namespace {

constexpr const kmChar* kLanguage = KM_TEXT("language");

// The text, or an empty one for null.
const kmChar* TextOf(const kmChar* text) { return text == nullptr ? KM_TEXT("") : text; }

bool IsSystemProfile(const XMLNode& main) {
    return EqualNoCase(TextOf(main.FindChild(KM_TEXT("IsSysProfile")).TextAt(0)), KM_TEXT("yes"));
}

std::vector<const kmChar*> GroupNamesOf(const XMLNode& group) {
    std::vector<const kmChar*> names;
    int position = 0;
    for (;;) {
        const XMLNode name = group.FindChild(KM_TEXT("GroupName"), &position);
        if (name.IsEmpty()) return names;
        names.push_back(name.FindAttribute(kLanguage));
    }
}

}  // namespace

kmManager::kmManager() = default;
kmManager::~kmManager() = default;

kmManager::kmManager(const kmManager& other) { *this = other; }

kmManager& kmManager::operator=(const kmManager& other) {
    if (this == &other) return *this;
    m_idFilter = other.m_idFilter;
    m_groupFilter = other.m_groupFilter;
    m_systemGroups = other.m_systemGroups;
    m_userGroup = other.m_userGroup;
    m_recentGroup = other.m_recentGroup;
    m_profiles = other.m_profiles;
    m_profilesFolder = other.m_profilesFolder;
    m_iconParser = other.m_iconParser;
    m_idFilterList = other.m_idFilterList;
    m_groupFilterList = other.m_groupFilterList;
    m_callbacks = other.m_callbacks;
    return *this;
}

kmManager& kmManager::GetInstance() { return m_signleInstance; }

void kmManager::Delete() {
    m_systemGroups.clear();
    m_userGroup.m_profileIDs.clear();
    m_profiles.clear();
}

bool kmManager::Load(const kmString& folder) {
    kmString profilesFolder = folder.empty() ? GetDefaultProfilesFolder() : folder;
    NormalizeFolder(profilesFolder);
    Delete();
    m_profilesFolder.swap(profilesFolder);
    m_userGroup.SetName(KM_TEXT("User Defined"));
    m_recentGroup.SetName(KM_TEXT("Recent"));

    LoadIndex index(m_loadIndex);
    LoadProfile(m_profilesFolder, /*skipSystem=*/false);
    index.BeginNextFolder();
    LoadProfile(GetUserFolder(m_profilesFolder.c_str()), /*skipSystem=*/false);
    if (m_iconParser == nullptr) m_iconParser = &kmIconParser::GetInstance();
    m_iconParser->InitParser(m_profilesFolder.c_str());
    Sort();
    return true;
}

void kmManager::LoadProfile(const kmString& folder, bool skipSystem) {
    const InputFolder files(folder);
    std::vector<kmString> names;
    files.List(KM_TEXT(".pf"), names);
    for (const kmString& name : names) {
        AddDocument(name, XMLNode::OpenDocumentIn(files, name, KM_TEXT("Profiles")), skipSystem);
    }
}

void kmManager::AddProfileInfo(const kmString& fileName, const kmString& folder, bool skipSystem) {
    AddDocument(fileName, XMLNode::OpenDocument((folder + fileName).c_str(), KM_TEXT("Profiles")),
                skipSystem);
}

void kmManager::AddDocument(const kmString& fileName, const XMLNode& root, bool skipSystem) {
    const XMLNode main = root.FindChild(KM_TEXT("Main"));
    if (main.IsEmpty()) return;
    const bool isSystem = IsSystemProfile(main);
    if (isSystem && skipSystem) return;

    kmProfileInfo info;
    info.m_id = fileName.substr(0, fileName.rfind(KM_TEXT('.')));
    info.m_name = TextOf(main.FindChild(KM_TEXT("Name")).FindAttribute(kLanguage));
    info.m_desc = TextOf(main.FindChild(KM_TEXT("Desc")).FindAttribute(kLanguage));
    info.m_extName = TextOf(main.FindChild(KM_TEXT("ExtName")).TextAt(0));
    info.m_isSystem = isSystem;
    if (!isSystem) {
        AddProfileIDToGroup(m_userGroup, info.m_id);
        m_profiles.push_back(std::move(info));
        return;
    }

    const XMLNode group = root.FindChild(KM_TEXT("Group"));
    const std::vector<const kmChar*> groupNames = GroupNamesOf(group);
    const auto canLoad = [&](const kmChar* name) { return CanLoad(info.m_id.c_str(), TextOf(name)); };
    if (!groupNames.empty() && std::none_of(groupNames.begin(), groupNames.end(), canLoad)) return;
    if (group.IsEmpty()) AddGroup(info, KM_TEXT("others"));
    for (const kmChar* name : groupNames) AddGroup(info, name);
    m_profiles.push_back(std::move(info));
}

kmGroup* kmManager::FindSystemGroup(const kmChar* name) {
    const kmStringView wanted = name;
    const auto found = std::find_if(m_systemGroups.begin(), m_systemGroups.end(),
                                    [wanted](const kmGroup& group) { return group.m_name == wanted; });
    return found == m_systemGroups.end() ? nullptr : &*found;
}

void kmManager::AddGroup(const kmProfileInfo& info, const kmChar* groupName) {
    if (groupName == nullptr) return;
    kmGroup* group = m_loadIndex != nullptr ? m_loadIndex->FindGroup(groupName, m_systemGroups)
                                            : FindSystemGroup(groupName);
    if (group == nullptr) {
        group = &m_systemGroups.emplace_back();
        group->SetName(groupName);
        if (m_loadIndex != nullptr) m_loadIndex->AddGroup(*group);
    }
    AddProfileIDToGroup(*group, info.m_id);
}

void kmManager::AddProfileIDToGroup(kmGroup& group, const kmString& id) {
    if (IsNewInGroup(group, id)) group.m_profileIDs.push_back(id);
}

bool kmManager::IsNewInGroup(const kmGroup& group, const kmString& id) {
    const std::vector<kmString>& ids = group.m_profileIDs;
    if (m_loadIndex == nullptr) return std::find(ids.begin(), ids.end(), id) == ids.end();
    const bool isUserGroup = &group == &m_userGroup;
    return m_loadIndex->IsNew(
        isUserGroup ? LoadIndex::kUserGroup : static_cast<std::size_t>(&group - m_systemGroups.data()), ids,
        id);
}
