#include "text/kmCTString.h"

#include <gtest/gtest.h>

#include "tests/support/Text.h"

TEST(CTString, Equality) {
    // clang-format off
    const struct { const char* name; const kmChar *a, *b; bool noCase, exact; } rows[] = {
        {"equal_texts_differ", KM_TEXT("Auto"), KM_TEXT("Auto"), true, true},
        {"case_mixed_up", KM_TEXT("Auto"), KM_TEXT("aUTO"), true, false},
        {"start_enough", KM_TEXT("Auto"), KM_TEXT("Aut"), false, false},
        {"empty_texts_differ", KM_TEXT(""), KM_TEXT(""), true, true},
        {"null_taken_for_empty", KM_TEXT(""), nullptr, false, false},
        {"latin_letters_folded", KM_TEXT("\u00c9"), KM_TEXT("\u00e9"), false, false},
        {"kelvin_sign_folded", KM_TEXT("\u212a"), KM_TEXT("k"), false, false},
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
        {"second_of_two_neighbours_missed", KM_TEXT("a//c"), KM_TEXT("\\"), KM_TEXT("/"), "a\\\\c"},
        {"replacement_searched_again", KM_TEXT("a/b"), KM_TEXT("//"), KM_TEXT("/"), "a//b"},
        {"replacement_joined_to_what_follows", KM_TEXT("aaa"), KM_TEXT("a"), KM_TEXT("aa"), "aa"},
        {"first_or_last_missed", KM_TEXT("-a-b-"), KM_TEXT(""), KM_TEXT("-"), "ab"},
        {"null_replacement_removes", KM_TEXT("a"), nullptr, KM_TEXT("a"), "a"},
        {"null_target_read", KM_TEXT("a"), KM_TEXT("b"), nullptr, "a"},
        {"empty_target_found", KM_TEXT("a"), KM_TEXT("b"), KM_TEXT(""), "a"},
    };
    // clang-format on
    for (const auto& row : rows) {
        kmCTString text(row.text);
        text.ReplaceAll(row.with, row.target);
        EXPECT_EQ(Utf8(text), row.expected) << row.name << " given " << Utf8(row.text);
    }
}

TEST(CTString, TrimsAndLowers) {
    // clang-format off
    const struct { const char *name, *text, *left, *both, *lower; } rows[] = {
        {"inner_ones_trimmed", "^^A^b^", "A^b^", "A^b", "^^a^b^"},
        {"last_of_them_kept", "^^^", "", "", "^^^"},
        {"empty_text_read", "", "", "", ""},
        {"other_units_trimmed_or_lowered", " ^AZ@[\u00c9", " ^AZ@[\u00c9", " ^AZ@[\u00c9", " ^az@[\u00c9"},
    };
    // clang-format on
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.name << " given \"" << row.text << '"');
        const kmCTString text(TextFromBytes(row.text).c_str());
        kmCTString left = text;
        left.TrimLeft(KM_TEXT('^'));
        EXPECT_EQ(Utf8(left), row.left);
        kmCTString both = text;
        both.Trim(KM_TEXT('^'));
        EXPECT_EQ(Utf8(both), row.both);
        kmCTString lower = text;
        lower.MakeLower();
        EXPECT_EQ(Utf8(lower), row.lower);
    }
}

TEST(CTString, ToIntKnowsPrefixes) { EXPECT_EQ(kmCTString(KM_TEXT(" 0x10")).ToInt(), 16); }

TEST(CTString, Split) {
    // clang-format off
    const struct { const char *name, *text, *expected; } rows[] = {
        {"spaces_kept", "a, b", "|a|b"},
        {"inner_empty_piece_lost", "a,,b", "|a||b"},
        {"last_empty_piece_lost", "a,b,", "|a|b|"},
        {"pieces_of_spaces_lost", " , ", "||"},
        {"last_piece_of_spaces_lost_or_doubled", "a, ", "|a|"},
        {"empty_text_has_no_piece", "", "|"},
        {"tab_trimmed", "\ta b ", "|\ta b"},
    };
    // clang-format on
    for (const auto& row : rows) {
        std::vector<kmString> pieces = {KM_TEXT("left over")};
        kmCTString(TextFromBytes(row.text).c_str()).Split(pieces, KM_TEXT(','));
        EXPECT_EQ(Joined(pieces), row.expected) << row.name << " given \"" << row.text << '"';
    }
}
