// SPDX-License-Identifier: MIT
// Integers are read digit by digit and held at the limits. Decimals are cut out of the text first, as the home
// system delimits them, and then converted by the standard library, which rounds correctly and knows no locale;
// it does not tell overflow from underflow, so that is decided by the number's magnitude.
#include "text/Numbers.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <limits>
#include <string>

namespace {

constexpr bool IsSpace(kmChar c) { return c == KM_TEXT(' ') || (c >= 9 && c <= 13); }

constexpr int kNoDigit = 99;

constexpr int DigitValue(kmChar c) {
    if (IsDigit(c)) return c - KM_TEXT('0');
    const kmChar letter = FoldLower(c);
    return letter >= KM_TEXT('a') && letter <= KM_TEXT('f') ? letter - KM_TEXT('a') + 10 : kNoDigit;
}

const kmChar* SkipSpace(const kmChar* at) {
    while (IsSpace(*at)) ++at;
    return at;
}

const kmChar* SkipDigits(const kmChar* at) {
    while (IsDigit(*at)) ++at;
    return at;
}

// Takes a sign, if there is one; true for "-".
bool TakeSign(const kmChar*& at) {
    if (*at != KM_TEXT('-') && *at != KM_TEXT('+')) return false;
    return *at++ == KM_TEXT('-');
}

// Takes the prefix that base 0 looks for and returns the base of the digits after it. "0x" is a prefix only
// with a digit after it; else its "0" is the whole number.
int TakePrefix(const kmChar*& at) {
    if (*at != KM_TEXT('0')) return 10;
    if (FoldLower(at[1]) != KM_TEXT('x') || DigitValue(at[2]) >= 16) return 8;
    at += 2;
    return 16;
}

// The part of a text that is a decimal number: [begin, end) without its sign; empty without digits.
struct DecimalSpan {
    const kmChar* begin;
    const kmChar* end;
    bool negative;
};

DecimalSpan FindDecimal(const kmChar* text) {
    const kmChar* begin = SkipSpace(text);
    const bool negative = TakeSign(begin);
    const kmChar* end = SkipDigits(begin);
    std::ptrdiff_t digits = end - begin;
    if (*end == KM_TEXT('.')) {
        const kmChar* fraction = end + 1;
        end = SkipDigits(fraction);
        digits += end - fraction;
    }
    if (digits == 0) return {begin, begin, negative};
    if (FoldLower(*end) == KM_TEXT('e')) {
        const kmChar* exponent = end + 1;
        TakeSign(exponent);
        if (IsDigit(*exponent)) end = SkipDigits(exponent);
    }
    return {begin, end, negative};
}

// Whether a number that no double holds is too large rather than too small. Its digits cannot all be zero.
bool IsTooLarge(const std::string& number) {
    const std::size_t exponentAt = number.find_first_of("eE");
    const std::string mantissa = number.substr(0, exponentAt);
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const std::size_t first = mantissa.find_first_of("123456789");
    long long magnitude =
        first < point ? static_cast<long long>(point - first) : -static_cast<long long>(first - point - 1);
    if (exponentAt == std::string::npos) return magnitude > 0;
    // Far beyond the length of any text, so that a capped exponent still decides.
    constexpr long long kFar = std::numeric_limits<long long>::max() / 4;
    const bool negative = number[exponentAt + 1] == '-';
    const std::size_t digits = number.find_first_of("0123456789", exponentAt);
    long long exponent = 0;
    for (std::size_t i = digits; i < number.size() && exponent < kFar / 10; ++i) {
        exponent = exponent * 10 + (number[i] - '0');
    }
    magnitude += negative ? -exponent : exponent;
    return magnitude > 0;
}

}  // namespace

std::int32_t ReadInteger(const kmChar* text, int base, const kmChar** end) {
    const kmChar* at = SkipSpace(text);
    const bool negative = TakeSign(at);
    if (base == 0) base = TakePrefix(at);
    const std::int64_t limit = negative ? -static_cast<std::int64_t>(std::numeric_limits<std::int32_t>::min())
                                        : std::numeric_limits<std::int32_t>::max();
    std::int64_t value = 0;
    const kmChar* const digits = at;
    for (; DigitValue(*at) < base; ++at) {
        value = std::min(value * base + DigitValue(*at), limit);
    }
    if (end != nullptr) *end = at == digits ? text : at;
    return static_cast<std::int32_t>(negative ? -value : value);
}

double ReadDecimal(const kmChar* text) {
    const DecimalSpan span = FindDecimal(text);
    if (span.begin == span.end) return 0.0;
    std::string number;
    number.reserve(static_cast<std::size_t>(span.end - span.begin));
    for (const kmChar* at = span.begin; at != span.end; ++at) number += static_cast<char>(*at);
    double value = 0.0;
    const auto [rest, error] = std::from_chars(number.data(), number.data() + number.size(), value);
    if (error == std::errc::result_out_of_range) {
        value = IsTooLarge(number) ? std::numeric_limits<double>::infinity() : 0.0;
    }
    return span.negative ? -value : value;
}

kmString IntegerText(std::int32_t value) {
    char digits[12];
    const char* const end = std::to_chars(digits, digits + sizeof digits, value).ptr;
    return kmString(static_cast<const char*>(digits), end);
}

std::int32_t TruncateTo32(double value) {
    if (value >= 2147483647.0) return std::numeric_limits<std::int32_t>::max();
    if (value <= -2147483648.0) return std::numeric_limits<std::int32_t>::min();
    return value == value ? static_cast<std::int32_t>(value) : 0;
}

std::int64_t TruncateTo64(double value) {
    if (value >= 9223372036854775808.0) return std::numeric_limits<std::int64_t>::max();
    if (value <= -9223372036854775808.0) return std::numeric_limits<std::int64_t>::min();
    return value == value ? static_cast<std::int64_t>(value) : 0;
}
