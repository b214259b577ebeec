// SPDX-License-Identifier: MIT
// The option string, the argument list, which is the string taken apart, and its explanation.
#include <gtest/gtest.h>

#include <algorithm>

#include "kmArguments.h"
#include "tests/support/Profiles.h"

namespace {

std::string Joined(const std::vector<kmString>& arguments) {
    std::string text;
    for (const kmString& argument : arguments) text += (text.empty() ? "" : " | ") + Utf8(argument);
    return text;
}

// The option string taken apart: spaces separate, except between quotation marks.
std::vector<kmString> Split(const kmString& options) {
    std::vector<kmString> arguments;
    bool isQuoted = false, isOpen = false;
    for (const kmChar unit : options) {
        if (unit == KM_TEXT('"')) isQuoted = !isQuoted;
        const bool ends = unit == KM_TEXT(' ') && !isQuoted;
        if (!ends && !isOpen) arguments.emplace_back();
        isOpen = !ends;
        if (!ends && unit != KM_TEXT('"')) arguments.back() += unit;
    }
    return arguments;
}

// Expected options stand with ' for the quotation marks.
std::string Quoted(std::string options) {
    std::replace(options.begin(), options.end(), '\'', '"');
    return options;
}

TEST(ArgumentString, Options) {
    // clang-format off
    const struct { const char *fault, *settings, *expected; } rows[] = {
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
        {"video_kept_or_sample_rate_added",  "acodec=wma9x;ab=320;", "-acodec 'wma9x' -ab '320K'   -vn "},
        {"rate_above_the_limit_kept",        "acodec=MP3;ar=22050;ab=192;",
         "-acodec 'MP3' -ar '22050' -ab '160K'   -vn "},
        {"hexadecimal_or_unit_not_read",     "acodec=mp3;ar=0x5622;ab=192k;",
         "-acodec 'mp3' -ar '0x5622' -ab '160K'   -vn "},
        {"sample_rate_not_corrected",        "acodec=wma9x;ar=48000;ab= 320 ;",
         "-acodec 'wma9x' -ar '44100' -ab '320K'   -vn "},
        {"other_bit_rate_corrected",         "acodec=wma8x;ar=48000;ab=320k;",
         "-acodec 'wma8x' -ar '48000' -ab '320k'   -vn "}};
    // clang-format on
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.fault << ", given " << row.settings);
        kmProfile profile = ProfileWith(row.settings);
        const kmArgumentList list = kmBuildArguments(profile, {});
        const kmString options = profile.GetAvcString(true);
        EXPECT_EQ(Utf8(options), Quoted(row.expected));
        const bool isSplit = options.find(KM_TEXT("\"big\"")) == kmString::npos;  // nothing quotes a quote
        EXPECT_EQ(Joined(list.arguments), isSplit ? Joined(Split(options)) : "-title | my \"big\" \xC3\x84");
        for (std::size_t i = 0; i < list.settings.size(); ++i) {
            const kmArgument& setting = list.settings[i];
            EXPECT_EQ(Utf8(setting.corrected.empty() ? setting.value : setting.corrected),
                      Utf8(profile.GetProfileItems()[i].GetValue()));
        }
    }
}

struct ListRow {
    const char* fault;
    const char* settings;
    kmArgumentRequest request;
    const char* expected;  // "fate arguments; " of each setting, then those of none
    const char* format = "avi";
};

constexpr kmArgumentRequest kOwn = {};
constexpr kmArgumentRequest kSilent = {KM_DIALECT_OWN, false, false, false};
constexpr kmArgumentRequest kOwnWithAll = {KM_DIALECT_OWN, true, true, true};
constexpr kmArgumentRequest kFfmpeg = {KM_DIALECT_FFMPEG, true, true, true};

const ListRow kRows[] = {
    {"value_taken_apart_or_quoted", "title=\" -an \" $(X) `y`;", kOwn,
     "written -title | \" -an \" $(x) `y`; "},
    {"reason_mixed_up", "x=1;g= ;lf=on;vol=1;b=Auto;r=25;target=DVD;ar=1;", kOwn,
     "no-option ; empty ; switch-off ; not-passed ; default ; held-back ; written -target | DVD; "
     "set-by-target ; "},
    {"audio_kept", "ab=96;b=1;", kSilent, "no-audio ; written -b | 1K; "},
    {"correction_lost_or_of_all", "acodec=mp3;ar=22050;ab=192;ab=256;", kOwn,
     "written -acodec | mp3; written -ar | 22050; corrected -ab | 160K; written -ab | 256K; -vn"},
    {"held_back_not_as_the_library_reads_it", "b=1;s= cif;S=352x288 (cif);ss=24:00:00;t=0:01:30.5;pt=5;r=25;",
     kOwnWithAll,
     "written -b | 1K; dropped ; written -s | 352x288; written -ss | 24; written -t | 90.5; covered ; "
     "written -r | 25; -f | avi"},
    {"nothing_to_do_written", "b=1;s=auto;ss=0;t=Full;zoom=letterbox;", kOwnWithAll,
     "written -b | 1K; default ; default ; default ; default ; -f | avi"},
    {"negative_time_passed_on", "ss=-5;", kOwnWithAll, "dropped ; -f | avi"},
    {"picture_format_named_twice", "pcodec=JPG;", kOwnWithAll, "written -f | image2 | -vcodec | mjpeg; -an"},
    {"name_or_value_of_the_profiles_encoder_kept",
     "vcodec=H264;me=full;title=My Clip;ac=1 (Mono);hq=yes;b=1;", kFfmpeg,
     "translated -vcodec | libx264; translated -motion-est | esa; translated -metadata | title=My Clip; "
     "translated -ac | 1; translated -mbd | rd; translated -b:v | 1K; -f | avi"},
    {"search_of_another_encoder", "vcodec=mpeg4;me=x1;", kFfmpeg,
     "written -vcodec | mpeg4; translated -motion_est | xone; -f | avi"},
    {"filters_of_one_list_apart", "deinterlace=true;padtop=4;padcolor=ff0000;croptop=2;", kFfmpeg,
     "translated -vf | yadif; translated -vf | pad=in_w:in_h+4:0:4:color=ff0000; covered ; "
     "translated -vf | crop=in_w:in_h-2:0:2; -f | avi"},
    {"standard_not_part_of_the_target", "standard=PAL;target=Dvd;b=1;", kFfmpeg,
     "covered ; translated -target | pal-dvd; set-by-target ; -f | avi"},
    {"audio_of_the_input_kept",
     "ab=96;b=1;",
     {KM_DIALECT_FFMPEG, false, false, false},
     "no-audio ; translated -b:v | 1K; -an"},
    {"filter_added_by_a_value", "croptop=0,movie=x;padtop=1:a'[];padcolor=a,b;", kFfmpeg,
     "translated -vf | crop=in_w:in_h-0\\,movie=x:0:0\\,movie=x; "
     "translated -vf | pad=in_w:in_h+1\\\\:a\\\\\\'\\[\\]:0:1\\\\:a\\\\\\'\\[\\]:color=a\\,b; covered ; "
     "-f | avi"},
    {"volume_left_to_the_application", "vol=150%;vol=100%;async=1;", kFfmpeg,
     "translated -af | volume=1.5; dropped ; translated -af | aresample=async=1; -f | avi"},
    {"volume_of_no_audio", "vol=150%;", {KM_DIALECT_FFMPEG, false, false, false}, "not-passed ; -an"},
    {"codec_that_the_output_format_refuses", "vcodec=H263p;", kFfmpeg, "translated -vcodec | h263; -f | 3gp",
     "3gp"},
    {"output_format_not_translated", "vcodec=H263p;", kFfmpeg, "written -vcodec | H263p; -f | mpeg", "DPG"},
    {"dropped_without_a_word", "zoom=0;sameq=true;ar=Auto;", kFfmpeg,
     "dropped ; dropped ; dropped ; -f | avi"},
    {"correction_lost_in_translation", "acodec=mp3;ar=22050;ab=192;", kFfmpeg,
     "translated -acodec | libmp3lame; written -ar | 22050; translated -b:a | 160K; -vn | -f | avi"},
};

std::string Render(const kmArgumentList& list) {
    std::string text;
    for (const kmArgument& setting : list.settings)
        text += kmFateName(setting.fate) + (' ' + Joined(setting.arguments)) + "; ";
    std::vector<kmString> others = list.streams;
    others.insert(others.end(), list.format.arguments.begin(), list.format.arguments.end());
    return text + Joined(others);
}

TEST(ArgumentList, TellsWhatBecameOfEachSetting) {
    for (const ListRow& row : kRows) {
        kmProfile profile = ProfileWith(row.settings);
        profile.SetFormat(TextFromBytes(row.format));
        const kmArgumentList list = kmBuildArguments(profile, row.request);
        EXPECT_EQ(Render(list), row.expected) << row.fault << ": " << row.settings;
        for (const kmArgument& setting : list.settings)
            EXPECT_TRUE(setting.sentence.ends_with(KM_TEXT('.')))
                << row.fault << ": " << Utf8(setting.sentence);
        EXPECT_FALSE(profile.GetChangedFlag()) << row.fault;
    }
}

TEST(ArgumentList, FiltersOfAKindAreOneArgument) {
    const kmArgumentList list =
        kmBuildArguments(ProfileWith("deinterlace=true;vol=50%;croptop=2;title=-vf;async=1;"), kFfmpeg);
    EXPECT_EQ(Joined(list.arguments),
              "-vf | yadif,crop=in_w:in_h-2:0:2 | -af | volume=0.5,aresample=async=1 | "
              "-metadata | title=-vf");
}

TEST(MissingAbilities, AreNamedBySettingAndByTheEncodersName) {
    const kmEncoderAbilities abilities = {{KM_TEXT("mpeg4"), KM_TEXT("mpeg2video"), KM_TEXT("mjpeg")},
                                          {KM_TEXT("avi"), KM_TEXT("image2")}};
    // clang-format off
    const struct { const char *fault, *settings, *format, *expected; } rows[] = {
        {"missing_what_is_there",            "vcodec=mpeg4;acodec=copy;",  "AVI",  ""},
        {"name_of_the_profile_looked_for",   "vcodec=x264;acodec= MP3 ;",  "",     "vcodec=x264: libx264|acodec= MP3 : libmp3lame|"},
        {"what_is_not_written_needed",       "target=DVD;acodec=mp3;",     "avi",  "target=DVD: ac3|target=DVD: dvd|"},
        {"output_format_not_looked_at",      "vcodec=mpeg4;",              "ape",  "=ape: ape|"},
        {"header_counted_for_pictures",      "pcodec=JPG;",                "none", ""},
        {"picture_format_not_looked_at",     "pcodec=GIF;",                "none", "pcodec=GIF: gif|pcodec=GIF: gif|"},
    };
    // clang-format on
    for (const auto& row : rows) {
        kmProfile profile = ProfileWith(row.settings);
        profile.SetFormat(TextFromBytes(row.format));
        std::string found;
        for (const kmMissingAbility& each : kmFindMissingAbilities(profile, KM_DIALECT_FFMPEG, abilities))
            found += Utf8(each.option) + '=' + Utf8(each.value) + ": " + Utf8(each.needed) + '|';
        EXPECT_EQ(found, row.expected) << row.fault << ": " << row.settings << " in " << row.format;
    }
}

}  // namespace
