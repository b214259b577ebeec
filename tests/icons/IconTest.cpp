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
    const std::string items = "<i id='a' image='1' index='1'/><any id='a' image='2' index='0x10'/><i id='b' image='p' index='3'/><i id='' image='n' index='4'/><i id='e' image='' index='-2'/>";
    const struct { const char *fault, *attributes, *expected; } settings[] = {
        {"initial_setting_lost", ">", "16 16RGB(0, 0, 0) one"},
        {"number_misread_or_other_word_than_yes_taken", " width=' 0x20' height='010' singlefile='true' transclr=''>", "32 8"},
        {"earlier_setting_lost", ">", "32 8"},
        {"letter_case_of_yes_counts", " SingleFile='YES' width='abc' height='99999999999'>", "0 2147483647 one"}};
    for (const auto& row : settings) {
        icons.Init(folder, row.attributes + items, items + "<i id='default' image='d' index='9'/>");
        std::int32_t width = 0, height = 0;
        kmString color;
        icons.GetIconInfo(width, height, color, true);
        EXPECT_EQ(std::to_string(width) + " " + std::to_string(height) + Utf8(color) + (icons.GroupIconIsSignleImage() ? " one" : ""), row.expected) << row.fault;
    }
    const struct { const char* fault; std::string got, expected; } rows[] = {
        {"earlier_of_two_kept", icons.Icon(KM_TEXT("a")), "162"},
        {"user_entry_ignored_or_among_groups", icons.Icon(KM_TEXT("b")) + icons.Icon(KM_TEXT("b"), true), "7u3p"},
        {"letter_case_ignored_or_null_not_default", icons.Icon(KM_TEXT("A")) + icons.Icon(nullptr), "9d9d"},
        {"empty_image_falls_back", icons.Icon(KM_TEXT("e")), "-2"},
        {"tables_mixed", icons.Icon(KM_TEXT("default"), true), "-1"}};
    // clang-format on
    for (const auto& row : rows) EXPECT_EQ(row.got, row.expected) << row.fault;
    std::filesystem::remove(folder.SystemPath(KM_TEXT("pficon.con")));
    icons.InitParser(folder.Path().c_str());
    EXPECT_EQ(icons.Icon(KM_TEXT("b")), "-1") << "the user's file was read without the index file";
}

TEST(Icons, CopiesGoIntoTheUserFile) {
    const CapturedMessages messages;
    // clang-format off
    const std::string a = "<i id='a' image='&amp;' index='-1'/>",
                      d = a + "<i id='default' image='d' index='9'/>";
    const std::string head = "<?xml version=\"1.0\" encoding=\"utf-16\"?>\n<items>\n\t<user_pf>\n",
                      end = "\t</user_pf>\n</items>\n";
    const std::string u = "\t\t<item id=\"u\" index=\"5\" image=\"f\"/>\n",
                      n = "\t\t<item id=\"n\" index=\"-1\" image=\"&amp;\"/>\n";
    const struct { const char* fault; std::string profiles, before; const kmChar *target, *source; bool result; const char* icon; std::string after; } rows[] = {
        {"file_not_made", a, "", KM_TEXT("n"), KM_TEXT("a"), true, "-1&", head + n + end},
        {"old_entries_lost", a, head + u + end, KM_TEXT("n"), KM_TEXT("a"), true, "-1&", head + u + n + end},
        {"default_not_taken", d, "", KM_TEXT("n"), KM_TEXT("A"), true, "9d", head + "\t\t<item id=\"n\" index=\"9\" image=\"d\"/>\n" + end},
        {"nothing_to_copy_written", a, "", KM_TEXT("n"), KM_TEXT("x"), false, "-1", ""},
        {"entry_not_handed_over", a, head + u + end, KM_TEXT("a"), KM_TEXT("u"), true, "5f", head + "\t\t<item id=\"a\" index=\"5\" image=\"f\"/>\n" + end},
        {"known_target_keeps_its_icon", a, head + u + end, KM_TEXT("a"), KM_TEXT("x"), true, "-1", head + u + end},
        {"own_entry_lost", a, head + u + end, KM_TEXT("u"), KM_TEXT("u"), true, "5f", head + u + end},
        {"list_added_for_a_new_target", a, "<items/>", KM_TEXT("n"), KM_TEXT("a"), false, "-1", "<items/>"},
        {"known_target_needs_a_list", d, "<items/>", KM_TEXT("a"), KM_TEXT("x"), true, "9d", "<items/>"},
        {"unreadable_file_replaced", a, "<items></x>", KM_TEXT("n"), KM_TEXT("a"), false, "-1", "<items></x>"},
        {"unreadable_file_changes_the_table", d, " ", KM_TEXT("a"), KM_TEXT("x"), false, "-1&", " "}};
    // clang-format on
    for (const auto& row : rows) {
        const TemporaryFolder folder;
        TestIcons icons;
        if (row.before.empty()) folder.MakeFolder(KM_TEXT("user"));
        if (!row.before.empty()) folder.WriteUtf16(KM_TEXT("user\\userpf.con"), TextFromBytes(row.before));
        icons.Init(folder, ">", row.profiles);
        EXPECT_EQ(icons.CopyIconFrom(row.target, row.source), row.result) << row.fault;
        EXPECT_EQ(icons.Icon(row.target), row.icon) << row.fault;
        std::ifstream file(folder.SystemPath(KM_TEXT("user\\userpf.con")), std::ios::binary);
        const std::string bytes(std::istreambuf_iterator<char>(file), {});
        EXPECT_EQ(bytes, row.after.empty() ? "" : "\xFF\xFE" + Utf16Bytes(TextFromBytes(row.after)))
            << row.fault;
    }
}

}  // namespace
