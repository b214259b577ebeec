#include "kmArgOption.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

#include "tests/support/Text.h"

namespace {

constexpr int kCount = 150;

TEST(ArgOption, EveryOptionIsFoundInAnyLetterCase) {
    for (int id = 0; id < kCount; ++id) {
        const kmString spelling = kmArgOption::GetOptionName(id);
        EXPECT_EQ(kmArgOption::GetOptionID(ExactBuffer(spelling).data()), id) << Utf8(spelling);
        kmString name = spelling;
        for (std::size_t i = 0; i < name.size(); ++i)
            name[i] = i % 2 == 0 ? FoldUpper(name[i]) : FoldLower(name[i]);
        EXPECT_EQ(kmArgOption::GetArgOption(name.c_str()), kmArgOption::GetArgOption(id)) << Utf8(name);
        EXPECT_EQ(Utf8(kmArgOption::GetOptionTitle(name.c_str())), Utf8(spelling));
    }
}

TEST(ArgOption, NoOtherIndexIsFound) {
    for (const int index : {-1, kCount, kCount + 1, -2147483647}) {
        EXPECT_EQ(kmArgOption::GetArgOption(index), nullptr) << index;
        EXPECT_EQ(Utf8(kmArgOption::GetOptionName(index)), "(null)") << index;
    }
}

TEST(ArgOption, NoOtherNameIsFound) {
    const kmString endless(100000, KM_TEXT('b'));
    const std::pair<const char*, const kmChar*> rows[] = {
        {"null_read", nullptr},
        {"end_of_the_table_found", KM_TEXT("")},
        {"leading_minus_skipped", KM_TEXT("-vcodec")},
        {"start_enough", KM_TEXT("vcode")},
        {"trailing_space_skipped", KM_TEXT("vcodec ")},
        {"kelvin_sign_folded", KM_TEXT("\u212a")},
        {"endless_name_copied", endless.c_str()},
    };
    for (const auto& [row, name] : rows) {
        SCOPED_TRACE(row);
        EXPECT_EQ(kmArgOption::GetOptionID(name), -1);
        EXPECT_EQ(kmArgOption::GetArgOption(name), nullptr);
        EXPECT_EQ(Utf8(kmArgOption::GetOptionTitle(name)), "(null)");
        EXPECT_EQ(Utf8(kmArgOption::GetOptionComments(name)), "(null)");
        EXPECT_EQ(Utf8(kmArgOption::GetOptionDefVal(name)), "(null)");
        EXPECT_EQ(kmArgOption::GetListVal(name), nullptr);
        EXPECT_FALSE(kmArgOption::HasFlag(name, ~0u));
    }
}

TEST(ArgOption, FlagsStandInAsManyRowsAsTheyShould) {
    // clang-format off
    const struct { const char* name; std::uint32_t flag; int expected; } rows[] = {
        {"ARG_SWITCH", ARG_SWITCH, 35},
        {"ARG_INTEGER", ARG_INTEGER, 7},
        {"ARG_TEXT", ARG_TEXT, 11},
        {"ARG_SWITCH_ONE", ARG_SWITCH_ONE, 4},
        {"ARG_EXPERT", ARG_EXPERT, 89},
        {"ARG_VIDEO", ARG_VIDEO, 101},
        {"ARG_AUDIO", ARG_AUDIO, 8},
        {"ARG_GENERAL", ARG_GENERAL, 8},
        {"ARG_TAG", ARG_TAG, 13},
        {"ARG_FLAG_21", ARG_FLAG_21, 9},
        {"ARG_FLAG_22", ARG_FLAG_22, 15},
        {"ARG_NOT_PASSED", ARG_NOT_PASSED, 5},
        {"ARG_LOWER_TEXT", ARG_LOWER_TEXT, 10},
    };
    // clang-format on
    std::uint32_t known = 0;
    for (const auto& row : rows) {
        known |= row.flag;
        int count = 0;
        for (int id = 0; id < kCount; ++id) count += (kmArgOption::GetArgOption(id)->flags & row.flag) != 0;
        EXPECT_EQ(count, row.expected) << row.name;
    }
    for (int id = 0; id < kCount; ++id)
        EXPECT_EQ(kmArgOption::GetArgOption(id)->flags & ~known, 0u) << Utf8(kmArgOption::GetOptionName(id));
    EXPECT_TRUE(kmArgOption::HasFlag(KM_TEXT("AN"), ARG_SWITCH | ARG_VIDEO)) << "one bit is enough";
    EXPECT_FALSE(kmArgOption::HasFlag(KM_TEXT("an"), ARG_VIDEO));
}

// The number of texts in a list, and its ends.
std::string Summary(const kmChar* const* list) {
    int count = 0;
    while (list[count] != nullptr) ++count;
    return count == 0 ? "none" : std::to_string(count) + " " + Utf8(list[0]) + ".." + Utf8(list[count - 1]);
}

TEST(ArgOption, SuggestedValuesHelpAndDefaults) {
    const std::map<std::string, std::string> expected = {
        {"genre", "126 Blues..Dance Hall"},
        {"vcodec", "18 mpeg4..zlib"},
        {"standard", "3 Auto..PAL"},
        {"s", "7 128x96 (sqcif)..480x272"},
        {"acodec", "11 ac3..pcm_u8"},
        {"ab", "14 32..320"},
        {"ar", "8 96000..8000"},
        {"ac", "2 1 (Mono)..2 (Stereo)"},
        {"vol", "8 25%..200%"},
        {"pt", "8 Full..90"},
        {"pi", "7 5..90"},
        {"zoom", "4 Letterbox..Full (Keep aspect ratio)"},
    };
    int helpTexts = 0;
    int defaults = 0;
    for (int id = 0; id < kCount; ++id) {
        const kmChar* name = kmArgOption::GetOptionName(id);
        const auto row = expected.find(Utf8(name));
        EXPECT_EQ(Summary(kmArgOption::GetListVal(name)), row == expected.end() ? "none" : row->second)
            << Utf8(name);
        helpTexts += kmArgOption::GetOptionComments(name) != nullptr;
        defaults += kmArgOption::GetOptionDefVal(name) != nullptr;
    }
    EXPECT_EQ(helpTexts, 148);
    EXPECT_EQ(defaults, 28);
    EXPECT_EQ(Utf8(kmArgOption::GetOptionDefVal(KM_TEXT("Zoom"))), "Letterbox");
}

}  // namespace
