// SPDX-License-Identifier: MIT
// The one place that reads and writes numbers: the same answers on every system, whatever the
// process's locale. Digits are "0" to "9", white space is the ASCII kind (9 to 13 and 32).
#pragma once

#include <cstdint>

#include "text/Ascii.h"

constexpr bool IsDigit(kmChar c) { return c >= KM_TEXT('0') && c <= KM_TEXT('9'); }

// The integer at the start of `text`: white space, a sign, digits. Base 10, or base 0, where "0x" and "0X"
// introduce hexadecimal and a leading "0" octal digits. Without digits 0; beyond 32 bits the nearest limit.
// `end`, when not null, receives where reading stopped: after the last digit, or `text` itself without
// digits.
std::int32_t ReadInteger(const kmChar* text, int base, const kmChar** end = nullptr);

// The decimal number at the start of `text`: white space, a sign, digits with at most one ".", an exponent.
// Correctly rounded; without digits 0; too large infinity; nothing but decimal digits is a number.
double ReadDecimal(const kmChar* text);

// The decimal form, with "-" in front of negative values.
kmString IntegerText(std::int32_t value);

// Truncated toward zero; the nearest limit beyond the range, 0 for what is no number.
std::int32_t TruncateTo32(double value);
std::int64_t TruncateTo64(double value);

// Arithmetic of 32-bit integers that wraps around instead of being undefined.
constexpr std::int32_t WrapMultiply(std::int32_t a, std::int32_t b) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) * static_cast<std::uint32_t>(b));
}
constexpr std::int32_t WrapAdd(std::int32_t a, std::int32_t b) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) + static_cast<std::uint32_t>(b));
}
