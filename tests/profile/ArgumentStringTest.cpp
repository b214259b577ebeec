// SPDX-License-Identifier: MIT
// The encoder's options: what is written, how, in which order, and what is corrected before.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/Profiles.h"

namespace {

// Expected options stand with ' for the quotation marks.
std::string Quoted(std::string options) {
    std::replace(options.begin(), options.end(), '\'', '"');
    return options;
}

TEST(ArgumentString, Options) {
    // clang-format off
    const struct { const char *fault, *settings, *expected; } rows[] = {
        {"order_or_spaces_wrong", "vcodec=mpeg4;s=320x240;b=768;r=25;acodec=mp3;ab=128;ar=44100;ac=2;",
         "-vcodec 'mpeg4' -b '768K' -acodec 'mp3' -ab '128K' -ar '44100' -ac '2'  "},
        {"unknown_option_or_its_spelling_kept", "nonsense=1;G= 12  ;",      "-g '12'  "},
        {"default_or_empty_value_written",   "b=aUTO;aspect= Auto ;track=0;g=   ;hq= ;", " "},
        {"switch_not_set_or_by_other_words", "sameq=TRUE;hq=Yes;an=1;lf=false;part=on;", "-sameq -hq  "},
        {"held_back_option_written",         "ss=1;t=1;pt=1;s=1x1;r=1;pi=1;zoom=1;", " "},
        {"switch_without_its_number",        "bitexact=yes;",               "-bitexact 1  "},
        {"kilobits_without_a_unit_or_twice", "b=1;ab=2k;bt=3K ;maxrate=4;minrate=5;bufsize=6;",
         "-b '1K' -ab '2k' -bt '3K' -maxrate '4K' -minrate '5K' -bufsize '6K'  "},
        {"quality_not_scaled_or_wrapped",    "pq=2;pq=0x10;pq=high;pq=2147483647;",
         "-pq '121' -pq '961' -pq '1' -pq '-59'  "},
        {"surround_not_six_channels",        "ac=5.1;ac=5;ac=15;",          "-ac '6' -ac '6' -ac '15'  "},
        {"text_not_in_ascii_lower_case",     "title= My \"Big\" \xC3\x84;", "-title 'my \"big\" \xC3\x84'  "},
        {"target_does_not_decide", "target=dvd;b=1;ab=1;bt=1;maxrate=1;minrate=1;bufsize=1;vcodec=x;acodec=y;"
         "ar=1;ac=2;", "-target 'dvd' -ac '2'  "},
        {"target_before_or_first_decides",   "vcodec=x;target=VCD;b=1;target=dv;b=2;target=Svcd;b=3;",
         "-vcodec 'x' -target 'VCD' -target 'dv' -b '2K' -target 'Svcd'  "},
        {"picture_format_not_translated",    "pcodec=jpg;pcodec=Gif;pcodec=Bmp;",
         "-f image2 -vcodec mjpeg -pix_fmt rgb24 -f gif -f image2 -vcodec bmp   -an "},
        {"video_kept_or_sample_rate_added",  "acodec=wma9x;ab=320;", "-acodec 'wma9x' -ab '320K'   -vn "}};
    // clang-format on
    for (const auto& row : rows)
        EXPECT_EQ(Utf8(ProfileWith(row.settings).GetAvcString(true)), Quoted(row.expected))
            << row.fault << ": " << row.settings;
}

TEST(ArgumentString, CorrectionsReachTheProfile) {
    // clang-format off
    const struct { const char *fault, *codec, *ar, *ab, *expectedAr, *expectedAb; } rows[] = {
        {"rate_above_the_limit_kept",          "MP3",   "22050",  "192",   "22050",  "160"},
        {"hexadecimal_or_unit_not_read",       "mp3",   "0x5622", "192k",  "0x5622", "160"},
        {"sample_rate_not_corrected",          "wma9x", "48000",  " 320 ", "44100",  " 320 "},
        {"other_bit_rate_corrected",           "wma8x", "48000",  "320k",  "48000",  "320k"},
        {"sample_rate_with_a_space_corrected", "wma8x", " 44100", "320",   " 44100", "320"}};
    // clang-format on
    for (const auto& row : rows) {
        const std::string settings =
            std::string("acodec=") + row.codec + ";ar=" + row.ar + ";ab=" + row.ab + ";";
        const std::string expected = " ar " + std::string(row.expectedAr) + " ab " + row.expectedAb;
        const bool corrects = expected != " ar " + std::string(row.ar) + " ab " + row.ab;
        SCOPED_TRACE(testing::Message() << row.fault << ", given " << settings);
        kmProfile profile = ProfileWith(settings);
        const kmString first = profile.GetAvcString(true);
        EXPECT_EQ(" ar " + Utf8(profile.GetItemValue(KM_TEXT("ar"))) + " ab " +
                      Utf8(profile.GetItemValue(KM_TEXT("ab"))),
                  expected);
        EXPECT_EQ(profile.GetChangedFlag(), corrects);
        EXPECT_EQ(Utf8(profile.GetAvcString(true)), Utf8(first)) << "first built from other values";
    }
}

}  // namespace
