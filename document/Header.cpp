// SPDX-License-Identifier: MIT
// The children of "Main" are walked once; each that the table knows gives one field, the first of its name.
#include "document/Header.h"

#include <algorithm>
#include <iterator>
#include <variant>

#include "document/Format.h"
#include "document/HeaderFields.h"
#include "document/RowFinder.h"

namespace {

void Store(kmString& field, const kmChar* text) { field = text; }
void Store(bool& field, const kmChar* text) { field = format::IsYes(text); }

kmString TextOf(const kmString& field) { return field; }
kmString TextOf(bool field) { return field ? format::kYes : KM_TEXT(""); }
kmString TextOf(const kmProfileHeader& header, const HeaderFieldRow& row) {
    return std::visit([&](auto field) { return TextOf(header.*field); }, row.field);
}

}  // namespace

void ReadHeader(const XMLNode& main, kmProfileHeader& header) {
    header.isSystem = false;
    RowFinder finder(kHeaderFields);
    for (int i = 0; i < main.CountChildren(); ++i) {
        const XMLNode child = main.ChildAt(i);
        const std::size_t row = finder.FindNew(child.GetName());
        if (row == std::size(kHeaderFields)) continue;
        const bool isAttribute = kHeaderFields[row].carrier == HeaderCarrier::Attribute;
        const kmChar* text = isAttribute ? child.FindAttribute(format::kLanguage) : child.TextAt(0);
        if (text == nullptr) continue;
        std::visit([&](auto field) { Store(header.*field, text); }, kHeaderFields[row].field);
    }
}

void SetHeaderName(const XMLNode& main, const kmString& name) {
    main.FindChild(kHeaderFields[0].name.data()).SetAttribute(name.c_str(), nullptr, format::kLanguage);
}

void WriteHeader(const kmProfileHeader& header, XMLNode main) {
    for (const HeaderFieldRow& row : kHeaderFields) {
        if (row.saved == HeaderSaving::Nothing) continue;
        const kmString text = TextOf(header, row);
        XMLNode child = main.AppendChild(row.name.data(), false);
        if (row.carrier == HeaderCarrier::Attribute) {
            child.SetAttribute(text.c_str(), nullptr, format::kLanguage);
        } else {
            child.SetText(text.c_str(), 0);
        }
    }
}

std::vector<HeaderField> HeaderFieldsOf(const kmProfileHeader& header) {
    std::vector<HeaderField> fields;
    for (const HeaderFieldRow& row : kHeaderFields)
        fields.push_back({row.name, TextOf(header, row), row.saved == HeaderSaving::Field});
    return fields;
}

bool CopyHeaderField(kmProfileHeader& to, const kmProfileHeader& from, kmStringView name) {
    const auto row = std::find_if(std::begin(kHeaderFields), std::end(kHeaderFields),
                                  [name](const HeaderFieldRow& candidate) {
                                      return candidate.name == name && candidate.saved == HeaderSaving::Field;
                                  });
    if (row == std::end(kHeaderFields)) return false;
    std::visit([&](auto field) { to.*field = from.*field; }, row->field);
    return true;
}
