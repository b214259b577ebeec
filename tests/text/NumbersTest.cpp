#include "text/Numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "tests/support/Text.h"

constexpr std::int32_t kMin = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(Numbers, ReadInteger) {
    // clang-format off
    const struct { const char* text; int base0, end0, base10, end10; } rows[] = {
        {"", 0, 0, 0, 0}, {"  -", 0, 0, 0, 0}, {"- 5", 0, 0, 0, 0}, {"+-5", 0, 0, 0, 0}, {"abc", 0, 0, 0, 0},
        {"+5", 5, 2, 5, 2}, {" \t\n\v\f\r-7 ", -7, 8, -7, 8}, {"  12px", 12, 4, 12, 4}, {"1.9", 1, 1, 1, 1},
        {"0X1Fg", 31, 4, 0, 1}, {"-0x10", -16, 5, 0, 2}, {"0xg", 0, 1, 0, 1}, {"-0x", 0, 2, 0, 2},
        {"010", 8, 3, 10, 3}, {"08", 0, 1, 8, 2}, {"00x10", 0, 2, 0, 2}, {"2147483647", kMax, 10, kMax, 10},
        {"-2147483648", kMin, 11, kMin, 11}, {"2147483648", kMax, 10, kMax, 10},
        {"-2147483649", kMin, 11, kMin, 11}, {"4294967301", kMax, 10, kMax, 10},
        {"18446744073709551621", kMax, 20, kMax, 20}, {"0xFFFFFFFF", kMax, 10, 0, 1}, {"1\uff13", 1, 1, 1, 1},
        {"\u00a05", 0, 0, 0, 0}};
    // clang-format on
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        const auto exact = ExactBuffer(TextFromBytes(row.text));
        const kmChar* end = nullptr;
        EXPECT_EQ(ReadInteger(exact.data(), 0, &end), row.base0);
        EXPECT_EQ(end - exact.data(), row.end0);
        EXPECT_EQ(ReadInteger(exact.data(), 10, &end), row.base10);
        EXPECT_EQ(end - exact.data(), row.end10);
    }
}

TEST(Numbers, IntegerTextReadsBack) {
    for (const std::int32_t value : {kMin, kMin + 1, -10, -1, 0, 9, 10, 999999999, kMax}) {
        EXPECT_EQ(Utf8(IntegerText(value)), std::to_string(value));
        EXPECT_EQ(ReadInteger(IntegerText(value).c_str(), 10), value);
    }
}

TEST(Numbers, ReadDecimal) {
    const std::string zeros(400, '0');
    // clang-format off
    const struct { std::string text; double value; } rows[] = {
        {"", 0.0}, {"-.", 0.0}, {" +.5", 0.5}, {"5.x", 5.0}, {"1.2.3", 1.2}, {"1,5", 1.0},
        {"\t-29.97", -29.97}, {"1.5E+2x", 150.0}, {"2e-", 2.0}, {"1d3", 1.0}, {"0x10", 0.0}, {"inf", 0.0},
        {"nan", 0.0}, {"1\uff13", 1.0}, {"9007199254740993", 9007199254740992.0}, {"4.9e-324", 4.9e-324},
        {"-1e400", -kInfinity}, {"1" + zeros, kInfinity}, {"1e-400", 0.0}, {"0." + zeros + "1", 0.0},
        {"0." + zeros + "1e401", 1.0}, {"1e99999999999999999999", kInfinity},
        {"1e-99999999999999999999", 0.0}, {"0.0e99999999999999999999", 0.0}};
    // clang-format on
    for (const auto& row : rows)
        EXPECT_EQ(ReadDecimal(ExactBuffer(TextFromBytes(row.text)).data()), row.value) << row.text;
}

TEST(Numbers, TruncateNeverLeavesTheRange) {
    EXPECT_TRUE(TruncateTo32(-1.9) == -1 && TruncateTo64(-1.9) == -1);
    EXPECT_TRUE(TruncateTo32(2147483647.9) == kMax && TruncateTo32(-kInfinity) == kMin);
    EXPECT_EQ(TruncateTo64(9223372036854775808.0), std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(TruncateTo64(-1e300), std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(TruncateTo32(std::nan("")) + TruncateTo64(std::nan("")), 0);
}
