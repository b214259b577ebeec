#include "text/kmCTString.h"

#include <gtest/gtest.h>

#include "tests/support/Text.h"

TEST(CTString, Equality) {
    // clang-format off
    const struct { const char* name; const kmChar *a, *b; bool noCase, exact; } rows[] = {
        {"case_mixed_up", KM_TEXT("Auto"), KM_TEXT("aUTO"), true, false},
        {"start_enough", KM_TEXT("Auto"), KM_TEXT("Aut"), false, false},
        {"null_taken_for_empty", KM_TEXT(""), nullptr, false, false},
        {"latin_letters_folded", KM_TEXT("\u00c9"), KM_TEXT("\u00e9"), false, false},
        {"neighbours_of_the_letters_folded", KM_TEXT("@[`{"), KM_TEXT("`{@["), false, false},
    };
    // clang-format on
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.name << " given " << Utf8(row.a) << " and " << Utf8(row.b));
        EXPECT_EQ(kmCTString(row.a).IsEqualNoCase(row.b), row.noCase);
        EXPECT_EQ(kmCTString(row.a).IsEqual(row.b), row.exact);
    }
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
