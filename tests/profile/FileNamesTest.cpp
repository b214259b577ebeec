// SPDX-License-Identifier: MIT
// IDs as the names of files when profiles are saved and renamed: the own name, null units, paths, dots; and
// what no file can carry.
#include <gtest/gtest.h>

#include "kmProfileFile.h"
#include "kmProfileID.h"
#include "tests/support/SavingFixture.h"

namespace {

using namespace std::literals;

struct FileNames : Saving {};

TEST_F(FileNames, UncataloguedProfileMayGetItsOwnName) {
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

TEST_F(FileNames, IDsEndAtTheirFirstNullUnit) {
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

TEST_F(FileNames, SaveAsNewLeavesEveryFileAlone) {
    folder.WriteBytes(KM_TEXT("user\\Stray.pf"), "not catalogued");
    const auto before = Files();
    // clang-format off
    const struct { const char *fault, *profile, *newID; int expected; } rows[] = {
        {"uncatalogued_file_replaced",   "Mine", "Stray", PROFILE_ERROR_EXIST},
        {"own_file_replaced",            "Mine", "Mine",  PROFILE_ERROR_EXIST},
        {"system_profile_replaced",      "Sys",  "Sys",   PROFILE_ERROR_SYSTEM},
        {"path_taken",                   "Mine", "../x",  PROFILE_ERROR_FILE},
    };
    // clang-format on
    for (const auto& row : rows) {
        kmProfile profile = Load(row.profile);
        EXPECT_EQ(kmSaveAsNew(profile, Text(row.newID)), row.expected) << row.fault;
        EXPECT_EQ(Files(), before) << row.fault;
    }
}

TEST_F(FileNames, PathsStayWithinTheFolder) {
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

TEST_F(FileNames, ADotInFrontIsKeptButNotGiven) {
    folder.AddProfile("user\\.dot", UserProfile());
    EXPECT_EQ(Load(".dot").Save(KM_TEXT(".dot"), false), PROFILE_ERROR_NONE);
    EXPECT_EQ(Saved(".dot").substr(0, 42), "Profiles(Main(Name[language=.dot] Desc[lan");
    EXPECT_EQ(Load("Mine").Save(KM_TEXT(".new"), false), PROFILE_ERROR_FILE);
    EXPECT_EQ(Load("Mine").ReName(KM_TEXT(".new")), PROFILE_ERROR_FILE);
}

TEST_F(FileNames, WhatDoesNotReadBackIsNotWritten) {
    // clang-format off
    constexpr std::pair<const char*, const char*> rows[] = {
        {"quote_in_attribute_name",      "<x \"y=1 z='2'/>"},
        {"slash_ends_name_with_content", "<x a/ >t</x>"},
        {"name_opens_a_raw_section",     "<PRE ><PRE >t</PRE></PRE>"},
        {"declaration_ends_in_a_mark",   "<?b?>"},
    };
    // clang-format on
    for (const auto& [fault, parameters] : rows) {
        SCOPED_TRACE(testing::Message() << fault << ", given " << parameters);
        folder.AddProfile("user\\Odd", UserProfile("<Parameter>"s + parameters + "</Parameter>"));
        const auto before = Files();
        EXPECT_EQ(Load("Odd").ReName(KM_TEXT("Renamed")), PROFILE_ERROR_FILE);
        EXPECT_EQ(Files(), before);
    }
}

TEST_F(FileNames, AFileThatIsNoProfileMovesAndOneThatCannotBeOpenedStays) {
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
