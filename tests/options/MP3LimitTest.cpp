#include "kmMP3Limit.h"

#include <gtest/gtest.h>

#include <utility>

namespace {

TEST(MP3Limit, LookUps) {
    using Pair = std::pair<std::int32_t, std::int32_t>;
    for (const auto& [rate, limit] :
         {Pair{8000, 160}, {16000, 160}, {22050, 160}, {32000, 320}, {44100, -1}, {0, -1}}) {
        EXPECT_EQ(_MP3Limit::GetmaxBitrate(rate), limit) << rate;
    }
    for (const auto& [bits, rate] : {Pair{-1, 8000}, {160, 8000}, {161, 32000}, {320, 32000}, {321, -1}}) {
        EXPECT_EQ(_MP3Limit::GetMinSmaple(bits), rate) << bits;
    }
}

TEST(MP3Limit, ValidPairs) {
    // clang-format off
    const struct { const char* fault; std::int32_t sampleRate, bitRate; bool checked, unchecked; } rows[] = {
        {"high_rate_limited", 32001, 9999, true, true},
        {"limit_itself_refused", 22050, 160, true, false},
        {"above_the_limit_accepted", 22050, 161, false, false},
        {"below_160_refused", 22050, 159, true, true},
        {"largest_refused", 32000, 320, true, false},
        {"above_the_largest_accepted", 32000, 321, false, false},
        {"unlisted_rate_limited", 11025, 320, true, false},
        {"unlisted_rate_below_160_refused", 11025, 159, true, true},
        {"first_row_not_special", 8000, 320, false, true}};
    // clang-format on
    for (const auto& row : rows) {
        EXPECT_EQ(_MP3Limit::IsValid(row.sampleRate, row.bitRate, true), row.checked) << row.fault;
        EXPECT_EQ(_MP3Limit::IsValid(row.sampleRate, row.bitRate, false), row.unchecked) << row.fault;
    }
}

}  // namespace
