#include <gtest/gtest.h>

#include "tests/support/TemporaryFolder.h"
#include "tests/support/TreeDump.h"

TEST(Writer, WritesEveryKindOfNode) {
    // clang-format off
    const struct { const char *fault, *text, *formatted, *plain; } rows[] = {
        {"tabs_or_lines_wrong", "<P><Main><Name l='X'/><S>MP4</S></Main><Q/></P>", "<P>\n\t<Main>\n\t\t<Name l=\"X\"/>\n\t\t<S>\n\t\t\tMP4\n\t\t</S>\n\t</Main>\n\t<Q/>\n</P>\n", "<P><Main><Name l=\"X\"/><S>MP4</S></Main><Q/></P>"},
        {"value_or_text_not_escaped", "<a b='&lt;&gt;&amp;&quot;&apos;\n'>&lt;&gt;&amp;&quot;&apos;\u00E9</a>", "<a b=\"&lt;&gt;&amp;&quot;&apos;\n\">\n\t&lt;&gt;&amp;&quot;&apos;\u00E9\n</a>\n", "<a b=\"&lt;&gt;&amp;&quot;&apos;\n\">&lt;&gt;&amp;&quot;&apos;\u00E9</a>"},
        {"missing_value_like_an_empty_one", "<a b c='' d='1'/>", "<a b c=\"\" d=\"1\"/>\n", "<a b c=\"\" d=\"1\"/>"},
        {"order_of_content_lost", "<a>x<b/>y\n z<!-- & --></a>", "<a>\n\tx\n\t<b/>\n\ty\n z\n\t<!-- & -->\n</a>\n", "<a>x<b/>y\n z<!-- & --></a>"},
        {"declaration_indents_or_is_ended", "<?xml v='1'?><a><b/></a>", "<?xml v=\"1\"?>\n<a>\n\t<b/>\n</a>\n", "<?xml v=\"1\"?><a><b/></a>"},
        {"raw_section_beside_the_root_not_deeper", "<a/><!--c--><b/>", "<a/>\n\t<!--c-->\n<b/>\n", "<a/><!--c--><b/>"}};
    // clang-format on
    const TemporaryFolder folder;
    folder.WriteBytes(KM_TEXT("f"), std::string(5000, '?'));  // longer than what replaces it
    for (const auto& row : rows) {
        const XMLNode node = XMLNode::ParseDocumentText(TextFromBytes(row.text).c_str(), nullptr);
        EXPECT_EQ(Utf8(node.ToText(true).get()), row.formatted) << row.fault;
        EXPECT_EQ(Utf8(node.ToText(false).get()), row.plain) << row.fault;
        ASSERT_EQ(node.SaveToFile(folder.Path(KM_TEXT("f")).c_str(), KM_TEXT("utf-8"), true), 0) << row.fault;
        const kmString line = KM_TEXT("<?xml version=\"1.0\" encoding=\"utf-16\"?>\n");
        const kmString text = (node.IsDeclaration() ? kmString() : line) + TextFromBytes(row.formatted);
        std::ifstream file(folder.SystemPath(KM_TEXT("f")), std::ios::binary);
        const std::string bytes(std::istreambuf_iterator<char>(file), {});
        EXPECT_EQ(bytes, "\xFF\xFE" + Utf16Bytes(text)) << row.fault;
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

TEST(Writer, EverySampleReadsBackAndWritesTheSameText) {
    const TemporaryFolder folder;
    const kmString copy = folder.Path(KM_TEXT("copy"));
    for (const auto& file :
         std::filesystem::recursive_directory_iterator(KM_SOURCE_DIR "/samples/Profiles")) {
        if (!file.is_regular_file()) continue;
        const kmChar* tag = file.path().extension() == ".pf" ? KM_TEXT("Profiles") : KM_TEXT("items");
        const XMLNode node = XMLNode::OpenDocument(file.path().string<kmChar>().c_str(), tag);
        ASSERT_EQ(node.SaveToFile(copy.c_str(), nullptr, true), XML_ERROR_NONE) << file.path();
        const XMLNode read = XMLNode::OpenDocument(copy.c_str(), tag);
        EXPECT_EQ(Dump(read), Dump(node)) << file.path();
        EXPECT_EQ(Utf8(read.ToText(true).get()), Utf8(node.ToText(true).get())) << file.path();
    }
}
