#include <cstdint>
#include <iterator>

#include "kmArgOption.h"
#include "profile/ItemFields.h"
#include "document/DefaultFolder.h"
#include "text/Folders.h"
#include "text/Numbers.h"
#include "text/kmCTString.h"
#include "xml/XMLNode.h"

namespace {

bool IsTrue(kmStringView flag) {
    return EqualNoCase(flag, KM_TEXT("yes")) || EqualNoCase(flag, KM_TEXT("true"));
}

void Store(kmString& field, kmStringView text) { field = text; }
void Store(std::int32_t& field, kmStringView text) { field = ReadInteger(text.data(), 0); }
void Store(bool& field, kmStringView text) { field = IsTrue(text); }
void Store(std::vector<kmString>& field, kmStringView text) { SplitText(text, KM_TEXT(','), field); }

void StoreIfPresent(kmString& field, const kmChar* text) {
    if (text != nullptr) field = text;
}

}  // namespace

bool kmProfile::Load(const kmString& folder) {
    m_items.clear();
    m_folder = folder.empty() ? GetDefaultProfilesFolder() : folder;
    NormalizeFolder(m_folder);
    const XMLNode root = OpenFile();
    const XMLNode main = root.FindChild(KM_TEXT("Main"));
    if (main.IsEmpty()) return false;
    ReadHeader(main);
    ReadItems(root.FindChild(KM_TEXT("Parameter")));
    return true;
}

bool kmProfile::Reload() { return Load({}); }

// The folder stays what was tried last, also when neither file can be read.
XMLNode kmProfile::OpenFile() {
    const auto open = [this] {
        return XMLNode::OpenDocument((m_folder + m_id + KM_TEXT(".pf")).c_str(), KM_TEXT("Profiles"));
    };
    XMLNode root = open();
    if (!root.IsEmpty()) return root;
    m_folder = GetUserFolder(m_folder.c_str());
    return open();
}

void kmProfile::ReadHeader(const XMLNode& main) {
    const auto text = [&main](const kmChar* name) { return main.FindChild(name).TextAt(0); };
    StoreIfPresent(m_name, main.FindChild(KM_TEXT("Name")).FindAttribute(KM_TEXT("language")));
    StoreIfPresent(m_desc, main.FindChild(KM_TEXT("Desc")).FindAttribute(KM_TEXT("language")));
    const kmChar* isSystem = text(KM_TEXT("IsSysProfile"));
    m_isSystem = isSystem != nullptr && EqualNoCase(isSystem, KM_TEXT("yes"));
    StoreIfPresent(m_sName, text(KM_TEXT("SName")));
    StoreIfPresent(m_format, text(KM_TEXT("Format")));
    StoreIfPresent(m_extName, text(KM_TEXT("ExtName")));
}

void kmProfile::ReadItems(const XMLNode& parameter) {
    const int count = parameter.CountChildren();
    m_items.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) GetValueFromFile(m_items.emplace_back(), parameter.ChildAt(i));
}

// Walks the attributes once, and looks for each behind the row of the one before: files have them in the
// table's order.
void kmProfile::GetValueFromFile(kmProfileItem& item, const XMLNode& element) {
    constexpr std::size_t kCount = std::size(ItemFields::kRows);
    item.m_id = element.GetName() == nullptr ? KM_TEXT("") : element.GetName();
    item.m_advReadOnly = item.m_advHasCandidates = false;
    item.m_simpleReadOnly = item.m_simpleHasCandidates = false;
    std::uint32_t seen = 0;  // a bit for each row: of attributes with the same name the first counts
    bool hasValue = false;
    std::size_t row = 0;
    for (int i = 0; i < element.CountAttributes(); ++i) {
        const kmStringView name = element.AttributeNameAt(i);
        std::size_t tries = 0;
        while (tries < kCount && !EqualNoCase(ItemFields::kRows[row].name, name)) {
            row = (row + 1) % kCount;
            ++tries;
        }
        const kmStringView value = element.AttributeValueAt(i);
        if (tries == kCount || (seen >> row & 1) != 0) continue;
        seen |= 1u << row;
        if (value.data() == nullptr) continue;
        hasValue = hasValue || row == 0;
        std::visit([&](auto field) { Store(item.*field, value); }, ItemFields::kRows[row].field);
    }
    if (!hasValue) StoreIfPresent(item.m_value, kmArgOption::GetOptionDefVal(element.GetName()));
}
