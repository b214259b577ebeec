// SPDX-License-Identifier: MIT
#include "text/kmCTString.h"

#include <algorithm>

#include "text/Numbers.h"

kmCTString& kmCTString::operator=(const kmCTString& other) {
    if (this != &other) assign(other.c_str());
    return *this;
}

bool kmCTString::IsEqualNoCase(const kmChar* text) const {
    return text != nullptr && EqualNoCase(c_str(), text);
}

bool kmCTString::IsEqual(const kmChar* text) const { return text != nullptr && *this == text; }

std::int32_t kmCTString::ToInt() const { return ReadInteger(c_str(), 0); }

void kmCTString::ReplaceAll(const kmChar* replacement, const kmChar* target) {
    if (replacement == nullptr || target == nullptr || *target == 0) return;
    const kmStringView wanted = target;
    // Built beside the text: replacing in place would move the rest once for every occurrence.
    kmString result;
    std::size_t from = 0;
    for (std::size_t at = find(wanted); at != npos; at = find(wanted, from)) {
        result.append(*this, from, at - from).append(replacement);
        from = at + wanted.size();
    }
    if (from == 0) return;
    result.append(*this, from);
    swap(result);
}

void kmCTString::TrimLeft(kmChar unit) { erase(0, size() - TrimLeftView(*this, unit).size()); }

void kmCTString::Trim(kmChar unit) {
    TrimLeft(unit);
    erase(find_last_not_of(unit) + 1);
}

void kmCTString::MakeLower() { std::transform(begin(), end(), begin(), FoldLower); }

void kmCTString::Split(std::vector<kmString>& pieces, kmChar separator) const {
    SplitText(*this, separator, pieces);
}

void kmCTString::Join(const std::vector<kmString>& items, kmChar separator) {
    kmString joined;
    JoinTexts(items, separator, joined);
    swap(joined);
}

kmStringView TrimLeftView(kmStringView text, kmChar unit) {
    while (!text.empty() && text.front() == unit) text.remove_prefix(1);
    return text;
}

kmStringView TrimView(kmStringView text, kmChar unit) {
    text = TrimLeftView(text, unit);
    while (!text.empty() && text.back() == unit) text.remove_suffix(1);
    return text;
}

void SplitText(kmStringView text, kmChar separator, std::vector<kmString>& pieces) {
    pieces.clear();
    pieces.reserve(static_cast<std::size_t>(std::count(text.begin(), text.end(), separator)) + 1);
    ForEachPiece(text, separator, [&pieces](kmStringView piece) { pieces.emplace_back(piece); });
}

void JoinTexts(const std::vector<kmString>& items, kmChar separator, kmString& joined) {
    joined.clear();
    std::size_t length = items.size();
    for (const kmString& item : items) length += item.size();
    joined.reserve(length);
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (i > 0) joined += separator;
        joined += items[i];
    }
}
