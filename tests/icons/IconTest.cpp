// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "kmIconParser.h"
#include "tests/support/Messages.h"
#include "tests/support/TemporaryFolder.h"

namespace {

constexpr const kmChar *kIndexFile = KM_TEXT("pficon.con"), *kUserFile = KM_TEXT("user\\userpf.con");

std::string Item(const std::string& id, const std::string& index, const std::string& image) {
    return "\t\t<item id=\"" + id + "\" index=\"" + index + "\" image=\"" + image + "\"/>\n";
}

// The user's file as the library writes it.
std::string UserFile(const std::string& items) {
    return "<?xml version=\"1.0\" encoding=\"utf-16\"?>\n<items>\n\t<user_pf>\n" + items +
           "\t</user_pf>\n</items>\n";
}

struct TestIcons : kmIconParser {
    // Reads an index file with this content of "groups", its attributes included, and of "profiles".
    void Init(const std::string& groups, const std::string& profiles) {
        folder.WriteBytes(
            kIndexFile, "<items><groups" + groups + "</groups><profiles" + profiles + "</profiles></items>");
        InitParser(folder.Path().c_str());
    }
    std::string Icon(const kmChar* id, bool group = false) const {
        return std::to_string(GetIconIndex(id, group)) + " in '" + Utf8(GetImageFileName(id, group)) + "'";
    }
    std::string Settings(bool group) const {
        std::int32_t width = 0, height = 0;
        kmString color;
        GetIconInfo(width, height, color, group);
        const bool isOneImage = group ? GroupIconIsSignleImage() : ProfileIconIsSignleImage();
        return std::to_string(width) + "x" + std::to_string(height) + " '" + Utf8(color) + "'" +
               (isOneImage ? " one image" : "");
    }

    const CapturedMessages messages;
    const TemporaryFolder folder;
};

TEST(Icons, SettingsStayUntilAFileSaysOtherwise) {
    constexpr const char* kInitial = "16x16 'RGB(0, 0, 0)' one image";
    // In order: every file is read after the one above it.
    // clang-format off
    const struct { const char *fault, *attributes, *expected; } rows[] = {
        {"initial_settings_wrong", "", kInitial},
        {"number_or_flag_misread", " width=' 0x20' height='010' singlefile='true' transclr=''", "32x8 ''"},
        {"limits_or_letter_case_wrong", " SingleFile='YES' width='abc' height='99999999999'",
         "0x2147483647 '' one image"}};
    // clang-format on
    TestIcons icons;
    for (const auto& row : rows) {
        icons.Init(">", std::string(row.attributes) + ">");
        EXPECT_EQ(icons.Settings(false), row.expected) << row.fault << ", given" << row.attributes;
        EXPECT_EQ(icons.Settings(true), kInitial) << "of the groups, " << row.fault;
    }
}

TEST(Icons, CopiesGoIntoTheUserFile) {
    const std::string a = Item("a", "-1", "&amp;"), withDefault = a + Item("default", "9", "d"),
                      u = Item("u", "5", "f"), n = Item("n", "-1", "&amp;"), fromU = Item("a", "5", "f"),
                      fromDefault = Item("n", "9", "d"), none = "<items/>", broken = "<items></x>";
    // clang-format off
    const struct {
        const char* fault; std::string indexed, before; const char *target, *source;
        bool result; const char* icon; std::string after;
    } rows[] = {
        {"older_entry_lost",         a, UserFile(u), "n", "a", true,  "-1 in '&'", UserFile(u + n)},
        {"default_not_copied",       withDefault, "", "n", "A", true, "9 in 'd'",  UserFile(fromDefault)},
        {"entry_not_handed_on",      a, UserFile(u), "a", "u", true,  "5 in 'f'",  UserFile(fromU)},
        {"unreadable_file_replaced", a, broken,      "n", "a", false, "-1 in ''",  broken},
        {"table_changed_all_the_same", withDefault, broken, "a", "x", false, "-1 in '&'", broken}};
    // clang-format on
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.fault << ", given " << row.source << " to " << row.target);
        TestIcons icons;
        icons.folder.MakeFolder(KM_TEXT("user"));
        if (!row.before.empty()) icons.folder.WriteBytes(kUserFile, row.before);
        icons.Init(">", ">" + row.indexed);
        const kmString target = Text(row.target);
        EXPECT_EQ(icons.CopyIconFrom(target.c_str(), Text(row.source).c_str()), row.result);
        EXPECT_EQ(icons.Icon(target.c_str()), row.icon);
        EXPECT_EQ(ReadText(icons.folder.SystemPath(kUserFile)), row.after);
    }
}

}  // namespace
