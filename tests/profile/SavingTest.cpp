// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "kmIconParser.h"
#include "tests/support/SavingFixture.h"

namespace {

enum Operation { kSave, kOverwrite, kRename };

TEST_F(Saving, RefusalsTouchNothing) {
    folder.AddProfile("user\\Stray", "not catalogued");
    // clang-format off
    const struct { const char *fault, *profile; Operation act; const char* newID; int expected; } rows[] = {
        {"system_profile_overwritten",        "Sys",  kOverwrite, "Sys",   PROFILE_ERROR_SYSTEM},
        {"name_of_a_system_profile_taken",    "Mine", kOverwrite, "shown", PROFILE_ERROR_SYSTEM},
        {"id_of_a_system_profile_taken",      "Mine", kOverwrite, "SYS",   PROFILE_ERROR_SYSTEM},
        {"own_id_in_other_case_overwritten",  "Mine", kSave,      "MINE",  PROFILE_ERROR_EXIST},
        {"renamed_to_a_system_profile",       "Mine", kRename,    "Shown", PROFILE_ERROR_SYSTEM},
        {"renamed_to_itself",                 "Mine", kRename,    "mINE",  PROFILE_ERROR_EXIST},
        {"file_without_a_record_replaced",    "Mine", kRename,    "stray", PROFILE_ERROR_FILE}};
    // clang-format on
    const std::string catalogue = Catalogue();
    const auto files = Files();
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.fault << ", given " << row.profile << " to " << row.newID);
        kmProfile profile = Load(row.profile);
        EXPECT_EQ(row.act == kRename ? profile.ReName(Text(row.newID))
                                     : profile.Save(Text(row.newID), row.act == kOverwrite),
                  row.expected);
        EXPECT_EQ(Utf8(profile.GetID()), row.profile);
        EXPECT_EQ(Catalogue(), catalogue);
        EXPECT_EQ(Files(), files);
    }
}

TEST_F(Saving, FolderInTheFilesPlaceIsAFileError) {
    folder.MakeFolder(KM_TEXT("user\\Folder.pf"));
    EXPECT_EQ(Load("Sys").Save(KM_TEXT("Folder"), true), PROFILE_ERROR_FILE);
}

TEST_F(Saving, ProfileThatWasNeverLoadedHasNoFile) {
    EXPECT_EQ(kmProfile().Save(KM_TEXT("New"), true), PROFILE_ERROR_FILE);
    EXPECT_EQ(kmProfile().ReName(KM_TEXT("New")), PROFILE_ERROR_FILE);
    EXPECT_EQ(kmProfile().ReName(KM_TEXT("Mine")), PROFILE_ERROR_EXIST) << "the ID is looked at first";
}

TEST_F(Saving, CopyOfASystemProfileIsTheUsers) {
    std::filesystem::remove_all(folder.SystemPath(KM_TEXT("user")));
    kmProfile profile = Load("Sys");
    ASSERT_EQ(profile.Save(KM_TEXT("com0"), false), PROFILE_ERROR_NONE) << "nearly a device";
    EXPECT_EQ(Saved("com0"),
              "Profiles(Main(Name[language=com0] Desc[language=d] SName Format ExtName) Parameter)");
    EXPECT_EQ(Utf8(profile.GetID()), "Sys");
    EXPECT_TRUE(profile.IsSystem());
    ASSERT_NE(manager.GetProfileInfo(KM_TEXT("COM0")), nullptr);
    EXPECT_FALSE(manager.GetProfileInfo(KM_TEXT("COM0"))->IsSystem());
}

TEST_F(Saving, RenamingTellsCatalogueAndIcons) {
    kmProfile profile = Load("Mine");
    ASSERT_EQ(profile.ReName(KM_TEXT("Renamed")), PROFILE_ERROR_NONE);
    EXPECT_EQ(Utf8(profile.GetID()), "Renamed");
    EXPECT_EQ(Catalogue(), "|Sys|Other|Renamed");
    EXPECT_EQ(Files().count("Mine.pf"), 0u);
    EXPECT_EQ(Saved("Renamed"), "Profiles[x=1](Main(Name[language=Renamed]) Extra)");
    EXPECT_EQ(kmIconParser::GetInstance().GetIconIndex(KM_TEXT("Renamed"), false), 3);
}

TEST_F(Saving, OverwrittenFileGetsTheNewSpelling) {
    ASSERT_EQ(Load("Mine").Save(KM_TEXT("OTHER"), true), PROFILE_ERROR_NONE);
    EXPECT_EQ(Catalogue(), "|Sys|Mine|OTHER");
    EXPECT_EQ(Saved("Other"), Saved("OTHER")) << "two files";
#if !defined( \
    _WIN32)  // there the system decides whether a replaced file keeps its spelling, which is harmless
    EXPECT_EQ(Files().count("OTHER.pf"), 1u);
    EXPECT_EQ(Files().count("Other.pf"), 0u);
#endif
}

}  // namespace
