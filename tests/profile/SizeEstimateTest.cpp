// SPDX-License-Identifier: MIT
// The four estimates of the output's size and what they are made of, the video bit rate for a wanted size,
// and the frame sizes that a codec accepts.
#include "kmSizeEstimate.h"

#include <gtest/gtest.h>

#include <limits>
#include <sstream>

#include "tests/support/Profiles.h"

namespace {

constexpr std::int64_t kSecond = 1'000'000;
constexpr std::int64_t kForever = std::numeric_limits<std::int64_t>::max();
constexpr int kMax = std::numeric_limits<int>::max(), kMin = std::numeric_limits<int>::min();
constexpr int kVideoOnly = 1, kAudioOnly = 2, kBoth = 3;

struct Source {
    int audio = 0, video = 0, streams = kBoth, width = -1, height = -1;
};

struct Estimate {
    kmSizeEstimate explained;
    std::int64_t calculated;
};

// One of the four, by its first letter; 'V': without audio.
Estimate Ask(char which, const kmProfile& profile, std::int64_t duration, const Source& source) {
    const auto [audio, video, streams, width, height] = source;
    switch (which) {
        case 'A':
            return {kmExplainAVOutputFileSize(profile, duration, audio, video, streams),
                    profile.CalcAVOutputFileSize(duration, audio, video, streams)};
        case 'I':
            return {kmExplainImageOutputFileSize(profile, duration, width, height),
                    profile.CalcImageOutputFileSize(duration, width, height)};
        case 'P':
            return {kmExplainP2VOutputFileSize(profile, duration), profile.CalcP2VOutputFileSize(duration)};
        default:
            return {kmExplainOutputFileSize(profile, duration, which == 'O', width, height),
                    profile.CalcOutputFileSize(duration, which == 'O', width, height)};
    }
}

void Tell(std::ostream& told, const char* name, const kmStreamSize& stream) {
    constexpr const char* kOrigins[] = {"", " own", " candidate", " source", " fallback", " format"};
    constexpr const char* kCertainties[] = {"", "exact", "bounded", "rough", "unknown"};
    if (stream.certainty == SIZE_CERTAINTY_ABSENT && stream.bytes == 0) return;
    told << name << ' ' << stream.bytes;
    if (stream.bitrate != 0) told << " of " << stream.bitrate;
    told << kOrigins[stream.origin] << ' ' << kCertainties[stream.certainty] << "; ";
}

std::string Told(const kmSizeEstimate& estimate) {
    std::ostringstream told;
    Tell(told, "video", estimate.video);
    Tell(told, "audio", estimate.audio);
    Tell(told, "pictures", estimate.pictures);
    return told.str();
}

TEST(SizeEstimate, SaysWhatCountedAndAddsUp) {
    // clang-format off
    const struct { const char* fault; char which; const char *format, *settings, *told;
                   std::int64_t duration = kSecond; Source source = {}; } rows[] = {
        {"own_rates_not_named", 'O', "", "b=800;acodec=mp3;ab=8;",
         "video 100000 of 800 own bounded; audio 1000 of 8 own bounded; "},
        {"audio_unasked", 'V', "", "b=800;acodec=mp3;ab=8;", "video 100000 of 800 own bounded; "},
        {"fraction_cut_twice", 'O', "", "b=1;ab=1;",
         "video 1 of 1 own bounded; audio 1 of 1 own bounded; ", 12'000},
        {"negative_result_rounded_down", 'V', "", "b=1;", "video -1 of 1 own bounded; ", -12'000},
        {"result_not_limited", 'O', "", "b=2147483647;ab=2147483647;",
         "video 9223372036854775807 of 2.14748e+09 own bounded; audio 0 of 2.14748e+09 own bounded; ", kForever},
        {"large_rate_not_wrapped", 'O', "", "acodec=pcm_s16le;ar=2147483647;ac=2;",
         "audio -4 of -0.032 format rough; "},
        {"samples_beside_the_rate", 'O', "", "acodec=pcm_s16le;ar=44100;ac=2;ab=8;",
         "audio 176400 of 1411.2 format exact; "},
        {"samples_made_up", 'O', "", "acodec=pcm_u8;ar=8000;", "audio 0 unknown; "},
        {"other_pcm_follows_a_rate", 'O', "", "acodec=PCM_S16BE;ab=8;", "audio 1000 of 8 own rough; "},
        {"copied_stream_follows_a_rate", 'V', "", "vcodec=copy;b=800;", "video 100000 of 800 own rough; "},
        {"fixed_quality_follows_a_rate", 'V', "", "b=800;qscale=3;", "video 100000 of 800 own rough; "},
        {"same_quality_follows_a_rate", 'V', "", "b=800;sameq=yes;", "video 100000 of 800 own rough; "},
        {"target_follows_a_rate", 'O', "", "target=DVD;ab=8;", "audio 1000 of 8 own rough; "},
        {"lossless_is_empty", 'O', "", "acodec=flac;vn=true;", "audio 0 unknown; "},
        {"automatic_rate_is_none", 'O', "", "b=Auto;an=true;ab=Auto;", "video 0 unknown; "},
        {"audio_counts_that_is_off", 'O', "", "an=true;ab=8;", "audio 1000 of 8 own bounded; "},
        {"left_out_is_unknown", 'O', "", "b=Auto;vn=false;acodec=mp3;an=false;", ""},
        {"kilobits_of_the_source_rounded", 'A', "", "b=Auto;acodec=mp3;",
         "video 249875 of 1999 source rough; audio 12000 of 96 source rough; ", kSecond, {96'000, 1'999'999}},
        {"source_before_the_own_rate", 'A', "", "b=1000;acodec=mp3;ab=8;", "video 125000 of 1000 own bounded; ",
         kSecond, {9'000, 9'000, kVideoOnly}},
        {"video_unasked", 'A', "", "b=1000;ab=8;", "audio 1000 of 8 own bounded; ", kSecond, {0, 0, kAudioOnly}},
        {"video_of_an_audio_profile", 'A', "", "acodec=mp3;ab=8;", "audio 1000 of 8 own bounded; ", kSecond,
         {0, 9'000}},
        {"negative_rates_refused", 'A', "", "b=Auto;acodec=mp3;",
         "video -268435375 of -2.14748e+06 source rough; audio -268435375 of -2.14748e+06 source rough; ", kSecond,
         {kMin, kMin}},
        {"fallback_not_named", 'A', "", "b=Auto;acodec=mp3;",
         "video 0 unknown; audio 8000 of 64 fallback rough; "},
        {"dv_depends_on_settings_or_streams", 'A', "dv", "b=800;ab=8;", "video 3500000 of 28000 format bounded; ",
         kSecond, {0, 0, 0}},
        {"format_compared_in_any_case", 'A', "DV", "b=8;an=false;", "video 1000 of 8 own bounded; "},
        {"lossless_counts_without_audio", 'A', "ape", "ab=8;", "", kSecond, {0, 0, kVideoOnly}},
        {"candidate_not_named", 'P', "", "b=Auto;ab=8;", "video 100000 of 800 candidate rough; "},
        {"raw_pictures_rough", 'I', "", "pcodec=bmp;s=10x10;pi=1;pt=2;b=8;", "pictures 600 exact; "},
        {"compressed_pictures_exact", 'O', "", "pcodec=JPG;s=10x10;pi=1;pt=2;", "pictures 30 rough; "},
        {"whole_input_is_no_time", 'O', "", "pcodec=PNG;s=10x10;pi=1;pt=Full;", "pictures 0 unknown; "},
        {"unknown_frame_is_empty", 'I', "", "pcodec=BMP;s=Auto;pi=1;pt=2;", "pictures 0 unknown; ", kSecond,
         {0, 0, 0, -1, 20}},
        {"source_size_not_used", 'O', "", "pcodec=BMP;s=Auto;pi=1;pt=1;", "pictures 600 exact; ", kSecond,
         {0, 0, 0, 10, 20}},
        {"shortest_interval_refused", 'I', "", "pcodec=BMP;s=10x10;pi=0.01;pt=1;", "pictures 30000 exact; "},
        {"shorter_interval_accepted", 'I', "", "pcodec=BMP;s=10x10;pi=0.0099;pt=1;", "pictures 0 unknown; "},
        {"large_picture_not_wrapped", 'I', "", "pcodec=BMP;s=40000x40000;pi=1;pt=1;",
         "pictures 505032704 rough; "},
        {"no_pictures_unknown", 'I', "", "b=800;", ""}};
    // clang-format on
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.fault << ", given " << row.format << ' ' << row.settings);
        kmProfile profile = ProfileWith(row.settings);
        profile.SetFormat(Text(row.format));
        profile.GetProfileItems()[0].GetAdvCandidatesValue() = Pieces("500|600|800|900");
        const auto [explained, calculated] = Ask(row.which, profile, row.duration, row.source);
        EXPECT_EQ(Told(explained), row.told);
        EXPECT_EQ(explained.total, calculated);
        EXPECT_EQ(explained.video.bytes + explained.audio.bytes + explained.pictures.bytes, calculated);
    }
}

TEST(SizeEstimate, HighestVideoBitratesForASize) {
    // clang-format off
    const struct { const char *fault, *settings; std::int64_t bytes, duration; int highest, candidate; } rows[] = {
        {"audio_not_taken_off", "b=9;ab=8;", 101'124, kSecond, 800, 800},
        {"one_byte_too_many", "b=9;ab=8;", 100'999, kSecond, 799, 500},
        {"cut_bytes_left_unused", "b=9;ab=1;", 4, 12'000, 2, 0},
        {"candidate_above_the_size", "b=9;acodec=pcm_u8;ar=8000;ac=1;", 70'500, kSecond, 500, 500},
        {"item_needed", "vcodec=h264;an=false;", 100'000, kSecond, 800, 0},
        {"audio_alone_too_large", "b=9;ab=8;", 1'000, kSecond, 0, 0},
        {"no_time_takes_any_rate", "b=9;", 1'000, 0, 0, 0},
        {"audio_profile_gets_video", "acodec=mp3;ab=8;", 100'000, kSecond, 0, 0},
        {"video_left_out_has_a_rate", "b=9;vn=false;", 100'000, kSecond, 0, 0},
        {"pictures_have_a_rate", "b=9;pcodec=BMP;", 100'000, kSecond, 0, 0},
        {"search_passes_32_bits", "b=9;", kForever, 1, std::numeric_limits<int>::max(), 900}};
    // clang-format on
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.fault << ", given " << row.settings);
        kmProfile profile = ProfileWith(row.settings);
        if (kmProfileItem* item = profile.GetProfileItem(KM_TEXT("b")))
            item->GetAdvCandidatesValue() = Pieces("Auto|900|500|800");
        const kmVideoBitrateFit fit = kmFitVideoBitrate(profile, row.bytes, row.duration, true);
        EXPECT_EQ(fit.highest, row.highest);
        EXPECT_EQ(fit.candidate, row.candidate);
        const auto sizeWith = [&](std::int64_t bitrate) {
            profile.SetItemValue(KM_TEXT("b"), Text(std::to_string(bitrate)).c_str());
            return profile.CalcOutputFileSize(row.duration, true, 0, 0);
        };
        if (fit.highest == 0 || row.bytes == kForever || !profile.ItemExist(KM_TEXT("b"))) continue;
        EXPECT_LE(sizeWith(fit.highest), row.bytes);
        EXPECT_GT(sizeWith(fit.highest + std::int64_t{1}), row.bytes);
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

}  // namespace
