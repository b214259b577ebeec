#include <gtest/gtest.h>

#include "kmIconParser.h"
#include "kmManager.h"
#include "kmProfile.h"
#include "tests/support/Messages.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TreeDump.h"

namespace {

// The system profile Sys, shown as "Shown", and the user profiles Mine, with an icon, and Other.
struct SavingTest : testing::Test {
    // clang-format off
    SavingTest() {
        folder.WriteBytes(KM_TEXT("pficon.con"),
                          "<items><profiles><i id='Mine' image='m' index='3'/></profiles></items>");
        folder.WriteBytes(KM_TEXT("Sys.pf"), "<Profiles><Main><Name language='^Shown'/><Desc language='d'/>"
                          "<IsSysProfile>yes</IsSysProfile></Main></Profiles>");
        folder.WriteBytes(KM_TEXT("user\\Mine.pf"),
                          "<Profiles x='1'><!--c--><Main><Name language='Own'/></Main><Extra/></Profiles>");
        folder.WriteBytes(KM_TEXT("user\\Other.pf"), "<Profiles><Main/></Profiles>");
        manager.Load(folder.Path());
    }
    // clang-format on
    kmProfile Load(const kmString& id) const {
        kmProfile profile;
        profile.SetID(id);
        EXPECT_TRUE(profile.Load(folder.Path())) << Utf8(id);
        return profile;
    }
    // The catalogue's IDs, then every file of the user with its bytes.
    std::string State() const {
        std::vector<std::string> files;
        for (const auto& entry : std::filesystem::directory_iterator(folder.SystemPath(KM_TEXT("user"))))
            files.push_back("\n" + entry.path().filename().string() + ":" + ReadBytes(entry.path()));
        std::sort(files.begin(), files.end());
        std::string text;
        for (const kmProfileInfo& info : manager.GetProfiles()) text += Utf8(info.GetID()) + " ";
        for (const std::string& file : files) text += file;
        return text;
    }

    TemporaryFolder folder;
    CapturedMessages messages;
    kmManager& manager = kmManager::GetInstance();
};

TEST_F(SavingTest, RefusalsTouchNothing) {
    folder.WriteBytes(KM_TEXT("user\\Stray.pf"), "not catalogued");
    // clang-format off
    enum Operation { kSave, kOverwrite, kRename };
    struct Row { const char *profile; Operation operation; const char* newID; int expected; };
    std::vector<Row> rows = {
        {"Sys", kOverwrite, "Sys", 1}, {"Mine", kOverwrite, "shown", 1}, {"Mine", kOverwrite, "SYS", 1},
        {"Mine", kSave, "Other", 2}, {"Mine", kSave, "MINE", 2}, {"Sys", kSave, "mine", 2},
        {"Sys", kRename, "New", 1}, {"Mine", kRename, "Shown", 1}, {"Mine", kRename, "mINE", 2},
        {"Mine", kRename, "stray", 3}};
    // clang-format on
    for (const char* id : {"", "..", "..\\x", "../x", "C:x", "a*", "a?", "a\"b", "a<", "a>", "a|b", "a\tb",
                           "con", "NUL.x", "aux .y", "com1", "LPT9", "COM\u00B9", "conin$"}) {
        rows.push_back({"Sys", kOverwrite, id, 3});
        rows.push_back({"Mine", kRename, id, 3});
    }
    const std::string before = State();
    for (const Row& row : rows) {
        SCOPED_TRACE(std::string(row.profile) + " " + row.newID);
        const kmString newID = Text(row.newID);
        kmProfile profile = Load(TextFromBytes(row.profile));
        EXPECT_EQ(row.operation == kRename ? profile.ReName(newID)
                                           : profile.Save(newID, row.operation == kOverwrite),
                  row.expected);
        EXPECT_EQ(Utf8(profile.GetID()) + State(), row.profile + before);
    }
    folder.MakeFolder(KM_TEXT("user\\Folder.pf"));
    EXPECT_EQ(Load(KM_TEXT("Sys")).Save(KM_TEXT("Folder"), true), 3) << "what cannot be written";
    EXPECT_TRUE(kmProfile().Save(KM_TEXT("New"), true) == 3 && kmProfile().ReName(KM_TEXT("New")) == 3);
    EXPECT_EQ(kmProfile().ReName(KM_TEXT("Mine")), 2) << "comes before that it was never loaded";
}

TEST_F(SavingTest, CopyOfASystemProfileIsTheUsers) {
    std::filesystem::remove_all(folder.SystemPath(KM_TEXT("user")));
    kmProfile profile = Load(KM_TEXT("Sys"));
    for (const kmString& id : Pieces("ab|r|AB")) {
        kmProfileItem& item = profile.GetProfileItems().emplace_back();
        item.SetID(id);
        item.SetAdvPriority(static_cast<int>(profile.GetProfileItems().size()) - 3);
        item.GetSimpleCandidatesValue().resize(profile.GetProfileItems().size() == 2 ? 3 : 1);
    }
    ASSERT_EQ(profile.Save(KM_TEXT("com0"), false), PROFILE_ERROR_NONE) << "nearly a device";
    EXPECT_EQ(Dump(XMLNode::OpenDocument(folder.Path(KM_TEXT("user\\com0.pf")).c_str(), KM_TEXT("Profiles"))),
              "Profiles(Main(Name[language=com0] Desc[language=d] SName Format ExtName) Parameter("
              "ab[simpleCandidatesValue=] r[advPriority=-1 simpleCandidatesValue=,,]))");
    EXPECT_TRUE(profile.GetID() == KM_TEXT("Sys") && profile.IsSystem()) << "the object changed";
    EXPECT_FALSE(manager.GetProfileInfo(KM_TEXT("COM0"))->IsSystem());
}

TEST_F(SavingTest, NamesFollowTheLastSaveOrRename) {
    kmProfile profile = Load(KM_TEXT("Mine"));
    ASSERT_EQ(profile.ReName(KM_TEXT("Renamed")), PROFILE_ERROR_NONE);
    EXPECT_TRUE(State().starts_with("Sys Other Renamed \nOther.pf") && profile.GetID() == KM_TEXT("Renamed"));
    EXPECT_EQ(kmIconParser::GetInstance().GetIconIndex(KM_TEXT("Renamed"), false), 3);
    ASSERT_EQ(profile.Save(KM_TEXT("OTHER"), true), PROFILE_ERROR_NONE);
    EXPECT_TRUE(State().starts_with("Sys Renamed OTHER \nOTHER.pf")) << "two files, or the old spelling";
}

TEST_F(SavingTest, EverySampleReadsBackAndSavesTheSameBytes) {
    std::filesystem::remove_all(folder.SystemPath());
    std::filesystem::copy(KM_SOURCE_DIR "/samples/Profiles", folder.SystemPath(),
                          std::filesystem::copy_options::recursive);
    manager.Load(folder.Path());
    for (const kmProfileInfo& info : std::vector(manager.GetProfiles())) {
        kmProfile profile = Load(info.GetID());
        ASSERT_EQ(profile.Save(KM_TEXT("w"), true), PROFILE_ERROR_NONE) << Utf8(info.GetID());
        // The same bytes again say that every field that a file keeps was read back.
        const std::string state = State();
        ASSERT_EQ(Load(KM_TEXT("w")).Save(KM_TEXT("w"), false), PROFILE_ERROR_NONE) << Utf8(info.GetID());
        EXPECT_EQ(State(), state) << Utf8(info.GetID());
    }
}

}  // namespace
