// SPDX-License-Identifier: MIT
// From UTF-16 to UTF-8, as fast as a program that feeds a UTF-8 reader can do it.
#pragma once

#include <cstddef>

// Converts `count` units. `bytes` must have room for kUtf8Padding more than three bytes a unit. Returns how
// many bytes there are. A lone surrogate gives three bytes.
std::size_t Utf16ToUtf8(const char16_t* units, std::size_t count, char* bytes);

// From valid UTF-8 to UTF-16, likewise. `units` must have room for as many units as there are bytes. Returns
// how many there are.
std::size_t WidenUtf8(const char* bytes, std::size_t count, char16_t* units);

inline constexpr std::size_t kUtf8Padding = 16;
