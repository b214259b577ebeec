// Texts as the tests compare them and failure messages show them.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "platform/Encoding.h"

inline std::string Utf8(kmStringView text) { return BytesFromText(text); }
inline std::string Utf8(const kmChar* text) { return text == nullptr ? "(null)" : BytesFromText(text); }

// UTF-16, little-endian, without a byte-order mark.
inline std::string Utf16Bytes(kmStringView text) {
    std::string bytes;
    for (const kmChar unit : text) {
        bytes += static_cast<char>(unit & 0xFF);
        bytes += static_cast<char>(unit >> 8);
    }
    return bytes;
}

// The text and its null unit in memory that ends right there, so that the address sanitizer sees a read of
// one unit too many.
inline std::vector<kmChar> ExactBuffer(kmStringView text) {
    std::vector<kmChar> buffer(text.size() + 1);
    std::copy(text.begin(), text.end(), buffer.begin());
    return buffer;
}
