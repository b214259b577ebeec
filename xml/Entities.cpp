// SPDX-License-Identifier: MIT
// Entities are checked before anything is changed and decoded in place later: a decoded text is never longer.
#include "xml/Entities.h"

#include <algorithm>
#include <cstdint>

#include "text/Numbers.h"

namespace {

struct NamedEntity {
    kmStringView text;  // with "&" and ";"
    kmChar character;
};

constexpr NamedEntity kEntities[] = {
    {KM_TEXT("&amp;"), KM_TEXT('&')},  {KM_TEXT("&lt;"), KM_TEXT('<')},    {KM_TEXT("&gt;"), KM_TEXT('>')},
    {KM_TEXT("&quot;"), KM_TEXT('"')}, {KM_TEXT("&apos;"), KM_TEXT('\'')},
};

// One reference: the unit that it stands for and its length; a length of 0 where there is none.
struct Reference {
    kmChar unit = 0;
    std::size_t length = 0;
};

std::uint32_t HexValue(kmChar c) {
    if (IsDigit(c)) return c - std::uint32_t{'0'};
    const kmChar letter = FoldLower(c);
    return letter >= KM_TEXT('a') && letter <= KM_TEXT('f') ? letter - std::uint32_t{'a'} + 10 : 16;
}

// `text` begins with "&#". Only the low 16 bits of the number count, so overflow does not matter.
Reference ReadNumericReference(kmStringView text) {
    const bool isHex = text.size() > 2 && FoldLower(text[2]) == KM_TEXT('x');
    const std::uint32_t base = isHex ? 16 : 10;
    const std::size_t digits = isHex ? 3 : 2;
    std::uint32_t value = 0;
    std::size_t at = digits;
    for (; at < text.size() && HexValue(text[at]) < base; ++at) value = value * base + HexValue(text[at]);
    if (at == digits || at == text.size() || text[at] != KM_TEXT(';')) return {};
    return {static_cast<kmChar>(value), at + 1};
}

// `text` begins with "&".
Reference ReadReference(kmStringView text) {
    if (text.size() > 1 && text[1] == KM_TEXT('#')) return ReadNumericReference(text);
    for (const NamedEntity& entity : kEntities) {
        if (EqualNoCase(text.substr(0, entity.text.size()), entity.text)) {
            return {entity.character, entity.text.size()};
        }
    }
    return {};
}

}  // namespace

bool EntitiesAreKnown(kmStringView text) {
    for (std::size_t at = text.find(KM_TEXT('&')); at != kmStringView::npos;
         at = text.find(KM_TEXT('&'), at)) {
        const Reference reference = ReadReference(text.substr(at));
        if (reference.length == 0) return false;
        at += reference.length;
    }
    return true;
}

std::size_t DecodeEntities(kmChar* text, std::size_t length) {
    const kmStringView source(text, length);
    kmChar* out = text;
    for (std::size_t at = 0; at < length;) {
        if (source[at] != KM_TEXT('&')) {
            *out++ = source[at++];
            continue;
        }
        const Reference reference = ReadReference(source.substr(at));
        *out++ = reference.unit;
        at += reference.length;
    }
    return static_cast<std::size_t>(out - text);
}

kmStringView EntityFor(kmChar c) {
    const auto* entity = std::find_if(std::begin(kEntities), std::end(kEntities),
                                      [c](const NamedEntity& known) { return known.character == c; });
    return entity == std::end(kEntities) ? kmStringView() : entity->text;
}
