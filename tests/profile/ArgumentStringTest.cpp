// The encoder's options: what is written, how, in which order, and what is corrected before.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <new>

#include "kmArgOption.h"
#include "tests/support/Profiles.h"

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

std::string OptionsOf(const std::string& settings, bool withAudio) {
    return Utf8(ProfileWith(settings).GetAvcString(withAudio));
}

// Expected options stand with ' for the quotation marks.
std::string Quoted(std::string options) {
    std::replace(options.begin(), options.end(), '\'', '"');
    return options;
}

constexpr const char* kVideo = "vcodec=mpeg4;s=320x240;b=768;r=25;acodec=mp3;ab=128;ar=44100;ac=2;";

TEST(ArgumentStringTest, Options) {
    // clang-format off
    const struct { const char *settings, *expected; } cases[] = {
        {"", " "}, {kVideo, "-vcodec 'mpeg4' -b '768K' -acodec 'mp3' -ab '128K' -ar '44100' -ac '2'  "},
        {"ss=9;t=9;pt=9;s=9x9;r=9;pi=9;zoom=9;", " "},
        {"standard=PAL;vol=9;cbrorvbr=9;vbrquality=9;2-pass=yes;", " "}, {"nonsense=1;g=12;", "-g '12'  "},
        {"G= 12  ;", "-g '12'  "}, {"g=   ;hq= ;", " "}, {"b=aUTO;aspect= Auto ;track=0;", " "},
        {"sameq=TRUE;hq=Yes;", "-sameq -hq  "}, {"sameq=1;hq=false;bitexact=on;", " "},
        {"bitexact=yes;", "-bitexact 1  "},
        {"b=1;ab=2;bt=3;maxrate=4;minrate=5;bufsize=6;",
         "-b '1K' -ab '2K' -bt '3K' -maxrate '4K' -minrate '5K' -bufsize '6K'  "},
        {"b=768k;ab=96K ;", "-b '768k' -ab '96K'  "},
        {"pq=2;pq=0;pq=0x10;pq=high;", "-pq '121' -pq '1' -pq '961' -pq '1'  "},
        {"pq=2147483647;", "-pq '-59'  "}, {"ac=5.1;ac=5;ac=15;", "-ac '6' -ac '6' -ac '15'  "},
        {"title= My \"Big\" Clip \xC3\x84;", "-title 'my \"big\" clip \xC3\x84'  "},
        {"target=dvd;b=1;ab=1;bt=1;maxrate=1;minrate=1;bufsize=1;vcodec=x;acodec=y;ar=1;ac=2;",
         "-target 'dvd' -ac '2'  "},
        {"vcodec=x;target=VCD;vcodec=y;", "-vcodec 'x' -target 'VCD'  "},
        {"target=Svcd;b=1;target=dv;b=2;", "-target 'Svcd' -target 'dv' -b '2K'  "},
        {"pcodec=jpg;", "-f image2 -vcodec mjpeg   -an "},
        {"pcodec=Gif;pq=1;", "-pix_fmt rgb24 -f gif -pq '61'   -an "},
        {"acodec=mp3;ab=128;an=false;", "-acodec 'mp3' -ab '128K'   -vn "},
        {"acodec=wma9x;ab=320;", "-acodec 'wma9x' -ab '320K'   -vn "},
        {"vn=yes;acodec=mp2;", "-vn -acodec 'mp2'   -vn "}};
    // clang-format on
    for (const auto& c : cases) EXPECT_EQ(OptionsOf(c.settings, true), Quoted(c.expected)) << c.settings;
    EXPECT_EQ(OptionsOf(kVideo, false), Quoted("-vcodec 'mpeg4' -b '768K'  ")) << "audio passed unasked";
}

TEST(ArgumentStringTest, CorrectionsReachTheProfile) {
    // clang-format off
    const struct { const char *codec, *ar, *ab, *expectedAr, *expectedAb; } cases[] = {
        {"MP3", "22050", "192", "22050", "160"}, {"mp3", "16000", " 160 ", "16000", " 160 "},
        {"mp3", "44100", "999", "44100", "999"}, {"mp3", "0x5622", "192k", "0x5622", "160"},
        {"wma9x", "48000", " 320 ", "44100", " 320 "}, {"WMA9X", "48000", "320", "48000", "320"},
        {"wma8x", "48000", "320k", "48000", "320k"}, {"wma8x", " 44100", "320", " 44100", "320"}};
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.codec) + " " + c.ar + " " + c.ab);
        for (const bool withAudio : {true, false}) {
            kmProfile profile =
                ProfileWith(std::string("acodec=") + c.codec + ";ar=" + c.ar + ";ab=" + c.ab + ";");
            const kmString first = profile.GetAvcString(withAudio);
            EXPECT_EQ(Utf8(profile.GetItemValue(KM_TEXT("ar"))), c.expectedAr);
            EXPECT_EQ(Utf8(profile.GetItemValue(KM_TEXT("ab"))), c.expectedAb);
            const bool corrects = c.ar != std::string(c.expectedAr) || c.ab != std::string(c.expectedAb);
            EXPECT_EQ(profile.GetChangedFlag(), corrects);
            profile.SetChangedFlag(false);
            EXPECT_EQ(profile.GetAvcString(withAudio), first) << "built from other values";
            EXPECT_FALSE(profile.GetChangedFlag()) << "corrected again";
        }
    }
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
