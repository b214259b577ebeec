// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "tests/support/TemporaryFolder.h"
#include "tests/support/TreeDump.h"

namespace {

struct WritingCase {
    const char *name, *text, *plain, *formatted;
    const char* declaration = "<?xml version=\"1.0\" encoding=\"utf-16\"?>\n";
};

const WritingCase kCases[] = {
    {"character_not_escaped_or_too_many",
     "<a b='&lt;&gt;&amp;&quot;&apos;\n'>&lt;&gt;&amp;&quot;&apos;\u00E9</a>",
     "<a b=\"&lt;&gt;&amp;&quot;&apos;\n\">&lt;&gt;&amp;&quot;&apos;\u00E9</a>",
     "<a b=\"&lt;&gt;&amp;&quot;&apos;\n\">\n\t&lt;&gt;&amp;&quot;&apos;\u00E9\n</a>\n"},
    {"order_of_the_content_lost", "<a>x<b/>y\n z<!-- & --></a>", "<a>x<b/>y\n z<!-- & --></a>",
     "<a>\n\tx\n\t<b/>\n\ty\n z\n\t<!-- & -->\n</a>\n"},
    {"declaration_indents_or_comes_twice", "<?xml v='1'?><a><b/></a>", "<?xml v=\"1\"?><a><b/></a>",
     "<?xml v=\"1\"?>\n<a>\n\t<b/>\n</a>\n", ""},
    {"nameless_node_indents", "<a/><!--c--><b/>", "<a/><!--c--><b/>", "<a/>\n\t<!--c-->\n<b/>\n"},
};

TEST(XmlWriting, EveryKindOfNode) {
    const TemporaryFolder folder;
    const kmString path = folder.Path(KM_TEXT("f"));
    folder.WriteBytes(KM_TEXT("f"), std::string(5000, '?'));  // longer than what replaces it
    for (const WritingCase& row : kCases) {
        SCOPED_TRACE(testing::Message() << row.name << " given " << row.text);
        const XMLNode node = XMLNode::ParseDocumentText(TextFromBytes(row.text).c_str(), nullptr);
        EXPECT_EQ(Utf8(node.ToText(true).get()), row.formatted);
        EXPECT_EQ(Utf8(node.ToText(false).get()), row.plain);
        EXPECT_EQ(node.SaveToFile(path.c_str(), KM_TEXT("utf-8"), true), 0);
        const kmString file = TextFromBytes(row.declaration) + TextFromBytes(row.formatted);
        EXPECT_EQ(ReadBytes(folder.SystemPath(KM_TEXT("f"))), "\xFF\xFE" + Utf16Bytes(file));
    }
}

// Deep trees grow with the square of their depth when they are indented.
TEST(XmlWriting, TextsAboveTheLimitAreNotWritten) {
    const TemporaryFolder folder;
    XMLNode root = XMLNode::CreateRoot(KM_TEXT("a"), false);
    XMLNode deepest = root;
    for (int depth = 0; depth < 9000; ++depth) deepest = deepest.AppendChild(KM_TEXT("a"), false);
    folder.WriteBytes(KM_TEXT("f"), "old");
    const kmString path = folder.Path(KM_TEXT("f"));
    EXPECT_EQ(root.SaveToFile(path.c_str(), nullptr, /*formatted=*/true), XML_ERROR_WRITE);
    EXPECT_EQ(ReadBytes(folder.SystemPath(KM_TEXT("f"))), "old");
    EXPECT_FALSE(root.ReadsBackTheSame());
    EXPECT_EQ(root.SaveToFile(path.c_str(), nullptr, /*formatted=*/false), XML_ERROR_NONE);
}

}  // namespace
