// The encoder's options: what is written, how, in which order, and what is corrected before.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <new>
#include <sstream>

#include "kmArgOption.h"
#include "kmProfile.h"
#include "tests/support/Text.h"

// Sanitizers pair allocations with releases by functions of their own, which must stay in place.
#if defined(__SANITIZE_ADDRESS__)
#define KM_COUNTS_ALLOCATIONS 0
#elif defined(__has_feature)
#define KM_COUNTS_ALLOCATIONS !(__has_feature(address_sanitizer) || __has_feature(memory_sanitizer))
#else
#define KM_COUNTS_ALLOCATIONS 1
#endif

#if KM_COUNTS_ALLOCATIONS
namespace {
thread_local long allocations = 0;
}

void* operator new(std::size_t size) {
    ++allocations;
    if (void* memory = std::malloc(size == 0 ? 1 : size)) return memory;
    throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
#endif

namespace {

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

std::string OptionsOf(const std::string& settings, bool withAudio) {
    return Utf8(ProfileWith(settings).GetAvcString(withAudio));
}

// Expected options stand with ' for the quotation marks.
std::string Quoted(std::string options) {
    std::replace(options.begin(), options.end(), '\'', '"');
    return options;
}

constexpr const char* kVideo = "vcodec=mpeg4;s=320x240;b=768;r=25;acodec=mp3;ab=128;ar=44100;ac=2;";

struct OptionCase {
    const char *fault, *settings, *expected;
};

TEST(ArgumentStringTest, Options) {
    const OptionCase cases[] = {
        {"empty_profile_not_a_space", "", " "},
        {"order_or_held_back_options", kVideo,
         "-vcodec 'mpeg4' -b '768K' -acodec 'mp3' -ab '128K' -ar '44100' -ac '2'  "},
        {"timing_or_geometry_passed", "ss=9;t=9;pt=9;s=9x9;r=9;pi=9;zoom=9;", " "},
        {"private_option_passed", "standard=PAL;vol=9;cbrorvbr=9;vbrquality=9;2-pass=yes;", " "},
        {"unknown_option_passed", "nonsense=1;g=12;", "-g '12'  "},
        {"spelling_of_the_profile_kept", "G= 12  ;", "-g '12'  "},
        {"blank_value_written", "g=   ;hq= ;", " "},
        {"default_written_or_case_matters", "b=aUTO;aspect= Auto ;track=0;", " "},
        {"auto_taken_for_a_default", "ar=Auto;", "-ar 'Auto'  "},
        {"switch_case_matters", "sameq=TRUE;hq=Yes;", "-sameq -hq  "},
        {"switch_taken_for_on", "sameq=1;hq=false;bitexact=on;", " "},
        {"switch_without_its_one", "bitexact=yes;", "-bitexact 1  "},
        {"kilobits_missing", "b=1;ab=2;bt=3;maxrate=4;minrate=5;bufsize=6;",
         "-b '1K' -ab '2K' -bt '3K' -maxrate '4K' -minrate '5K' -bufsize '6K'  "},
        {"second_k_appended", "b=768k;ab=96K ;", "-b '768k' -ab '96K'  "},
        {"quality_not_scaled", "pq=2;pq=0;pq=0x10;pq=high;", "-pq '121' -pq '1' -pq '961' -pq '1'  "},
        {"quality_overflow_undefined", "pq=2147483647;", "-pq '-59'  "},
        {"surround_not_six", "ac=5.1;ac=5;ac=15;", "-ac '6' -ac '6' -ac '15'  "},
        {"tag_not_lowered", "title= My \"Big\" Clip \xC3\x84;", "-title 'my \"big\" clip \xC3\x84'  "},
        {"target_leaves_rates",
         "target=dvd;b=1;ab=1;bt=1;maxrate=1;minrate=1;bufsize=1;vcodec=x;acodec=y;ar=1;ac=2;",
         "-target 'dvd' -ac '2'  "},
        {"target_works_backwards", "vcodec=x;target=VCD;vcodec=y;", "-vcodec 'x' -target 'VCD'  "},
        {"later_target_ignored", "target=Svcd;b=1;target=dv;b=2;", "-target 'Svcd' -target 'dv' -b '2K'  "},
        {"jpg_as_its_own_codec", "pcodec=jpg;", "-f image2 -vcodec mjpeg   -an "},
        {"gif_as_a_series", "pcodec=Gif;pq=1;", "-pix_fmt rgb24 -f gif -pq '61'   -an "},
        {"picture_codec_not_lowered", "pcodec=BMP;", "-f image2 -vcodec bmp   -an "},
        {"closing_of_audio_missing", "acodec=mp3;ab=128;an=false;", "-acodec 'mp3' -ab '128K'   -vn "},
        {"closing_written_twice", "acodec=mp2;vn=yes;", "-acodec 'mp2' -vn  "},
        {"first_piece_taken_for_the_closing", "vn=yes;acodec=mp2;", "-vn -acodec 'mp2'   -vn "},
    };
    for (const OptionCase& c : cases) EXPECT_EQ(OptionsOf(c.settings, true), Quoted(c.expected)) << c.fault;
    EXPECT_EQ(OptionsOf(kVideo, false), Quoted("-vcodec 'mpeg4' -b '768K'  ")) << "audio passed unasked";
}

TEST(ArgumentStringTest, CorrectionsReachTheProfile) {
    const struct {
        const char *fault, *codec, *ar, *ab, *expectedAr, *expectedAb;
    } cases[] = {
        {"mp3_rate_above_the_limit_kept", "MP3", "22050", "192", "22050", "160"},
        {"mp3_rate_at_the_limit_changed", "mp3", "16000", " 160 ", "16000", " 160 "},
        {"unlisted_sample_rate_limited", "mp3", "44100", "999", "44100", "999"},
        {"sample_rate_not_base_0", "mp3", "0x5622", "192k", "0x5622", "160"},
        {"wma_rate_kept", "wma9x", "48000", " 320 ", "44100", " 320 "},
        {"old_wma_rate_kept", "wma7x", "", "320", "44100", "320"},
        {"wma_case_ignored", "WMA9X", "48000", "320", "48000", "320"},
        {"wma_bit_rate_read_as_number", "wma8x", "48000", "320k", "48000", "320k"},
        {"correct_wma_rate_rewritten", "wma8x", " 44100", "320", " 44100", "320"},
    };
    for (const auto& c : cases) {
        for (const bool withAudio : {true, false}) {
            kmProfile profile =
                ProfileWith(std::string("acodec=") + c.codec + ";ar=" + c.ar + ";ab=" + c.ab + ";");
            const kmString first = profile.GetAvcString(withAudio);
            EXPECT_EQ(Utf8(profile.GetItemValue(KM_TEXT("ar"))), c.expectedAr) << c.fault;
            EXPECT_EQ(Utf8(profile.GetItemValue(KM_TEXT("ab"))), c.expectedAb) << c.fault;
            const bool corrects = c.ar != std::string(c.expectedAr) || c.ab != std::string(c.expectedAb);
            EXPECT_EQ(profile.GetChangedFlag(), corrects) << c.fault;
            profile.SetChangedFlag(false);
            EXPECT_EQ(profile.GetAvcString(withAudio), first) << c.fault << ", built from other values";
            EXPECT_FALSE(profile.GetChangedFlag()) << c.fault << ", corrected again";
        }
    }
    kmProfile withoutRate = ProfileWith("acodec=wma9x;ab=320;");
    EXPECT_EQ(Utf8(withoutRate.GetAvcString(true)), Quoted("-acodec 'wma9x' -ab '320K'   -vn "));
    EXPECT_FALSE(withoutRate.GetChangedFlag()) << "there is nothing to correct";
}

// Every option of the table on its own, against what its flags say.
TEST(ArgumentStringTest, FlagsDecideForEveryOption) {
    const std::vector<std::string> neverByName = {"ss", "t", "pt", "s", "r", "pi", "zoom", "pcodec"};
    for (int i = 0; kmArgOption::GetArgOption(i) != nullptr; ++i) {
        const _ArgOption& option = *kmArgOption::GetArgOption(i);
        const std::string name = Utf8(option.name);
        const bool passed = (option.flags & ARG_NOT_PASSED) == 0 &&
                            std::count(neverByName.begin(), neverByName.end(), name) == 0;
        for (const bool withAudio : {true, false}) {
            const bool written = OptionsOf(name + "=yes;", withAudio).starts_with("-" + name + " ");
            EXPECT_EQ(written, passed && (withAudio || (option.flags & ARG_AUDIO) == 0)) << name << withAudio;
        }
    }
}

TEST(ArgumentStringTest, ThirtySettingsTakeThreeAllocationsAtMost) {
#if KM_COUNTS_ALLOCATIONS
    std::string settings = kVideo;
    for (int i = 0; i < 21; ++i) settings += "sc_threshold=10;";
    kmProfile profile = ProfileWith(settings + "title=A title that no short text can hold;");
    ASSERT_EQ(profile.GetProfileItems().size(), 30u);
    const long before = allocations;
    const kmString options = profile.GetAvcString(true);
    EXPECT_LE(allocations - before, 3);
    EXPECT_GT(options.size(), 400u);
#else
    GTEST_SKIP() << "allocations belong to the sanitizer";
#endif
}

}  // namespace
