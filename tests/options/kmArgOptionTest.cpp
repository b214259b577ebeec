// SPDX-License-Identifier: MIT
#include "kmArgOption.h"

#include <gtest/gtest.h>

#include <utility>

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

TEST(ArgOption, NothingElseIsFound) {
    for (const int index : {-1, kCount}) EXPECT_EQ(kmArgOption::GetArgOption(index), nullptr) << index;
    const std::pair<const char*, const kmChar*> rows[] = {
        {"null_read", nullptr},
        {"end_of_the_table_found", KM_TEXT("")},
        {"start_enough", KM_TEXT("vcode")},
        {"kelvin_sign_folded", KM_TEXT("\u212a")},
    };
    for (const auto& [row, name] : rows) {
        SCOPED_TRACE(row);
        EXPECT_EQ(kmArgOption::GetOptionID(name), -1);
        EXPECT_EQ(kmArgOption::GetArgOption(name), nullptr);
        EXPECT_EQ(Utf8(kmArgOption::GetOptionDefVal(name)), "(null)");
        EXPECT_FALSE(kmArgOption::HasFlag(name, ~0u));
    }
}

}  // namespace
