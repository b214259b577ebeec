// SPDX-License-Identifier: MIT
// What a user may type, and what is said about the rest.
#include <gtest/gtest.h>

#include "kmProfileItem.h"
#include "tests/support/Text.h"

constexpr const char* kAccepted = "kept";  // what the caller had in the message
constexpr const char* kTime = "Please input valid time : 0 - 59!";
constexpr const char* kDuration = "Please input valid duration: 'xx:xx:xx' or 'Full'.";
constexpr const char* kSize = "Frame size must be a multiple of 2!";
constexpr const char* kBitrate = "Please input a valid value large than zero!";
constexpr const char* kRate = "Please input value such as 29.97, 30000/1001 or 25000:1001.";
constexpr const char* kAspect = "Please input value such as 4:3, 16:9 or 1.3333, 1.7777.";
constexpr const char* kChannels = "Please input value '1'(Mono) or '2'(Stereo).";
constexpr const char* kPicture = "Pleease input value large than 0.05.";

// The values of a row, between bars, are all answered with the message. Which values are accepted, the plain
// second implementation says.
// clang-format off
constexpr struct { const char *fault, *id, *values, *message; } kChecks[] = {
    {"option_in_capitals_not_known",        "SS",     "abc",                       kTime},
    {"duration_with_a_unit_accepted",       "t",      "10 min",                    kDuration},
    {"odd_side_accepted",                   "s",      "321x240|320x241",           kSize},
    {"unit_or_large_number_refused",        "b",      "128k|99999999999999999999", kAccepted},
    {"read_as_other_number_or_trimmed",     "ab",     "0x10|0.5| Auto",            kBitrate},
    {"half_a_ratio_or_lower_rate_accepted", "r",      "25/|0.009|",                kRate},
    {"zero_in_an_aspect_accepted",          "aspect", "0.9:1|4:0",                 kAspect},
    {"other_channel_counts_accepted",       "ac",     "3|12",                      kChannels},
    {"limit_itself_accepted",               "pi",     "0.05",                      kPicture},
    {"limit_or_infinity_accepted",          "pt",     "5e-2|inf",                  kPicture},
    {"option_without_a_rule_checked",       "vcodec", "|x",                        kAccepted}};
// clang-format on

TEST(ValueCheck, AcceptsOrTellsWhy) {
    for (const auto& row : kChecks) {
        for (const kmString& value : Pieces(row.values)) {
            SCOPED_TRACE(testing::Message() << row.fault << ", given " << row.id << "=" << Utf8(value));
            kmString message = Text(kAccepted);
            const bool isAccepted =
                kmProfileItem::Check(message, Text(row.id).c_str(), ExactBuffer(value).data());
            EXPECT_EQ(isAccepted, row.message == kAccepted);
            EXPECT_EQ(Utf8(message), row.message);
        }
    }
}

TEST(ValueCheck, NullIsAnEmptyTextButNoID) {
    kmString message;
    EXPECT_TRUE(kmProfileItem::Check(message, KM_TEXT("ss"), nullptr));
    EXPECT_FALSE(kmProfileItem::Check(message, nullptr, KM_TEXT("1")));
    EXPECT_EQ(Utf8(message), "");
}
