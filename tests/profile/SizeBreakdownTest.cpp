// SPDX-License-Identifier: MIT
// What the estimates are made of, and the video bit rate for a wanted size.
#include "kmSizeEstimate.h"

#include <gtest/gtest.h>

#include <limits>
#include <sstream>

#include "tests/support/Profiles.h"

namespace {

constexpr std::int64_t kSecond = 1'000'000;
constexpr std::int64_t kForever = std::numeric_limits<std::int64_t>::max();
constexpr int kBoth = 3;

struct Estimate {
    kmSizeEstimate explained;
    std::int64_t calculated;
};

// One of the four, by its first letter; 'V': without audio, 'S': with a source of 640 and 96 kbit/s. No frame
// size of a source is known.
Estimate Ask(char which, const kmProfile& profile, std::int64_t duration) {
    const int audio = which == 'S' ? 96'000 : 0, video = which == 'S' ? 640'000 : 0;
    switch (which) {
        case 'A':
        case 'S':
            return {kmExplainAVOutputFileSize(profile, duration, audio, video, kBoth),
                    profile.CalcAVOutputFileSize(duration, audio, video, kBoth)};
        case 'I':
            return {kmExplainImageOutputFileSize(profile, duration, -1, -1),
                    profile.CalcImageOutputFileSize(duration, -1, -1)};
        case 'P':
            return {kmExplainP2VOutputFileSize(profile, duration), profile.CalcP2VOutputFileSize(duration)};
        default:
            return {kmExplainOutputFileSize(profile, duration, which == 'O', -1, -1),
                    profile.CalcOutputFileSize(duration, which == 'O', -1, -1)};
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

TEST(SizeBreakdown, SaysWhatCountedAndAddsUp) {
    // clang-format off
    const struct { const char* fault; char which; const char *format, *settings, *told;
                   std::int64_t duration = kSecond; } rows[] = {
        {"own_rates_not_named", 'O', "", "b=800;acodec=mp3;ab=8;",
         "video 100000 of 800 own bounded; audio 1000 of 8 own bounded; "},
        {"audio_unasked", 'V', "", "b=800;acodec=mp3;ab=8;", "video 100000 of 800 own bounded; "},
        {"fraction_cut_twice", 'O', "", "b=1;ab=1;",
         "video 1 of 1 own bounded; audio 1 of 1 own bounded; ", 12'000},
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
        {"source_not_named", 'S', "", "b=Auto;acodec=mp3;",
         "video 80000 of 640 source rough; audio 12000 of 96 source rough; "},
        {"fallback_not_named", 'A', "", "b=Auto;acodec=mp3;",
         "video 0 unknown; audio 8000 of 64 fallback rough; "},
        {"rate_of_the_profile_for_dv", 'A', "dv", "b=800;ab=8;", "video 3500000 of 28000 format bounded; "},
        {"candidate_not_named", 'P', "", "b=Auto;ab=8;", "video 100000 of 800 candidate rough; "},
        {"raw_pictures_rough", 'I', "", "pcodec=bmp;s=10x10;pi=1;pt=2;b=8;", "pictures 600 exact; "},
        {"compressed_pictures_exact", 'O', "", "pcodec=JPG;s=10x10;pi=1;pt=2;", "pictures 30 rough; "},
        {"whole_input_is_no_time", 'O', "", "pcodec=PNG;s=10x10;pi=1;pt=Full;", "pictures 0 unknown; "},
        {"unknown_frame_is_empty", 'I', "", "pcodec=BMP;s=Auto;pi=1;pt=2;", "pictures 0 unknown; "},
        {"no_pictures_unknown", 'I', "", "b=800;", ""}};
    // clang-format on
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.fault << ", given " << row.format << ' ' << row.settings);
        kmProfile profile = ProfileWith(row.settings);
        profile.SetFormat(Text(row.format));
        profile.GetProfileItems()[0].GetAdvCandidatesValue() = Pieces("500|800|900");
        const auto [explained, calculated] = Ask(row.which, profile, row.duration);
        EXPECT_EQ(Told(explained), row.told);
        EXPECT_EQ(explained.total, calculated);
        EXPECT_EQ(explained.video.bytes + explained.audio.bytes + explained.pictures.bytes, calculated);
    }
}

TEST(SizeBreakdown, HighestVideoBitratesForASize) {
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

}  // namespace
