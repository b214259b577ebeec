#include <gtest/gtest.h>

#include "tests/support/TreeDump.h"

namespace {

XMLNode Parse(const kmChar* text) { return XMLNode::ParseDocumentText(text, nullptr); }

TEST(Tree, FindChildWalksFromThePosition) {
    const XMLNode root = Parse(KM_TEXT("<r><b n='0'/><a n='1'/><B n='2'/>text<b n='3'/></r>"));
    int position = 0;
    std::string walk;
    for (int i = 0; i < 4; ++i) {
        walk += Dump(root.FindChild(KM_TEXT("B"), &position));
        walk += std::to_string(position) + " ";
    }
    EXPECT_EQ(walk, "b[n=0]1 B[n=2]3 b[n=3]4 (empty)4 ");
    EXPECT_EQ(Dump(root.FindChild(KM_TEXT("b"))) + Dump(root.FindChild(nullptr)), "b[n=0](empty)");
    EXPECT_TRUE(root.CountChildren() == 4 && root.CountChildren(KM_TEXT("B")) == 3);
    // In every order, since the tree remembers where the last walk stood.
    for (const int index : {3, 0, 2, 1, 1, 3})
        EXPECT_EQ(Utf8(root.ChildAt(index).FindAttribute(KM_TEXT("n"))), std::to_string(index));
    EXPECT_TRUE(root.ChildAt(4).IsEmpty() && root.ChildAt(-1).IsEmpty());
}

TEST(Tree, FindAttributeWalksFromThePosition) {
    const XMLNode node = Parse(KM_TEXT("<r a='1' b A='2' a/>"));
    int position = 0;
    for (const char* value : {"1", "2", "(null)", "(null)"})
        EXPECT_EQ(Utf8(node.FindAttribute(KM_TEXT("a"), &position)), value);
    EXPECT_EQ(position, 4) << "an attribute without a value is found all the same";
    EXPECT_TRUE(!node.FindAttribute(KM_TEXT("b")) && !node.FindAttribute(nullptr));
}

TEST(Tree, AttributesAreSetOrAdded) {
    constexpr const kmChar *v = KM_TEXT("9"), *a = KM_TEXT("a"), *b = KM_TEXT("b"), *c = KM_TEXT("c"),
                           *none = nullptr;
    // clang-format off
    const struct { const kmChar *value, *newName, *oldName; int index; const char* expected; } rows[] = {
        {v, none, KM_TEXT("A"), -1, "r[a=9 b a=2]"}, {v, c, b, -1, "r[a=1 c=9 a=2]"},
        {v, none, c, -1, "r[a=1 b a=2 c=9]"}, {none, KM_TEXT("d"), c, -1, "r[a=1 b a=2 d]"},
        {v, a, c, -1, "r[a=1 b a=2 a=9]"}, {none, none, a, -1, "r[a b a=2]"},
        {v, none, none, 2, "r[a=1 b a=9]"}, {v, c, none, 3, "r[a=1 b a=2 c=9]"},
        {v, none, none, 3, "r[a=1 b a=2]"}};
    // clang-format on
    for (const auto& row : rows) {
        XMLNode node = Parse(KM_TEXT("<r a='1' b a='2'/>"));
        if (row.index < 0) node.SetAttribute(row.value, row.newName, row.oldName);
        if (row.index >= 0) node.SetAttributeAt(row.value, row.newName, row.index);
        EXPECT_EQ(Dump(node), row.expected);
    }
    XMLNode node = Parse(KM_TEXT("<r a='1' b a='2'/>"));
    node.SetAttribute(node.FindAttribute(KM_TEXT("a")), node.GetName(), KM_TEXT("a"));
    EXPECT_EQ(Dump(node), "r[r=1 b a=2]") << "the node's own texts were lost while set";
    for (const kmChar* name : {KM_TEXT("c"), KM_TEXT("R"), KM_TEXT("A")}) node.RemoveAttribute(name);
    EXPECT_EQ(Dump(node), "r[b]");
}

TEST(Tree, HandlesShareAndOutliveTheRoot) {
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
