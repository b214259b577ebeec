// SPDX-License-Identifier: MIT
// Between UTF-16 and bytes. The same code on every system.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "text/Ascii.h"

// Whether the bytes of a file are UTF-16, little-endian, with or without a byte-order mark. Never true for
// UTF-8 and ASCII text, which holds no zero byte.
bool IsUtf16Text(const unsigned char* bytes, std::size_t count);

// Converts UTF-8 strictly: false for anything that is no valid UTF-8. `units` must have room for `count`
// units, the most that can come out; `length` receives how many did.
[[nodiscard]] bool Utf8ToUtf16(const unsigned char* bytes, std::size_t count, kmChar* units,
                               std::size_t& length);

// File names and program arguments. What is no valid UTF-8, and a "\", which separates folders everywhere in
// the library, becomes one low surrogate a byte ({DC00} + the byte), so that every name of a file system
// comes back as it was.
kmString TextFromBytes(std::string_view bytes);

// The reverse of this and of kmTextFromUtf8: UTF-8, with the bytes that could not be decoded. Any other lone
// surrogate takes three bytes.
std::string BytesFromText(kmStringView text);
