#include "text/kmCTString.h"

#include <gtest/gtest.h>

#include "tests/support/Text.h"

TEST(kmCTString, Equality) {
    // clang-format off
    const struct { const kmChar* a; const kmChar* b; bool noCase, exact; } rows[] = {
        {KM_TEXT("Auto"), KM_TEXT("Auto"), true, true}, {KM_TEXT("Auto"), KM_TEXT("aUTO"), true, false},
        {KM_TEXT("Auto"), KM_TEXT("Aut"), false, false}, {KM_TEXT(""), KM_TEXT(""), true, true},
        {KM_TEXT(""), nullptr, false, false}, {KM_TEXT("\u00c9"), KM_TEXT("\u00e9"), false, false},
        {KM_TEXT("\u212a"), KM_TEXT("k"), false, false}, {KM_TEXT("@[`{"), KM_TEXT("`{@["), false, false}};
    // clang-format on
    for (const auto& row : rows) {
        EXPECT_EQ(kmCTString(row.a).IsEqualNoCase(row.b), row.noCase) << Utf8(row.a) << " " << Utf8(row.b);
        EXPECT_EQ(kmCTString(row.a).IsEqual(row.b), row.exact) << Utf8(row.a) << " " << Utf8(row.b);
    }
}

TEST(kmCTString, ReplaceAll) {
    // clang-format off
    const struct { const kmChar *text, *replacement, *target; const char* expected; } rows[] = {
        {KM_TEXT("a//c"), KM_TEXT("\\"), KM_TEXT("/"), "a\\\\c"},
        {KM_TEXT("a/b"), KM_TEXT("//"), KM_TEXT("/"), "a//b"},
        {KM_TEXT("aaa"), KM_TEXT("a"), KM_TEXT("aa"), "aa"},
        {KM_TEXT("-a-b-"), KM_TEXT(""), KM_TEXT("-"), "ab"}, {KM_TEXT("a"), nullptr, KM_TEXT("a"), "a"},
        {KM_TEXT("a"), KM_TEXT("b"), nullptr, "a"}, {KM_TEXT("a"), KM_TEXT("b"), KM_TEXT(""), "a"}};
    // clang-format on
    for (const auto& row : rows) {
        kmCTString text(row.text);
        text.ReplaceAll(row.replacement, row.target);
        EXPECT_EQ(Utf8(text), row.expected) << Utf8(row.text);
    }
}

TEST(kmCTString, TrimsAndLowersAsciiOnly) {
    // clang-format off
    const struct { const char *text, *left, *both, *lower; } rows[] = {
        {"^^A^b^", "A^b^", "A^b", "^^a^b^"}, {"^^^", "", "", "^^^"}, {"", "", "", ""},
        {" ^AZ@[\u00c9", " ^AZ@[\u00c9", " ^AZ@[\u00c9", " ^az@[\u00c9"}};
    // clang-format on
    for (const auto& row : rows) {
        kmCTString left(TextFromBytes(row.text).c_str()), both(left), lower(left);
        left.TrimLeft(KM_TEXT('^'));
        both.Trim(KM_TEXT('^'));
        lower.MakeLower();
        EXPECT_EQ(Utf8(left) + "|" + Utf8(both) + "|" + Utf8(lower),
                  row.left + std::string("|") + row.both + "|" + row.lower);
    }
    EXPECT_EQ(kmCTString(KM_TEXT(" 0x10")).ToInt(), 16);
}

TEST(kmCTString, Split) {
    // clang-format off
    const struct { const char *text, *pieces; } rows[] = {
        {"a, b", "a|b|"}, {"a,,b", "a||b|"}, {"a,b,", "a|b||"}, {" , ", "||"}, {"a, ", "a||"}, {"", "|"},
        {"\ta b ", "\ta b|"}};
    // clang-format on
    for (const auto& row : rows) {
        std::vector<kmString> pieces = {KM_TEXT("left over")};
        kmCTString(TextFromBytes(row.text).c_str()).Split(pieces, KM_TEXT(','));
        std::string shown;
        for (const kmString& piece : pieces) shown += Utf8(piece) + "|";
        EXPECT_EQ(shown, row.pieces) << "'" << row.text << "'";
    }
}
