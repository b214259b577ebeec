// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <map>
#include <set>

#include "kmManager.h"
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

TEST(CatalogueLoading, FilesBecomeRecordsAndGroups) {
    const std::string user = UserProfile(), inG = InGroup("g"),
                      yes = "<profiles><main><issysprofile>YES</issysprofile></main></profiles>",
                      marked =
                          "<Profiles><Main><IsSysProfile>true</IsSysProfile></Main>" + inG + "</Profiles>",
                      unnamed = "<Group><GroupName/><GroupName language=''/></Group>";
    // clang-format off
    const struct { const char* fault; Files files; const char *records, *groups; } rows[] = {
        {"without_a_group_element_not_in_others", {{"a.pf", SystemProfile()}}, "|a", "others|a;"},
        {"missing_name_kept_or_empty_one_lost", {{"a.pf", SystemProfile(unnamed)}}, "|a", "|a;"},
        {"true_is_a_mark_or_users_groups_made", {{"a.pf", marked}}, "|a", "User Defined|a;"},
        {"first_dot_or_lower_case_extension", {{"a.b.PF", user}}, "|a.b", "User Defined|a.b;"},
        {"broken_file_ends_the_load", {{"a.pf", "</x>"}, {"b.pf", user}}, "|b", "User Defined|b;"},
        {"user_folder_first_or_missed", {{"b.pf", user}, {"USER\\a.pf", user}}, "|b|a", "User Defined|b|a;"},
        {"id_of_both_folders_twice_in_a_group",
         {{"a.pf", SystemProfile(inG)}, {"user\\a.pf", SystemProfile(inG)}}, "|a|a", "g|a;"}};
    // clang-format on
    const CapturedMessages messages;
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.fault << ", given " << testing::PrintToString(row.files));
        const ProfilesFolder folder;
        for (const auto& [name, text] : row.files) folder.WriteBytes(Text(name), text);
        Catalogue catalogue;
        EXPECT_TRUE(catalogue.Load(folder.Path()));
        EXPECT_EQ(Records(catalogue.GetProfiles()), row.records);
        EXPECT_EQ(catalogue.Groups(), row.groups);
    }
}

TEST(CatalogueLoading, HandlersCannotPutAnIDTwiceIntoAGroup) {
    const struct {
        const char* fault;
        void (*meddle)(kmManager& manager);
    } rows[] = {
        {"later_user_profile_added",
         [](kmManager& m) { m.ProfileChanged(PROFILE_SAVED, KM_TEXT("z"), nullptr); }},
        {"later_system_profile_added", [](kmManager& m) { m.AddUserProfile(KM_TEXT("s")); }},
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

}  // namespace
