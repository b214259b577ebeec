// The four estimates of the output's size, and the frame sizes that a codec accepts.
#include <gtest/gtest.h>

#include <limits>
#include <sstream>

#include "kmProfile.h"
#include "platform/Encoding.h"

namespace {

constexpr std::int64_t kSecond = 1'000'000;
constexpr std::int64_t kForever = std::numeric_limits<std::int64_t>::max();
constexpr int kMax = std::numeric_limits<int>::max();
constexpr int kMin = std::numeric_limits<int>::min();

// Settings as "id=value;", each with its semicolon.
kmProfile ProfileWith(const std::string& settings) {
    kmProfile profile;
    std::istringstream rest(settings);
    for (std::string id, value; std::getline(rest, id, '=') && std::getline(rest, value, ';');) {
        kmProfileItem& item = profile.GetProfileItems().emplace_back();
        item.SetID(TextFromBytes(id));
        item.SetValue(TextFromBytes(value));
    }
    return profile;
}

TEST(SizeEstimateTest, FromTheOwnSettings) {
    const struct {
        const char *fault, *settings;
        std::int64_t duration;
        bool withAudio;
        std::int64_t expected;
    } cases[] = {
        {"audio_left_out", "b=1000;acodec=mp3;ab=128;", 60 * kSecond, true, 8'460'000},
        {"16_bit_samples", "acodec=pcm_s16le;ar=44100;ac=2;", 10 * kSecond, true, 1'764'000},
        {"8_bit_samples_or_case", "acodec=PCM_U8;ar=44100;ac=2;", 10 * kSecond, true, 882'000},
        {"a_law_samples", "acodec=pcm_alaw;ar=8000;ac=1;", kSecond, true, 8'000},
        {"mu_law_samples", "acodec=pcm_mulaw;ar=8000;ac=1;", kSecond, true, 8'000},
        {"other_pcm_not_by_bit_rate", "acodec=pcm_s16be;ar=8000;ac=1;ab=8;", kSecond, true, 1'000},
        {"vn_not_read_upside_down", "b=1000;vn=False;ab=8;", kSecond, true, 1'000},
        {"vn_true_disables", "b=1000;vn=true;", kSecond, true, 125'000},
        {"an_ignored", "b=1000;an=FALSE;ab=8;", kSecond, true, 125'000},
        {"auto_bit_rate_falls_back", "b=Auto;ab=;", kSecond, true, 0},
        {"bit_rate_not_base_0", "b=0x10;", kSecond, false, 2'000},
        {"sum_of_untruncated_video", "b=1;ab=1;", 12'000, true, 2},
        {"audio_truncated_before_the_sum", "b=3;ab=-1;", 12'000, true, 2},
        {"rounded_down_below_zero", "b=1;", -12'000, false, -1},
        {"sample_product_wraps_unsigned", "acodec=pcm_s16le;ar=2147483647;ac=2;", kSecond, true, -4},
        {"huge_result_undefined", "b=2147483647;ab=2147483647;", kForever, true, kForever},
    };
    for (const auto& c : cases) {
        const kmProfile profile = ProfileWith(c.settings);
        EXPECT_EQ(profile.CalcOutputFileSize(c.duration, c.withAudio, 0, 0), c.expected) << c.fault;
        EXPECT_EQ(profile.CalcImageOutputFileSize(c.duration, 640, 480), 0) << c.fault << ", as pictures";
    }
}

TEST(SizeEstimateTest, Pictures) {
    const struct {
        const char *fault, *settings;
        int sourceWidth, sourceHeight;
        std::int64_t expected;
    } cases[] = {
        {"jpg_not_a_twentieth", "pcodec=JPG;s=320x240;pi=5;pt=10;", 0, 0, 23'040},
        {"gif_or_case", "pcodec=gif;s=320x240;pi=5;pt=10;", 0, 0, 23'040},
        {"png_not_a_third", "pcodec=PNG;s=320x240;pi=5;pt=10;", 0, 0, 153'600},
        {"other_format_compressed", "pcodec=BMP;s=320x240;pi=5;pt=10;", 0, 0, 460'800},
        {"fractions_read_as_integers", "pcodec=BMP;s=10x10;pi=0.5;pt=1.5;", 0, 0, 900},
        {"full_time_not_zero", "pcodec=BMP;s=320x240;pi=5;pt=Full;", 9, 9, 0},
        {"limit_interval_refused", "pcodec=BMP;s=10x10;pi=0.01;pt=1;", 0, 0, 30'000},
        {"interval_below_limit_counted", "pcodec=BMP;s=10x10;pi=0.0099;pt=1;", 0, 0, 0},
        {"source_size_unused", "pcodec=BMP;s=Auto;pi=1;pt=1;", 10, 20, 600},
        {"half_of_the_size_taken", "pcodec=BMP;s=99x;pi=1;pt=1;", 10, 20, 600},
        {"unknown_source_width_used", "pcodec=BMP;s=Auto;pi=1;pt=1;", -1, 20, 0},
        {"unknown_source_height_used", "pcodec=BMP;s=Auto;pi=1;pt=1;", 10, 0, 0},
        {"pixels_beyond_32_bits", "pcodec=BMP;s=40000x40000;pi=1;pt=1;", 0, 0, 505'032'704},
        {"source_product_undefined", "pcodec=BMP;s=Auto;pi=1;pt=1;", kMax, kMax, 3},
        {"infinite_time_undefined", "pcodec=BMP;s=1x1;pi=1;pt=1e999;", 0, 0, kForever},
        {"zero_times_infinity_undefined", "pcodec=BMP;s=65536x65536;pi=1;pt=1e999;", 0, 0, 0},
        {"infinity_by_infinity_undefined", "pcodec=JPG;s=1x1;pi=1e999;pt=1e999;", 0, 0, 0},
    };
    for (const auto& c : cases) {
        const kmProfile profile = ProfileWith(std::string("b=9;") + c.settings);
        EXPECT_EQ(profile.CalcOutputFileSize(kSecond, true, c.sourceWidth, c.sourceHeight), c.expected)
            << c.fault;
        EXPECT_EQ(profile.CalcImageOutputFileSize(0, c.sourceWidth, c.sourceHeight), c.expected) << c.fault;
    }
}

TEST(SizeEstimateTest, WithTheSourcesBitRates) {
    constexpr const char* video = "b=1000;acodec=mp3;ab=8;";
    constexpr const char* noRates = "b=Auto;acodec=mp3;ab=;";
    const struct {
        const char* fault;
        const kmChar* format;
        const char* settings;
        int sourceAudio, sourceVideo, streams;
        std::int64_t expected;
    } cases[] = {
        {"dv_asks_for_streams", KM_TEXT("dv"), video, 0, 0, 0, 3'500'000},
        {"dv_case_ignored", KM_TEXT("DV"), video, 0, 0, 3, 126'000},
        {"ape_without_audio", KM_TEXT("ape"), video, 0, 0, 1, 0},
        {"ape_rate", KM_TEXT("ape"), video, 0, 0, 2, 75'000},
        {"video_uncounted", KM_TEXT(""), video, 9'000, 9'000, 1, 125'000},
        {"audio_uncounted", KM_TEXT(""), video, 9'000, 9'000, 2, 1'000},
        {"other_stream_bits_counted", KM_TEXT(""), video, 0, 0, 4, 0},
        {"video_fallback_rounded", KM_TEXT(""), noRates, 0, 1'999'999, 1, 249'875},
        {"audio_fallback_in_kilobits", KM_TEXT(""), noRates, 192'000, 0, 2, 24'000},
        {"audio_fallback_below_a_kilobit", KM_TEXT(""), noRates, 999, 0, 2, 8'000},
        {"fallback_used_for_samples", KM_TEXT(""), "acodec=pcm_u8;ar=500;ac=2;", 9'000, 0, 2, 1'000},
        {"video_of_an_audio_profile", KM_TEXT(""), "acodec=mp3;ab=8;", 0, 9'000, 3, 1'000},
        {"vn_ignored", KM_TEXT(""), "b=1000;ab=8;vn=false;", 0, 0, 3, 1'000},
        {"an_ignored", KM_TEXT(""), "b=1000;ab=8;an=false;", 0, 0, 3, 125'000},
        {"lowest_source_rates_undefined", KM_TEXT(""), noRates, kMin, kMin, 3, -536'870'750},
    };
    for (const auto& c : cases) {
        kmProfile profile = ProfileWith(c.settings);
        profile.SetFormat(c.format);
        EXPECT_EQ(profile.CalcAVOutputFileSize(kSecond, c.sourceAudio, c.sourceVideo, c.streams), c.expected)
            << c.fault;
    }
    kmProfile camcorder;
    camcorder.SetFormat(KM_TEXT("dv"));
    EXPECT_EQ(camcorder.CalcAVOutputFileSize(kForever, 0, 0, 0), kForever);
}

TEST(SizeEstimateTest, VideoAloneWithTheMiddleCandidate) {
    const auto estimate = [](const char* settings, const std::vector<kmString>& candidates) {
        kmProfile profile = ProfileWith(settings);
        profile.GetProfileItems()[0].GetAdvCandidatesValue() = candidates;
        return profile.CalcP2VOutputFileSize(kSecond);
    };
    const std::vector<kmString> four = {KM_TEXT("500"), KM_TEXT("800"), KM_TEXT("1200"), KM_TEXT("1500")};
    const std::vector<kmString> three(four.begin(), four.end() - 1);
    EXPECT_EQ(estimate("b=Auto;", four), 150'000);
    EXPECT_EQ(estimate("b=;", three), 100'000);
    EXPECT_EQ(estimate("b=8;", four), 1'000) << "a number needs no candidate";
    EXPECT_EQ(estimate("b=Auto;", {}), 0);
    EXPECT_EQ(estimate("vcodec=h264;", four), 0) << "only the bit rate's candidates count";
    EXPECT_EQ(estimate("b=8;vn=false;", four), 0);
    EXPECT_EQ(estimate("acodec=mp3;", four), 0);
}

TEST(SizeEstimateTest, FrameSizesOfACodec) {
    const struct {
        const char* fault;
        const kmChar* codec;
        int width, height, expectedWidth, expectedHeight;
    } cases[] = {
        {"codec_case_matters", KM_TEXT("H263"), 640, 480, 704, 576},
        {"next_larger_instead_of_nearest", KM_TEXT("h263"), 480, 320, 352, 288},
        {"later_of_a_tie", KM_TEXT("h263"), 136, 136, 128, 96},
        {"sides_compared_instead_of_sums", KM_TEXT("h263"), 1, 2559, 1408, 1152},
        {"sum_of_large_sides_overflows", KM_TEXT("h263"), kMax, kMax, 1408, 1152},
        {"sum_of_negative_sides_overflows", KM_TEXT("h263"), kMin, kMin, 128, 96},
        {"other_codec_touched", KM_TEXT("mpeg4"), 640, 480, -7, -7},
        {"null_codec_read", nullptr, 640, 480, 0, 0},
    };
    for (const auto& c : cases) {
        int width = -7, height = -7;
        kmProfile().GetOutSizeForSpecialVcodec(c.width, c.height, width, height, c.codec);
        EXPECT_EQ(width, c.expectedWidth) << c.fault;
        EXPECT_EQ(height, c.expectedHeight) << c.fault;
    }
}

}  // namespace
