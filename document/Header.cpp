// The children of "Main" are walked once; each that the table knows gives one field, the first of its name.
#include "document/Header.h"

#include <algorithm>
#include <iterator>
#include <variant>

#include "document/Format.h"
#include "document/RowFinder.h"

namespace {

// Where a child of "Main" carries its field.
enum class Carrier { Attribute, Text };

// What saving puts into the file.
enum class Saved { Field, ID, Nothing };

struct HeaderRow {
    kmStringView name;  // of the element; null-terminated
    Carrier carrier;
    std::variant<kmString kmProfileHeader::*, bool kmProfileHeader::*> field;
    Saved saved = Saved::Field;
};

// In the order in which files have them. A new field is a row here and a member of the structure.
constexpr const kmChar* kName = KM_TEXT("Name");
constexpr HeaderRow kRows[] = {
    {kName, Carrier::Attribute, &kmProfileHeader::name, Saved::ID},
    {KM_TEXT("Desc"), Carrier::Attribute, &kmProfileHeader::desc},
    {KM_TEXT("SName"), Carrier::Text, &kmProfileHeader::sName},
    {KM_TEXT("Format"), Carrier::Text, &kmProfileHeader::format},
    {KM_TEXT("ExtName"), Carrier::Text, &kmProfileHeader::extName},
    {KM_TEXT("IsSysProfile"), Carrier::Text, &kmProfileHeader::isSystem, Saved::Nothing},
};

void Store(kmString& field, const kmChar* text) { field = text; }
void Store(bool& field, const kmChar* text) { field = format::IsYes(text); }

kmString TextOf(const kmString& field) { return field; }
kmString TextOf(bool field) { return field ? format::kYes : KM_TEXT(""); }
kmString TextOf(const kmProfileHeader& header, const HeaderRow& row) {
    return std::visit([&](auto field) { return TextOf(header.*field); }, row.field);
}

}  // namespace

void ReadHeader(const XMLNode& main, kmProfileHeader& header) {
    header.isSystem = false;
    RowFinder finder(kRows);
    for (int i = 0; i < main.CountChildren(); ++i) {
        const XMLNode child = main.ChildAt(i);
        const std::size_t row = finder.FindNew(child.GetName());
        if (row == std::size(kRows)) continue;
        const bool isAttribute = kRows[row].carrier == Carrier::Attribute;
        const kmChar* text = isAttribute ? child.FindAttribute(format::kLanguage) : child.TextAt(0);
        if (text == nullptr) continue;
        std::visit([&](auto field) { Store(header.*field, text); }, kRows[row].field);
    }
}

void SetHeaderName(const XMLNode& main, const kmString& name) {
    main.FindChild(kName).SetAttribute(name.c_str(), nullptr, format::kLanguage);
}

void WriteHeader(const kmProfileHeader& header, XMLNode main) {
    for (const HeaderRow& row : kRows) {
        if (row.saved == Saved::Nothing) continue;
        const kmString text = TextOf(header, row);
        XMLNode child = main.AppendChild(row.name.data(), false);
        if (row.carrier == Carrier::Attribute) {
            child.SetAttribute(text.c_str(), nullptr, format::kLanguage);
        } else {
            child.SetText(text.c_str(), 0);
        }
    }
}

std::vector<HeaderField> HeaderFieldsOf(const kmProfileHeader& header) {
    std::vector<HeaderField> fields;
    for (const HeaderRow& row : kRows)
        fields.push_back({row.name, TextOf(header, row), row.saved == Saved::Field});
    return fields;
}

bool CopyHeaderField(kmProfileHeader& to, const kmProfileHeader& from, kmStringView name) {
    const auto row = std::find_if(std::begin(kRows), std::end(kRows), [name](const HeaderRow& candidate) {
        return candidate.name == name && candidate.saved == Saved::Field;
    });
    if (row == std::end(kRows)) return false;
    std::visit([&](auto field) { to.*field = from.*field; }, row->field);
    return true;
}
