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

TEST(Numbers, IntegerTextReadsBack) {
    for (const std::int32_t value : {kMin, kMin + 1, -10, -1, 0, 9, 10, 999999999, kMax}) {
        EXPECT_EQ(Utf8(IntegerText(value)), std::to_string(value));
        EXPECT_EQ(ReadInteger(IntegerText(value).c_str(), 10), value);
    }
}

TEST(Numbers, ReadDecimal) {
    const std::string zeros(400, '0');
    // clang-format off
    const struct { const char* name; std::string text; double expected; } rows[] = {
        {"empty_text_read", "", 0.0},
        {"point_taken_for_a_digit", "-.", 0.0},
        {"digits_before_the_point_demanded", " +.5", 0.5},
        {"digits_after_the_point_demanded", "5.x", 5.0},
        {"second_point_taken", "1.2.3", 1.2},
        {"comma_taken_for_the_point", "1,5", 1.0},
        {"white_space_or_minus_lost", "\t-29.97", -29.97},
        {"exponent_in_capitals_or_its_plus_refused", "1.5E+2x", 150.0},
        {"exponent_without_digits_taken", "2e-", 2.0},
        {"d_taken_for_an_exponent", "1d3", 1.0},
        {"hexadecimal_read", "0x10", 0.0},
        {"infinity_spelt_out_read", "inf", 0.0},
        {"full_width_digit_taken", "1\uff13", 1.0},
        {"rounded_up_where_even_is_below", "9007199254740993", 9007199254740992.0},
        {"smallest_number_lost", "4.9e-324", 4.9e-324},
        {"too_low_is_zero", "-1e400", -kInfinity},
        {"too_many_digits_are_zero", "1" + zeros, kInfinity},
        {"too_small_is_infinite", "1e-400", 0.0},
        {"too_small_by_its_digits_is_infinite", "0." + zeros + "1", 0.0},
        {"exponent_judged_without_the_digits", "0." + zeros + "1e401", 1.0},
        {"large_exponent_overflows", "1e99999999999999999999", kInfinity},
        {"small_exponent_overflows", "1e-99999999999999999999", 0.0},
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
