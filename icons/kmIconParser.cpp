// SPDX-License-Identifier: MIT
// The two tables of icons and their settings, as "pficon.con" and "userpf.con" give them.
#include "kmIconParser.h"

#include "document/Format.h"
#include "icons/IconNotes.h"
#include "text/Folders.h"
#include "text/Numbers.h"
#include "xml/XMLNode.h"

namespace {

constexpr const kmChar* kDefault = KM_TEXT("default");

// The settings that one kind of icons has; what the element lacks stays.
struct Settings {
    bool& singleImage;
    std::int32_t& width;
    std::int32_t& height;
    kmString& transparentColor;

    void Read(const XMLNode& element) {
        const auto read = [&element](const kmChar* name, auto store) {
            const kmChar* value = element.FindAttribute(name);
            if (value != nullptr) store(value);
        };
        read(KM_TEXT("SingleFile"), [this](const kmChar* value) { singleImage = format::IsYes(value); });
        read(KM_TEXT("width"), [this](const kmChar* value) { width = ReadInteger(value, 0); });
        read(KM_TEXT("height"), [this](const kmChar* value) { height = ReadInteger(value, 0); });
        read(KM_TEXT("transclr"), [this](const kmChar* value) { transparentColor = value; });
    }
};

bool NamesAnIcon(const kmChar* id, const kmChar* image) {
    return id != nullptr && *id != 0 && image != nullptr;
}

template <class Add>
void ForEachIcon(const XMLNode& element, Add add) {
    for (int i = 0; i < element.CountChildren(); ++i) {
        const XMLNode icon = element.ChildAt(i);
        const kmChar* index = icon.FindAttribute(KM_TEXT("index"));
        add(icon.FindAttribute(KM_TEXT("id")), icon.FindAttribute(KM_TEXT("image")),
            index == nullptr ? 0 : ReadInteger(index, 0));
    }
}

XMLNode Open(IconFileNotes& file, bool isSilent) {
    constexpr const kmChar* kFirstTag = KM_TEXT("items");
    file.wasTried = true;
    XMLNode root = XMLNode::ParseDocumentFile(file.path.c_str(), kFirstTag, &file.result);
    if (file.result.code != XML_ERROR_NONE && !isSilent)
        ReportXMLError(file.path.c_str(), file.result, kFirstTag);
    return root;
}

}  // namespace

kmIconParser::kmIconParser() = default;
kmIconParser::~kmIconParser() = default;

kmIconParser& kmIconParser::GetInstance() { return m_signleInstance; }

void kmIconParser::InitParser(const kmChar* folder) {
    IconNotes notes;
    InitNoting(folder, notes);
}

void kmIconParser::InitNoting(const kmChar* folder, IconNotes& notes) {
    m_groupIcons.clear();
    m_profileIcons.clear();
    if (folder == nullptr || *folder == 0) return;
    m_profilesFolder = folder;
    NormalizeFolder(m_profilesFolder);
    notes.index.path = m_profilesFolder + KM_TEXT("pficon.con");
    notes.user.path = GetUserProfileIconfile();
    ReadFiles(notes);
}

void kmIconParser::ReadFiles(IconNotes& notes) {
    const auto addTo = [this](bool group, IconFileNotes& file) {
        return [this, group, &file](const kmChar* id, const kmChar* image, std::int32_t index) {
            if (!NamesAnIcon(id, image)) ++file.entriesLeftOut;
            AddItem(id, image, index, group);
        };
    };
    const XMLNode items = Open(notes.index, notes.isSilent);
    if (items.IsEmpty()) return;
    const XMLNode groups = items.FindChild(KM_TEXT("groups"));
    Settings{m_groupSingleImage, m_groupIconWidth, m_groupIconHeight, m_groupTransColor}.Read(groups);
    ForEachIcon(groups, addTo(true, notes.index));
    const XMLNode profiles = items.FindChild(KM_TEXT("profiles"));
    Settings{m_profileSingleImage, m_profileIconWidth, m_profileIconHeight, m_profileTransColor}.Read(
        profiles);
    ForEachIcon(profiles, addTo(false, notes.index));

    const XMLNode userItems = Open(notes.user, notes.isSilent);
    ForEachIcon(userItems.FindChild(KM_TEXT("user_pf")), addTo(false, notes.user));
}

void kmIconParser::AddItem(const kmChar* id, const kmChar* image, std::int32_t index, bool group) {
    if (!NamesAnIcon(id, image)) return;
    (group ? m_groupIcons : m_profileIcons)[id] = Icon(image, index);
}

const kmIconParser::Icon* kmIconParser::FindIcon(const kmChar* id, bool group) const {
    const Table& table = group ? m_groupIcons : m_profileIcons;
    auto found = table.find(id == nullptr || *id == 0 ? kDefault : id);
    if (found == table.end()) found = table.find(kDefault);
    return found == table.end() ? nullptr : &found->second;
}

std::int32_t kmIconParser::GetIconIndex(const kmChar* id, bool group) const {
    const Icon* icon = FindIcon(id, group);
    return icon == nullptr ? -1 : icon->second;
}

kmString kmIconParser::GetImageFileName(const kmChar* id, bool group) const {
    const Icon* icon = FindIcon(id, group);
    return icon == nullptr ? kmString() : icon->first;
}

void kmIconParser::GetIconInfo(std::int32_t& width, std::int32_t& height, kmString& transparentColor,
                               bool group) const {
    width = group ? m_groupIconWidth : m_profileIconWidth;
    height = group ? m_groupIconHeight : m_profileIconHeight;
    transparentColor = group ? m_groupTransColor : m_profileTransColor;
}
