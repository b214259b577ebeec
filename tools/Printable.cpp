// SPDX-License-Identifier: MIT
#include "Printable.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

#include "kmFolders.h"
#include "kmText.h"

namespace {

struct Range {
    kmChar first;
    kmChar last;
};

constexpr Range kControls[] = {
    {0x0000, 0x001F}, {0x007F, 0x009F},                                      // C0, DEL and C1
    {0x061C, 0x061C}, {0x200E, 0x200F}, {0x202A, 0x202E}, {0x2066, 0x2069},  // direction of writing
};

// C1 as single bytes, which are no UTF-8.
constexpr Range kStrayControls = {0xDC80, 0xDC9F};

constexpr bool IsIn(const Range& range, kmChar unit) { return unit >= range.first && unit <= range.last; }

bool IsControl(kmChar unit) {
    return std::any_of(std::begin(kControls), std::end(kControls),
                       [unit](const Range& range) { return IsIn(range, unit); });
}

// Whether the unit after this one is the second half of a character.
constexpr bool OpensPair(kmChar unit) { return IsIn({0xD800, 0xDBFF}, unit); }

}  // namespace

std::string Printable(std::string_view text) {
    kmString units = kmTextFromUtf8(text);
    for (std::size_t i = 0; i < units.size(); ++i) {
        const bool isStray = IsIn(kStrayControls, units[i]) && (i == 0 || !OpensPair(units[i - 1]));
        if (isStray || IsControl(units[i])) units[i] = KM_TEXT(' ');
    }
    return kmUtf8FromText(units);
}

std::string Quoted(std::string_view text) { return '"' + Printable(text) + '"'; }

std::string QuotedID(const kmString& id) { return Quoted(kmUtf8FromPath(id)); }
