// SPDX-License-Identifier: MIT
#include "text/kmCTString.h"

#include <gtest/gtest.h>

#include "tests/support/Text.h"

TEST(CTString, EqualityWithoutCaseIsThatOfAscii) {
    EXPECT_TRUE(kmCTString(KM_TEXT("Auto")).IsEqualNoCase(KM_TEXT("aUTO")));
    EXPECT_FALSE(kmCTString(KM_TEXT("Auto")).IsEqualNoCase(KM_TEXT("Aut")));
    EXPECT_FALSE(kmCTString(KM_TEXT("\u00c9\u212a")).IsEqualNoCase(KM_TEXT("\u00e9k")));
    EXPECT_FALSE(kmCTString(KM_TEXT("@[`{")).IsEqualNoCase(KM_TEXT("`{@["))) << "neighbours of the letters";
    EXPECT_FALSE(kmCTString().IsEqualNoCase(nullptr));
}

TEST(CTString, ReplaceAll) {
    // clang-format off
    const struct { const char* name; const kmChar *text, *with, *target; const char* expected; } rows[] = {
        {"replacement_searched_again", KM_TEXT("a/b"), KM_TEXT("//"), KM_TEXT("/"), "a//b"},
        {"replacement_joined_to_what_follows", KM_TEXT("aaa"), KM_TEXT("a"), KM_TEXT("aa"), "aa"},
        {"null_replacement_removes", KM_TEXT("a"), nullptr, KM_TEXT("a"), "a"},
        {"empty_target_found", KM_TEXT("a"), KM_TEXT("b"), KM_TEXT(""), "a"},
    };
    // clang-format on
    for (const auto& row : rows) {
        kmCTString text(row.text);
        text.ReplaceAll(row.with, row.target);
        EXPECT_EQ(Utf8(text), row.expected) << row.name << " given " << Utf8(row.text);
    }
}
// From every place of texts of every length around the width of a register.
TEST(CTString, SeparatorsAreFoundLikeThePortableFormFindsThem) {
    for (std::size_t length = 0; length < 40; ++length) {
        for (std::size_t comma = 0; comma <= length; ++comma) {
            kmString text(length, kmChar{0x2C2C});
            if (comma < length) text[comma] = KM_TEXT(',');
            const kmChar* const end = text.data() + length;
            for (const kmChar* at = text.data(); at <= end; ++at)
                ASSERT_EQ(FindUnit(at, end, KM_TEXT(',')) - at, FindUnitPortably(at, end, KM_TEXT(',')) - at)
                    << "given " << length << " units with a comma at " << comma << ", from "
                    << at - text.data();
        }
    }
}
