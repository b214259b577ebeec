// What a user may type, and what is said about the rest.
#include <gtest/gtest.h>

#include "kmProfileItem.h"
#include "tests/support/Text.h"

namespace {

constexpr const kmChar* kKept = KM_TEXT("kept");
constexpr const kmChar* kTime = KM_TEXT("Please input valid time : 0 - 59!");
constexpr const kmChar* kDuration = KM_TEXT("Please input valid duration: 'xx:xx:xx' or 'Full'.");
constexpr const kmChar* kSize = KM_TEXT("Frame size must be a multiple of 2!");
constexpr const kmChar* kBitrate = KM_TEXT("Please input a valid value large than zero!");
constexpr const kmChar* kRate = KM_TEXT("Please input value such as 29.97, 30000/1001 or 25000:1001.");
constexpr const kmChar* kAspect = KM_TEXT("Please input value such as 4:3, 16:9 or 1.3333, 1.7777.");
constexpr const kmChar* kChannels = KM_TEXT("Please input value '1'(Mono) or '2'(Stereo).");
constexpr const kmChar* kPicture = KM_TEXT("Pleease input value large than 0.05.");

struct CheckCase {
    const char* fault;
    const kmChar* id;
    const kmChar* value;
    const kmChar* message;  // kKept for an accepted value
};

constexpr CheckCase kChecks[] = {
    {"id_case_matters", KM_TEXT("SS"), KM_TEXT("abc"), kTime},
    {"time_out_of_range_refused", KM_TEXT("ss"), KM_TEXT("1:75:00"), kKept},
    {"plain_seconds_refused", KM_TEXT("ss"), KM_TEXT("90"), kKept},
    {"null_value_read", KM_TEXT("ss"), nullptr, kKept},
    {"fraction_of_a_second_accepted", KM_TEXT("ss"), KM_TEXT("1.5"), kTime},
    {"third_colon_accepted", KM_TEXT("ss"), KM_TEXT("1:2:3:4"), kTime},
    {"full_case_matters", KM_TEXT("t"), KM_TEXT("full"), kKept},
    {"short_duration_refused", KM_TEXT("t"), KM_TEXT("12:30"), kKept},
    {"duration_with_a_unit_accepted", KM_TEXT("t"), KM_TEXT("10 min"), kDuration},
    {"other_separator_refused", KM_TEXT("s"), KM_TEXT("320*240 (half)"), kKept},
    {"odd_width_accepted", KM_TEXT("s"), KM_TEXT("321x240"), kSize},
    {"odd_height_accepted", KM_TEXT("s"), KM_TEXT("320x241"), kSize},
    {"zero_size_accepted", KM_TEXT("s"), KM_TEXT("0x0"), kSize},
    {"negative_size_accepted", KM_TEXT("s"), KM_TEXT("-2x-2"), kSize},
    {"abbreviated_size_accepted", KM_TEXT("s"), KM_TEXT("cif"), kSize},
    {"number_of_abbreviation_taken", KM_TEXT("s"), KM_TEXT("4cif"), kSize},
    {"missing_height_read_beyond_the_end", KM_TEXT("s"), KM_TEXT("320"), kSize},
    {"unit_behind_bitrate_refused", KM_TEXT("b"), KM_TEXT("128k"), kKept},
    {"zero_bitrate_accepted", KM_TEXT("ab"), KM_TEXT("0"), kBitrate},
    {"bitrate_read_as_hexadecimal", KM_TEXT("b"), KM_TEXT("0x10"), kBitrate},
    {"bitrate_read_as_fraction", KM_TEXT("b"), KM_TEXT("0.5"), kBitrate},
    {"padded_auto_accepted", KM_TEXT("b"), KM_TEXT(" Auto"), kBitrate},
    {"huge_bitrate_wraps", KM_TEXT("b"), KM_TEXT("99999999999999999999"), kKept},
    {"rate_fraction_refused", KM_TEXT("r"), KM_TEXT("30000/1001"), kKept},
    {"rate_octal", KM_TEXT("r"), KM_TEXT("08/09"), kKept},
    {"rate_auto_refused", KM_TEXT("r"), KM_TEXT("aUTO"), kKept},
    {"slash_wins_over_colon", KM_TEXT("r"), KM_TEXT("1/0:1"), kKept},
    {"rate_with_a_unit_accepted", KM_TEXT("r"), KM_TEXT("25 fps"), kRate},
    {"rate_without_divisor_accepted", KM_TEXT("r"), KM_TEXT("25/"), kRate},
    {"tiny_rate_accepted", KM_TEXT("r"), KM_TEXT("0.009"), kRate},
    {"limit_rate_refused", KM_TEXT("r"), KM_TEXT("0.01"), kKept},
    {"empty_rate_accepted", KM_TEXT("r"), KM_TEXT(""), kRate},
    {"slash_divides_aspect", KM_TEXT("aspect"), KM_TEXT("16/0"), kKept},
    {"fraction_below_one_not_read_as_integer", KM_TEXT("aspect"), KM_TEXT("0.9:1"), kAspect},
    {"zero_divisor_accepted", KM_TEXT("aspect"), KM_TEXT("4:0"), kAspect},
    {"surround_refused", KM_TEXT("ac"), KM_TEXT("5.1"), kKept},
    {"six_channels_refused", KM_TEXT("ac"), KM_TEXT("6"), kKept},
    {"three_channels_accepted", KM_TEXT("ac"), KM_TEXT("3"), kChannels},
    {"first_digit_alone_read", KM_TEXT("ac"), KM_TEXT("12"), kChannels},
    {"full_picture_time_refused", KM_TEXT("pt"), KM_TEXT("FULL"), kKept},
    {"limit_interval_accepted", KM_TEXT("pi"), KM_TEXT("0.05"), kPicture},
    {"interval_above_limit_refused", KM_TEXT("pi"), KM_TEXT("0.051"), kKept},
    {"limit_picture_time_accepted", KM_TEXT("pt"), KM_TEXT("5e-2"), kPicture},
    {"infinity_accepted_as_a_word", KM_TEXT("pt"), KM_TEXT("inf"), kPicture},
    {"unknown_option_refused", KM_TEXT("vcodec"), KM_TEXT(""), kKept},
};

TEST(ValueCheckTest, AcceptsOrTellsWhy) {
    for (const CheckCase& c : kChecks) {
        kmString message = kKept;
        const std::vector<kmChar> value = ExactBuffer(c.value == nullptr ? KM_TEXT("") : c.value);
        EXPECT_EQ(kmProfileItem::Check(message, c.id, c.value == nullptr ? nullptr : value.data()),
                  c.message == kKept)
            << c.fault;
        EXPECT_EQ(message, c.message) << c.fault;
    }
}

TEST(ValueCheckTest, NoOptionIsRefusedWithoutAMessage) {
    for (const kmChar* id : {static_cast<const kmChar*>(nullptr), KM_TEXT("")}) {
        kmString message = kKept;
        EXPECT_FALSE(kmProfileItem::Check(message, id, KM_TEXT("1")));
        EXPECT_EQ(message, kKept);
    }
}

constexpr int kUntouched = -7;

struct TimeCase {
    const char* fault;
    const kmChar* time;
    int expected;
    int seconds;
};

constexpr TimeCase kTimes[] = {
    {"null_dereferenced_or_total_written", nullptr, 1, kUntouched},
    {"total_of_empty_text_written", KM_TEXT(""), 1, kUntouched},
    {"well_formed_time_refused", KM_TEXT("00:01:30"), 1, 90},
    {"leading_zero_read_as_octal", KM_TEXT("00:00:09"), 1, 9},
    {"empty_fields_refused", KM_TEXT("::"), 1, 0},
    {"hours_above_23_refused", KM_TEXT("99:59:59"), 1, 359999},
    {"minute_60_called_well_formed", KM_TEXT("00:60:00"), 0, 3600},
    {"second_60_called_well_formed", KM_TEXT("00:00:60"), 0, 60},
    {"three_hour_digits_called_well_formed", KM_TEXT("100:00:00"), 0, 360000},
    {"three_minute_digits_called_well_formed", KM_TEXT("0:001:0"), 0, 60},
    {"minutes_read_as_hours", KM_TEXT("12:30"), 0, 750},
    {"missing_seconds_misread", KM_TEXT("5:"), 0, 300},
    {"missing_minutes_misread", KM_TEXT(":5"), 0, 5},
    {"plain_seconds_called_well_formed", KM_TEXT("90"), 0, 90},
    {"third_colon_accepted", KM_TEXT("1:2:3:"), -1, kUntouched},
    {"fraction_accepted_or_total_written", KM_TEXT("1.5"), -1, kUntouched},
    {"bad_end_noticed_after_writing", KM_TEXT("00:00:10.5"), -1, kUntouched},
    {"sign_accepted", KM_TEXT("-1:00:00"), -1, kUntouched},
    {"digits_beyond_ascii_accepted", KM_TEXT("\u0661:00:00"), -1, kUntouched},
};

TEST(ValueCheckTest, Times) {
    for (const TimeCase& c : kTimes) {
        int seconds = kUntouched;
        EXPECT_EQ(kmProfileItem::IsValidTime(c.time, &seconds), c.expected) << c.fault;
        EXPECT_EQ(seconds, c.seconds) << c.fault;
        EXPECT_EQ(kmProfileItem::IsValidTime(c.time, nullptr), c.expected) << c.fault << ", without a total";
    }
}

TEST(ValueCheckTest, HugeTimesAreIllFormedButDefined) {
    int seconds = 0;
    EXPECT_EQ(kmProfileItem::IsValidTime(KM_TEXT("99999999999:99999999999:99999999999"), &seconds), 0);
}

}  // namespace
