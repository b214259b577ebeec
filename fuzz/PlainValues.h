// A second reading of the values that profiles hold, as plain as the description of the format and never
// fast: what the library's own reading is compared with. Texts have no null units.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "kmTypes.h"

namespace plain {

// 0 after the end, so that nothing has to ask for it.
inline kmChar At(const kmString& text, std::size_t at) { return at < text.size() ? text[at] : kmChar{0}; }

inline bool IsSpace(kmChar c) { return c == 32 || (c >= 9 && c <= 13); }
inline bool IsDigit(kmChar c) { return c >= '0' && c <= '9'; }
inline bool IsSign(kmChar c) { return c == '-' || c == '+'; }
inline kmChar Lower(kmChar c) { return c >= 'A' && c <= 'Z' ? static_cast<kmChar>(c + 32) : c; }

inline int DigitIn(kmChar c, int base) {
    int value = 99;
    if (IsDigit(c)) value = c - '0';
    if (Lower(c) >= 'a' && Lower(c) <= 'z') value = Lower(c) - 'a' + 10;
    return value < base ? value : -1;
}

inline bool Is(kmString text, const kmChar* word) {
    for (kmChar& c : text) c = Lower(c);
    return text == word;
}

inline std::size_t EndOfDigits(const kmString& text, std::size_t at) {
    while (IsDigit(At(text, at))) ++at;
    return at;
}

struct Integer {
    std::int32_t value = 0;
    std::size_t end = 0;  // where reading stopped
};

inline Integer ReadInteger(const kmString& text, int base) {
    std::size_t at = 0;
    while (IsSpace(At(text, at))) ++at;
    const long double sign = At(text, at) == '-' ? -1 : 1;
    if (IsSign(At(text, at))) ++at;
    if (base == 0 && At(text, at) == '0' && Lower(At(text, at + 1)) == 'x' &&
        DigitIn(At(text, at + 2), 16) >= 0) {
        base = 16;
        at += 2;
    }
    if (base == 0) base = At(text, at) == '0' ? 8 : 10;
    if (DigitIn(At(text, at), base) < 0) return {};
    long double value = 0;
    for (; DigitIn(At(text, at), base) >= 0; ++at) value = value * base + sign * DigitIn(At(text, at), base);
    if (value > INT32_MAX) value = INT32_MAX;
    if (value < INT32_MIN) value = INT32_MIN;
    return {static_cast<std::int32_t>(value), at};
}

inline std::int32_t Whole(const kmString& text) { return ReadInteger(text, 10).value; }

// The end of the number is found here; what it is worth, the C library says.
inline double ReadDecimal(const kmString& text) {
    std::size_t begin = 0;
    while (IsSpace(At(text, begin))) ++begin;
    const std::size_t whole = begin + (IsSign(At(text, begin)) ? 1 : 0);
    const std::size_t point = EndOfDigits(text, whole);
    std::size_t end = At(text, point) == '.' ? EndOfDigits(text, point + 1) : point;
    if (point == whole && end <= point + 1) return 0;
    if (Lower(At(text, end)) == 'e') {
        const std::size_t exponent = end + (IsSign(At(text, end + 1)) ? 2 : 1);
        if (IsDigit(At(text, exponent))) end = EndOfDigits(text, exponent);
    }
    return std::strtod(std::string(text.begin() + static_cast<std::ptrdiff_t>(begin),
                                   text.begin() + static_cast<std::ptrdiff_t>(end))
                           .c_str(),
                       nullptr);
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
