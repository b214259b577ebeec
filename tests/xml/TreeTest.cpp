#include <gtest/gtest.h>

#include "tests/support/TreeDump.h"

namespace {

XMLNode Parse(const kmChar* text) { return XMLNode::ParseDocumentText(text, nullptr); }

TEST(Tree, FindChildWalksFromThePosition) {
    const XMLNode root = Parse(KM_TEXT("<r><b n='0'/><a n='1'/><B n='2'/>text<b n='3'/></r>"));
    int position = 0;
    std::string walk;
    for (XMLNode node = root.FindChild(KM_TEXT("B"), &position); !node.IsEmpty();
         node = root.FindChild(KM_TEXT("B"), &position)) {
        walk += Utf8(node.FindAttribute(KM_TEXT("N"))) + ":" + std::to_string(position) + " ";
    }
    EXPECT_EQ(walk, "0:1 2:3 3:4 ");
    EXPECT_EQ(position, 4) << "changed although nothing was found";
    position = 1;
    EXPECT_TRUE(root.FindChild(KM_TEXT("none"), &position).IsEmpty());
    EXPECT_EQ(position, 1) << "changed although nothing was found";
    EXPECT_EQ(Dump(root.FindChild(KM_TEXT("b"))), "b[n=0]");
    EXPECT_TRUE(root.FindChild(nullptr).IsEmpty());
    EXPECT_EQ(root.CountChildren(), 4);
    EXPECT_EQ(root.CountChildren(KM_TEXT("B")), 3);
    // In every order, since the tree remembers where the last walk stood.
    for (const int index : {3, 0, 2, 1, 1, 3}) {
        EXPECT_EQ(Utf8(root.ChildAt(index).FindAttribute(KM_TEXT("n"))), std::to_string(index));
    }
    EXPECT_TRUE(root.ChildAt(4).IsEmpty());
    EXPECT_TRUE(root.ChildAt(-1).IsEmpty());
}

TEST(Tree, FindAttributeWalksFromThePosition) {
    const XMLNode node = Parse(KM_TEXT("<r a='1' b A='2' a/>"));
    int position = 0;
    EXPECT_EQ(Utf8(node.FindAttribute(KM_TEXT("a"), &position)), "1");
    EXPECT_EQ(Utf8(node.FindAttribute(KM_TEXT("a"), &position)), "2");
    EXPECT_EQ(node.FindAttribute(KM_TEXT("a"), &position), nullptr);
    EXPECT_EQ(position, 4) << "an attribute without a value is found all the same";
    EXPECT_EQ(node.FindAttribute(KM_TEXT("a"), &position), nullptr);
    EXPECT_EQ(position, 4);
    EXPECT_EQ(node.FindAttribute(KM_TEXT("b")), nullptr);
    EXPECT_EQ(node.FindAttribute(nullptr), nullptr);
}

TEST(Tree, AttributesAreSetOrAdded) {
    // clang-format off
    const struct { const char* fault; const kmChar *value, *newName, *oldName; int index; const char* expected; } rows[] = {
        {"second_of_two_changed", KM_TEXT("9"), nullptr, KM_TEXT("A"), -1, "r[a=9 b a=2]"},
        {"not_renamed", KM_TEXT("9"), KM_TEXT("c"), KM_TEXT("b"), -1, "r[a=1 c=9 a=2]"},
        {"old_name_not_added", KM_TEXT("9"), nullptr, KM_TEXT("c"), -1, "r[a=1 b a=2 c=9]"},
        {"new_name_not_added", nullptr, KM_TEXT("d"), KM_TEXT("c"), -1, "r[a=1 b a=2 d]"},
        {"new_name_looked_up", KM_TEXT("9"), KM_TEXT("a"), KM_TEXT("c"), -1, "r[a=1 b a=2 a=9]"},
        {"value_kept_for_null", nullptr, nullptr, KM_TEXT("a"), -1, "r[a b a=2]"},
        {"wrong_index_set", KM_TEXT("9"), nullptr, nullptr, 2, "r[a=1 b a=9]"},
        {"index_behind_not_added", KM_TEXT("9"), KM_TEXT("c"), nullptr, 3, "r[a=1 b a=2 c=9]"},
        {"nameless_added", KM_TEXT("9"), nullptr, nullptr, 3, "r[a=1 b a=2]"}};
    // clang-format on
    for (const auto& row : rows) {
        XMLNode node = Parse(KM_TEXT("<r a='1' b a='2'/>"));
        if (row.index < 0) node.SetAttribute(row.value, row.newName, row.oldName);
        if (row.index >= 0) node.SetAttributeAt(row.value, row.newName, row.index);
        EXPECT_EQ(Dump(node), row.expected) << row.fault;
    }
    XMLNode node = Parse(KM_TEXT("<r a='1' b a='2'/>"));
    node.SetAttribute(node.FindAttribute(KM_TEXT("a")), node.GetName(), KM_TEXT("a"));
    EXPECT_EQ(Dump(node), "r[r=1 b a=2]") << "the node's own texts were lost while set";
    for (const kmChar* name : {KM_TEXT("c"), KM_TEXT("R"), KM_TEXT("A")}) node.RemoveAttribute(name);
    EXPECT_EQ(Dump(node), "r[b]");
}

TEST(Tree, TextsAreReplacedOrAppended) {
    XMLNode node = Parse(KM_TEXT("<r>x<a/>y</r>"));
    EXPECT_EQ(Utf8(node.TextAt(1)) + Utf8(node.TextAt(0)), "yx");
    node.SetText(KM_TEXT("first"), 0);
    node.SetText(KM_TEXT("third"), 7);
    node.ChildAt(0).SetText(KM_TEXT("inner"), 0);
    EXPECT_EQ(Dump(node), "r('first' 'y' 'third' a('inner'))");
    EXPECT_EQ(node.TextAt(3), nullptr);
}

TEST(Tree, BuiltTreeEqualsTheParsedOne) {
    XMLNode root = XMLNode::CreateRoot(KM_TEXT("xml"), /*isDeclaration=*/true);
    XMLNode list = root.AppendChild(KM_TEXT("list"), false);
    kmString file = KM_TEXT("<?xml?><list>");
    for (int i = 0; i < 200; ++i) {  // more than any first room for records
        const kmString name(1 + static_cast<std::size_t>(i) % 7, KM_TEXT('n'));
        XMLNode child = list.AppendChild(name.c_str(), false);
        file += KM_TEXT("<") + name;
        for (int n = 0; n < i % 9; ++n) child.AppendAttribute(name.c_str(), name.c_str());
        for (int n = 0; n < i % 9; ++n) file += KM_TEXT(" ") + name + KM_TEXT("='") + name + KM_TEXT("'");
        file += KM_TEXT("/>");
    }
    EXPECT_EQ(Dump(list), Dump(XMLNode::ParseDocumentText(file.c_str(), KM_TEXT("list"))));
    EXPECT_EQ(Dump(root), "?xml(" + Dump(list) + ")");
}

TEST(Tree, HandlesShareAndOutliveTheRoot) {
    XMLNode root = Parse(KM_TEXT("<r><a>text<b c='1'/></a></r>"));
    XMLNode child = root.ChildAt(0);
    const XMLNode copy = root;
    child.SetAttribute(KM_TEXT("2"), nullptr, KM_TEXT("new"));
    EXPECT_EQ(Dump(copy), "r(a[new=2]('text' b[c=1]))");
    root = *&root;
    EXPECT_EQ(Dump(root), Dump(copy));
    XMLNode held;
    {
        const XMLNode gone = Parse(KM_TEXT("<r><a>text<b c='1'/></a></r>"));
        held = gone.ChildAt(0);
    }
    held.AppendChild(KM_TEXT("d"), false).SetText(KM_TEXT("x"), 0);
    EXPECT_EQ(Dump(held), "a('text' b[c=1] d('x'))");
}

TEST(Tree, TheEmptyNodeAnswersEverything) {
    XMLNode empty;
    int position = 5;
    empty.SetAttribute(KM_TEXT("v"), nullptr, KM_TEXT("n"));
    empty.SetAttributeAt(KM_TEXT("v"), KM_TEXT("n"), 0);
    empty.AppendAttribute(KM_TEXT("n"), KM_TEXT("v"));
    empty.RemoveAttribute(KM_TEXT("n"));
    empty.SetText(KM_TEXT("t"), 0);
    EXPECT_TRUE(empty.AppendChild(KM_TEXT("c"), false).IsEmpty());
    EXPECT_TRUE(empty.IsEmpty() && !empty.IsDeclaration() && empty.GetName() == nullptr);
    EXPECT_TRUE(empty.ChildAt(0).IsEmpty() && empty.FindChild(KM_TEXT("c"), &position).IsEmpty());
    EXPECT_EQ(empty.CountChildren() + empty.CountChildren(KM_TEXT("c")) + empty.CountAttributes(), 0);
    EXPECT_TRUE(empty.TextAt(0) == nullptr && empty.FindAttribute(KM_TEXT("n"), &position) == nullptr);
    EXPECT_EQ(position, 5);
}

}  // namespace
