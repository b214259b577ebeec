#include "kmArgOption.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

#include "tests/support/Text.h"

constexpr int kCount = 150;

TEST(kmArgOption, EveryOptionIsFoundInAnyLetterCase) {
    for (int id = 0; id < kCount; ++id) {
        kmString name = kmArgOption::GetOptionName(id);
        EXPECT_EQ(kmArgOption::GetOptionID(ExactBuffer(name).data()), id) << Utf8(name);
        const kmString spelling = name;
        for (std::size_t i = 0; i < name.size(); ++i)
            name[i] = i % 2 == 0 ? FoldUpper(name[i]) : FoldLower(name[i]);
        EXPECT_EQ(kmArgOption::GetArgOption(name.c_str()), kmArgOption::GetArgOption(id)) << Utf8(name);
        EXPECT_EQ(kmArgOption::GetOptionTitle(name.c_str()), spelling);
    }
}

TEST(kmArgOption, NothingElseIsFound) {
    for (const int index : {-1, kCount, kCount + 1, -2147483647})
        EXPECT_TRUE(!kmArgOption::GetArgOption(index) && !kmArgOption::GetOptionName(index)) << index;
    const kmString endless(100000, KM_TEXT('b'));
    for (const kmChar* name : {static_cast<const kmChar*>(nullptr), KM_TEXT(""), KM_TEXT("-vcodec"),
                               KM_TEXT("vcode"), KM_TEXT("vcodec "), KM_TEXT("\u212a"), endless.c_str()}) {
        EXPECT_TRUE(kmArgOption::GetOptionID(name) == -1 && kmArgOption::GetArgOption(name) == nullptr);
        EXPECT_TRUE(!kmArgOption::GetOptionTitle(name) && !kmArgOption::GetOptionComments(name));
        EXPECT_TRUE(!kmArgOption::GetOptionDefVal(name) && !kmArgOption::GetListVal(name));
        EXPECT_FALSE(kmArgOption::HasFlag(name, ~0u));
    }
}

TEST(kmArgOption, FlagsStandInAsManyRowsAsTheyShould) {
    // clang-format off
    const std::pair<std::uint32_t, int> rows[] = {
        {ARG_SWITCH, 35}, {ARG_INTEGER, 7}, {ARG_TEXT, 11}, {ARG_SWITCH_ONE, 4}, {ARG_EXPERT, 89},
        {ARG_VIDEO, 101}, {ARG_AUDIO, 8}, {ARG_GENERAL, 8}, {ARG_TAG, 13}, {ARG_FLAG_21, 9},
        {ARG_FLAG_22, 15}, {ARG_NOT_PASSED, 5}, {ARG_LOWER_TEXT, 10}};
    // clang-format on
    std::uint32_t known = 0;
    for (const auto& [flag, expected] : rows) {
        known |= flag;
        int count = 0;
        for (int id = 0; id < kCount; ++id) count += (kmArgOption::GetArgOption(id)->flags & flag) != 0;
        EXPECT_EQ(count, expected) << std::hex << flag;
    }
    for (int id = 0; id < kCount; ++id) EXPECT_EQ(kmArgOption::GetArgOption(id)->flags & ~known, 0u) << id;
    EXPECT_TRUE(kmArgOption::HasFlag(KM_TEXT("AN"), ARG_SWITCH | ARG_VIDEO)) << "one bit is enough";
    EXPECT_FALSE(kmArgOption::HasFlag(KM_TEXT("an"), ARG_VIDEO));
}

TEST(kmArgOption, SuggestedValuesHelpAndDefaults) {
    // clang-format off
    const std::map<std::string, std::string> expected = {
        {"genre", "126 Blues..Dance Hall"}, {"vcodec", "18 mpeg4..zlib"}, {"standard", "3 Auto..PAL"},
        {"s", "7 128x96 (sqcif)..480x272"}, {"acodec", "11 ac3..pcm_u8"}, {"ab", "14 32..320"},
        {"ar", "8 96000..8000"}, {"ac", "2 1 (Mono)..2 (Stereo)"}, {"vol", "8 25%..200%"},
        {"pt", "8 Full..90"}, {"pi", "7 5..90"}, {"zoom", "4 Letterbox..Full (Keep aspect ratio)"}};
    // clang-format on
    // The number of texts in a list, and its ends.
    const auto summary = [](const kmChar* const* list) {
        int count = 0;
        while (list[count] != nullptr) ++count;
        return count == 0 ? "0" : std::to_string(count) + " " + Utf8(list[0]) + ".." + Utf8(list[count - 1]);
    };
    int helps = 0, defaults = 0;
    for (int id = 0; id < kCount; ++id) {
        const kmChar* name = kmArgOption::GetOptionName(id);
        const auto row = expected.find(Utf8(name));
        EXPECT_EQ(summary(kmArgOption::GetListVal(name)), row == expected.end() ? "0" : row->second);
        helps += kmArgOption::GetOptionComments(name) != nullptr;
        defaults += kmArgOption::GetOptionDefVal(name) != nullptr;
    }
    EXPECT_TRUE(helps == 148 && defaults == 28) << helps << " " << defaults;
    EXPECT_EQ(Utf8(kmArgOption::GetOptionDefVal(KM_TEXT("Zoom"))), "Letterbox");
}
