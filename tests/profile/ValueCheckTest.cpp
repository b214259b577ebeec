// What a user may type, and what is said about the rest.
#include <gtest/gtest.h>

#include "kmProfileItem.h"
#include "tests/support/Text.h"

constexpr const char* kTime = "Please input valid time : 0 - 59!";
constexpr const char* kBitrate = "Please input a valid value large than zero!";
constexpr const char* kPicture = "Pleease input value large than 0.05.";

// The values stand between bars.
// clang-format off
constexpr struct { const char *id, *message, *accepted, *refused; } kChecks[] = {
    {"ss", kTime, "1:75:00|90", "1.5|1:2:3:4"}, {"SS", kTime, "", "abc"},
    {"t", "Please input valid duration: 'xx:xx:xx' or 'Full'.", "full|12:30", "10 min"},
    {"s", "Frame size must be a multiple of 2!", "320*240 (half)", "321x240|320x241|0x0|-2x-2|cif|4cif|320"},
    {"b", kBitrate, "128k|99999999999999999999", "0x10|0.5| Auto"}, {"ab", kBitrate, "", "0"},
    {"r", "Please input value such as 29.97, 30000/1001 or 25000:1001.",
     "30000/1001|08/09|aUTO|1/0:1|0.01", "25 fps|25/|0.009|"},
    {"aspect", "Please input value such as 4:3, 16:9 or 1.3333, 1.7777.", "16/0", "0.9:1|4:0"},
    {"ac", "Please input value '1'(Mono) or '2'(Stereo).", "5.1|6", "3|12"},
    {"pi", kPicture, "0.051", "0.05"}, {"pt", kPicture, "FULL", "5e-2|inf"}, {"vcodec", "", "|x", ""},
    {"", "kept", "", "1"}};
// clang-format on

TEST(ValueCheckTest, AcceptsOrTellsWhy) {
    kmString message;
    for (const auto& row : kChecks) {
        for (const bool accepted : {true, false}) {
            for (const kmString& value : Pieces(accepted ? row.accepted : row.refused)) {
                message = KM_TEXT("kept");
                const kmString id = TextFromBytes(row.id);
                EXPECT_EQ(kmProfileItem::Check(message, id.c_str(), ExactBuffer(value).data()), accepted)
                    << row.id << " " << Utf8(value);
                EXPECT_EQ(Utf8(message), accepted ? "kept" : row.message) << row.id << " " << Utf8(value);
            }
        }
    }
    EXPECT_TRUE(kmProfileItem::Check(message, KM_TEXT("ss"), nullptr));
    EXPECT_FALSE(kmProfileItem::Check(message, nullptr, KM_TEXT("1")));
}

TEST(ValueCheckTest, Times) {
    constexpr int kUntouched = -7;
    // clang-format off
    const struct { const char* time; int expected, seconds; } rows[] = {
        {"", 1, kUntouched}, {"00:01:30", 1, 90}, {"00:00:09", 1, 9}, {"::", 1, 0}, {"99:59:59", 1, 359999},
        {"00:60:00", 0, 3600}, {"00:00:60", 0, 60}, {"100:00:00", 0, 360000}, {"0:001:0", 0, 60},
        {"12:30", 0, 750}, {"5:", 0, 300}, {":5", 0, 5}, {"90", 0, 90}, {"1:2:3:", -1, kUntouched},
        {"1.5", -1, kUntouched}, {"00:00:10.5", -1, kUntouched}, {"-1:00:00", -1, kUntouched},
        {"\u0661:00:00", -1, kUntouched}};
    // clang-format on
    int seconds = kUntouched;
    EXPECT_TRUE(kmProfileItem::IsValidTime(nullptr, &seconds) == 1 && seconds == kUntouched);
    for (const auto& row : rows) {
        const kmString time = TextFromBytes(row.time);
        seconds = kUntouched;
        EXPECT_EQ(kmProfileItem::IsValidTime(time.c_str(), &seconds), row.expected) << row.time;
        EXPECT_EQ(seconds, row.seconds) << row.time;
        EXPECT_EQ(kmProfileItem::IsValidTime(time.c_str(), nullptr), row.expected) << row.time;
    }
    const kmChar* huge = KM_TEXT("99999999999:99999999999:99999999999");
    EXPECT_EQ(kmProfileItem::IsValidTime(huge, &seconds), 0) << "any total, but a defined one";
}
