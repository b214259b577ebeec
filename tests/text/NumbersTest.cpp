// SPDX-License-Identifier: MIT
#include "text/Numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "tests/support/Text.h"

constexpr std::int32_t kMin = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();
constexpr std::int64_t kMin64 = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t kMax64 = std::numeric_limits<std::int64_t>::max();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(Numbers, ReadDecimal) {
    const std::string zeros(400, '0');
    // clang-format off
    const struct { const char* name; std::string text; double expected; } rows[] = {
        {"too_many_digits_are_zero", "1" + zeros, kInfinity},
        {"too_small_by_its_digits_is_infinite", "0." + zeros + "1", 0.0},
        {"exponent_judged_without_the_digits", "0." + zeros + "1e401", 1.0},
        {"large_exponent_overflows", "1e99999999999999999999", kInfinity},
        {"zero_made_infinite_by_its_exponent", "0.0e99999999999999999999", 0.0},
    };
    // clang-format on
    for (const auto& row : rows) {
        EXPECT_EQ(ReadDecimal(ExactBuffer(TextFromBytes(row.text)).data()), row.expected)
            << row.name << " given \"" << row.text << '"';
    }
}

TEST(Numbers, TruncateNeverLeavesTheRange) {
    // clang-format off
    const struct { const char* name; double value; std::int32_t in32; std::int64_t in64; } rows[] = {
        {"rounded_down_instead_of_toward_zero", -1.9, -1, -1},
        {"32_bits_wrap", 2147483648.0, kMax, 2147483648},
        {"64_bits_wrap", 9223372036854775808.0, kMax, kMax64},
        {"far_below_is_undefined", -kInfinity, kMin, kMin64},
        {"no_number_is_undefined", std::nan(""), 0, 0},
    };
    // clang-format on
    for (const auto& row : rows) {
        EXPECT_EQ(TruncateTo32(row.value), row.in32) << row.name << " given " << row.value;
        EXPECT_EQ(TruncateTo64(row.value), row.in64) << row.name << " given " << row.value;
    }
}
