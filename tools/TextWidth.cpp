// SPDX-License-Identifier: MIT
#include "TextWidth.h"

#include <algorithm>
#include <iterator>

#include "kmText.h"

namespace {

struct Range {
    char32_t first;
    char32_t last;
};

// From the Unicode tables of widths and of marks, with neighbours joined; unassigned characters in between
// count like them.
constexpr Range kWide[] = {
    {0x1100, 0x115F},   {0x231A, 0x231B},   {0x2329, 0x232A},   {0x23E9, 0x23EC},   {0x25FD, 0x25FE},
    {0x2614, 0x2615},   {0x2648, 0x2653},   {0x26AA, 0x26AB},   {0x26BD, 0x26BE},   {0x26C4, 0x26C5},
    {0x2705, 0x2705},   {0x270A, 0x270B},   {0x2728, 0x2728},   {0x274C, 0x274C},   {0x2753, 0x2755},
    {0x2795, 0x2797},   {0x2B1B, 0x2B1C},   {0x2B50, 0x2B50},   {0x2E80, 0x303E},   {0x3041, 0x33FF},
    {0x3400, 0x4DBF},   {0x4E00, 0xA4CF},   {0xA960, 0xA97F},   {0xAC00, 0xD7A3},   {0xF900, 0xFAFF},
    {0xFE30, 0xFE6F},   {0xFF01, 0xFF60},   {0xFFE0, 0xFFE6},   {0x16FE0, 0x18CFF}, {0x1B000, 0x1B2FF},
    {0x1F300, 0x1F64F}, {0x1F680, 0x1F6FF}, {0x1F7E0, 0x1F7EB}, {0x1F90C, 0x1F9FF}, {0x1FA70, 0x1FAFF},
    {0x20000, 0x3FFFD},
};
constexpr Range kJoining[] = {
    {0x0300, 0x036F}, {0x0483, 0x0489}, {0x0591, 0x05BD}, {0x05BF, 0x05C7}, {0x0610, 0x061A},
    {0x064B, 0x065F}, {0x06D6, 0x06DC}, {0x0900, 0x0902}, {0x093C, 0x093C}, {0x0941, 0x0948},
    {0x094D, 0x094D}, {0x0E31, 0x0E31}, {0x0E34, 0x0E3A}, {0x0E47, 0x0E4E}, {0x1AB0, 0x1AFF},
    {0x1DC0, 0x1DFF}, {0x200B, 0x200D}, {0x20D0, 0x20FF}, {0x302A, 0x302D}, {0x3099, 0x309A},
    {0xFE00, 0xFE0F}, {0xFE20, 0xFE2F},
};

template <std::size_t Count>
bool IsIn(const Range (&ranges)[Count], char32_t character) {
    const Range* end = std::end(ranges);
    const Range* range = std::lower_bound(std::begin(ranges), end, character,
                                          [](const Range& r, char32_t c) { return r.last < c; });
    return range != end && range->first <= character;
}

std::size_t WidthOf(char32_t character) {
    if (character < 0x300) return 1;
    if (IsIn(kJoining, character)) return 0;
    return IsIn(kWide, character) ? 2 : 1;
}

}  // namespace

std::size_t TextWidth(std::string_view utf8) {
    const kmString units = kmTextFromUtf8(utf8);
    std::size_t width = 0;
    for (std::size_t i = 0; i < units.size(); ++i) {
        char32_t character = units[i];
        const bool isPair = character >= 0xD800 && character < 0xDC00 && i + 1 < units.size() &&
                            units[i + 1] >= 0xDC00 && units[i + 1] <= 0xDFFF;
        if (isPair) character = 0x10000 + ((character - 0xD800) << 10) + (units[++i] - 0xDC00u);
        width += WidthOf(character);
    }
    return width;
}
