// SPDX-License-Identifier: MIT
// Saving and renaming: what is refused, and IDs as the names of files: the own name, null units, paths, dots.
#include <gtest/gtest.h>

#include "kmProfileFile.h"
#include "kmProfileID.h"
#include "tests/support/SavingFixture.h"

namespace {

using namespace std::literals;

enum Operation { kSave, kOverwrite, kSaveAsNew, kRename };

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
        {"file_without_a_record_replaced",    "Mine", kRename,    "stray", PROFILE_ERROR_FILE},
        {"uncatalogued_file_replaced",        "Mine", kSaveAsNew, "Stray", PROFILE_ERROR_EXIST},
        {"own_file_replaced",                 "Mine", kSaveAsNew, "Mine",  PROFILE_ERROR_EXIST},
        {"path_taken",                        "Mine", kSaveAsNew, "../x",  PROFILE_ERROR_FILE}};
    // clang-format on
    const std::string catalogue = Catalogue();
    const auto files = Files();
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.fault << ", given " << row.profile << " to " << row.newID);
        kmProfile profile = Load(row.profile);
        const kmString newID = Text(row.newID);
        EXPECT_EQ(row.act == kRename      ? profile.ReName(newID)
                  : row.act == kSaveAsNew ? kmSaveAsNew(profile, newID)
                                          : profile.Save(newID, row.act == kOverwrite),
                  row.expected);
        EXPECT_EQ(Utf8(profile.GetID()), row.profile);
        EXPECT_EQ(Catalogue(), catalogue);
        EXPECT_EQ(Files(), files);
    }
}

TEST_F(Saving, ProfileThatWasNeverLoadedHasNoFile) {
    EXPECT_EQ(kmProfile().Save(KM_TEXT("New"), true), PROFILE_ERROR_FILE);
    EXPECT_EQ(kmProfile().ReName(KM_TEXT("New")), PROFILE_ERROR_FILE);
    EXPECT_EQ(kmProfile().ReName(KM_TEXT("Mine")), PROFILE_ERROR_EXIST) << "the ID is looked at first";
}

TEST_F(Saving, OverwrittenFileGetsTheNewSpelling) {
    ASSERT_EQ(Load("Mine").Save(KM_TEXT("OTHER"), true), PROFILE_ERROR_NONE);
    EXPECT_EQ(Catalogue(), "|Sys|Mine|OTHER");
    EXPECT_EQ(Saved("Other"), Saved("OTHER")) << "two files";
#if !defined(_WIN32)  // where the system decides which spelling a replaced file has, which is harmless
    EXPECT_EQ(Files().count("OTHER.pf"), 1u);
    EXPECT_EQ(Files().count("Other.pf"), 0u);
#endif
}

TEST_F(Saving, UncataloguedProfileMayGetItsOwnName) {
    const ProfilesFolder other;  // that the catalogue has not loaded
    for (const char* id : {"Mine", "MINE"}) {
        SCOPED_TRACE(id);
        other.AddProfile("Mine", "<Profiles><Main><Name language='Own'/></Main></Profiles>");
        kmProfile profile;
        profile.SetID(KM_TEXT("Mine"));
        ASSERT_TRUE(profile.Load(other.Path()));
        manager.Load({});
        EXPECT_EQ(profile.ReName(Text(id)), PROFILE_ERROR_NONE);
        EXPECT_EQ(Utf8(profile.GetID()), id);
        EXPECT_EQ(other.State().size(), 1u) << "both spellings";
        const std::filesystem::path file = other.SystemPath(Text(id) + KM_TEXT(".pf"));
        EXPECT_NE(ReadText(file).find("language=\""s + id + '"'), std::string::npos) << ReadText(file);
        std::filesystem::remove(file);
    }
}

const kmString kCut(KM_TEXT("New\0junk"), 8);

TEST_F(Saving, IDsEndAtTheirFirstNullUnit) {
    EXPECT_EQ(Load("Mine").Save(kCut, false), PROFILE_ERROR_NONE);
    EXPECT_EQ(Files().count("New.pf"), 1u);
    kmProfile profile = Load("Other");
    EXPECT_EQ(profile.ReName(kCut), PROFILE_ERROR_EXIST);
    EXPECT_EQ(profile.ReName(kmString(KM_TEXT("Renamed\0x"), 9)), PROFILE_ERROR_NONE);
    EXPECT_EQ(Utf8(profile.GetID()), "Renamed");
    profile.SetID(kmString(KM_TEXT("Renamed\0x"), 9));
    EXPECT_TRUE(profile.Load(folder.Path() + kmString(KM_TEXT("\0x"), 2)));
    EXPECT_EQ(profile.Save(KM_TEXT("Renamed"), false), PROFILE_ERROR_NONE) << "its own ID";
}

TEST_F(Saving, PathsStayWithinTheFolder) {
    const std::string good = UserProfile();
    folder.WriteBytes(KM_TEXT("user\\sub\\x.pf"), good);
    for (const char* id :
         {"user/sub/x", "user\\sub\\x", "./user/Mine", ".\\user\\Mine", "user/../user/Mine"}) {
        SCOPED_TRACE(id);
        kmProfile profile = Load(id);
        EXPECT_EQ(profile.ReName(KM_TEXT("moved")), PROFILE_ERROR_FILE);
        EXPECT_EQ(profile.Save(Text(id), true), PROFILE_ERROR_FILE);
        EXPECT_EQ(ReadBytes(folder.SystemPath(KM_TEXT("user\\sub\\x.pf"))), good);
        EXPECT_EQ(Files().count("Mine.pf"), 1u);
    }
}

TEST_F(Saving, ADotInFrontIsKeptButNotGiven) {
    folder.AddProfile("user\\.dot", UserProfile());
    EXPECT_EQ(Load(".dot").Save(KM_TEXT(".dot"), false), PROFILE_ERROR_NONE);
    EXPECT_EQ(Saved(".dot").substr(0, 42), "Profiles(Main(Name[language=.dot] Desc[lan");
    EXPECT_EQ(Load("Mine").Save(KM_TEXT(".new"), false), PROFILE_ERROR_FILE);
    EXPECT_EQ(Load("Mine").ReName(KM_TEXT(".new")), PROFILE_ERROR_FILE);
}

TEST_F(Saving, AFileThatIsNoProfileMovesAndOneThatCannotBeOpenedStays) {
    kmProfile profile = Load("Mine");
    folder.WriteBytes(KM_TEXT("user\\Mine.pf"), "<broken");
    EXPECT_EQ(profile.ReName(KM_TEXT("Moved")), PROFILE_ERROR_FILE);
    EXPECT_EQ(Files()["Moved.pf"], "<broken");
    EXPECT_EQ(Utf8(profile.GetID()), "Mine");
    EXPECT_EQ(messages.All().back().path, Utf8(folder.Path(KM_TEXT("user\\Moved.pf"))));
    const std::size_t told = messages.All().size();
    EXPECT_EQ(profile.ReName(KM_TEXT("Again")), PROFILE_ERROR_FILE) << "there is no file any more";
    EXPECT_EQ(messages.All().size(), told);
}

TEST(ProfileID, FaultsAreToldApart) {
    // clang-format off
    const struct { const char* fault; kmString id; PROFILE_ID_FAULT expected; } rows[] = {
        {"good_id_refused",          KM_TEXT("a.b c"),                     PROFILE_ID_FAULT_NONE},
        {"dot_taken",                KM_TEXT(".a"),                        PROFILE_ID_FAULT_LEADING_DOT},
        {"separator_taken",          KM_TEXT("a/b"),                       PROFILE_ID_FAULT_CHARACTER},
        {"device_taken",             KM_TEXT("Com1.x"),                    PROFILE_ID_FAULT_DEVICE},
        {"space_ends_no_device",     KM_TEXT("aux .y"),                    PROFILE_ID_FAULT_DEVICE},
        {"raised_digit_taken",       KM_TEXT("COM\u00B9"),                 PROFILE_ID_FAULT_DEVICE},
        {"nearly_a_device_refused",  KM_TEXT("com0"),                      PROFILE_ID_FAULT_NONE},
        {"half_a_character_taken",   kmString(1, 0xD800),                  PROFILE_ID_FAULT_ENCODING},
    };
    // clang-format on
    for (const auto& row : rows) EXPECT_EQ(kmFindIDFault(row.id), row.expected) << row.fault;
}

}  // namespace
