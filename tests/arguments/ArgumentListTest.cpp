// SPDX-License-Identifier: MIT
// The argument list and its explanation.
#include <gtest/gtest.h>

#include <random>

#include "kmArgOption.h"
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

std::string GeneratedSettings(std::mt19937& random) {
    constexpr const char* kValues[] = {"true", "YES", "no",    "Auto", "  ",    " 12 ",  "768", "96k",
                                       "5.1",  "mp3", "wma9x", "320",  "22050", "48000", "DVD", "My -vn Clip",
                                       "JPG",  "gif", "Full",  "0x10", "-3",    "none"};
    constexpr const char* kNames[] = {"acodec", "AB", "ab", "ar", "target", "pcodec", "unknown"};
    const auto pick = [&random](std::size_t count) { return random() % count; };
    std::string settings;
    for (std::size_t count = pick(8); count > 0; --count) {
        const std::string name = pick(2) == 0 ? kNames[pick(std::size(kNames))]
                                              : Utf8(kmArgOption::GetOptionName(static_cast<int>(pick(150))));
        const std::string value = kValues[pick(std::size(kValues))];
        const bool isTakenApart = name == "pcodec" && value.find(' ') < value.size();  // nothing quotes it
        settings += name + '=' + (isTakenApart ? "bmp" : value) + ';';
    }
    return settings;
}

TEST(ArgumentList, IsTheOptionStringTakenApart) {
    std::mt19937 random(1);
    for (int round = 0; round < 5000; ++round) {
        const std::string settings = GeneratedSettings(random);
        const kmProfile profile = ProfileWith(settings);
        kmArgumentRequest request;
        request.withAudio = round % 3 != 0;
        const kmArgumentList list = kmBuildArguments(profile, request);
        kmProfile changing = profile;
        const kmString options = changing.GetAvcString(request.withAudio);
        ASSERT_EQ(Joined(list.arguments), Joined(Split(options))) << settings << "\nstring " << Utf8(options);
        std::vector<kmString> parts;
        for (std::size_t i = 0; i < list.settings.size(); ++i) {
            const kmArgument& setting = list.settings[i];
            parts.insert(parts.end(), setting.arguments.begin(), setting.arguments.end());
            const kmString counted = setting.corrected.empty() ? setting.value : setting.corrected;
            ASSERT_EQ(Utf8(counted), Utf8(changing.GetProfileItems()[i].GetValue())) << settings;
        }
        parts.insert(parts.end(), list.streams.begin(), list.streams.end());
        ASSERT_EQ(Joined(parts), Joined(list.arguments))
            << settings << ": the explanation tells another list";
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
