#include "Texts.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>

namespace {

constexpr std::uint32_t kEscape = 0xDC00;  // + a byte that stands for itself
constexpr kmChar kEscapedBackslash = 0xDC5C;

// Elsewhere "\" separates folders for the system too.
constexpr bool kNamesHoldBackslashes = std::filesystem::path::preferred_separator == '/';

struct Character {
    std::uint32_t code = 0;
    std::size_t size = 0;  // in bytes; 0 where there is no valid character
};

unsigned char ByteAt(std::string_view bytes, std::size_t at) { return static_cast<unsigned char>(bytes[at]); }

std::size_t SizeFromLead(unsigned char lead) {
    if (lead < 0x80) return 1;
    if (lead >= 0xC2 && lead <= 0xDF) return 2;
    if (lead >= 0xE0 && lead <= 0xEF) return 3;
    return lead >= 0xF0 && lead <= 0xF4 ? 4 : 0;
}

Character FirstCharacter(std::string_view bytes) {
    constexpr std::uint32_t kLeadBits[] = {0, 0x7F, 0x1F, 0x0F, 0x07};
    constexpr std::uint32_t kLowest[] = {0, 0, 0x80, 0x800, 0x10000};
    const std::size_t size = SizeFromLead(ByteAt(bytes, 0));
    if (size == 0 || size > bytes.size()) return {};
    std::uint32_t code = ByteAt(bytes, 0) & kLeadBits[size];
    for (std::size_t i = 1; i < size; ++i) {
        if ((ByteAt(bytes, i) & 0xC0) != 0x80) return {};
        code = code << 6 | (ByteAt(bytes, i) & 0x3Fu);
    }
    const bool isSurrogate = code >= 0xD800 && code <= 0xDFFF;
    if (code < kLowest[size] || code > 0x10FFFF || isSurrogate) return {};
    return {code, size};
}

void AppendUtf16(kmString& text, std::uint32_t code) {
    if (code < 0x10000) {
        text += static_cast<kmChar>(code);
        return;
    }
    text += static_cast<kmChar>(0xD800 + ((code - 0x10000) >> 10));
    text += static_cast<kmChar>(0xDC00 + ((code - 0x10000) & 0x3FF));
}

void AppendUtf8(std::string& bytes, std::uint32_t code) {
    const auto put = [&bytes](std::uint32_t byte) { bytes += static_cast<char>(byte); };
    if (code < 0x80) return put(code);
    if (code >= 0x10000) {
        put(0xF0 | code >> 18);
        put(0x80 | (code >> 12 & 0x3F));
        put(0x80 | (code >> 6 & 0x3F));
    } else if (code >= 0x800) {
        put(0xE0 | code >> 12);
        put(0x80 | (code >> 6 & 0x3F));
    } else {
        put(0xC0 | code >> 6);
    }
    put(0x80 | (code & 0x3F));
}

bool IsHighSurrogate(kmChar c) { return c >= 0xD800 && c <= 0xDBFF; }
bool IsLowSurrogate(kmChar c) { return c >= 0xDC00 && c <= 0xDFFF; }
bool IsEscape(kmChar c) { return (c >= kEscape + 0x80 && c <= kEscape + 0xFF) || c == kEscapedBackslash; }
bool IsControl(std::uint32_t code) { return code < 0x20 || (code >= 0x7F && code <= 0x9F); }

}  // namespace

kmString TextFromUtf8(std::string_view bytes) {
    kmString text;
    while (!bytes.empty()) {
        const Character character = FirstCharacter(bytes);
        AppendUtf16(text, character.size == 0 ? kEscape + ByteAt(bytes, 0) : character.code);
        bytes.remove_prefix(std::max<std::size_t>(character.size, 1));
    }
    return text;
}

kmString NameFromUtf8(std::string_view bytes) {
    kmString name = TextFromUtf8(bytes);
    if (kNamesHoldBackslashes) std::replace(name.begin(), name.end(), KM_TEXT('\\'), kEscapedBackslash);
    return name;
}

std::string Utf8FromText(std::basic_string_view<kmChar> text) {
    std::string bytes;
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

std::string Utf8FromPath(kmString path) {
    if (kNamesHoldBackslashes) std::replace(path.begin(), path.end(), KM_TEXT('\\'), KM_TEXT('/'));
    return Utf8FromText(path);
}

std::string Printable(std::string_view text) {
    std::string printable;
    while (!text.empty()) {
        const Character character = FirstCharacter(text);
        const std::size_t size = std::max<std::size_t>(character.size, 1);
        if (character.size != 0 && IsControl(character.code)) {
            printable += ' ';
        } else {
            printable += text.substr(0, size);
        }
        text.remove_prefix(size);
    }
    return printable;
}

std::string Quoted(std::string_view text) { return '"' + Printable(text) + '"'; }

std::string_view TrimSpaces(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}
