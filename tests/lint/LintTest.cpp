// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <map>
#include <set>

#include "kmLint.h"
#include "kmLoadReport.h"
#include "tests/support/Messages.h"
#include "tests/support/ProfilesFolder.h"

namespace {

using Lints = std::vector<kmLintFinding>;

// Each as its name, place and subject, and what it suggests.
std::string Dump(const Lints& lints) {
    std::string text;
    for (const kmLintFinding& lint : lints) {
        text += lint.name + (" " + std::to_string(lint.line)) + ":" + std::to_string(lint.column);
        if (!lint.subject.empty()) text += " " + Utf8(lint.subject);
        if (!lint.suggestion.empty()) text += "->" + Utf8(lint.suggestion);
        text += ";";
    }
    return text;
}

std::string DumpWithPaths(const Lints& lints, const kmString& folder) {
    std::string text;
    for (const kmLintFinding& lint : lints) text += Relative(lint.path, folder) + ": " + Dump({lint});
    return text;
}

const std::string kHeader =
    "<Name language='n'/><Desc language=''/><SName>s</SName><Format>f</Format><ExtName>e</ExtName>";
// With nothing to find but in what is given: `main` on line 2, `root` on line 3, the settings from line 4 on.
std::string Profile(const std::string& settings, const std::string& main = "", const std::string& root = "") {
    return "<Profiles><Main>" + kHeader + "\n" + main + "</Main>\n" + root + "<Parameter>\n" + settings +
           "</Parameter></Profiles>";
}
std::string System(const std::string& group = "") {
    return Profile("<b/>", "<IsSysProfile>yes</IsSysProfile>", group);
}

std::set<std::string> namesSeen;

Lints LintText(const std::string& text) {
    const ProfilesFolder folder;
    folder.AddProfile("a", text);
    const Lints lints = kmLintFile(folder.Path(KM_TEXT("a.pf")));
    for (const kmLintFinding& lint : lints) namesSeen.insert(lint.name);
    return lints;
}

struct FileCase {
    const char* fault;
    std::string text;
    const char* expected;
};

void ExpectLints(const FileCase& row) {
    EXPECT_EQ(Dump(LintText(row.text)), row.expected) << row.fault << ", given " << row.text;
}

const FileCase kFileFaults[] = {
    {"place_of_an_error_lost", "<Profiles>\n <", "xml-error 2:3;"},
    {"other_first_element", "<x/>", "xml-error 0:0;"},
    {"warning_taken_for_an_error", "<Profiles><Main>" + kHeader + "\n</Main><Parameter><b/>",
     "xml-warning 2:23;"},
    {"missing_main", "\n<Profiles/>", "no-header 2:2;"},
    {"no_settings", Profile(""), "no-settings 3:2;"},
    {"field_without_its_carrier",
     "<Profiles><Main>\n<Desc language=''/><SName>s</SName><Format/>\n<Name/></Main><Parameter><b/>"
     "</Parameter></Profiles>",
     "missing-header-field 1:12 ExtName;missing-header-field 2:37 Format;missing-header-field 3:2 Name;"},
    {"true_taken_for_a_mark", Profile("<b/>", "<IsSysProfile>true</IsSysProfile>"),
     "system-mark 2:15 IsSysProfile;"},
    {"unknown_element", Profile("<b><c/></b>", "<SNme/>"),
     "unknown-element 2:2 SNme->SName;unknown-element 4:5 c;"},
    {"attribute_nobody_reads", Profile("<b Valu='9' x=''/>"),
     "unknown-attribute 4:4 Valu->Value;unknown-attribute 4:13 x;"},
    {"format_s_own_spelling_not_told", Profile("<b simpleCandidatesDisplay='a'/>", "<Description/>"),
     "usual-spelling 2:2 Description->Desc;usual-spelling 4:4 "
     "simpleCandidatesDisplay->simpleCandidatesDiaplay;"},
    {"second_element", Profile("<b/>", "<name/>", "<Main/>"),
     "repeated-element 2:2 name;repeated-element 3:2 Main;"},
    {"second_attribute", Profile("<b Value='9' value='8'/>"), "repeated-attribute 4:14 value;"},
    {"attribute_without_value", Profile("<b Value/>"), "attribute-without-value 4:4 Value;"},
    {"text_instead_of_an_attribute", Profile("<b>\n900</b>"), "ignored-text 5:1 b;"},
    {"comment_missed_or_told_twice", Profile("<!--x--><b/><!--y-->"), "dropped-comment 4:5;"},
    {"groups_of_a_user", Profile("<b/>", "", "<Group><x/></Group>"), "dropped-groups 3:2;"},
    {"unknown_option", Profile("<vcodek/>\n<nothing_like_it/><zz/>"),
     "unknown-option 4:2 vcodek->vcodec;unknown-option 5:2 nothing_like_it;unknown-option 5:20 zz;"},
    {"letter_case_of_an_option", Profile("<VCodec/>"), "option-letter-case 4:2 VCodec->vcodec;"},
    {"second_setting", Profile("<b/><X/>\n<x/><b/>"),
     "unknown-option 4:6 X;unknown-option 5:2 x;doubled-option 5:2 x;doubled-option 5:6 b;"},
    {"value_that_a_save_loses", Profile("<b Value=''/>"), "empty-value 4:11 b;"},
    {"refused_value", Profile("<b Value='0'/><s Value='321x240'/>"),
     "value-refused 4:11 b;value-refused 4:25 s;"},
    {"text_for_a_number", Profile("<maxrate Value='9k'/><ar Value='fast'/><dc advPriority='1st'/>"),
     "not-a-number 4:33 ar;not-a-number 4:57 advPriority;"},
    {"one_taken_for_on", Profile("<an Value='1'/>"), "switch-value 4:12 an;"},
    {"flag_that_is_none", Profile("<b advReadOnly='1'/>"), "flag-value 4:17 advReadOnly;"},
    {"end_of_the_quotation", Profile("<title Value='a\"b'/>"), "quote-in-value 4:15 title;"},
    {"not_in_its_list", Profile("<b Value='9' advHasCandidates='yes' advCandidatesValue='7, 8'/>"),
     "value-not-offered 4:11 b;"},
    {"lists_of_two_lengths", Profile("<b simpleCandidatesDiaplay='a' simpleCandidatesValue='1,2'/>"),
     "list-lengths 4:55 b;"},
    {"flag_without_a_list", Profile("<b simpleHasCandidates='yes'/>"), "no-candidates 4:25 b;"},
    {"before_its_target", Profile("<b Value='9'/><vcodec/><g/><target Value=' dvd'/><ab Value='9'/>"),
     "before-target 4:2 b;"},
    {"correction", Profile("<acodec Value='mp3'/><ar Value='8000'/><ab Value='320'/>"),
     "corrected-value 4:51 ab;"}};

const std::pair<const char*, std::string> kFileRight[] = {
    {"right_file_blamed", Profile("<b Value='900' advReadOnly='no' simpleReadOnly='YES' advPriority='0x1'/>",
                                  "<IsSysProfile>No</IsSysProfile>")},
    {"abbreviation_or_default_refused",
     Profile("<s Value='cif'/><r Value='auto'/><t/><ac Value='2 (Stereo)'/>")},
    {"target_first_or_of_no_disc_blamed", Profile("<b Value='9'/><target Value='film'/>")},
    {"list_that_is_not_offered_blamed", Profile("<b Value='9' advCandidatesValue='7'/>")},
    {"middle_of_the_bit_rates_blamed",
     Profile("<b Value='Auto' simpleHasCandidates='yes' simpleCandidatesValue='7,8'/>")},
    {"quality_by_its_text_blamed",
     Profile("<pq Value='Low' simpleHasCandidates='yes' simpleCandidatesValue='1' "
             "simpleCandidatesDiaplay='Low'/>")},
    {"corrected_setting_that_is_missing", Profile("<acodec Value='wma9x'/><ab Value='320'/>")}};

struct FolderCase {
    const char* fault;
    std::map<std::string, std::string> files;
    const char* expected;
};

// The report and the findings must tell of the same files as left out.
void ExpectAgreement(const Lints& lints, const kmLoadReport& report) {
    std::set<kmString> byLint, byLoad;
    for (const kmLintFinding& lint : lints) {
        for (const LINT_CODE code :
             {LINT_XML_ERROR, LINT_UNREADABLE_FILE, LINT_NO_HEADER, LINT_NOT_A_FILE, LINT_HIDDEN_FILE,
              LINT_FOLDER_MISSING, LINT_FOLDER_UNREADABLE, LINT_NO_ICONS, LINT_ICONS_IGNORED})
            if (lint.code == code) byLint.insert(lint.path);
    }
    for (const kmLoadFinding& finding : report.findings)
        if (!finding.isUsed) byLoad.insert(finding.path);
    EXPECT_EQ(byLint, byLoad);
    for (const kmString& path : report.taken) EXPECT_EQ(byLint.count(path), 0u) << Utf8(path);
}

// Every folder has a file of icons with an entry for the profile "a" unless the row has its own.
const std::string kIcons = "<items><profiles><i id='a' image='' index='0'/>";
std::string Icons(const std::string& more) { return kIcons + "\n" + more; }

void FindWhatIsWrongInFiles() {
    for (const FileCase& row : kFileFaults) ExpectLints(row);
    for (const auto& [fault, text] : kFileRight) ExpectLints({fault, text, ""});
}

void FindWhatDoesNotFitInFolders() {
    const std::string end = "</profiles></items>", a = Profile("<b/>");
    const FolderCase rows[] = {
        {"right_folder_blamed", {{"a.pf", a}}, ""},
        {"broken_or_empty_file",
         {{"a.pf", a}, {"b.pf", "<"}, {"c.pf", "<Profiles/>"}},
         "b.pf: xml-error 0:0;c.pf: no-header 1:2;"},
        {"folder_or_hidden_file",
         {{"a.pf", a}, {"x.pf\\y", ""}, {".b.pf", a}},
         ".b.pf: hidden-file 0:0 .b.pf;x.pf: not-a-file 0:0 x.pf;"},
        {"same_id",
         {{"a.pf", a},
          {"user\\A.pf", a},
          {"user\\userpf.con", "<items><user_pf><i id='A' image='' index='0'/></user_pf></items>"}},
         "user/A.pf: same-id 0:0 A;"},
        {"user_s_system_profile", {{"user\\a.pf", System()}}, "user/a.pf: system-in-user 2:2 a;"},
        {"group_without_a_name", {{"a.pf", System("<Group><GroupName/></Group>")}}, "a.pf: no-group 3:2;"},
        {"group_beyond_the_order_or_its_icon",
         {{"a.pf", System("<Group><GroupName language='^psp'/></Group>")}},
         "a.pf: group-outside-order 3:29 ^psp->PSP;a.pf: group-without-icon 3:29 ^psp;"},
        {"spare_or_missing_icon",
         {{"b.pf", a}},
         "b.pf: profile-without-icon 0:0 b;pficon.con: icon-without-profile 1:25 a;"},
        {"spare_icon_of_a_group",
         {{"a.pf", a},
          {"pficon.con", Icons("</profiles><groups><i id='g' image='' index='0'/><i id='Recent' image='' "
                               "index='0'/></groups></items>")}},
         "pficon.con: icon-without-group 2:27 g;"},
        {"entry_without_parts_or_twice",
         {{"a.pf", a}, {"pficon.con", Icons("<i id='a' image='' index='x'/><i Id=''/>" + end)}},
         "pficon.con: doubled-icon 2:8 a;pficon.con: not-a-number 2:27 index;pficon.con: icon-entry "
         "2:32;pficon.con: icon-entry 2:32;pficon.con: icon-entry 2:32;"},
        {"lost_icons",
         {{"a.pf", a}, {"pficon.con", "<"}, {"user\\userpf.con", "<items/>"}},
         "user/userpf.con: icons-ignored 0:0 userpf.con;pficon.con: xml-error 0:0;"}};
    for (const FolderCase& row : rows) {
        SCOPED_TRACE(testing::Message() << row.fault << ", given " << testing::PrintToString(row.files));
        const CapturedMessages messages;
        const ProfilesFolder folder;
        folder.WriteBytes(KM_TEXT("pficon.con"), kIcons + end);
        for (const auto& [name, text] : row.files) folder.WriteBytes(Text(name), text);
        const Lints lints = kmLintFolder(folder.Path());
        for (const kmLintFinding& lint : lints) namesSeen.insert(lint.name);
        EXPECT_EQ(DumpWithPaths(lints, folder.Path()), row.expected);
        EXPECT_TRUE(messages.All().empty());
        ExpectAgreement(lints, kmReportLoad(folder.Path()));
    }
}

void FindNothingToRead() {
    const ProfilesFolder folder;
    const auto expect = [&](const Lints& lints, const char* expected) {
        EXPECT_EQ(DumpWithPaths(lints, folder.Path()), expected);
        for (const kmLintFinding& lint : lints) namesSeen.insert(lint.name);
    };
    expect(kmLintFolder(folder.Path()), "pficon.con: no-icons 0:0 pficon.con;");
    expect(kmLintFolder(folder.Path(KM_TEXT("x"))),
           "x/: folder-missing 0:0;x/pficon.con: no-icons 0:0 pficon.con;");
    expect(kmLintProfile(folder.Path(), KM_TEXT("b")), ": no-profile 0:0 b;");
    folder.WriteBytes(KM_TEXT("user"), "");
    expect(kmLintFolder(folder.Path()), "user/: folder-unreadable 0:0;pficon.con: no-icons 0:0 pficon.con;");
    expect(kmLintFile(folder.Path(KM_TEXT("con.pf"))),
           "con.pf: unreadable-file 0:0;con.pf: id-fault 0:0 con;");
}

void FindOnlySoMuch() {
    std::string settings;
    for (int i = 0; i < 20000; ++i)
        settings += "<x" + std::to_string(i) + "\x1B" + std::string(i % 200, 'y') + "/>";
    const Lints lints = LintText(Profile(settings));
    ASSERT_EQ(lints.size(), 1001u);
    EXPECT_EQ(Dump({lints.back()}), "more-findings 0:0;");
    EXPECT_EQ(Utf8(lints.back().what), "There are 19000 more findings in this file.");
    for (const kmLintFinding& lint : lints) {
        EXPECT_LT(lint.what.size(), 200u);
        EXPECT_EQ(lint.what.find(0x1B), kmString::npos);
    }
}

TEST(Lint, EveryRuleFindsWhatItIsFor) {
    FindWhatIsWrongInFiles();
    FindWhatDoesNotFitInFolders();
    FindNothingToRead();
    FindOnlySoMuch();
    std::set<std::string> names;
    for (int code = 1; kmFindLintRule(code) != nullptr; ++code) names.insert(kmFindLintRule(code)->name);
    EXPECT_EQ(names, namesSeen) << "a rule without a row, or two rules of one name";
    EXPECT_EQ(names.size(), static_cast<std::size_t>(LINT_MORE_FINDINGS));
}

// But for what they show on purpose: two corrections, and what a target leaves alone.
TEST(Lint, SamplesAreRight) {
    const ProfilesFolder folder;
    std::filesystem::copy(std::filesystem::path(KM_SOURCE_DIR) / "samples/Profiles",
                          folder.SystemPath(KM_TEXT("p")), std::filesystem::copy_options::recursive);
    std::map<std::string, int> counts;
    for (const kmLintFinding& lint : kmLintFolder(folder.Path(KM_TEXT("p"))))
        if (lint.severity != LINT_NOTE) ++counts[lint.name];
    EXPECT_EQ(counts, (std::map<std::string, int>{{"before-target", 8}, {"corrected-value", 2}}));
}

}  // namespace
