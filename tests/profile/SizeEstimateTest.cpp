// SPDX-License-Identifier: MIT
// The four estimates of the output's size, and the frame sizes that a codec accepts.
#include <gtest/gtest.h>

#include <limits>

#include "tests/support/Profiles.h"

using Bytes = std::int64_t;

constexpr std::int64_t kSecond = 1'000'000;
constexpr std::int64_t kForever = std::numeric_limits<std::int64_t>::max();
constexpr int kMax = std::numeric_limits<int>::max();
constexpr int kMin = std::numeric_limits<int>::min();

TEST(SizeEstimate, FromTheOwnSettings) {
    // clang-format off
    const struct { const char *fault, *settings; std::int64_t duration; bool audio; Bytes bytes; } rows[] = {
        {"streams_not_added",             "b=1000;acodec=mp3;ab=128;",         60 * kSecond, true, 8'460'000},
        {"pcm_of_16_bits_missed",         "acodec=pcm_s16le;ar=44100;ac=2;",   10 * kSecond, true, 1'764'000},
        {"pcm_of_8_bits_in_capitals",     "acodec=PCM_U8;ar=44100;ac=2;",      10 * kSecond, true, 882'000},
        {"video_counts_that_is_not_off",  "b=1000;vn=False;ab=8;",                  kSecond, true, 1'000},
        {"negative_result_rounded_down",  "b=1;",                                   -12'000, false, -1},
        {"large_rate_not_wrapped",        "acodec=pcm_s16le;ar=2147483647;ac=2;",   kSecond, true, -4},
        {"result_not_limited",            "b=2147483647;ab=2147483647;",           kForever, true, kForever}};
    // clang-format on
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.fault << ", given " << row.settings);
        const kmProfile profile = ProfileWith(row.settings);
        EXPECT_EQ(profile.CalcOutputFileSize(row.duration, row.audio, 0, 0), row.bytes);
        EXPECT_EQ(profile.CalcImageOutputFileSize(row.duration, 640, 480), 0);
    }
}

TEST(SizeEstimate, Pictures) {
    // clang-format off
    const struct { const char *fault, *settings; int sourceWidth, sourceHeight; Bytes bytes; } rows[] = {
        {"jpeg_not_a_twentieth",           "pcodec=JPG;s=320x240;pi=5;pt=10;",  0, 0, 23'040},
        {"shortest_interval_refused",      "pcodec=BMP;s=10x10;pi=0.01;pt=1;",  0, 0, 30'000},
        {"shorter_interval_accepted",      "pcodec=BMP;s=10x10;pi=0.0099;pt=1;", 0, 0, 0},
        {"source_size_not_used",           "pcodec=BMP;s=Auto;pi=1;pt=1;",      10, 20, 600},
        {"unknown_source_width_used",      "pcodec=BMP;s=Auto;pi=1;pt=1;",      -1, 20, 0},
        {"large_picture_not_wrapped",      "pcodec=BMP;s=40000x40000;pi=1;pt=1;", 0, 0, 505'032'704}};
    // clang-format on
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.fault << ", given " << row.settings << " and a source of "
                                        << row.sourceWidth << "x" << row.sourceHeight);
        const kmProfile profile = ProfileWith(std::string("b=9;") + row.settings);
        EXPECT_EQ(profile.CalcOutputFileSize(kSecond, true, row.sourceWidth, row.sourceHeight), row.bytes);
        EXPECT_EQ(profile.CalcImageOutputFileSize(0, row.sourceWidth, row.sourceHeight), row.bytes);
    }
}

TEST(SizeEstimate, WithTheSourcesBitRates) {
    constexpr const char* kVideo = "b=1000;acodec=mp3;ab=8;";
    constexpr const char* kNoRates = "b=Auto;acodec=mp3;ab=;";
    constexpr int kVideoOnly = 1, kAudioOnly = 2, kBoth = 3;
    // clang-format off
    const struct { const char *fault, *format, *settings; int audio, video, streams; Bytes bytes; } rows[] = {
        {"fixed_rate_depends_on_streams",   "dv",  kVideo,   0,       0,         0,          3'500'000},
        {"format_compared_in_any_case",     "DV",  kVideo,   0,       0,         kBoth,      126'000},
        {"lossless_counts_without_audio",   "ape", kVideo,   0,       0,         kVideoOnly, 0},
        {"source_before_the_own_rate",      "",    kVideo,   9'000,   9'000,     kVideoOnly, 125'000},
        {"kilobits_of_the_source_rounded",  "",    kNoRates, 0,       1'999'999, kVideoOnly, 249'875},
        {"audio_rate_of_the_source_lost",   "",    kNoRates, 192'000, 0,         kAudioOnly, 24'000},
        {"video_of_an_audio_profile", "",   "acodec=mp3;ab=8;",       0, 9'000,  kBoth,      1'000},
        {"negative_rates_refused",          "",    kNoRates, kMin,    kMin,      kBoth,      -536'870'750}};
    // clang-format on
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.fault << ", given " << row.format << " " << row.settings);
        kmProfile profile = ProfileWith(row.settings);
        profile.SetFormat(Text(row.format));
        EXPECT_EQ(profile.CalcAVOutputFileSize(kSecond, row.audio, row.video, row.streams), row.bytes);
    }
}

TEST(SizeEstimate, FrameSizesOfACodec) {
    const kmProfile profile;
    int width = -7, height = -7;
    profile.GetOutSizeForSpecialVcodec(640, 480, width, height, KM_TEXT("mpeg4"));
    EXPECT_EQ(width, -7) << "another codec has any size";
    profile.GetOutSizeForSpecialVcodec(500, 600, width, height, KM_TEXT("H263"));
    EXPECT_EQ(width, 704) << "nearest by the sum of both sides";
    profile.GetOutSizeForSpecialVcodec(136, 136, width, height, KM_TEXT("h263"));
    EXPECT_EQ(width, 128) << "the smaller of two that are as near";
    profile.GetOutSizeForSpecialVcodec(kMax, kMax, width, height, KM_TEXT("h263"));
    EXPECT_EQ(height, 1152) << "a sum beyond 32 bits";
}
