// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "tests/support/TreeDump.h"
#include "text/Numbers.h"

namespace {

XMLNode Parse(const kmChar* text) { return XMLNode::ParseDocumentText(text, nullptr); }

TEST(XmlTree, ChildrenAreFoundByNameAndIndex) {
    const XMLNode root = Parse(KM_TEXT("<r><b n='0'/><a n='1'/><B n='2'/>text<b n='3'/></r>"));
    const std::pair<const char*, int> steps[] = {{"b[n=0]", 1}, {"B[n=2]", 3}, {"b[n=3]", 4}, {"(empty)", 4}};
    int position = 0;
    for (const auto& [found, nextPosition] : steps) {
        EXPECT_EQ(Dump(root.FindChild(KM_TEXT("B"), &position)), found);
        EXPECT_EQ(position, nextPosition) << "after " << found;
    }
    EXPECT_EQ(root.CountChildren(KM_TEXT("B")), 3);
    // In every order, since the tree remembers where the last walk stood.
    for (const int index : {3, 0, 2, 1, 1, 3})
        EXPECT_EQ(Utf8(root.ChildAt(index).FindAttribute(KM_TEXT("n"))), std::to_string(index));
    for (const int index : {4, -1}) EXPECT_EQ(Dump(root.ChildAt(index)), "(empty)") << index;
}

// Long enough for walks that are no longer made step by step; grown in between, past what they have seen.
TEST(XmlTree, LongContentIsFoundInEveryOrder) {
    constexpr struct {
        const char* name;
        int (*indexAt)(int step, int count);
    } rows[] = {
        {"rising_walk_misses_what_was_added", [](int step, int) { return step; }},
        {"falling_walk_misses_what_was_added", [](int step, int count) { return count - 1 - step; }},
        {"scattered_walk_starts_at_the_wrong_piece", [](int step, int count) { return step * 7919 % count; }},
        {"walk_from_both_ends_mixes_them",
         [](int step, int count) { return step % 2 == 0 ? step / 2 : count - 1 - step / 2; }},
    };
    for (const auto& row : rows) {
        XMLNode root = Parse(KM_TEXT("<r><!--neither child nor text--></r>"));
        for (const int count : {150, 151, 160, 700}) {
            for (int added = root.CountChildren(); added < count; ++added) {
                root.AppendChild(IntegerText(added).c_str(), false);
                for (const int text : {2 * added, 2 * added + 1})
                    root.SetText(IntegerText(text).c_str(), text);
            }
            for (int step = 0; step < count; ++step) {
                const int index = row.indexAt(step, count);
                ASSERT_EQ(root.ChildAt(index).GetName(), IntegerText(index)) << row.name;
                ASSERT_EQ(root.TextAt(2 * index + 1), IntegerText(2 * index + 1)) << row.name;
            }
        }
    }
}

TEST(XmlTree, AttributesAreSetOrAdded) {
    // clang-format off
    const struct { const char* name; const kmChar *value, *newName, *oldName; const char* tree; } rows[] = {
        {"compared_with_case", KM_TEXT("9"), nullptr, KM_TEXT("A"), "r[a=9 b a=2]"},
        {"not_added_by_the_old_name", KM_TEXT("9"), nullptr, KM_TEXT("c"), "r[a=1 b a=2 c=9]"},
        {"new_name_looked_for", KM_TEXT("9"), KM_TEXT("a"), KM_TEXT("c"), "r[a=1 b a=2 a=9]"},
        {"null_value_leaves_the_old_one", nullptr, nullptr, KM_TEXT("a"), "r[a b a=2]"},
    };
    // clang-format on
    for (const auto& row : rows) {
        XMLNode node = Parse(KM_TEXT("<r a='1' b a='2'/>"));
        node.SetAttribute(row.value, row.newName, row.oldName);
        EXPECT_EQ(Dump(node), row.tree) << row.name << " given " << Utf8(row.value) << ' '
                                        << Utf8(row.newName) << ' ' << Utf8(row.oldName);
    }
}

TEST(XmlTree, AttributesAreSetFromTheNodesOwnTextsAndRemoved) {
    XMLNode node = Parse(KM_TEXT("<r a='1' b a='2'/>"));
    node.SetAttribute(node.FindAttribute(KM_TEXT("a")), node.GetName(), KM_TEXT("a"));
    EXPECT_EQ(Dump(node), "r[r=1 b a=2]");
    for (const kmChar* name : {KM_TEXT("c"), KM_TEXT("R"), KM_TEXT("A")}) node.RemoveAttribute(name);
    EXPECT_EQ(Dump(node), "r[b]");
}

TEST(XmlTree, HandlesShareAndOutliveTheRoot) {
    XMLNode root = Parse(KM_TEXT("<r><a>text<b c='1'/></a></r>"));
    XMLNode child = root.ChildAt(0);
    const XMLNode copy = root;
    child.SetAttribute(KM_TEXT("2"), nullptr, KM_TEXT("new"));
    EXPECT_EQ(Dump(copy), "r(a[new=2]('text' b[c=1]))");
    XMLNode held = Parse(KM_TEXT("<r><a>text<b c='1'/></a></r>")).ChildAt(0);
    held.AppendChild(KM_TEXT("d"), false).SetText(KM_TEXT("x"), 0);
    EXPECT_EQ(Dump(held), "a('text' b[c=1] d('x'))");
}

}  // namespace
