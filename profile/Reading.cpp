// SPDX-License-Identifier: MIT
// From a file to a profile. The attributes of an item are walked once, and the table of fields says what each
// becomes.
#include <algorithm>
#include <cstdint>
#include <iterator>
#include <memory>

#include "document/DefaultFolder.h"
#include "document/Format.h"
#include "document/Header.h"
#include "document/ProfileID.h"
#include "document/RowFinder.h"
#include "kmArgOption.h"
#include "profile/ItemMembers.h"
#include "text/Folders.h"
#include "text/Numbers.h"
#include "text/kmCTString.h"
#include "xml/XMLNode.h"

// The texts of what is read together, in one piece of memory that the items share.
class kmProfile::FileTexts {
public:
    explicit FileTexts(std::size_t units)
        : m_texts(std::make_shared_for_overwrite<kmChar[]>(units + 1)), m_free(m_texts.get()) {}

    const std::shared_ptr<kmChar[]>& Share() const { return m_texts; }
    kmStringView Add(kmStringView text) {
        kmChar* const copy = m_free;
        m_free = std::copy(text.begin(), text.end(), copy);
        return {copy, text.size()};
    }

private:
    std::shared_ptr<kmChar[]> m_texts;
    kmChar* m_free;
};

// Stores one attribute after the other into an item.
struct kmProfile::ItemReader {
    FileTexts* texts;  // null: the item gets texts and lists of its own

    void Store(kmString& field, kmStringView text) const { field = text; }
    void Store(std::int32_t& field, kmStringView text) const { field = ReadInteger(text.data(), 0); }
    void Store(bool& field, kmStringView text) const { field = format::IsFlagSet(text); }
    void Store(kmProfileItem::Label& field, kmStringView text) const {
        if (texts == nullptr) return field.Set(kmString(text));
        field.Refer(texts->Add(text));
    }
    void Store(kmProfileItem::List& field, kmStringView text) const {
        if (texts == nullptr) return SplitText(text, format::kListSeparator, field.Get());
        field.Refer(texts->Add(text));
    }

    void Read(kmProfileItem& item, const XMLNode& element) const;
};

// A folder ends at its first null unit, as IDs do.
bool kmProfile::Load(const kmString& folder) {
    m_items.clear();
    m_folder = folder.c_str();
    if (m_folder.empty()) m_folder = GetDefaultProfilesFolder();
    NormalizeFolder(m_folder);
    return ReadDocument(OpenFile());
}

bool kmProfile::ReadDocument(const XMLNode& root) {
    const XMLNode main = root.FindChild(format::kMain);
    if (main.IsEmpty()) return false;
    ReadHeader(main, m_header);
    ReadItems(root.FindChild(format::kParameter));
    return true;
}

bool kmProfile::Reload() { return Load({}); }

// The folder stays what was tried last, also when neither file can be read.
XMLNode kmProfile::OpenFile() {
    const auto open = [this] {
        return XMLNode::OpenDocument(ProfilePath(m_folder, m_id).c_str(), format::kRoot);
    };
    XMLNode root = open();
    if (!root.IsEmpty()) return root;
    m_folder = GetUserFolder(m_folder.c_str());
    return open();
}

void kmProfile::ReadItems(const XMLNode& parameter) {
    const int count = parameter.CountChildren();
    FileTexts texts(parameter.CountUnitsInChildren());
    const ItemReader reader{&texts};
    m_items.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        kmProfileItem& item = m_items.emplace_back();
        item.m_fileTexts = texts.Share();
        reader.Read(item, parameter.ChildAt(i));
    }
}

void kmProfile::GetValueFromFile(kmProfileItem& item, const XMLNode& element) {
    ItemReader{nullptr}.Read(item, element);
}

void kmProfile::ItemReader::Read(kmProfileItem& item, const XMLNode& element) const {
    static_assert(ItemMembers::AreOfTheirKinds());
    item.m_id = element.GetName() == nullptr ? KM_TEXT("") : element.GetName();
    item.m_advReadOnly = item.m_advHasCandidates = false;
    item.m_simpleReadOnly = item.m_simpleHasCandidates = false;
    bool hasValue = false;
    RowFinder finder(kItemFields);
    for (const Attribute& attribute : element.Attributes()) {
        const std::size_t row = finder.FindNew(attribute.Name());
        const kmStringView value = attribute.Value();
        if (row == std::size(kItemFields) || value.data() == nullptr) continue;
        hasValue = hasValue || row == 0;
        std::visit([&](auto member) { Store(item.*member, value); }, ItemMembers::kMembers[row]);
    }
    if (hasValue) return;
    const kmChar* defVal = kmArgOption::GetOptionDefVal(element.GetName());
    if (defVal != nullptr) item.m_value = defVal;
}
