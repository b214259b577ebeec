// SPDX-License-Identifier: MIT
// Texts compared as the library's home system compares them: only the ASCII letters have case.
#pragma once

#include <cstddef>
#include <cstring>
#include <string_view>
#include <type_traits>

#include "kmTypes.h"

using kmStringView = std::basic_string_view<kmChar>;

constexpr kmChar FoldLower(kmChar c) {
    return c >= KM_TEXT('A') && c <= KM_TEXT('Z') ? static_cast<kmChar>(c + 32) : c;
}

constexpr kmChar FoldUpper(kmChar c) {
    return c >= KM_TEXT('a') && c <= KM_TEXT('z') ? static_cast<kmChar>(c - 32) : c;
}

// Faster than ==, which compares unit by unit.
inline bool EqualExactly(kmStringView a, kmStringView b) {
    if (a.size() != b.size()) return false;
    if (a.empty()) return true;
    return a.front() == b.front() && std::memcmp(a.data(), b.data(), a.size() * sizeof(kmChar)) == 0;
}

constexpr bool EqualNoCase(kmStringView a, kmStringView b) {
    if (a.size() != b.size()) return false;
    if (a.empty()) return true;
    // Most texts that are equal are so to the letter, which is faster to see.
    if (!std::is_constant_evaluated() && std::memcmp(a.data(), b.data(), a.size() * sizeof(kmChar)) == 0)
        return true;
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (a[i] != b[i] && FoldLower(a[i]) != FoldLower(b[i])) return false;
    }
    return true;
}

// The order of folder listings: letters folded to upper case, unit by unit; names that differ in
// case alone stand in exact order.
constexpr bool NameLess(kmStringView a, kmStringView b) {
    const std::size_t shorter = a.size() < b.size() ? a.size() : b.size();
    for (std::size_t i = 0; i < shorter; ++i) {
        if (a[i] != b[i] && FoldUpper(a[i]) != FoldUpper(b[i])) return FoldUpper(a[i]) < FoldUpper(b[i]);
    }
    return a.size() != b.size() ? a.size() < b.size() : a < b;
}
