#include <unordered_map>

#include "kmIconParser.h"
#include "kmManager.h"
#include "platform/Files.h"
#include "profile/ItemFields.h"
#include "text/Folders.h"
#include "text/Numbers.h"
#include "document/ProfileID.h"
#include "text/kmCTString.h"
#include "xml/XMLNode.h"

namespace {

kmString FoldedText(kmStringView text) {
    kmString folded(text);
    for (kmChar& c : folded) c = FoldLower(c);
    return folded;
}

void SetOrRemove(XMLNode& element, const kmChar* name, bool isEmpty, const kmString& text) {
    if (isEmpty) {
        element.RemoveAttribute(name);
    } else {
        element.SetAttribute(text.c_str(), nullptr, name);
    }
}

bool Store(const XMLNode& root, const kmString& path) {
    return root.SaveToFile(path.c_str(), nullptr, /*formatted=*/true) == XML_ERROR_NONE;
}

void ReportChange(PROFILE_CHANGED_TYPE type, const kmString& newID, const kmString& oldID,
                  const kmChar* secondID) {
    kmIconParser::GetInstance().CopyIconFrom(newID.c_str(), oldID.c_str());
    kmManager::GetInstance().ProfileChanged(type, newID.c_str(), secondID);
}

}  // namespace

void kmProfile::SetProfileItemValue(XMLNode& element, const kmString& value, const kmChar* name) {
    SetOrRemove(element, name, value.empty(), value);
}

void kmProfile::SetProfileItemValue(XMLNode& element, int value, const kmChar* name) {
    SetOrRemove(element, name, value == 0, IntegerText(value));
}

void kmProfile::SetProfileItemValue(XMLNode& element, bool value, const kmChar* name) {
    SetOrRemove(element, name, !value, KM_TEXT("yes"));
}

void kmProfile::SetProfileItemValue(XMLNode& element, std::vector<kmString>& value, const kmChar* name) {
    kmString joined;
    JoinTexts(value, KM_TEXT(','), joined);
    SetOrRemove(element, name, value.empty(), joined);
}

void kmProfile::SetValueToFile(kmProfileItem& item, XMLNode& element) {
    for (const ItemFields::Row& row : ItemFields::kRows) {
        std::visit([&](auto field) { SetProfileItemValue(element, item.*field, row.name.data()); },
                   row.field);
    }
}

// What forbids the ID before any file is looked at.
PROFILE_EERROR kmProfile::FindSaveRefusal(const kmString& newID, bool overwrite) const {
    kmManager& manager = kmManager::GetInstance();
    if (m_isSystem && newID == m_id) return PROFILE_ERROR_SYSTEM;
    if (manager.IsSysName(newID)) return PROFILE_ERROR_SYSTEM;
    if (!m_isSystem && newID == m_id) return PROFILE_ERROR_NONE;
    if (!overwrite && manager.ProfileExist(newID.c_str())) return PROFILE_ERROR_EXIST;
    const kmProfileInfo* existing = m_isSystem ? nullptr : manager.GetProfileInfo(newID.c_str());
    return existing != nullptr && existing->IsSystem() ? PROFILE_ERROR_SYSTEM : PROFILE_ERROR_NONE;
}

// The ID is copied here and in ReName: a callback may change the list that the caller's text stands in.
PROFILE_EERROR kmProfile::Save(const kmString& targetID, bool overwrite) {
    const kmString newID = targetID;  // NOLINT(performance-unnecessary-copy-initialization)
    if (m_folder.empty()) return PROFILE_ERROR_FILE;
    const PROFILE_EERROR refusal = FindSaveRefusal(newID, overwrite);
    if (refusal != PROFILE_ERROR_NONE) return refusal;
    if (!IsUsableProfileID(newID)) return PROFILE_ERROR_FILE;

    const kmString folder = m_isSystem ? GetUserFolder(m_folder.c_str()) : m_folder;
    if (m_isSystem) CreateFolder(folder.c_str());
    const kmString path = ProfilePath(folder, newID);
    if (!Store(BuildDocument(newID), path)) return PROFILE_ERROR_FILE;
    RespellFile(path.c_str());
    ReportChange(PROFILE_SAVED, newID, m_id, nullptr);
    return PROFILE_ERROR_NONE;
}

XMLNode kmProfile::BuildDocument(const kmString& newID) {
    XMLNode root = XMLNode::CreateRoot(KM_TEXT("Profiles"), false);
    XMLNode main = root.AppendChild(KM_TEXT("Main"), false);
    const auto append = [&main](const kmChar* name) { return main.AppendChild(name, false); };
    append(KM_TEXT("Name")).SetAttribute(newID.c_str(), nullptr, KM_TEXT("language"));
    append(KM_TEXT("Desc")).SetAttribute(m_desc.c_str(), nullptr, KM_TEXT("language"));
    append(KM_TEXT("SName")).SetText(m_sName.c_str(), 0);
    append(KM_TEXT("Format")).SetText(m_format.c_str(), 0);
    append(KM_TEXT("ExtName")).SetText(m_extName.c_str(), 0);

    // Items whose IDs differ in letter case alone share an element. Looking for it among the children would
    // make the cost grow with the square of the items.
    XMLNode parameter = root.AppendChild(KM_TEXT("Parameter"), false);
    std::unordered_map<kmString, XMLNode> elements;
    for (kmProfileItem& item : m_items) {
        XMLNode& element = elements[FoldedText(item.m_id.c_str())];
        if (element.IsEmpty()) element = parameter.AppendChild(item.m_id.c_str(), false);
        SetValueToFile(item, element);
    }
    return root;
}

PROFILE_EERROR kmProfile::ReName(const kmString& targetID) {
    const kmString newID = targetID;  // NOLINT(performance-unnecessary-copy-initialization)
    kmManager& manager = kmManager::GetInstance();
    if (m_isSystem || manager.IsSysName(newID)) return PROFILE_ERROR_SYSTEM;
    if (manager.ProfileExist(newID.c_str())) return PROFILE_ERROR_EXIST;
    if (m_folder.empty() || !IsUsableProfileID(newID)) return PROFILE_ERROR_FILE;

    const kmString path = ProfilePath(m_folder, newID);
    if (!RenameFile(ProfilePath(m_folder, m_id).c_str(), path.c_str())) return PROFILE_ERROR_FILE;
    if (!StoreRenamed(path, newID)) return PROFILE_ERROR_FILE;
    const kmString oldID = m_id;
    ReportChange(PROFILE_RENAMED, newID, oldID, oldID.c_str());
    m_id = newID;
    return PROFILE_ERROR_NONE;
}

// Puts the new ID into the file, and keeps everything else that it holds.
bool kmProfile::StoreRenamed(const kmString& path, const kmString& newID) const {
    const XMLNode root = XMLNode::OpenDocument(path.c_str(), KM_TEXT("Profiles"));
    if (root.IsEmpty()) return false;
    XMLNode name = root.FindChild(KM_TEXT("Main")).FindChild(KM_TEXT("Name"));
    name.SetAttribute(newID.c_str(), nullptr, KM_TEXT("language"));
    return Store(root, path);
}
