// SPDX-License-Identifier: MIT
// UTF-8 is decoded strictly by one function; what it refuses is either a failure or, in names, kept as one lone
// surrogate a byte, which is what the encoder turns back into that byte.
#include "text/Encoding.h"

#include <cstdint>

#include "kmText.h"

namespace {

constexpr kmChar kEscape = 0xDC00;  // + a byte that stands for itself

constexpr bool IsHighSurrogate(kmChar c) { return c >= 0xD800 && c <= 0xDBFF; }
constexpr bool IsLowSurrogate(kmChar c) { return c >= 0xDC00 && c <= 0xDFFF; }
constexpr bool IsEscape(kmChar c) {
    return (c >= kEscape + 0x80 && c <= kEscape + 0xFF) || c == kEscape + '\\';
}

// One character of UTF-8 text; `size` is 0 where there is none.
struct Utf8Character {
    std::uint32_t code = 0;
    std::size_t size = 0;
};

struct Utf8Lead {
    std::uint32_t lowest;  // smaller codes have a shorter form
    std::uint32_t bits;    // of the code in the lead byte
    std::size_t size;
};

Utf8Lead DecodeLead(unsigned char lead) {
    if (lead >= 0xC2 && lead <= 0xDF) return {0x80, lead & 0x1Fu, 2};
    if (lead >= 0xE0 && lead <= 0xEF) return {0x800, lead & 0x0Fu, 3};
    if (lead >= 0xF0 && lead <= 0xF4) return {0x10000, lead & 0x07u, 4};
    return {0, 0, 0};
}

Utf8Character DecodeUtf8(const unsigned char* bytes, std::size_t count) {
    if (bytes[0] < 0x80) return {bytes[0], 1};
    const Utf8Lead lead = DecodeLead(bytes[0]);
    if (lead.size == 0 || lead.size > count) return {};
    std::uint32_t code = lead.bits;
    for (std::size_t i = 1; i < lead.size; ++i) {
        if ((bytes[i] & 0xC0) != 0x80) return {};
        code = code << 6 | (bytes[i] & 0x3Fu);
    }
    const bool isSurrogate = code >= 0xD800 && code <= 0xDFFF;
    if (code < lead.lowest || code > 0x10FFFF || isSurrogate) return {};
    return {code, lead.size};
}

std::size_t PutUtf16(std::uint32_t code, kmChar* units) {
    if (code < 0x10000) {
        units[0] = static_cast<kmChar>(code);
        return 1;
    }
    units[0] = static_cast<kmChar>(0xD800 + ((code - 0x10000) >> 10));
    units[1] = static_cast<kmChar>(0xDC00 + ((code - 0x10000) & 0x3FF));
    return 2;
}

void AppendUtf8(std::string& bytes, std::uint32_t code) {
    const auto put = [&](std::uint32_t byte) { bytes += static_cast<char>(byte); };
    if (code < 0x80) return put(code);
    if (code < 0x800) {
        put(0xC0 | code >> 6);
    } else {
        if (code < 0x10000) {
            put(0xE0 | code >> 12);
        } else {
            put(0xF0 | code >> 18);
            put(0x80 | (code >> 12 & 0x3F));
        }
        put(0x80 | (code >> 6 & 0x3F));
    }
    put(0x80 | (code & 0x3F));
}

bool HasTag(const unsigned char* bytes, std::size_t count) {
    bool opens = false;
    bool closes = false;
    for (std::size_t i = 0; i + 1 < count; i += 2) {
        if (bytes[i + 1] != 0) continue;
        opens = opens || bytes[i] == '<';
        closes = closes || bytes[i] == '>';
        if (opens && closes) return true;
    }
    return false;
}

kmString DecodeLossless(std::string_view bytes, bool escapesBackslash) {
    kmString text;
    text.reserve(bytes.size());
    const auto* data = reinterpret_cast<const unsigned char*>(bytes.data());
    for (std::size_t at = 0; at < bytes.size();) {
        const bool isEscaped = escapesBackslash && data[at] == '\\';
        if (data[at] < 0x80 && !isEscaped) {
            text += static_cast<kmChar>(data[at++]);
            continue;
        }
        const Utf8Character character = DecodeUtf8(data + at, bytes.size() - at);
        if (character.size == 0 || isEscaped) {
            text += static_cast<kmChar>(kEscape + data[at++]);
            continue;
        }
        kmChar units[2];
        text.append(units, PutUtf16(character.code, units));
        at += character.size;
    }
    return text;
}

}  // namespace

bool IsUtf16Text(const unsigned char* bytes, std::size_t count) {
    // A marked file that was cut off in the middle is still UTF-16, so the mark comes before the size.
    if (count >= 2 && bytes[0] == 0xFF && bytes[1] == 0xFE) return true;
    if (count < 2 || count % 2 != 0) return false;
    if (bytes[1] == 0 && bytes[0] != 0) return true;
    return HasTag(bytes, count);
}

bool Utf8ToUtf16(const unsigned char* bytes, std::size_t count, kmChar* units, std::size_t& length) {
    kmChar* out = units;
    for (std::size_t at = 0; at < count;) {
        const Utf8Character character = DecodeUtf8(bytes + at, count - at);
        if (character.size == 0) return false;
        out += PutUtf16(character.code, out);
        at += character.size;
    }
    length = static_cast<std::size_t>(out - units);
    return true;
}

kmString TextFromBytes(std::string_view bytes) { return DecodeLossless(bytes, /*escapesBackslash=*/true); }

std::string BytesFromText(kmStringView text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const kmChar unit = text[i];
        if (IsHighSurrogate(unit) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
            AppendUtf8(bytes, 0x10000u + ((unit - 0xD800u) << 10) + (text[++i] - 0xDC00u));
        } else if (IsEscape(unit)) {
            bytes += static_cast<char>(unit - kEscape);
        } else {
            AppendUtf8(bytes, unit);
        }
    }
    return bytes;
}

kmString kmTextFromUtf8(std::string_view bytes) { return DecodeLossless(bytes, /*escapesBackslash=*/false); }

std::string kmUtf8FromText(kmStringView text) { return BytesFromText(text); }

bool kmSameName(kmStringView a, kmStringView b) { return EqualNoCase(a, b); }
