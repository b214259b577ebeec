#include "text/kmCTString.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>

#include "tests/support/Text.h"

namespace {

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
    const struct { const char* fault; const kmChar *text, *replacement, *target; const char* expected; } rows[] = {
        {"neighbours_missed", KM_TEXT("a//c"), KM_TEXT("\\"), KM_TEXT("/"), "a\\\\c"},
        {"replacement_searched_again", KM_TEXT("a/b"), KM_TEXT("//"), KM_TEXT("/"), "a//b"},
        {"overlap_replaced_twice", KM_TEXT("aaa"), KM_TEXT("a"), KM_TEXT("aa"), "aa"},
        {"removal_misses_the_end", KM_TEXT("-a-b-"), KM_TEXT(""), KM_TEXT("-"), "ab"},
        {"null_replacement", KM_TEXT("a"), nullptr, KM_TEXT("a"), "a"},
        {"null_target", KM_TEXT("a"), KM_TEXT("b"), nullptr, "a"},
        {"empty_target_never_ends", KM_TEXT("a"), KM_TEXT("b"), KM_TEXT(""), "a"}};
    // clang-format on
    for (const auto& row : rows) {
        kmCTString text(row.text);
        text.ReplaceAll(row.replacement, row.target);
        EXPECT_EQ(Utf8(text), row.expected) << row.fault;
    }
}

TEST(kmCTString, TrimsAndLowersAsciiOnly) {
    // clang-format off
    const struct { const kmChar* text; const char *left, *both, *lower; } rows[] = {
        {KM_TEXT("^^A^b^"), "A^b^", "A^b", "^^a^b^"}, {KM_TEXT("^^^"), "", "", "^^^"},
        {KM_TEXT(""), "", "", ""}, {KM_TEXT(" ^AZ@[\u00c9"), " ^AZ@[\u00c9", " ^AZ@[\u00c9", " ^az@[\u00c9"}};
    // clang-format on
    for (const auto& row : rows) {
        kmCTString left(row.text), both(row.text), lower(row.text);
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
    const struct { const kmChar* text; const char* pieces; } rows[] = {
        {KM_TEXT("a, b"), "a|b|"}, {KM_TEXT("a,,b"), "a||b|"}, {KM_TEXT("a,b,"), "a|b||"},
        {KM_TEXT(" , "), "||"}, {KM_TEXT("a, "), "a||"}, {KM_TEXT(""), "|"}, {KM_TEXT("\ta b "), "\ta b|"}};
    // clang-format on
    for (const auto& row : rows) {
        std::vector<kmString> pieces = {KM_TEXT("left over")};
        kmCTString(row.text).Split(pieces, KM_TEXT(','));
        std::string shown;
        for (const kmString& piece : pieces) shown += Utf8(piece) + "|";
        EXPECT_EQ(shown, row.pieces) << "'" << Utf8(row.text) << "'";
    }
}

TEST(kmCTString, SplitUndoesJoin) {
    std::mt19937 random(2);
    for (int round = 0; round < 2000; ++round) {
        std::vector<kmString> items(1 + random() % 5);  // no items at all join to what one empty item does
        for (kmString& item : items) item = kmString(KM_TEXT("x y|ab")).substr(0, random() % 3 * 3);
        kmCTString joined(KM_TEXT("left over"));
        joined.Join(items, KM_TEXT(','));
        std::vector<kmString> pieces;
        joined.Split(pieces, KM_TEXT(','));
        ASSERT_EQ(pieces, items);
    }
    kmCTString nothing(KM_TEXT("left over"));
    nothing.Join({}, KM_TEXT(','));
    EXPECT_TRUE(nothing.empty());
}

TEST(kmCTString, CopiesEndAtANull) {
    kmCTString text(KM_TEXT("ab"));
    text += kmString(1, 0) + KM_TEXT("c");
    const auto copy = std::make_unique<kmCTString>(text);
    EXPECT_EQ(copy->size(), 2u);
    kmCTString assigned;
    assigned = text;
    EXPECT_EQ(assigned.size(), 2u);
    text = *&text;
    EXPECT_EQ(text.size(), 4u);
}

}  // namespace
