// SPDX-License-Identifier: MIT
// The icons that user profiles take over from the profiles that they were made from, and the file that keeps
// them.
#include "kmIconParser.h"
#include "platform/Files.h"
#include "text/Folders.h"
#include "text/Numbers.h"
#include "xml/XMLNode.h"

// "userpf.con" as it was read, or as it is made when there is none.
struct kmIconParser::IconFile {
    kmString path;
    XMLNode root;
    XMLNode list;

    // False when there is a file that cannot be read: writing would lose what it holds.
    bool Open() {
        root = XMLNode::OpenDocument(path.c_str(), KM_TEXT("items"));
        if (root.IsEmpty()) {
            if (EntryExists(path.c_str())) return false;
            root = XMLNode::CreateRoot(KM_TEXT("items"), false);
            root.AppendChild(KM_TEXT("user_pf"), false);
        }
        list = root.FindChild(KM_TEXT("user_pf"));
        return true;
    }

    bool Store() const {
        return root.SaveToFile(path.c_str(), nullptr, /*formatted=*/true) == XML_ERROR_NONE;
    }
};

kmString kmIconParser::GetUserProfileIconfile() const {
    return GetUserFolder(m_profilesFolder.c_str()) + KM_TEXT("userpf.con");
}

bool kmIconParser::CopyIconFrom(const kmChar* target, const kmChar* source) {
    if (target == nullptr || *target == 0 || source == nullptr || *source == 0) return false;
    if (m_profilesFolder.empty()) return false;
    IconFile file{GetUserProfileIconfile(), {}, {}};
    if (!file.Open()) return false;
    const bool isKnown = m_profileIcons.find(target) != m_profileIcons.end();
    return isKnown ? ReplaceIcon(target, source, file) : AddIcon(target, source, file);
}

// The table changes in any case; in the file the source's entry, if there is one, now belongs to the target.
bool kmIconParser::ReplaceIcon(const kmString& target, const kmString& source, IconFile& file) {
    m_profileIcons[target] =
        Icon(GetImageFileName(source.c_str(), false), GetIconIndex(source.c_str(), false));
    for (int i = 0; i < file.list.CountChildren(); ++i) {
        XMLNode entry = file.list.ChildAt(i);
        const kmChar* id = entry.FindAttribute(KM_TEXT("id"));
        if (id == nullptr || source != id) continue;
        entry.SetAttributeAt(target.c_str(), KM_TEXT("id"), 0);
        return file.Store();
    }
    return true;
}

bool kmIconParser::AddIcon(const kmString& target, const kmString& source, IconFile& file) {
    const Icon* icon = FindIcon(source.c_str(), false);
    if (file.list.IsEmpty() || icon == nullptr) return false;
    XMLNode entry = file.list.AppendChild(KM_TEXT("item"), false);
    entry.AppendAttribute(KM_TEXT("id"), target.c_str());
    entry.AppendAttribute(KM_TEXT("index"), IntegerText(icon->second).c_str());
    entry.AppendAttribute(KM_TEXT("image"), icon->first.c_str());
    if (!file.Store()) return false;
    m_profileIcons[target] = Icon(*icon);
    return true;
}
