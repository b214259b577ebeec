// SPDX-License-Identifier: MIT
// What a load takes, into which groups, and what the report about it says.
#include <gtest/gtest.h>

#include <map>
#include <set>

#include "kmIconParser.h"
#include "kmLoadReport.h"
#include "tests/support/Messages.h"
#include "tests/support/ProfilesFolder.h"

namespace {

struct Catalogue : kmManager {
    // Those that hold profiles.
    std::string Groups() {
        std::vector<kmGroup> groups = GetSystemGroups();
        groups.push_back(GetUserGroup());
        std::string text;
        for (kmGroup& group : groups) {
            if (group.GetProfileIDs().empty()) continue;
            text += Utf8(group.GetOriginalName()) + Joined(group.GetProfileIDs()) + ";";
        }
        return text;
    }
};

using Files = std::map<std::string, std::string>;  // texts by name

// Each finding as its fault, whether the file was used, and path, line and column.
std::string Dump(const kmLoadReport& report) {
    std::string text;
    for (const kmLoadFinding& finding : report.findings) {
        text += std::string(kmLoadFaultName(finding.fault)) + (finding.isUsed ? "+ " : " ") +
                Relative(finding.path, report.folder);
        if (finding.line != 0)
            text += ":" + std::to_string(finding.line) + ":" + std::to_string(finding.column);
        if (!finding.other.empty()) text += " by " + Relative(finding.other, report.folder);
        text += ";";
    }
    return text;
}

std::string TakenIDs(const kmLoadReport& report) {
    std::string ids;
    for (const kmString& path : report.taken) {
        const kmString name = path.substr(path.rfind(KM_TEXT('\\')) + 1);
        ids += '|' + Utf8(name.substr(0, name.size() - 3));
    }
    return ids;
}

TEST(CatalogueLoading, FilesBecomeRecordsGroupsAndFindings) {
    const std::string user = UserProfile(), inG = InGroup("g"), icons = "<items/>",
                      entries = "<items><profiles><i id='a'/><i id='b' image='c'/></profiles></items>",
                      marked =
                          "<Profiles><Main><IsSysProfile>true</IsSysProfile></Main>" + inG + "</Profiles>",
                      unnamed = "<Group><GroupName/><GroupName language=''/></Group>";
    // Every folder has an icon file unless the row has its own.
    // clang-format off
    const struct { const char* fault; Files files; const char *groups, *findings; } rows[] = {
        {"without_a_group_element_not_in_others", {{"a.pf", SystemProfile()}}, "others|a;", ""},
        {"missing_name_kept_or_empty_one_lost", {{"a.pf", SystemProfile(unnamed)}}, "|a;", ""},
        {"true_is_a_mark_or_users_groups_made", {{"a.pf", marked}}, "User Defined|a;", ""},
        {"first_dot_or_lower_case_extension", {{"a.b.PF", user}}, "User Defined|a.b;", ""},
        {"broken_file_ends_the_load", {{"a.pf", "<Profiles>\n <"}, {"b.pf", user}}, "User Defined|b;",
         "xml-error a.pf:2:3;"},
        {"user_folder_first_or_missed", {{"b.pf", user}, {"USER\\a.pf", user}}, "User Defined|b|a;", ""},
        {"id_of_both_folders_twice_in_a_group",
         {{"a.pf", SystemProfile(inG)}, {"user\\a.pf", SystemProfile(inG)}}, "g|a;", "shadowed+ user/a.pf by a.pf;"},
        {"same_id_in_other_case_silent", {{"a.pf", user}, {"user\\A.pf", user}}, "User Defined|a|A;",
         "shadowed+ user/A.pf by a.pf;"},
        {"left_out_file_shadows", {{"a.pf", "<"}, {"user\\a.pf", user}}, "User Defined|a;", "xml-error a.pf;"},
        {"warning_called_left_out", {{"a.pf", "<Profiles><Main>"}}, "User Defined|a;", "xml-warning+ a.pf:1:17;"},
        {"missing_header_hides_the_warning", {{"a.pf", "<Profiles>"}}, "", "xml-warning+ a.pf:1:11;no-header a.pf;"},
        {"folder_or_its_user_folder_silent", {{"x.pf\\y", ""}, {"user\\z.PF\\y", ""}}, "",
         "no-file x.pf;no-file user/z.PF;"},
        {"hidden_name_silent_or_others_told", {{".a.pf", user}, {".b.PF", user}, {".b", user}, {"c", ""}}, "",
         "hidden .a.pf;hidden .b.PF;"},
        {"nameless_group_silent", {{"a.pf", SystemProfile("<Group><GroupName/></Group>")}}, "", "no-group+ a.pf;"},
        {"broken_icons_silent_or_users_not_told", {{"pficon.con", "<x/>"}, {"user\\userpf.con", icons}}, "",
         "xml-error pficon.con;icons-ignored user/userpf.con;"},
        {"icon_entry_silent", {{"pficon.con", entries}, {"user\\userpf.con", "<items><user_pf><i/></user_pf></items>"}},
         "", "icon-entry+ pficon.con;icon-entry+ user/userpf.con;"},
        {"users_icons_silent", {{"user\\userpf.con", "<items>"}}, "", "xml-warning+ user/userpf.con:1:8;"}};
    // clang-format on
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.fault << ", given " << testing::PrintToString(row.files));
        const ProfilesFolder folder;
        folder.WriteBytes(KM_TEXT("pficon.con"), icons);
        for (const auto& [name, text] : row.files) folder.WriteBytes(Text(name), text);
        const CapturedMessages messages;
        kmReportLoad(folder.Path());
        EXPECT_TRUE(messages.All().empty()) << "of a report alone";
        Catalogue catalogue, ordinary;
        const kmLoadReport report = kmLoadWithReport(catalogue, folder.Path());
        const std::size_t told = messages.All().size();
        ordinary.Load(folder.Path());
        EXPECT_EQ(messages.All().size(), told * 2) << "of an ordinary load too";
        EXPECT_EQ(Dump(report), row.findings);
        EXPECT_EQ(Dump(kmReportLoad(folder.Path())), row.findings) << "by a report alone";
        EXPECT_EQ(catalogue.Groups(), row.groups);
        EXPECT_EQ(TakenIDs(report), Records(catalogue.GetProfiles()));
        EXPECT_EQ(Records(ordinary.GetProfiles()), Records(catalogue.GetProfiles()));
    }
}

TEST(CatalogueLoading, HandlersCannotPutAnIDTwiceIntoAGroup) {
    const struct {
        const char* fault;
        void (*meddle)(kmManager& manager);
    } rows[] = {
        {"later_user_profile_added",
         [](kmManager& m) { m.ProfileChanged(PROFILE_SAVED, KM_TEXT("z"), nullptr); }},
        {"id_put_into_the_list",
         [](kmManager& m) { m.GetUserGroup().GetProfileIDs().push_back(KM_TEXT("z")); }},
        {"groups_removed", [](kmManager& m) { m.GetSystemGroups().clear(); }},
        {"group_renamed",
         [](kmManager& m) {
             for (kmGroup& group : m.GetSystemGroups()) group.SetName(KM_TEXT("renamed"));
         }},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.fault);
        const ProfilesFolder folder;
        for (const char* id : {"a", "s", "t"}) folder.AddProfile(id, SystemProfile(InGroup("g")));
        for (const char* id : {"b", "user\\b", "user\\broken", "broken", "user\\z"})
            folder.AddProfile(id, std::string(id).ends_with("broken") ? "<" : UserProfile());
        folder.WriteBytes(KM_TEXT("pficon.con"), "<items/>");
        folder.WriteBytes(KM_TEXT("user\\userpf.con"), "<items/>");
        Catalogue catalogue;
        static Catalogue* loading;
        static void (*meddle)(kmManager & manager);
        loading = &catalogue;
        meddle = row.meddle;
        kmSetMessageHandler([](const kmMessage&, void*) { meddle(*loading); }, nullptr);
        catalogue.Load(folder.Path());
        kmSetMessageHandler(nullptr, nullptr);
        std::vector<kmGroup> groups = catalogue.GetSystemGroups();
        groups.push_back(catalogue.GetUserGroup());
        for (kmGroup& group : groups) {
            const std::vector<kmString>& ids = group.GetProfileIDs();
            EXPECT_EQ(std::set(ids.begin(), ids.end()).size(), ids.size()) << Joined(ids);
        }
        EXPECT_NE(Joined(catalogue.GetUserGroup().GetProfileIDs()).find("|z"), std::string::npos);
    }
}

TEST(CatalogueLoading, NextLoadBeginsAnew) {
    const CapturedMessages messages;
    const ProfilesFolder folder, empty;
    folder.AddProfile("a", SystemProfile());
    folder.AddProfile("user\\b", UserProfile());
    Catalogue catalogue;
    catalogue.Load(folder.Path() + kmString(KM_TEXT("\0x"), 2));
    EXPECT_EQ(Records(catalogue.GetProfiles()), "|a|b") << "a folder ends at its first null unit";
    catalogue.Load(empty.Path());
    EXPECT_EQ(Records(catalogue.GetProfiles()), "");
    EXPECT_EQ(catalogue.Groups(), "");
}

TEST(LoadReport, LeavesTheCatalogueOfTheProcessAlone) {
    const CapturedMessages messages;
    const ProfilesFolder loaded, reported;
    loaded.AddProfile("a", UserProfile());
    loaded.WriteBytes(KM_TEXT("pficon.con"),
                      "<items><profiles><i id='a' image='m' index='3'/></profiles></items>");
    kmManager::GetInstance().Load(loaded.Path());
    reported.AddProfile("b", UserProfile());
    EXPECT_EQ(TakenIDs(kmReportLoad(reported.Path())), "|b");
    EXPECT_EQ(Records(kmManager::GetInstance().GetProfiles()), "|a");
    EXPECT_EQ(kmIconParser::GetInstance().GetIconIndex(KM_TEXT("a"), false), 3);
}

}  // namespace
