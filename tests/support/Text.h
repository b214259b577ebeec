// SPDX-License-Identifier: MIT
// Texts as the tests compare them and failure messages show them.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "text/Encoding.h"

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

// Of UTF-8 in a table, where a backslash separates.
inline kmString Text(std::string_view bytes) {
    kmString text = TextFromBytes(bytes);
    std::replace(text.begin(), text.end(), TextFromBytes("\\").front(), KM_TEXT('\\'));
    return text;
}

// The texts between the bars; of an empty list none.
inline std::vector<kmString> Pieces(std::string_view list) {
    std::vector<kmString> pieces;
    for (std::size_t start = 0; !list.empty() && start <= list.size();) {
        const std::size_t end = std::min(list.find('|', start), list.size());
        pieces.push_back(TextFromBytes(list.substr(start, end - start)));
        start = end + 1;
    }
    return pieces;
}

// A bar in front of each.
inline std::string Joined(const std::vector<kmString>& texts) {
    std::string joined;
    for (const kmString& text : texts) joined += '|' + Utf8(text);
    return joined;
}
