#include "kmMP3Limit.h"

#include <gtest/gtest.h>

#include <utility>

TEST(MP3Limit, LookUps) {
    using Pair = std::pair<std::int32_t, std::int32_t>;
    for (const auto& [rate, limit] :
         {Pair{8000, 160}, {16000, 160}, {22050, 160}, {32000, 320}, {44100, -1}, {0, -1}}) {
        EXPECT_EQ(_MP3Limit::GetmaxBitrate(rate), limit) << rate;
    }
    for (const auto& [bits, rate] : {Pair{-1, 8000}, {160, 8000}, {161, 32000}, {320, 32000}, {321, -1}})
        EXPECT_EQ(_MP3Limit::GetMinSmaple(bits), rate) << bits;
}

TEST(MP3Limit, ValidPairs) {
    // clang-format off
    const struct { std::int32_t sampleRate, bitRate; bool checked, unchecked; } rows[] = {
        {32001, 9999, true, true}, {22050, 160, true, false}, {22050, 161, false, false},
        {22050, 159, true, true}, {32000, 320, true, false}, {32000, 321, false, false},
        {11025, 320, true, false}, {11025, 159, true, true}, {8000, 320, false, true}};
    // clang-format on
    for (const auto& [rate, bits, checked, unchecked] : rows) {
        EXPECT_EQ(_MP3Limit::IsValid(rate, bits, true), checked) << rate << " " << bits;
        EXPECT_EQ(_MP3Limit::IsValid(rate, bits, false), unchecked) << rate << " " << bits;
    }
}
