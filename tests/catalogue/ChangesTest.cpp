// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "kmManager.h"
#include "tests/support/Messages.h"
#include "tests/support/ProfilesFolder.h"

namespace {

using Strings = std::vector<std::string>;

void Record(PROFILE_CHANGED_TYPE type, const kmChar* first, const kmChar* second, void* calls) {
    constexpr const char* kKinds[] = {"saved ", "deleted ", "renamed ", "recent "};
    static_cast<Strings*>(calls)->push_back(kKinds[type] + Utf8(first) + " " + Utf8(second));
}

// Loaded are the system profile Sys and the user profiles A, B and, in the folder itself, Main; B and A are
// recent. New has come into the user's folder since.
struct LoadedCatalogue : kmManager {
    LoadedCatalogue() {
        for (const char* id : {"Main", "user\\A", "user\\B"}) folder.AddProfile(id, UserProfile());
        folder.AddProfile("Sys", SystemProfile());
        Load(folder.Path());
        folder.AddProfile("user\\New", UserProfile());
        AddRecentProfile(KM_TEXT("A"));
        AddRecentProfile(KM_TEXT("B"));
        RegisterChangedCallback(&Record, &calls);
    }

    // The IDs of the records; of the user's group; of the recent list.
    std::string State() {
        return Records(GetProfiles()) + "; " + Joined(GetUserGroup().GetProfileIDs()) + "; " + Recent();
    }
    std::string Recent() { return Joined(GetRecentGroup().GetProfileIDs()); }
    bool IsOnDisk(const char* id) const { return exists(folder.SystemPath(Text(id) + KM_TEXT(".pf"))); }

    const CapturedMessages messages;
    const ProfilesFolder folder;
    Strings calls;
};

constexpr const char* kUnchanged = "|Main|Sys|A|B; |Main|A|B; |B|A";

TEST(CatalogueChanges, ReportsAreFollowedAndPassedOn) {
    // clang-format off
    const struct { const char* fault; PROFILE_CHANGED_TYPE type; const char *id, *other, *state; } rows[] = {
        {"saved_profile_not_added",     PROFILE_SAVED,   "New", "", "|Main|Sys|A|B|New; |Main|A|B|New; |B|A"},
        {"saved_again_stands_twice",    PROFILE_SAVED,   "A",    "",  "|Main|Sys|B|A; |Main|A|B; |B|A"},
        {"renamed_keeps_the_old_id",    PROFILE_RENAMED, "New",  "A", "|Main|Sys|B|New; |Main|B|New; |B|New"},
        {"lists_ignore_letter_case",    PROFILE_RENAMED, "New",  "a", "|Main|Sys|B|New; |Main|A|B|New; |B|A"},
        {"recent_profile_read_again",   PROFILE_RECENT_ADDED, "New", "", kUnchanged}};
    // clang-format on
    for (const auto& row : rows) {
        LoadedCatalogue catalogue;
        Strings expectedCalls;
        Record(row.type, Text(row.id).c_str(), Text(row.other).c_str(), &expectedCalls);
        SCOPED_TRACE(row.fault + (", given " + expectedCalls[0]));
        catalogue.ProfileChanged(row.type, Text(row.id).c_str(), Text(row.other).c_str());
        EXPECT_EQ(catalogue.State(), row.state);
        EXPECT_EQ(catalogue.calls, expectedCalls);
    }
}

TEST(CatalogueChanges, DeletingRemovesFileRecordAndGroupEntry) {
    LoadedCatalogue catalogue;
    // The ID is the very entry that goes away.
    EXPECT_TRUE(catalogue.DeleteProfile(catalogue.GetUserGroup().GetProfileIDs()[1]));
    EXPECT_FALSE(catalogue.IsOnDisk("user\\A"));
    EXPECT_EQ(catalogue.State(), "|Main|Sys|B; |Main|B; |B|A");
    EXPECT_EQ(catalogue.calls, Strings{"deleted A (null)"});
    EXPECT_FALSE(catalogue.DeleteProfile(KM_TEXT("A"))) << "deleted twice";
    EXPECT_TRUE(catalogue.DeleteProfile(kmString(KM_TEXT("B\0A"), 3))) << "an ID ends at a null unit";
    EXPECT_EQ(catalogue.State(), "|Main|Sys; |Main; |B|A");
}

TEST(CatalogueChanges, RefusedDeletionChangesNothing) {
    LoadedCatalogue catalogue;
    catalogue.folder.AddProfile("user\\Sys", UserProfile());
    EXPECT_FALSE(catalogue.DeleteProfile(KM_TEXT("Sys"))) << "a system profile";
    EXPECT_FALSE(catalogue.DeleteProfile(KM_TEXT("Main"))) << "a file of the folder itself";
    EXPECT_EQ(catalogue.State(), kUnchanged);
    EXPECT_EQ(catalogue.calls, Strings{});
    for (const char* id : {"../user/A", "..\\user\\A", "./A"}) {
        catalogue.ProfileChanged(PROFILE_SAVED, Text(id).c_str(), nullptr);
        EXPECT_FALSE(catalogue.DeleteProfile(Text(id))) << id << " leads out of the user's folder";
    }
    for (const char* id : {"Sys", "Main", "user\\Sys", "user\\A"}) EXPECT_TRUE(catalogue.IsOnDisk(id)) << id;
}

TEST(CatalogueChanges, AddingReadsTheProfilesFolderAlone) {
    LoadedCatalogue catalogue;
    EXPECT_TRUE(catalogue.AddUserProfile(KM_TEXT("New")));
    EXPECT_EQ(catalogue.State(), kUnchanged) << "read from the user's folder";
    EXPECT_TRUE(catalogue.AddUserProfile(KM_TEXT("Main")));
    EXPECT_EQ(catalogue.State(), "|Main|Sys|A|B|Main; |Main|A|B; |B|A");
    EXPECT_EQ(catalogue.calls, Strings{});
}

TEST(CatalogueChanges, RecentListKeepsTheTenNewestOfEveryExactID) {
    LoadedCatalogue catalogue;
    for (const kmString& id : Pieces("A|a|1|2|3|4|5|6|7|8")) catalogue.AddRecentProfile(id.c_str());
    EXPECT_EQ(catalogue.Recent(), "|8|7|6|5|4|3|2|1|a|B") << "A was there already";
    EXPECT_FALSE(catalogue.AddRecentProfile(nullptr));
}

TEST(CatalogueChanges, CallbacksMayRegisterAndChange) {
    LoadedCatalogue catalogue;
    const auto onChange = [](PROFILE_CHANGED_TYPE type, const kmChar* first, const kmChar*, void* data) {
        LoadedCatalogue& self = *static_cast<LoadedCatalogue*>(data);
        // So many that the list of callbacks moves in memory.
        for (int i = 0; i < 50; ++i) self.RegisterChangedCallback([](auto...) {}, nullptr);
        if (type != PROFILE_SAVED) return;
        self.RegisterChangedCallback(&Record, &self.calls);
        self.AddRecentProfile((kmString(first) + KM_TEXT("+")).c_str());
    };
    catalogue.RegisterChangedCallback(onChange, &catalogue);
    catalogue.ProfileChanged(PROFILE_SAVED, catalogue.GetRecentGroup().GetProfileIDs()[0].c_str(), nullptr);
    EXPECT_EQ(catalogue.State(), "|Main|Sys|A|B; |Main|A|B; |B+|B|A");
    EXPECT_EQ(catalogue.calls, (Strings{"saved B (null)", "recent B+ (null)", "recent B+ (null)"}));
}

}  // namespace
