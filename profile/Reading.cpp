// SPDX-License-Identifier: MIT
// From a file to a profile. The attributes of an item are walked once, and the table of fields says what each
// becomes.
#include <cstdint>
#include <iterator>

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

namespace {

void Store(kmString& field, kmStringView text) { field = text; }
void Store(std::int32_t& field, kmStringView text) { field = ReadInteger(text.data(), 0); }
void Store(bool& field, kmStringView text) { field = format::IsFlagSet(text); }
void Store(std::vector<kmString>& field, kmStringView text) {
    SplitText(text, format::kListSeparator, field);
}

}  // namespace

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
    m_items.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) GetValueFromFile(m_items.emplace_back(), parameter.ChildAt(i));
}

void kmProfile::GetValueFromFile(kmProfileItem& item, const XMLNode& element) {
    static_assert(ItemMembers::AreOfTheirKinds());
    item.m_id = element.GetName() == nullptr ? KM_TEXT("") : element.GetName();
    item.m_advReadOnly = item.m_advHasCandidates = false;
    item.m_simpleReadOnly = item.m_simpleHasCandidates = false;
    bool hasValue = false;
    RowFinder finder(kItemFields);
    for (int i = 0; i < element.CountAttributes(); ++i) {
        const std::size_t row = finder.FindNew(element.AttributeNameAt(i));
        const kmStringView value = element.AttributeValueAt(i);
        if (row == std::size(kItemFields) || value.data() == nullptr) continue;
        hasValue = hasValue || row == 0;
        std::visit([&](auto member) { Store(item.*member, value); }, ItemMembers::kMembers[row]);
    }
    if (hasValue) return;
    const kmChar* defVal = kmArgOption::GetOptionDefVal(element.GetName());
    if (defVal != nullptr) item.m_value = defVal;
}
