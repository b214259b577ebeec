// SPDX-License-Identifier: MIT
// Saving and renaming. What could be refused is refused before a file is touched; then the file changes in
// one step; only then the icons, the catalogue and its callbacks are told.
#include <map>
#include <optional>
#include <utility>

#include "document/Format.h"
#include "document/Header.h"
#include "document/ProfileID.h"
#include "kmIconParser.h"
#include "kmManager.h"
#include "kmProfileFile.h"
#include "kmProfileID.h"
#include "platform/Files.h"
#include "profile/FieldText.h"
#include "profile/ItemMembers.h"
#include "text/Folders.h"
#include "xml/XMLNode.h"

namespace {

kmString FoldedText(kmStringView text) {
    kmString folded(text);
    for (kmChar& c : folded) c = FoldLower(c);
    return folded;
}

void SetOrRemove(XMLNode& element, const kmChar* name, const std::optional<kmString>& text) {
    if (text) {
        element.SetAttribute(text->c_str(), nullptr, name);
    } else {
        element.RemoveAttribute(name);
    }
}

// Whether a file of that ID can be written into the profile's folder. Listings skip what begins with ".", so
// that no profile gets such an ID, but one that has it keeps it.
bool CanNameFile(const kmString& id, const kmString& ownID) {
    const PROFILE_ID_FAULT fault = kmFindIDFault(id);
    if (fault != PROFILE_ID_FAULT_LEADING_DOT || id != ownID) return fault == PROFILE_ID_FAULT_NONE;
    return kmFindIDFault(KM_TEXT("_") + id) == PROFILE_ID_FAULT_NONE;  // no fault but the dot
}

void ReportChange(PROFILE_CHANGED_TYPE type, const kmString& newID, const kmString& oldID,
                  const kmChar* secondID) {
    kmIconParser::GetInstance().CopyIconFrom(newID.c_str(), oldID.c_str());
    kmManager::GetInstance().ProfileChanged(type, newID.c_str(), secondID);
}

}  // namespace

void kmProfile::SetProfileItemValue(XMLNode& element, const kmString& value, const kmChar* name) {
    SetOrRemove(element, name, FieldText(value));
}

void kmProfile::SetProfileItemValue(XMLNode& element, int value, const kmChar* name) {
    SetOrRemove(element, name, FieldText(value));
}

void kmProfile::SetProfileItemValue(XMLNode& element, bool value, const kmChar* name) {
    SetOrRemove(element, name, FieldText(value));
}

void kmProfile::SetProfileItemValue(XMLNode& element, std::vector<kmString>& value, const kmChar* name) {
    SetOrRemove(element, name, FieldText(value));
}

void kmProfile::SetValueToFile(kmProfileItem& item, XMLNode& element) {
    for (std::size_t row = 0; row < std::size(kItemFields); ++row) {
        const kmChar* name = kItemFields[row].name.data();
        std::visit(
            [&](auto member) { SetProfileItemValue(element, ItemMembers::Content(item.*member), name); },
            ItemMembers::kMembers[row]);
    }
}

// What forbids the ID before any file is looked at.
PROFILE_EERROR kmProfile::FindSaveRefusal(const kmString& newID, bool overwrite) const {
    kmManager& manager = kmManager::GetInstance();
    const bool isSystem = m_header.isSystem;
    const bool isOwnID = newID == m_id.c_str();
    if (isSystem && isOwnID) return PROFILE_ERROR_SYSTEM;
    if (manager.IsSysName(newID)) return PROFILE_ERROR_SYSTEM;
    if (!isSystem && isOwnID) return PROFILE_ERROR_NONE;
    if (!overwrite && manager.ProfileExist(newID.c_str())) return PROFILE_ERROR_EXIST;
    const kmProfileInfo* existing = isSystem ? nullptr : manager.GetProfileInfo(newID.c_str());
    return existing != nullptr && existing->IsSystem() ? PROFILE_ERROR_SYSTEM : PROFILE_ERROR_NONE;
}

// The IDs are copied first: a callback may change the list that the caller's text stands in. They end at
// their first null units.
PROFILE_EERROR kmProfile::Save(const kmString& targetID, bool overwrite) {
    return SaveUnder(targetID.c_str(), overwrite, /*onlyNew=*/false);
}

PROFILE_EERROR kmSaveAsNew(kmProfile& profile, const kmString& targetID) {
    return profile.SaveUnder(targetID.c_str(), /*overwrite=*/false, /*onlyNew=*/true);
}

PROFILE_EERROR kmProfile::SaveUnder(const kmString& newID, bool overwrite, bool onlyNew) {
    if (m_folder.empty()) return PROFILE_ERROR_FILE;
    const PROFILE_EERROR refusal = FindSaveRefusal(newID, overwrite);
    if (refusal != PROFILE_ERROR_NONE) return refusal;
    if (!CanNameFile(newID, m_id.c_str())) return PROFILE_ERROR_FILE;
    const XMLNode document = BuildDocument(newID);
    if (!document.ReadsBackTheSame()) return PROFILE_ERROR_FILE;

    const kmString folder = m_header.isSystem ? GetUserFolder(m_folder.c_str()) : m_folder;
    if (m_header.isSystem) CreateFolder(folder.c_str());
    const kmString path = ProfilePath(folder, newID);
    const StoreResult stored = document.Store(path.c_str(), onlyNew ? Storing::New : Storing::Respell);
    if (stored == StoreResult::Exists) return PROFILE_ERROR_EXIST;
    if (stored != StoreResult::Done) return PROFILE_ERROR_FILE;
    ReportChange(PROFILE_SAVED, newID, m_id, nullptr);
    return PROFILE_ERROR_NONE;
}

XMLNode kmProfile::BuildDocument(const kmString& newID) {
    XMLNode root = XMLNode::CreateRoot(format::kRoot, false);
    kmProfileHeader header = m_header;
    header.name = newID;
    WriteHeader(header, root.AppendChild(format::kMain, false));

    // Items whose IDs differ in letter case alone share an element. Looking for it among the children would
    // make the cost grow with the square of the items, and so could a hash that a file's author foresees.
    XMLNode parameter = root.AppendChild(format::kParameter, false);
    std::map<kmString, XMLNode> elements;
    for (kmProfileItem& item : m_items) {
        XMLNode& element = elements[FoldedText(item.m_id.c_str())];
        if (element.IsEmpty()) element = parameter.AppendChild(item.m_id.c_str(), false);
        SetValueToFile(item, element);
    }
    return root;
}

PROFILE_EERROR kmProfile::ReName(const kmString& targetID) {
    const kmString newID = targetID.c_str();
    const kmString oldID = m_id.c_str();
    kmManager& manager = kmManager::GetInstance();
    if (m_header.isSystem || manager.IsSysName(newID)) return PROFILE_ERROR_SYSTEM;
    if (manager.ProfileExist(newID.c_str())) return PROFILE_ERROR_EXIST;
    if (m_folder.empty() || !CanNameFile(newID, oldID) || !StaysInItsFolder(oldID)) return PROFILE_ERROR_FILE;
    if (!StoreUnder(newID)) return PROFILE_ERROR_FILE;
    ReportChange(PROFILE_RENAMED, newID, oldID, oldID.c_str());
    m_id = newID;
    return PROFILE_ERROR_NONE;
}

// Gives the file its new name, with the new ID in it and everything else that it holds. One that is no
// profile gets the name all the same, which is no success; one that cannot even be opened stays, since
// somebody may hold it. The message about the file names it as it is called then.
bool kmProfile::StoreUnder(const kmString& newID) const {
    const kmString from = ProfilePath(m_folder, m_id);
    const kmString to = ProfilePath(m_folder, newID);
    XMLParseResult result;
    const XMLNode root = XMLNode::ParseDocumentFile(from.c_str(), format::kRoot, &result);
    if (result.code == XML_ERROR_FILE_NOT_FOUND) {
        if (EntryExists(from.c_str())) ReportXMLError(from.c_str(), result, format::kRoot);
        return false;
    }
    if (root.IsEmpty()) {
        if (RenameFile(from.c_str(), to.c_str())) ReportXMLError(to.c_str(), result, format::kRoot);
        return false;
    }
    SetHeaderName(root.FindChild(format::kMain), newID);
    if (!root.ReadsBackTheSame()) return false;
    if (root.StoreInstead(from.c_str(), to.c_str()) != StoreResult::Done) return false;
    if (result.code != XML_ERROR_NONE) ReportXMLError(to.c_str(), result, format::kRoot);
    return true;
}
