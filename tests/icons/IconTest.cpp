#include <gtest/gtest.h>

#include "kmIconParser.h"
#include "tests/support/Messages.h"
#include "tests/support/TemporaryFolder.h"

namespace {

struct TestIcons : kmIconParser {
    // Reads an index file with this content of "groups", its attributes included, and of "profiles".
    void Init(const TemporaryFolder& folder, const std::string& groups, const std::string& profiles) {
        const std::string text =
            "<items><groups" + groups + "</groups><profiles>" + profiles + "</profiles></items>";
        folder.WriteBytes(KM_TEXT("pficon.con"), text);
        InitParser(folder.Path().c_str());
    }
    std::string Icon(const kmChar* id, bool group = false) const {
        return std::to_string(GetIconIndex(id, group)) + Utf8(GetImageFileName(id, group));
    }
};

TEST(Icons, UserFileOverridesAndDefaultAnswersTheRest) {
    const CapturedMessages messages;
    const TemporaryFolder folder;
    TestIcons icons;
    folder.WriteBytes(KM_TEXT("user\\userpf.con"),
                      "<ITEMS><user_pf><x ID='b' image='u' index='7'/></user_pf></ITEMS>");
    // clang-format off
    const std::string items = "<i id='a' image='1' index='1'/><any id='a' image='2' index='0x10'/>"
        "<i id='b' image='p' index='3'/><i id='' image='n' index='4'/><i id='e' image='' index='-2'/>";
    // In order: what an attribute does not say stays as it was.
    const struct { const char *attributes, *expected; } settings[] = {
        {">", "16 16RGB(0, 0, 0) one"},
        {" width=' 0x20' height='010' singlefile='true' transclr=''>", "32 8"}, {">", "32 8"},
        {" SingleFile='YES' width='abc' height='99999999999'>", "0 2147483647 one"}};
    for (const auto& row : settings) {
        icons.Init(folder, row.attributes + items, items + "<i id='default' image='d' index='9'/>");
        std::int32_t width = 0, height = 0;
        kmString color;
        icons.GetIconInfo(width, height, color, true);
        EXPECT_EQ(std::to_string(width) + " " + std::to_string(height) + Utf8(color) +
                  (icons.GroupIconIsSignleImage() ? " one" : ""), row.expected) << row.attributes;
    }
    // clang-format on
    std::string got;
    for (const kmString& id : Pieces("a|b|A|e")) got += icons.Icon(id.c_str()) + " ";
    got += icons.Icon(nullptr) + " " + icons.Icon(KM_TEXT("b"), true);
    EXPECT_EQ(got + icons.Icon(KM_TEXT("default"), true), "162 7u 9d -2 9d 3p-1");
    std::filesystem::remove(folder.SystemPath(KM_TEXT("pficon.con")));
    icons.InitParser(folder.Path().c_str());
    EXPECT_EQ(icons.Icon(KM_TEXT("b")), "-1") << "the user's file was read without the index file";
}

TEST(Icons, CopiesGoIntoTheUserFile) {
    const CapturedMessages messages;
    // clang-format off
    const std::string a = "<i id='a' image='&amp;' index='-1'/>";
    const std::string d = a + "<i id='default' image='d' index='9'/>";
    const std::string head = "<?xml version=\"1.0\" encoding=\"utf-16\"?>\n<items>\n\t<user_pf>\n",
                      end = "\t</user_pf>\n</items>\n";
    const auto item = [](const std::string& id, const std::string& index, const std::string& image) {
        return "\t\t<item id=\"" + id + "\" index=\"" + index + "\" image=\"" + image + "\"/>\n"; };
    const std::string u = item("u", "5", "f"), n = item("n", "-1", "&amp;");
    const auto utf16 = [](const std::string& text) {
        return text.empty() ? text : "\xFF\xFE" + Utf16Bytes(TextFromBytes(text)); };
    const struct { std::string profiles, before; const char *target, *source;
                   bool result; std::string icon, after; } rows[] = {
        {a, "", "n", "a", true, "-1&", head + n + end},
        {a, head + u + end, "n", "a", true, "-1&", head + u + n + end},
        {d, "", "n", "A", true, "9d", head + item("n", "9", "d") + end}, {a, "", "n", "x", false, "-1", ""},
        {a, head + u + end, "a", "u", true, "5f", head + item("a", "5", "f") + end},
        {a, head + u + end, "a", "x", true, "-1", head + u + end},
        {a, head + u + end, "u", "u", true, "5f", head + u + end},
        {a, "<items/>", "n", "a", false, "-1", "<items/>"}, {d, "<items/>", "a", "x", true, "9d", "<items/>"},
        {a, "<items></x>", "n", "a", false, "-1", "<items></x>"}, {d, " ", "a", "x", false, "-1&", " "}};
    // clang-format on
    for (const auto& row : rows) {
        const TemporaryFolder folder;
        TestIcons icons;
        folder.MakeFolder(KM_TEXT("user"));
        if (!row.before.empty()) folder.WriteBytes(KM_TEXT("user\\userpf.con"), utf16(row.before));
        icons.Init(folder, ">", row.profiles);
        const kmString target = TextFromBytes(row.target);
        SCOPED_TRACE(row.profiles + row.before + row.source);
        EXPECT_EQ(icons.CopyIconFrom(target.c_str(), TextFromBytes(row.source).c_str()), row.result);
        EXPECT_EQ(icons.Icon(target.c_str()), row.icon);
        EXPECT_EQ(ReadBytes(folder.SystemPath(KM_TEXT("user\\userpf.con"))), utf16(row.after));
    }
}

}  // namespace
