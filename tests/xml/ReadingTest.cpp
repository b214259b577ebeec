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

using Parsed = std::pair<XMLNode, XMLParseResult>;

Parsed Parse(kmStringView text, const kmChar* firstTag = nullptr) {
    XMLParseResult result;
    const XMLNode node = XMLNode::ParseDocumentText(ExactBuffer(text).data(), firstTag, &result);
    return {node, result};
}

Parsed ParseFile(const kmString& path, const kmChar* firstTag = nullptr) {
    XMLParseResult result;
    const XMLNode node = XMLNode::ParseDocumentFile(path.c_str(), firstTag, &result);
    return {node, result};
}

struct DocumentCase {
    const char* text;
    int code;
    const char *place, *tree;  // line:column
};

// clang-format off
const DocumentCase kDocuments[] = {
    {"<a></A >", 0, "0:0", "a"}, {"<a>\n<b></b> ", 1, "2:9", "a(b)"},
    {"<P><Main><Name></Main><x/></P>", 1, "1:23", "P(Main(Name) x)"}, {"\r\n\r<a><b></a>", 1, "2:12", "a(b)"},
    {"<a><b></a><a>", 1, "1:14", "(a(b) a)"}, {"<a b", 1, "1:5", "a[b]"}, {"<?a b=", 8, "1:7", "(empty)"},
    {" x\ny", 2, "2:2", "('x\ny')"}, {"", 2, "1:1", ""}, {"<a/><", 4, "1:6", "(empty)"},
    {"<a></>", 5, "1:7", "(empty)"}, {"<a></b>", 6, "1:8", "(empty)"}, {"<ab></a>", 6, "1:9", "(empty)"},
    {"<a/><!-- -- >", 7, "1:9", "(empty)"}, {"<a b=>", 8, "1:7", "(empty)"}, {"<a 'b'>", 8, "1:7", "(empty)"},
    {"<a <!-- -->>", 8, "1:8", "(empty)"}, {"<a>  x \t&amp; y\r\n <b/> </a>", 0, "0:0", "a('x \t& y' b)"},
    {"<a b='\"' c=\"'\"/>", 0, "0:0", "a[b=\" c=']"}, {"<a b='x></a>", 0, "0:0", "a[b='x]"},
    {"<a b=c/d/e/>", 0, "0:0", "a[b=c/d/e]"},
    {"<a>x = \"y\" > z /> w</a>", 0, "0:0", "a('x = \"y\" > z /> w')"},
    {"<a>&AMP;&Lt;&gt;&quot;&apos;</a>", 0, "0:0", "a('&<>\"'')"},
    {"<a b=&#65;&#x41;&#X6a;&#65601;/>", 0, "0:0", "a[b=AAjA]"}, {"<a>&amp;lt;</a>", 0, "0:0", "a('&lt;')"},
    {"<a b='x&#0;y'/>", 0, "0:0", "a[b=x]"}, {"<a>&nbsp;</a>", 12, "1:12", "(empty)"},
    {"<a b='&#;'/>", 12, "1:11", "(empty)"}, {"<a b='&#6a;'/>", 12, "1:13", "(empty)"},
    {"<a b='x & y'/>", 12, "1:13", "(empty)"}, {"<?xml v='1'?><a/><b/>", 0, "0:0", "?xml[v=1](a b)"},
    {"<?x a=b?><?y c?>", 0, "0:0", "?x[a=b](?y[c])"},
    {"<a><![CDATA[<x>]]><PRE></a></PRE><Script><</Script><!--<y>--></a>", 0, "0:0", "a"},
    {"<a><pre></pre></a>", 0, "0:0", "a(pre)"},
    {"<!DOCTYPE a [<!ELEMENT a> ]><a/><!DOCTYPE b>", 0, "0:0", "(a)"}};
// clang-format on

TEST(Reading, Documents) {
    for (const DocumentCase& row : kDocuments) {
        SCOPED_TRACE(row.text);
        const auto [node, result] = Parse(TextFromBytes(row.text));
        EXPECT_EQ(result.code, row.code);
        EXPECT_EQ(std::to_string(result.line) + ":" + std::to_string(result.column), row.place);
        EXPECT_EQ(Dump(node), row.tree);
    }
    XMLParseResult result;
    EXPECT_TRUE(XMLNode::ParseDocumentText(nullptr, nullptr, &result).IsEmpty() && result.code == 9);
}

TEST(Reading, TheFirstTag) {
    // clang-format off
    const struct { const char *text, *tag; int code; const char* tree; } rows[] = {
        {"<profiles n='1'/>", "Profiles", 0, "profiles[n=1]"}, {"<?x?><?y?><!-- --><b/><a/>", "a", 0, "a"},
        {"text<b/><a/>", "a", 0, "a"}, {"<?x?><b><a/></b>", "a", 11, "(empty)"},
        {"<ab/>", "a", 11, "(empty)"}, {"text", "a", 11, "(empty)"}, {"<a><b></a>", "A", 1, "a(b)"},
        {"<a></c>", "x", 6, "(empty)"}, {"<a/><b/>", "", 0, "(a b)"}};
    // clang-format on
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        const auto [node, result] = Parse(TextFromBytes(row.text), TextFromBytes(row.tag).c_str());
        EXPECT_EQ(result.code, row.code);
        EXPECT_EQ(Dump(node), row.tree);
        EXPECT_TRUE(row.code != 11 || result.line + result.column == 0);
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
    EXPECT_EQ(Dump(Parse(kProfile, KM_TEXT("Profiles")).first), kProfileTree);
}

TEST(Reading, FilesThatCannotBeUsed) {
    const TemporaryFolder folder;
    folder.MakeFolder(KM_TEXT("folder"));
    // clang-format off
    const struct { std::string bytes; int code; } rows[] = {
        {"", 3}, {"<", 2}, {"\0"s, 2}, {"<a>\0</a>"s, 1}, {"\xEF\xBB\xBF", 2}, {"\xFF\xFE", 2}, {"\xFF", 13},
        {"<a>\xE9</a>", 13}, {"<a/>\xE6\x97", 13}, {"<\0a\0/\0>"s, 2}};
    // clang-format on
    for (const auto& row : rows) {
        folder.WriteBytes(KM_TEXT("f"), row.bytes);
        const auto [node, result] = ParseFile(folder.Path(KM_TEXT("f")));
        EXPECT_EQ(result.code, row.code) << testing::PrintToString(row.bytes);
        EXPECT_EQ(node.IsEmpty(), row.code > 2) << testing::PrintToString(row.bytes);
        EXPECT_TRUE(row.code <= 2 || result.line + result.column == 0) << testing::PrintToString(row.bytes);
    }
    for (const kmChar* name : {KM_TEXT("none"), KM_TEXT("folder"), KM_TEXT("none\\f")})
        EXPECT_EQ(ParseFile(folder.Path(name)).second.code, 10) << Utf8(name);
}

// What holds for every input: a tree exactly with the codes 0 to 2, and a place with every code but 0 and 3.
// Dumping the tree touches everything that it holds.
void ExpectSound(const Parsed& parsed) {
    const auto& [node, result] = parsed;
    ASSERT_TRUE(result.code >= 0 && result.code <= 12);
    ASSERT_TRUE(node.IsEmpty() == (result.code > 2) && node.IsEmpty() == (Dump(node) == "(empty)"));
    ASSERT_EQ(result.line > 0, result.code != 0 && result.code != 3);
}

TEST(Reading, DocumentsCutAtEveryPlace) {
    const kmStringView profile = kProfile;
    for (std::size_t length = 0; length <= profile.size(); ++length)
        ExpectSound(Parse(profile.substr(0, length)));
    for (const DocumentCase& row : kDocuments) {
        for (kmString text = TextFromBytes(row.text); !text.empty(); text.pop_back())
            ExpectSound(Parse(text));
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
    const std::vector<kmString> pieces =
        Pieces("<|</|<?|/>|>|a| |=|'|\"|?|&amp;|&#0;|<!--|-->|<![CDATA[|]]>|<!DOCTYPE|\n|</a>");
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
    EXPECT_EQ(Parse(text).second.code, 1);
    EXPECT_EQ(Parse(text + KM_TEXT("</b>")).second.code, 6);
    for (int i = 0; i < kDepth; ++i) text += KM_TEXT("</a>");
    const auto [node, result] = Parse(text);
    EXPECT_EQ(result.code, 0);
    int depth = 0;
    for (XMLNode at = node; !at.IsEmpty(); at = at.ChildAt(0)) ++depth;
    EXPECT_EQ(depth, kDepth);
}

TEST(Reading, Messages) {
    const TemporaryFolder folder;
    folder.WriteBytes(KM_TEXT("root.pf"), "<other/>");
    folder.WriteBytes(KM_TEXT("open.pf"), "<Profiles>\n<a>");
    const auto open = [&](const kmChar* name) {
        return XMLNode::OpenDocument(folder.Path(name).c_str(), KM_TEXT("Profiles")).IsEmpty();
    };
    testing::internal::CaptureStdout();
    EXPECT_TRUE(open(KM_TEXT("None.pf")) && open(KM_TEXT("root.pf")) && !open(KM_TEXT("OPEN.pf")));
    EXPECT_TRUE(XMLNode::OpenDocument(nullptr, KM_TEXT("Profiles")).IsEmpty());
    const std::string start = "XML Parsing error inside file '", path = start + Utf8(folder.Path());
    // clang-format off
    EXPECT_TRUE(testing::internal::GetCapturedStdout().starts_with(
        path + "None.pf'.\nError: File not found\nAt line 0, column 0.\n" +
        path + "root.pf'.\nError: First Tag not found\nAt line 0, column 0.\nFirst Tag should be 'Profiles'.\n" +
        path + "OPEN.pf'.\nWarning: Unmatched end tag\nAt line 2, column 4.\n" + start));
    // clang-format on
    testing::internal::CaptureStdout();
    const CapturedMessages messages;
    open(KM_TEXT("OPEN.pf"));
    EXPECT_TRUE(testing::internal::GetCapturedStdout().empty() && messages.All().size() == 1);
    for (const int code : {-1, 20})
        EXPECT_EQ(Utf8(XMLNode::GetErrorText(static_cast<XMLErrorCode>(code))), "Unknown");
}

}  // namespace
