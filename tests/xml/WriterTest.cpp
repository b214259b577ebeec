#include <gtest/gtest.h>

#include "tests/support/TemporaryFolder.h"
#include "tests/support/TreeDump.h"

TEST(Writer, WritesEveryKindOfNode) {
    // clang-format off
    const struct { const char *text, *formatted, *plain; } rows[] = {
        {"<P><Main><Name l='X'/><S>MP4</S></Main><Q/></P>",
         "<P>\n\t<Main>\n\t\t<Name l=\"X\"/>\n\t\t<S>\n\t\t\tMP4\n\t\t</S>\n\t</Main>\n\t<Q/>\n</P>\n",
         "<P><Main><Name l=\"X\"/><S>MP4</S></Main><Q/></P>"},
        {"<a b='&lt;&gt;&amp;&quot;&apos;\n'>&lt;&gt;&amp;&quot;&apos;\u00E9</a>",
         "<a b=\"&lt;&gt;&amp;&quot;&apos;\n\">\n\t&lt;&gt;&amp;&quot;&apos;\u00E9\n</a>\n",
         "<a b=\"&lt;&gt;&amp;&quot;&apos;\n\">&lt;&gt;&amp;&quot;&apos;\u00E9</a>"},
        {"<a b c='' d='1'/>", "<a b c=\"\" d=\"1\"/>\n", "<a b c=\"\" d=\"1\"/>"},
        {"<a>x<b/>y\n z<!-- & --></a>",
         "<a>\n\tx\n\t<b/>\n\ty\n z\n\t<!-- & -->\n</a>\n", "<a>x<b/>y\n z<!-- & --></a>"},
        {"<?xml v='1'?><a><b/></a>", "<?xml v=\"1\"?>\n<a>\n\t<b/>\n</a>\n", "<?xml v=\"1\"?><a><b/></a>"},
        {"<a/><!--c--><b/>", "<a/>\n\t<!--c-->\n<b/>\n", "<a/><!--c--><b/>"}};
    // clang-format on
    const TemporaryFolder folder;
    folder.WriteBytes(KM_TEXT("f"), std::string(5000, '?'));  // longer than what replaces it
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        const XMLNode node = XMLNode::ParseDocumentText(TextFromBytes(row.text).c_str(), nullptr);
        EXPECT_EQ(Utf8(node.ToText(true).get()), row.formatted);
        EXPECT_EQ(Utf8(node.ToText(false).get()), row.plain);
        ASSERT_EQ(node.SaveToFile(folder.Path(KM_TEXT("f")).c_str(), KM_TEXT("utf-8"), true), 0);
        const kmString line = KM_TEXT("<?xml version=\"1.0\" encoding=\"utf-16\"?>\n");
        const kmString text = (node.IsDeclaration() ? kmString() : line) + TextFromBytes(row.formatted);
        EXPECT_EQ(ReadBytes(folder.SystemPath(KM_TEXT("f"))), "\xFF\xFE" + Utf16Bytes(text));
    }
    XMLNode node = XMLNode::CreateRoot(KM_TEXT("a"), false);
    node.SetText(KM_TEXT(""), 0);
    node.AppendAttribute(KM_TEXT(""), KM_TEXT("nameless"));
    EXPECT_EQ(Utf8(node.ToText(true).get()) + Utf8(node.ToText(false).get()), "<a>\n</a>\n<a></a>");
    EXPECT_EQ(XMLNode().ToText(true), nullptr);
    EXPECT_EQ(XMLNode().SaveToFile(folder.Path(KM_TEXT("none\\f")).c_str(), nullptr, true), 0);
    EXPECT_EQ(node.SaveToFile(folder.Path(KM_TEXT("none\\f")).c_str(), nullptr, true), 14);
    EXPECT_EQ(node.SaveToFile(folder.Path().c_str(), nullptr, true), 14) << "a folder in the way";
}
