#include "kmMP3Limit.h"

#include <gtest/gtest.h>

TEST(Mp3Limit, LimitOfASampleRate) {
    // clang-format off
    const struct { const char* name; std::int32_t sampleRate, limit; } rows[] = {
        {"lowest_lost", 8000, 160},
        {"second_lost", 16000, 160},
        {"third_lost", 22050, 160},
        {"highest_lost", 32000, 320},
        {"unlisted_limited", 44100, -1},
    };
    // clang-format on
    for (const auto& row : rows)
        EXPECT_EQ(_MP3Limit::GetmaxBitrate(row.sampleRate), row.limit) << row.name << ' ' << row.sampleRate;
}

TEST(Mp3Limit, LowestSampleRateForABitRate) {
    // clang-format off
    const struct { const char* name; std::int32_t bitRate, sampleRate; } rows[] = {
        {"limit_itself_refused", 160, 8000},
        {"above_the_first_limit_allowed", 161, 32000},
        {"highest_limit_refused", 320, 32000},
        {"above_every_limit_allowed", 321, -1},
    };
    // clang-format on
    for (const auto& row : rows)
        EXPECT_EQ(_MP3Limit::GetMinSmaple(row.bitRate), row.sampleRate) << row.name << ' ' << row.bitRate;
}

TEST(Mp3Limit, ValidPairs) {
    // clang-format off
    const struct { const char* name; std::int32_t sampleRate, bitRate; bool checked, unchecked; } rows[] = {
        {"high_sample_rate_limited", 32001, 9999, true, true},
        {"limit_itself_refused_or_overlooked", 22050, 160, true, false},
        {"above_the_limit_allowed", 22050, 161, false, false},
        {"highest_limit_refused_or_overlooked", 32000, 320, true, false},
        {"unlisted_sample_rate_limited_or_free", 11025, 320, true, false},
        {"unlisted_sample_rate_refused", 11025, 159, true, true},
        {"lowest_sample_rate_not_excepted", 8000, 320, false, true},
    };
    // clang-format on
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.name << " given " << row.sampleRate << " and " << row.bitRate);
        EXPECT_EQ(_MP3Limit::IsValid(row.sampleRate, row.bitRate, true), row.checked);
        EXPECT_EQ(_MP3Limit::IsValid(row.sampleRate, row.bitRate, false), row.unchecked);
    }
}
