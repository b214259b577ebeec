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

TEST_F(Saving, ItemsThatDifferInLetterCaseShareAnElement) {
    folder.AddProfile("user\\Items",
                      "<Profiles><Main/><Parameter><ab advPriority='5'/><x advPriority='-1' "
                      "simpleCandidatesValue=',,'/><AB simpleCandidatesValue=''/></Parameter></Profiles>");
    ASSERT_EQ(Load("Items").Save(KM_TEXT("Items"), false), PROFILE_ERROR_NONE);
    EXPECT_EQ(Saved("Items"),
              "Profiles(Main(Name[language=Items] Desc[language=] SName Format ExtName) Parameter("
              "ab[Value=Auto simpleCandidatesValue=] x[advPriority=-1 simpleCandidatesValue=,,]))");
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

TEST_F(Saving, EverySampleReadsBackAndSavesTheSameBytes) {
    std::filesystem::remove_all(folder.SystemPath());
    std::filesystem::copy(KM_SOURCE_DIR "/samples/Profiles", folder.SystemPath(),
                          std::filesystem::copy_options::recursive);
    manager.Load(folder.Path());
    for (const kmProfileInfo& info : std::vector(manager.GetProfiles())) {
        const std::string id = Utf8(info.GetID());
        ASSERT_EQ(Load(id.c_str()).Save(KM_TEXT("w"), true), PROFILE_ERROR_NONE) << id;
        // The same bytes again say that every field that a file keeps was read back.
        const std::string bytes = ReadBytes(folder.SystemPath(KM_TEXT("user\\w.pf")));
        ASSERT_EQ(Load("w").Save(KM_TEXT("w"), false), PROFILE_ERROR_NONE) << id;
        EXPECT_EQ(ReadBytes(folder.SystemPath(KM_TEXT("user\\w.pf"))), bytes) << id;
    }
}

}  // namespace
