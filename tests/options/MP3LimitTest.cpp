// SPDX-License-Identifier: MIT
#include "kmMP3Limit.h"

#include <gtest/gtest.h>

TEST(Mp3Limit, ValidPairs) {
    // clang-format off
    const struct { const char* name; std::int32_t sampleRate, bitRate; bool checked, unchecked; } rows[] = {
        {"high_sample_rate_limited", 32001, 9999, true, true},
        {"limit_itself_refused_or_overlooked", 22050, 160, true, false},
        {"above_the_limit_allowed", 22050, 161, false, false},
        {"unlisted_sample_rate_limited_or_free", 11025, 320, true, false},
        {"lowest_sample_rate_not_excepted", 8000, 320, false, true},
    };
    // clang-format on
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.name << " given " << row.sampleRate << " and " << row.bitRate);
        EXPECT_EQ(_MP3Limit::IsValid(row.sampleRate, row.bitRate, true), row.checked);
        EXPECT_EQ(_MP3Limit::IsValid(row.sampleRate, row.bitRate, false), row.unchecked);
    }
}

TEST(Mp3Limit, LowestSampleRateForABitRate) {
    EXPECT_EQ(_MP3Limit::GetMinSmaple(160), 8000) << "the limit itself";
    EXPECT_EQ(_MP3Limit::GetMinSmaple(161), 32000);
    EXPECT_EQ(_MP3Limit::GetMinSmaple(321), -1) << "above every limit";
}
