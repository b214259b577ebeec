// SPDX-License-Identifier: MIT
// A second reading of the values that profiles hold, as plain as the description of the format and never
// fast: what the library's own reading is compared with. Texts have no null units.
#pragma once

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "kmTypes.h"

namespace plain {

// 0 after the end, so that nothing has to ask for it.
inline kmChar At(const kmString& text, std::size_t at) { return at < text.size() ? text[at] : kmChar{0}; }

inline bool IsDigit(kmChar c) { return c >= '0' && c <= '9'; }
inline kmChar Lower(kmChar c) { return c >= 'A' && c <= 'Z' ? static_cast<kmChar>(c + 32) : c; }

// Only what is ASCII can be part of a number.
inline std::string Narrow(const kmString& text) {
    std::string narrow;
    for (const kmChar c : text) narrow += c < 128 ? static_cast<char>(c) : '?';
    return narrow;
}

inline bool Is(kmString text, const kmChar* word) {
    for (kmChar& c : text) c = Lower(c);
    return text == word;
}

struct Integer {
    std::int32_t value = 0;
    std::size_t end = 0;  // where reading stopped
};

inline Integer ReadInteger(const kmString& text, int base) {
    const std::string narrow = Narrow(text);
    char* end = nullptr;
    const long long value = std::strtoll(narrow.c_str(), &end, base);
    return {static_cast<std::int32_t>(std::clamp<long long>(value, INT32_MIN, INT32_MAX)),
            static_cast<std::size_t>(end - narrow.c_str())};
}

inline std::int32_t Whole(const kmString& text) { return ReadInteger(text, 10).value; }

// Hexadecimal numbers, infinity and "nan" are none.
inline double ReadDecimal(const kmString& text) {
    const std::string narrow = Narrow(text);
    const std::size_t first = narrow.find_first_not_of(" \t\n\v\f\r+-");
    if (first == narrow.npos) return 0;
    const bool isHexadecimal = narrow[first] == '0' && Lower(At(text, first + 1)) == 'x';
    const bool isWord = std::isalpha(static_cast<unsigned char>(narrow[first])) != 0;
    return isHexadecimal || isWord ? 0 : std::strtod(narrow.c_str(), nullptr);
}

// One or two digits up to `limit`; -1 otherwise.
inline int Field(const kmString& text, std::size_t& at, int limit) {
    if (!IsDigit(At(text, at))) return -1;
    int value = At(text, at++) - '0';
    if (IsDigit(At(text, at))) value = value * 10 + At(text, at++) - '0';
    return value <= limit ? value : -1;
}

// Hours, minutes and seconds; a negative value when the text does not begin with them.
inline Integer ReadClock(const kmString& text) {
    std::size_t at = 0;
    const int hours = Field(text, at, 23);
    if (hours < 0 || At(text, at++) != ':') return {-1, 0};
    const int minutes = Field(text, at, 59);
    if (minutes < 0 || At(text, at++) != ':') return {-1, 0};
    const int seconds = Field(text, at, 59);
    return {seconds < 0 ? -1 : hours * 3600 + minutes * 60 + seconds, at};
}

inline std::int64_t ParseDuration(const kmString& text) {
    const bool isNegative = At(text, 0) == '-';
    const kmString rest = isNegative ? text.substr(1) : text;
    Integer seconds = ReadClock(rest);
    if (seconds.value < 0) seconds = ReadInteger(rest, 10);
    std::int64_t time = seconds.value * std::int64_t{1'000'000};
    std::size_t at = seconds.end;
    if (At(rest, at) == '.') {
        for (int worth = 100'000; worth > 0 && IsDigit(At(rest, ++at)); worth /= 10)
            time += (At(rest, at) - '0') * worth;
    }
    return isNegative ? -time : time;
}

struct Size {
    std::int32_t width = 0;
    std::int32_t height = 0;
};

inline Size ReadFrameSize(const kmString& text) {
    const Integer width = ReadInteger(text, 10);
    return {width.value, width.end < text.size() ? Whole(text.substr(width.end + 1)) : 0};
}

// `seconds` stays where nothing is said about it.
inline int IsValidTime(const kmString& text, int& seconds) {
    if (text.empty()) return 1;
    std::vector<kmString> fields(1);
    for (const kmChar c : text) {
        if (c == ':' && fields.size() < 3) {
            fields.emplace_back();
        } else if (IsDigit(c)) {
            fields.back() += c;
        } else {
            return -1;
        }
    }
    bool isWellFormed = fields.size() == 3;
    std::uint32_t total = 0;  // wraps around
    for (std::size_t i = 0; i < fields.size(); ++i) {
        total = total * 60 + static_cast<std::uint32_t>(Whole(fields[i]));
        isWellFormed = isWellFormed && fields[i].size() <= 2 && (i == 0 || Whole(fields[i]) <= 59);
    }
    seconds = static_cast<std::int32_t>(total);
    return isWellFormed ? 1 : 0;
}

// Frame rates and aspect ratios.
inline bool IsRatio(const kmString& value, bool isRate) {
    if (Is(value, KM_TEXT("auto"))) return true;
    if (value.find_first_not_of(KM_TEXT("0123456789.:/")) != kmString::npos) return false;
    std::size_t separator = value.find(KM_TEXT(':'));
    if (isRate && separator == kmString::npos) separator = value.find(KM_TEXT('/'));
    if (separator == kmString::npos) return ReadDecimal(value) >= 0.01;
    return Whole(value) != 0 && Whole(value.substr(separator + 1)) != 0;
}

inline bool IsEvenSize(Size size) {
    return size.width >= 1 && size.height >= 1 && size.width % 2 == 0 && size.height % 2 == 0;
}

inline bool IsChannelCount(std::int32_t count) {
    return count == 1 || count == 2 || count == 5 || count == 6;
}

inline bool IsAccepted(const std::string& id, const kmString& value) {
    int seconds = 0;
    const bool isTime = IsValidTime(value, seconds) >= 0;
    const bool isFull = Is(value, KM_TEXT("full"));
    if (id == "ss") return isTime;
    if (id == "t") return isTime || isFull;
    if (id == "s") return IsEvenSize(ReadFrameSize(value));
    if (id == "b" || id == "ab") return Is(value, KM_TEXT("auto")) || Whole(value) > 0;
    if (id == "r" || id == "aspect") return IsRatio(value, id == "r");
    if (id == "ac") return IsChannelCount(Whole(value));
    if (id == "pt" || id == "pi") return (id == "pt" && isFull) || ReadDecimal(value) > 0.05;
    return true;
}

inline kmString Trim(kmString text, kmChar unit) {
    while (!text.empty() && text.front() == unit) text.erase(0, 1);
    while (!text.empty() && text.back() == unit) text.pop_back();
    return text;
}

inline std::vector<kmString> Split(const kmString& text, kmChar separator) {
    std::vector<kmString> pieces(1);
    for (const kmChar c : text) {
        if (c == separator) {
            pieces.emplace_back();
        } else {
            pieces.back() += c;
        }
    }
    for (kmString& piece : pieces) piece = Trim(piece, ' ');
    return pieces;
}

}  // namespace plain
