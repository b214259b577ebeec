// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <map>

#include "kmIconParser.h"
#include "kmLoadReport.h"
#include "tests/support/Messages.h"
#include "tests/support/ProfilesFolder.h"

namespace {

using Files = std::map<std::string, std::string>;  // texts by name

// Each finding as its fault, whether the file was used, and path, line and column.
std::string Dump(const kmLoadReport& report) {
    std::string text;
    const auto relative = [&](const kmString& path) {
        std::string name = Utf8(path.substr(std::min(report.folder.size(), path.size())));
        std::replace(name.begin(), name.end(), '\\', '/');
        return name;
    };
    for (const kmLoadFinding& finding : report.findings) {
        text += std::string(kmLoadFaultName(finding.fault)) + (finding.isUsed ? "+ " : " ") +
                relative(finding.path);
        if (finding.line != 0)
            text += ":" + std::to_string(finding.line) + ":" + std::to_string(finding.column);
        if (!finding.other.empty()) text += " by " + relative(finding.other);
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

TEST(LoadReport, SaysWhatTheLoadDid) {
    const std::string user = UserProfile(), icons = "<items/>",
                      entries = "<items><profiles><i id='a'/><i id='b' image='c'/></profiles></items>";
    // Every folder has an icon file unless the row has its own.
    // clang-format off
    const struct { const char* fault; Files files; const char* expected; } rows[] = {
        {"finding_without_a_fault", {{"a.pf", user}, {"user\\b.pf", user}}, ""},
        {"position_lost", {{"a.pf", "<Profiles>\n <"}}, "xml-error a.pf:2:3;"},
        {"warning_called_left_out", {{"a.pf", "<Profiles><Main>"}}, "xml-warning+ a.pf:1:17;"},
        {"missing_header_silent", {{"a.pf", "<Profiles/>"}}, "no-header a.pf;"},
        {"missing_header_hides_the_warning", {{"a.pf", "<Profiles>"}}, "xml-warning+ a.pf:1:11;no-header a.pf;"},
        {"folder_or_its_user_folder_silent", {{"x.pf\\y", ""}, {"user\\z.PF\\y", ""}},
         "no-file x.pf;no-file user/z.PF;"},
        {"hidden_name_silent_or_others_told", {{".a.pf", user}, {".b.PF", user}, {".b", user}, {"c", ""}},
         "hidden .a.pf;hidden .b.PF;"},
        {"same_id_in_both_folders_silent", {{"a.pf", user}, {"user\\A.pf", user}}, "shadowed+ user/A.pf by a.pf;"},
        {"left_out_file_shadows", {{"a.pf", "<"}, {"user\\a.pf", user}}, "xml-error a.pf;"},
        {"nameless_group_silent", {{"a.pf", SystemProfile("<Group><GroupName/></Group>")}}, "no-group+ a.pf;"},
        {"broken_icons_silent_or_users_not_told", {{"pficon.con", "<x/>"}, {"user\\userpf.con", icons}},
         "xml-error pficon.con;icons-ignored user/userpf.con;"},
        {"icon_entry_silent", {{"pficon.con", entries}, {"user\\userpf.con", "<items><user_pf><i/></user_pf></items>"}},
         "icon-entry+ pficon.con;icon-entry+ user/userpf.con;"},
        {"users_icons_silent", {{"user\\userpf.con", "<items>"}}, "xml-warning+ user/userpf.con:1:8;"}};
    // clang-format on
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.fault << ", given " << testing::PrintToString(row.files));
        const ProfilesFolder folder;
        folder.WriteBytes(KM_TEXT("pficon.con"), icons);
        for (const auto& [name, text] : row.files) folder.WriteBytes(Text(name), text);
        const CapturedMessages messages;
        kmReportLoad(folder.Path());
        EXPECT_TRUE(messages.All().empty()) << "of a report alone";
        struct : kmManager {
        } catalogue, ordinary;
        const kmLoadReport report = kmLoadWithReport(catalogue, folder.Path());
        const std::size_t told = messages.All().size();
        ordinary.Load(folder.Path());
        EXPECT_EQ(messages.All().size(), told * 2) << "of an ordinary load too";
        EXPECT_EQ(Dump(report), row.expected);
        EXPECT_EQ(Dump(kmReportLoad(folder.Path())), row.expected) << "by a report alone";
        EXPECT_EQ(TakenIDs(report), Records(catalogue.GetProfiles()));
        EXPECT_EQ(Records(ordinary.GetProfiles()), Records(catalogue.GetProfiles()));
    }
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
