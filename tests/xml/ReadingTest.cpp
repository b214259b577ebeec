// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "tests/support/TemporaryFolder.h"
#include "tests/support/TreeDump.h"

namespace {

using Parsed = std::pair<XMLNode, XMLParseResult>;

Parsed Parse(kmStringView text, const kmChar* firstTag = nullptr) {
    XMLParseResult result;
    const XMLNode node = XMLNode::ParseDocumentText(ExactBuffer(text).data(), firstTag, &result);
    return {node, result};
}

void Expect(const Parsed& parsed, int code, const char* place, const char* tree) {
    EXPECT_EQ(parsed.second.code, code);
    EXPECT_EQ(std::to_string(parsed.second.line) + ":" + std::to_string(parsed.second.column), place);
    EXPECT_EQ(Dump(parsed.first), tree);
}

struct DocumentCase {
    const char *name, *text, *tree;
    int code = 0;
    const char* place = "0:0";
};

// clang-format off
const DocumentCase kDocuments[] = {
    {"end_tag_compared_with_case_or_its_space_refused", "<a></A >", "a"},
    {"spaces_around_texts_kept", "<a>  x \t&amp; y\r\n <b/> </a>", "a('x \t& y' b)"},
    {"other_quote_ends_a_value", "<a b='\"' c=\"'\"/>", "a[b=\" c=']"},
    {"quote_without_its_end_refused", "<a b='x></a>", "a[b='x]"},
    {"entity_lost_or_compared_with_case", "<a>&AMP;&Lt;&gt;&quot;&apos;</a>", "a('&<>\"'')"},
    {"number_of_a_unit_misread_or_above_16_bits_kept", "<a b=&#65;&#x41;&#X6a;&#65601;/>", "a[b=AAjA]"},
    {"decoded_twice", "<a>&amp;lt;</a>", "a('&lt;')"},
    {"question_mark_kept_or_declaration_closed", "<?xml v='1'?><a/><b/>", "?xml[v=1](a b)"},
    {"raw_section_read_as_tags", "<a><![CDATA[<x>]]><PRE></a></PRE><Script><</Script><!--<y>--></a>", "a"},
    {"doctype_ends_inside_its_list", "<!DOCTYPE a [<!ELEMENT a> ]><a/><!DOCTYPE b>", "(a)"},
    {"attribute_lost_at_the_end", "<a b", "a[b]", 1, "1:5"},
    {"inner_element_takes_the_outer_end_tag", "<P><Main><Name></Main><x/></P>", "P(Main(Name) x)", 1, "1:23"},
    {"carriage_return_counted_as_a_line", "\r\n\r<a><b></a>", "a(b)", 1, "2:12"},
    {"nothing_is_no_tree", "", "", 2, "1:1"},
    {"tag_without_a_name_taken", "<a/><", "(empty)", 4, "1:6"},
    {"end_tag_without_a_name_taken", "<a></>", "(empty)", 5, "1:7"},
    {"empty_close_of_an_end_tag_taken_for_its_name", "<r><a/ >x</a/></r>", "(empty)", 5, "1:15"},
    {"empty_close_alone_taken_for_a_name", "<r>< / >x<//></r>", "(empty)", 5, "1:14"},
    {"quoted_text_of_an_end_tag_taken_for_its_name", "<r><\"a>x</\"a>\"</r>", "(empty)", 5, "1:15"},
    {"apostrophe_of_an_end_tag_taken_for_its_name", "<r><'a>x</'a>'</r>", "(empty)", 5, "1:15"},
    {"comment_ends_at_a_part_of_its_mark", "<a/><!-- -- >", "(empty)", 7, "1:9"},
    {"tag_end_taken_for_a_value", "<a b=>", "(empty)", 8, "1:7"},
    {"number_without_digits_taken", "<a b='&#;'/>", "(empty)", 12, "1:11"},
};
// clang-format on

TEST(XmlReading, Documents) {
    for (const DocumentCase& row : kDocuments) {
        SCOPED_TRACE(testing::Message()
                     << row.name << " given " << testing::PrintToString(std::string(row.text)));
        Expect(Parse(TextFromBytes(row.text)), row.code, row.place, row.tree);
    }
}

TEST(XmlReading, NullTextIsNoDocument) {
    XMLParseResult result;
    EXPECT_EQ(Dump(XMLNode::ParseDocumentText(nullptr, nullptr, &result)), "(empty)");
    EXPECT_EQ(result.code, XML_ERROR_NO_TEXT);
}

TEST(XmlReading, TheFirstTag) {
    // clang-format off
    const struct { const char *name, *text, *tag, *tree; int code = 0; const char* place = "0:0"; } rows[] = {
        {"compared_with_case", "<profiles n='1'/>", "Profiles", "profiles[n=1]"},
        {"declarations_not_entered", "<?x?><?y?><!-- --><b/><a/>", "a", "a"},
        {"elements_entered", "<?x?><b><a/></b>", "a", "(empty)", 11},
        {"warning_lost", "<a><b></a>", "A", "a(b)", 1, "1:11"},
    };
    // clang-format on
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.name << " given " << row.text << " and " << row.tag);
        Expect(Parse(TextFromBytes(row.text), TextFromBytes(row.tag).c_str()), row.code, row.place, row.tree);
    }
}

TEST(XmlReading, AMillionElementsDeep) {
    constexpr int kDepth = 1000000;
    kmString text;
    for (int i = 0; i < kDepth; ++i) text += KM_TEXT("<a>");
    EXPECT_EQ(Parse(text).second.code, 1);
    EXPECT_EQ(Parse(text + KM_TEXT("</b>")).second.code, 6);
    for (int i = 0; i < kDepth; ++i) text += KM_TEXT("</a>");
    const auto [node, result] = Parse(text);
    EXPECT_EQ(result.code, 0);
    int depth = 0;
    for (XMLNode at = node; !at.IsEmpty(); at = at.ChildAt(0)) ++depth;
    EXPECT_EQ(depth, kDepth);
}

TEST(XmlReading, MessagesGoToStandardOutput) {
    const TemporaryFolder folder;
    folder.WriteBytes(KM_TEXT("root.pf"), "<other/>");
    folder.WriteBytes(KM_TEXT("open.pf"), "<Profiles>\n<a>");
    testing::internal::CaptureStdout();
    for (const kmChar* name : {KM_TEXT("root.pf"), KM_TEXT("OPEN.pf")})
        static_cast<void>(XMLNode::OpenDocument(folder.Path(name).c_str(), KM_TEXT("Profiles")));
    const std::string path = "XML Parsing error inside file '" + Utf8(folder.Path());
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              path + "root.pf'.\nError: First Tag not found\nAt line 0, column 0.\n" +
                  "First Tag should be 'Profiles'.\n" +  //
                  path + "OPEN.pf'.\nWarning: Unmatched end tag\nAt line 2, column 4.\n");
}

TEST(XmlReading, FilesAboveTheLimitAreNotRead) {
    const TemporaryFolder folder;
    constexpr std::uintmax_t kLimit = std::uintmax_t{64} << 20;
    folder.WriteBytes(KM_TEXT("f"), "\xFF\xFE<");
    for (const std::uintmax_t size : {kLimit, kLimit + 1, std::uintmax_t{3} << 30}) {
        std::filesystem::resize_file(folder.SystemPath(KM_TEXT("f")), size);
        XMLParseResult result;
        static_cast<void>(XMLNode::ParseDocumentFile(folder.Path(KM_TEXT("f")).c_str(), nullptr, &result));
        EXPECT_EQ(result.code == XML_ERROR_FILE_NOT_FOUND, size > kLimit) << size << " gives " << result.code;
    }
}

}  // namespace
