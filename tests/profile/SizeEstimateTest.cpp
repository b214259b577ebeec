// The four estimates of the output's size, and the frame sizes that a codec accepts.
#include <gtest/gtest.h>

#include <limits>

#include "tests/support/Profiles.h"

constexpr std::int64_t kSecond = 1'000'000;
constexpr std::int64_t kForever = std::numeric_limits<std::int64_t>::max();
constexpr int kMax = std::numeric_limits<int>::max();
constexpr int kMin = std::numeric_limits<int>::min();

TEST(SizeEstimateTest, FromTheOwnSettings) {
    // clang-format off
    const struct { const char *settings; std::int64_t duration; bool audio; std::int64_t expected; } cases[] = {
        {"b=1000;acodec=mp3;ab=128;", 60 * kSecond, true, 8'460'000},
        {"acodec=pcm_s16le;ar=44100;ac=2;", 10 * kSecond, true, 1'764'000},
        {"acodec=PCM_U8;ar=44100;ac=2;", 10 * kSecond, true, 882'000},
        {"acodec=pcm_alaw;ar=8000;ac=1;", kSecond, true, 8'000},
        {"acodec=pcm_s16be;ar=8000;ac=1;ab=8;", kSecond, true, 1'000},
        {"b=1000;vn=False;ab=8;", kSecond, true, 1'000}, {"b=1000;an=FALSE;ab=8;", kSecond, true, 125'000},
        {"b=Auto;ab=;", kSecond, true, 0}, {"b=0x10;", kSecond, false, 2'000}, {"b=1;ab=1;", 12'000, true, 2},
        {"b=3;ab=-1;", 12'000, true, 2}, {"b=1;", -12'000, false, -1},
        {"acodec=pcm_s16le;ar=2147483647;ac=2;", kSecond, true, -4},
        {"b=2147483647;ab=2147483647;", kForever, true, kForever}};
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(c.settings);
        const kmProfile profile = ProfileWith(c.settings);
        EXPECT_EQ(profile.CalcOutputFileSize(c.duration, c.audio, 0, 0), c.expected);
        EXPECT_EQ(profile.CalcImageOutputFileSize(c.duration, 640, 480), 0);
    }
}

TEST(SizeEstimateTest, Pictures) {
    // clang-format off
    const struct { const char *settings; int sourceWidth, sourceHeight; std::int64_t expected; } cases[] = {
        {"pcodec=JPG;s=320x240;pi=5;pt=10;", 0, 0, 23'040},
        {"pcodec=PNG;s=320x240;pi=5;pt=10;", 0, 0, 153'600}, {"pcodec=BMP;s=10x10;pi=0.5;pt=1.5;", 0, 0, 900},
        {"pcodec=BMP;s=320x240;pi=5;pt=Full;", 9, 9, 0}, {"pcodec=BMP;s=10x10;pi=0.01;pt=1;", 0, 0, 30'000},
        {"pcodec=BMP;s=10x10;pi=0.0099;pt=1;", 0, 0, 0}, {"pcodec=BMP;s=Auto;pi=1;pt=1;", 10, 20, 600},
        {"pcodec=BMP;s=Auto;pi=1;pt=1;", -1, 20, 0}, {"pcodec=BMP;s=Auto;pi=1;pt=1;", 10, 0, 0},
        {"pcodec=BMP;s=40000x40000;pi=1;pt=1;", 0, 0, 505'032'704},
        {"pcodec=BMP;s=Auto;pi=1;pt=1;", kMax, kMax, 3}, {"pcodec=BMP;s=1x1;pi=1;pt=1e999;", 0, 0, kForever},
        {"pcodec=JPG;s=1x1;pi=1e999;pt=1e999;", 0, 0, 0}};
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(c.settings);
        const kmProfile profile = ProfileWith(std::string("b=9;") + c.settings);
        EXPECT_EQ(profile.CalcOutputFileSize(kSecond, true, c.sourceWidth, c.sourceHeight), c.expected);
        EXPECT_EQ(profile.CalcImageOutputFileSize(0, c.sourceWidth, c.sourceHeight), c.expected);
    }
}

TEST(SizeEstimateTest, WithTheSourcesBitRates) {
    constexpr const char* video = "b=1000;acodec=mp3;ab=8;";
    constexpr const char* noRates = "b=Auto;acodec=mp3;ab=;";
    // clang-format off
    const struct { const char *format, *settings; int audio, video, streams; std::int64_t bytes; } cases[] = {
        {"dv", video, 0, 0, 0, 3'500'000}, {"DV", video, 0, 0, 3, 126'000}, {"ape", video, 0, 0, 1, 0},
        {"ape", video, 0, 0, 2, 75'000}, {"", video, 9'000, 9'000, 1, 125'000},
        {"", noRates, 0, 1'999'999, 1, 249'875}, {"", noRates, 192'000, 0, 2, 24'000},
        {"", noRates, 999, 0, 2, 8'000}, {"", "acodec=pcm_u8;ar=500;ac=2;", 9'000, 0, 2, 1'000},
        {"", "acodec=mp3;ab=8;", 0, 9'000, 3, 1'000}, {"", "b=1000;ab=8;vn=false;", 0, 0, 3, 1'000},
        {"", "b=1000;ab=8;an=false;", 0, 0, 3, 125'000}, {"", noRates, kMin, kMin, 3, -536'870'750}};
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(c.settings);
        kmProfile profile = ProfileWith(c.settings);
        profile.SetFormat(TextFromBytes(c.format));
        EXPECT_EQ(profile.CalcAVOutputFileSize(kSecond, c.audio, c.video, c.streams), c.bytes);
    }
}

TEST(SizeEstimateTest, VideoAloneWithTheMiddleCandidate) {
    // clang-format off
    const struct { const char *settings, *candidates; std::int64_t expected; } rows[] = {
        {"b=Auto;", "500|800|1200|1500", 150'000}, {"b=;", "500|800|1200", 100'000}, {"b=8;", "500", 1'000},
        {"b=Auto;", "", 0}, {"vcodec=h264;", "500", 0}, {"b=8;vn=false;", "500", 0}, {"acodec=mp3;", "500", 0}};
    // clang-format on
    for (const auto& row : rows) {
        kmProfile profile = ProfileWith(row.settings);
        profile.GetProfileItems()[0].GetAdvCandidatesValue() = Pieces(row.candidates);
        EXPECT_EQ(profile.CalcP2VOutputFileSize(kSecond), row.expected) << row.settings << row.candidates;
    }
}

TEST(SizeEstimateTest, FrameSizesOfACodec) {
    // clang-format off
    const struct { const kmChar* codec; int width, height, expectedWidth, expectedHeight; } cases[] = {
        {KM_TEXT("H263"), 640, 480, 704, 576}, {KM_TEXT("h263"), 480, 320, 352, 288},
        {KM_TEXT("h263"), 136, 136, 128, 96}, {KM_TEXT("h263"), kMax, kMax, 1408, 1152},
        {KM_TEXT("mpeg4"), 640, 480, -7, -7}, {nullptr, 640, 480, 0, 0}};
    // clang-format on
    for (const auto& c : cases) {
        int width = -7, height = -7;
        kmProfile().GetOutSizeForSpecialVcodec(c.width, c.height, width, height, c.codec);
        EXPECT_EQ(std::pair(width, height), std::pair(c.expectedWidth, c.expectedHeight)) << c.width;
    }
}
