#include <gtest/gtest.h>

#include <random>

#include "tests/support/Messages.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TreeDump.h"

using namespace std::literals;

namespace {

const kmChar* const kProfile = KM_TEXT(
    "\r\n<?xml version=\"1.0\"?><!-- c --><Profiles><Main id=a/b x='&lt;\u65e5'>\r\n <Name language='en'>"
    " My &amp; \U0001F600 &#65; </Name></Main><![CDATA[<]]><Parameter flag/></Profiles>\n");
constexpr char kProfileTree[] =
    "Profiles(Main[id=a/b x=<\u65e5](Name[language=en]('My & \U0001F600 A')) Parameter[flag])";

struct Parsed {
    XMLNode node;
    XMLParseResult result;
};

Parsed Parse(kmStringView text, const kmChar* firstTag = nullptr) {
    Parsed parsed;
    parsed.node = XMLNode::ParseDocumentText(ExactBuffer(text).data(), firstTag, &parsed.result);
    return parsed;
}

Parsed ParseFile(const kmString& path, const kmChar* firstTag = nullptr) {
    Parsed parsed;
    parsed.node = XMLNode::ParseDocumentFile(path.c_str(), firstTag, &parsed.result);
    return parsed;
}

struct DocumentCase {
    const char* fault;
    const kmChar* text;
    int code;
    const char* place;  // line:column
    const char* tree;
};

// clang-format off
const DocumentCase kDocuments[] = {
    {"end_tag_in_other_case_unmatched", KM_TEXT("<a></A >"), 0, "0:0", "a"},
    {"end_of_text_not_noticed", KM_TEXT("<a>\n<b></b> "), 1, "2:9", "a(b)"},
    {"outer_end_tag_lost", KM_TEXT("<P><Main><Name></Main><x/></P>"), 1, "1:23", "P(Main(Name) x)"},
    {"carriage_return_starts_a_line", KM_TEXT("\r\n\r<a><b></a>"), 1, "2:12", "a(b)"},
    {"last_unmatched_tag_not_told", KM_TEXT("<a><b></a><a>"), 1, "1:14", "(a(b) a)"},
    {"start_tag_cut_loses_the_element", KM_TEXT("<a b"), 1, "1:5", "a[b]"},
    {"value_cut_off_unnoticed", KM_TEXT("<?a b="), 8, "1:7", "(empty)"},
    {"no_element", KM_TEXT(" x\ny"), 2, "2:2", "('x\ny')"},
    {"nothing", KM_TEXT(""), 2, "1:1", ""},
    {"no_element_behind_an_error", KM_TEXT("x &no; y"), 2, "1:9", ""},
    {"no_name", KM_TEXT("<a/><"), 4, "1:6", "(empty)"},
    {"no_end_name", KM_TEXT("<a></>"), 5, "1:7", "(empty)"},
    {"end_tag_with_attribute", KM_TEXT("<a></a b>"), 5, "1:9", "(empty)"},
    {"end_tag_of_nothing", KM_TEXT("<a></b>"), 6, "1:8", "(empty)"},
    {"end_tag_of_the_beginning_of_a_name", KM_TEXT("<ab></a>"), 6, "1:9", "(empty)"},
    {"raw_section_open", KM_TEXT("<a/><!-- -- >"), 7, "1:9", "(empty)"},
    {"text_behind_equals", KM_TEXT("<a b=>"), 8, "1:7", "(empty)"},
    {"quote_for_a_name", KM_TEXT("<a 'b'>"), 8, "1:7", "(empty)"},
    {"tag_in_a_tag", KM_TEXT("<a <b/>"), 8, "1:5", "(empty)"},
    {"comment_in_a_tag", KM_TEXT("<a <!-- -->>"), 8, "1:8", "(empty)"},
    {"white_space_kept", KM_TEXT("<a>  x \t&amp; y\r\n <b/> </a>"), 0, "0:0", "a('x \t& y' b)"},
    {"other_quote_ends_a_value", KM_TEXT("<a b='\"' c=\"'\"/>"), 0, "0:0", "a[b=\" c=']"},
    {"lone_quote_is_no_word", KM_TEXT("<a b='x></a>"), 0, "0:0", "a[b='x]"},
    {"slash_ends_a_word", KM_TEXT("<a b=c/d/e/>"), 0, "0:0", "a[b=c/d/e]"},
    {"markup_characters_end_a_text", KM_TEXT("<a>x = \"y\" > z /> w</a>"), 0, "0:0", "a('x = \"y\" > z /> w')"},
    {"entity_names_have_case", KM_TEXT("<a>&AMP;&Lt;&gt;&quot;&apos;</a>"), 0, "0:0", "a('&<>\"'')"},
    {"numbers_of_characters", KM_TEXT("<a b=&#65;&#x41;&#X6a;&#65601;/>"), 0, "0:0", "a[b=AAjA]"},
    {"decoded_twice", KM_TEXT("<a>&amp;lt;</a>"), 0, "0:0", "a('&lt;')"},
    {"decoded_in_a_name", KM_TEXT("<a&lt; b&lt;='1'/>"), 0, "0:0", "a&lt;[b&lt;=1]"},
    {"null_reference_runs_on", KM_TEXT("<a b='x&#0;y'/>"), 0, "0:0", "a[b=x]"},
    {"unknown_entity", KM_TEXT("<a>&nbsp;</a>"), 12, "1:12", "(empty)"},
    {"number_without_digits", KM_TEXT("<a b='&#;'/>"), 12, "1:11", "(empty)"},
    {"hexadecimal_without_digits", KM_TEXT("<a b='&#x;'/>"), 12, "1:12", "(empty)"},
    {"letter_in_a_number", KM_TEXT("<a b='&#6a;'/>"), 12, "1:13", "(empty)"},
    {"ampersand_alone", KM_TEXT("<a b='x & y'/>"), 12, "1:13", "(empty)"},
    {"declaration_ends", KM_TEXT("<?xml v='1'?><a/><b/>"), 0, "0:0", "?xml[v=1](a b)"},
    {"question_mark_kept", KM_TEXT("<?x a=b?><?y c?>"), 0, "0:0", "?x[a=b](?y[c])"},
    {"question_mark_lost_in_an_element", KM_TEXT("<x a=b? c?/>"), 0, "0:0", "x[a=b? c?]"},
    {"raw_sections_parsed", KM_TEXT("<a><![CDATA[<x>]]><PRE></a></PRE><Script><</Script><!--<y>--></a>"), 0, "0:0", "a"},
    {"raw_markers_have_no_case", KM_TEXT("<a><pre></pre></a>"), 0, "0:0", "a(pre)"},
    {"doctype_subset_ends_early", KM_TEXT("<!DOCTYPE a [<!ELEMENT a> ]><a/><!DOCTYPE b>"), 0, "0:0", "(a)"}};
// clang-format on

TEST(Reading, Documents) {
    for (const DocumentCase& row : kDocuments) {
        SCOPED_TRACE(row.fault);
        const auto [node, result] = Parse(row.text);
        EXPECT_EQ(result.code, row.code);
        EXPECT_EQ(std::to_string(result.line) + ":" + std::to_string(result.column), row.place);
        EXPECT_EQ(Dump(node), row.tree);
    }
    XMLParseResult result;
    EXPECT_TRUE(XMLNode::ParseDocumentText(nullptr, nullptr, &result).IsEmpty());
    EXPECT_EQ(result.code, 9);
}

TEST(Reading, TheFirstTag) {
    // clang-format off
    const struct { const char* fault; const kmChar *text, *tag; int code; const char* tree; } rows[] = {
        {"letter_case_counts", KM_TEXT("<profiles n='1'/>"), KM_TEXT("Profiles"), 0, "profiles[n=1]"},
        {"declaration_not_entered", KM_TEXT("<?x?><?y?><!-- --><b/><a/>"), KM_TEXT("a"), 0, "a"},
        {"one_behind_text_missed", KM_TEXT("text<b/><a/>"), KM_TEXT("a"), 0, "a"},
        {"element_entered", KM_TEXT("<?x?><b><a/></b>"), KM_TEXT("a"), 11, "(empty)"},
        {"beginning_of_a_name_taken", KM_TEXT("<ab/>"), KM_TEXT("a"), 11, "(empty)"},
        {"no_element_called_a_warning", KM_TEXT("text"), KM_TEXT("a"), 11, "(empty)"},
        {"warning_lost", KM_TEXT("<a><b></a>"), KM_TEXT("A"), 1, "a(b)"},
        {"error_lost", KM_TEXT("<a></c>"), KM_TEXT("x"), 6, "(empty)"},
        {"empty_tag_looked_for", KM_TEXT("<a/><b/>"), KM_TEXT(""), 0, "(a b)"}};
    // clang-format on
    for (const auto& row : rows) {
        SCOPED_TRACE(row.fault);
        const auto [node, result] = Parse(row.text, row.tag);
        EXPECT_EQ(result.code, row.code);
        EXPECT_EQ(Dump(node), row.tree);
        if (row.code == 11) {
            EXPECT_EQ(result.line + result.column, 0);
        }
    }
}

TEST(Reading, OneDocumentInEveryEncodingIsOneTree) {
    const TemporaryFolder folder;
    const std::string wide = Utf16Bytes(kProfile);
    for (const std::string& bytes : {Utf8(kProfile), "\xEF\xBB\xBF" + Utf8(kProfile), wide, "\xFF\xFE" + wide,
                                     "\xFF\xFE" + wide + " "}) {
        folder.WriteBytes(KM_TEXT("p.pf"), bytes);
        const auto [node, result] = ParseFile(folder.Path(KM_TEXT("P.pf")), KM_TEXT("profiles"));
        EXPECT_EQ(result.code, 0);
        EXPECT_EQ(Dump(node), kProfileTree);
    }
    EXPECT_EQ(Dump(Parse(kProfile, KM_TEXT("Profiles")).node), kProfileTree);
}

TEST(Reading, FilesThatCannotBeUsed) {
    const TemporaryFolder folder;
    folder.MakeFolder(KM_TEXT("folder"));
    // clang-format off
    const struct { const char* fault; std::string bytes; int code; } rows[] = {
        {"empty", "", 3}, {"one_byte", "<", 2}, {"one_null", "\0"s, 2}, {"null_inside", "<a>\0</a>"s, 1},
        {"mark_alone_8", "\xEF\xBB\xBF", 2}, {"mark_alone_16", "\xFF\xFE", 2}, {"half_mark", "\xFF", 13},
        {"latin1", "<a>\xE9</a>", 13}, {"cut_character", "<a/>\xE6\x97", 13},
        {"unmarked_odd", "<\0a\0/\0>"s, 2}};
    // clang-format on
    for (const auto& row : rows) {
        folder.WriteBytes(KM_TEXT("f"), row.bytes);
        const auto [node, result] = ParseFile(folder.Path(KM_TEXT("f")));
        EXPECT_EQ(result.code, row.code) << row.fault;
        EXPECT_EQ(node.IsEmpty(), row.code > 2) << row.fault;
        if (row.code > 2) {
            EXPECT_EQ(result.line + result.column, 0) << row.fault;
        }
    }
    for (const kmChar* name : {KM_TEXT("none"), KM_TEXT("folder"), KM_TEXT("none\\f")}) {
        EXPECT_EQ(ParseFile(folder.Path(name)).result.code, 10) << Utf8(name);
    }
}

// What holds for every input: a tree exactly with the codes 0 to 2, and a place with every code but 0 and 3.
// Dumping the tree touches everything that it holds.
void ExpectSound(const Parsed& parsed) {
    ASSERT_TRUE(parsed.result.code >= 0 && parsed.result.code <= 12);
    ASSERT_EQ(parsed.node.IsEmpty(), parsed.result.code > 2);
    ASSERT_EQ(parsed.result.line > 0, parsed.result.code != 0 && parsed.result.code != 3);
    ASSERT_EQ(Dump(parsed.node) == "(empty)", parsed.node.IsEmpty());
}

TEST(Reading, DocumentsCutAtEveryPlace) {
    const kmStringView profile = kProfile;
    for (std::size_t length = 0; length <= profile.size(); ++length)
        ExpectSound(Parse(profile.substr(0, length)));
    for (const DocumentCase& row : kDocuments) {
        for (kmStringView text = row.text; !text.empty(); text.remove_suffix(1)) ExpectSound(Parse(text));
    }
    const TemporaryFolder folder;
    const std::string bytes = "\xFF\xFE" + Utf16Bytes(kProfile);
    for (std::size_t length = 2; length <= bytes.size(); ++length) {
        folder.WriteBytes(KM_TEXT("p.pf"), bytes.substr(0, length));
        ExpectSound(ParseFile(folder.Path(KM_TEXT("p.pf"))));
    }
}

TEST(Reading, Noise) {
    std::mt19937 random(4);
    const std::vector<kmStringView> pieces = {
        KM_TEXT("<"),         KM_TEXT("</"),    KM_TEXT("<?"),        KM_TEXT("/>"),   KM_TEXT(">"),
        KM_TEXT("a"),         KM_TEXT(" "),     KM_TEXT("="),         KM_TEXT("'"),    KM_TEXT("\""),
        KM_TEXT("?"),         KM_TEXT("&amp;"), KM_TEXT("&#0;"),      KM_TEXT("<!--"), KM_TEXT("-->"),
        KM_TEXT("<![CDATA["), KM_TEXT("]]>"),   KM_TEXT("<!DOCTYPE"), KM_TEXT("\n"),   KM_TEXT("</a>")};
    for (int round = 0; round < 30000; ++round) {
        kmString text;
        for (std::size_t i = random() % 30; i > 0; --i) text += pieces[random() % pieces.size()];
        ExpectSound(Parse(text));
        for (kmChar& unit : text) unit = static_cast<kmChar>(random());
        ExpectSound(Parse(text));
    }
}

TEST(Reading, AMillionElementsDeep) {
    constexpr int kDepth = 1000000;
    kmString text;
    for (int i = 0; i < kDepth; ++i) text += KM_TEXT("<a>");
    EXPECT_EQ(Parse(text).result.code, 1);
    EXPECT_EQ(Parse(text + KM_TEXT("</b>")).result.code, 6);
    for (int i = 0; i < kDepth; ++i) text += KM_TEXT("</a>");
    const auto [node, result] = Parse(text);
    EXPECT_EQ(result.code, 0);
    int depth = 0;
    for (XMLNode at = node; !at.IsEmpty(); at = at.ChildAt(0)) ++depth;
    EXPECT_EQ(depth, kDepth);
}

TEST(Reading, Messages) {
    const TemporaryFolder folder;
    folder.WriteUtf8(KM_TEXT("root.pf"), KM_TEXT("<other/>"));
    folder.WriteUtf16(KM_TEXT("open.pf"), KM_TEXT("<Profiles>\n<a>"));
    folder.WriteUtf8(KM_TEXT("good.pf"), KM_TEXT("<Profiles/>"));
    const auto open = [&](const kmChar* name) {
        return XMLNode::OpenDocument(folder.Path(name).c_str(), KM_TEXT("Profiles")).IsEmpty();
    };
    testing::internal::CaptureStdout();
    EXPECT_TRUE(open(KM_TEXT("None.pf")));
    EXPECT_TRUE(open(KM_TEXT("root.pf")));
    EXPECT_FALSE(open(KM_TEXT("OPEN.pf")));
    const std::string start = "XML Parsing error inside file '" + Utf8(folder.Path());
    EXPECT_EQ(
        testing::internal::GetCapturedStdout(),
        start + "None.pf'.\nError: File not found\nAt line 0, column 0.\n" + start +
            "root.pf'.\nError: First Tag not found\nAt line 0, column 0.\nFirst Tag should be 'Profiles'.\n" +
            start + "OPEN.pf'.\nWarning: Unmatched end tag\nAt line 2, column 4.\n");
    testing::internal::CaptureStdout();
    const CapturedMessages messages;
    open(KM_TEXT("good.pf"));
    open(KM_TEXT("OPEN.pf"));
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "") << "printed in spite of the handler";
    ASSERT_EQ(messages.All().size(), 1u);
    const CapturedMessage& message = messages.All()[0];
    EXPECT_EQ(message.path, Utf8(folder.Path(KM_TEXT("OPEN.pf"))));
    EXPECT_EQ(message.text, "Warning: Unmatched end tag");
    EXPECT_EQ(std::vector<int>({message.code, message.line, message.column}), std::vector<int>({1, 2, 4}));
}

TEST(Reading, ANullPathIsAFileNotFound) {
    testing::internal::CaptureStdout();
    EXPECT_TRUE(XMLNode::OpenDocument(nullptr, KM_TEXT("Profiles")).IsEmpty());
    EXPECT_NE(testing::internal::GetCapturedStdout().find("Error: File not found"), std::string::npos);
}

TEST(Reading, ErrorTexts) {
    for (const int code : {-1, 20, 2147483647}) {
        EXPECT_EQ(Utf8(XMLNode::GetErrorText(static_cast<XMLErrorCode>(code))), "Unknown");
    }
    EXPECT_EQ(Utf8(XMLNode::GetErrorText(XML_ERROR_NONE)), "No error");
    EXPECT_EQ(Utf8(XMLNode::GetErrorText(XML_ERROR_BASE64_BUFFER)),
              "Error: Base64 decode output buffer is too small");
}

}  // namespace
