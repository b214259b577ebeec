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
        folder.WriteBytes(KM_TEXT("pficon.con"), "<items><profiles><i id='Mine' image='m' index='3'/></profiles></items>");
        folder.WriteBytes(KM_TEXT("Sys.pf"), "<Profiles><Main><Name language='^Shown'/><Desc language='d'/><IsSysProfile>yes</IsSysProfile></Main></Profiles>");
        folder.WriteBytes(KM_TEXT("user\\Mine.pf"), "<Profiles x='1'><!--c--><Main><Name language='Own'/></Main><Extra/></Profiles>");
        folder.WriteBytes(KM_TEXT("user\\Other.pf"), "<Profiles><Main/></Profiles>");
        manager.Load(folder.Path());
    }
    // clang-format on
    kmProfile Load(const kmChar* id) const {
        kmProfile profile;
        profile.SetID(id);
        EXPECT_TRUE(profile.Load(folder.Path())) << Utf8(id);
        return profile;
    }
    // The catalogue's IDs, then every file of the user with its bytes.
    std::string State() const {
        std::vector<std::string> files;
        for (const auto& entry : std::filesystem::directory_iterator(folder.SystemPath(KM_TEXT("user")))) {
            std::ifstream file(entry.path(), std::ios::binary);
            files.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
            files.back().insert(0, "\n" + entry.path().filename().string() + ":");
        }
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
    struct Row { const char* fault; const kmChar* profile; Operation operation; const kmChar* newID; int expected; };
    std::vector<Row> rows = {
        {"system_profile_written", KM_TEXT("Sys"), kOverwrite, KM_TEXT("Sys"), 1},
        {"display_name_free", KM_TEXT("Mine"), kOverwrite, KM_TEXT("shown"), 1},
        {"system_profile_replaced", KM_TEXT("Mine"), kOverwrite, KM_TEXT("SYS"), 1},
        {"overwritten_unasked", KM_TEXT("Mine"), kSave, KM_TEXT("Other"), 2},
        {"own_id_in_other_case_overwritten_unasked", KM_TEXT("Mine"), kSave, KM_TEXT("MINE"), 2},
        {"overwritten_unasked_by_a_system_profile", KM_TEXT("Sys"), kSave, KM_TEXT("mine"), 2},
        {"system_profile_renamed", KM_TEXT("Sys"), kRename, KM_TEXT("New"), 1},
        {"renamed_to_a_display_name", KM_TEXT("Mine"), kRename, KM_TEXT("Shown"), 1},
        {"renamed_to_itself", KM_TEXT("Mine"), kRename, KM_TEXT("mINE"), 2},
        {"rename_replaces_a_file", KM_TEXT("Mine"), kRename, KM_TEXT("stray"), 3}};
    for (const kmChar* id : {KM_TEXT(""), KM_TEXT(".."), KM_TEXT("..\\x"), KM_TEXT("../x"), KM_TEXT("C:x"), KM_TEXT("a*"), KM_TEXT("a?"), KM_TEXT("a\"b"), KM_TEXT("a<"), KM_TEXT("a>"), KM_TEXT("a|b"), KM_TEXT("a\tb"),
                             KM_TEXT("con"), KM_TEXT("NUL.x"), KM_TEXT("aux .y"), KM_TEXT("com1"), KM_TEXT("LPT9"), KM_TEXT("COM\u00B9"), KM_TEXT("conin$")}) {
        rows.push_back({"unusable_id_saved", KM_TEXT("Sys"), kOverwrite, id, 3});
        rows.push_back({"unusable_id_given", KM_TEXT("Mine"), kRename, id, 3});
    }
    // clang-format on
    const std::string before = State();
    for (const auto& [fault, id, operation, newID, expected] : rows) {
        kmProfile profile = Load(id);
        EXPECT_EQ(operation == kRename ? profile.ReName(newID) : profile.Save(newID, operation == kOverwrite),
                  expected)
            << fault << " " << Utf8(newID);
        EXPECT_EQ(Utf8(profile.GetID()) + State(), Utf8(id) + before) << fault << " " << Utf8(newID);
    }
    EXPECT_TRUE(kmProfile().Save(KM_TEXT("New"), true) == 3 && kmProfile().ReName(KM_TEXT("New")) == 3);
    EXPECT_EQ(kmProfile().ReName(KM_TEXT("Mine")), 2) << "comes before that it was never loaded";
}

TEST_F(SavingTest, CopyOfASystemProfileIsTheUsers) {
    std::filesystem::remove_all(folder.SystemPath(KM_TEXT("user")));
    kmProfile profile = Load(KM_TEXT("Sys"));
    for (const kmChar* id : {KM_TEXT("ab"), KM_TEXT("r"), KM_TEXT("AB")}) {
        kmProfileItem item;
        item.SetID(id);
        item.SetAdvPriority(static_cast<int>(profile.GetProfileItems().size()) - 2);
        item.GetSimpleCandidatesValue().resize(profile.GetProfileItems().size() == 1 ? 3 : 1);
        profile.GetProfileItems().push_back(item);
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
    const std::string state = State();
    EXPECT_TRUE(state.starts_with("Sys Other Renamed \nOther.pf") && profile.GetID() == KM_TEXT("Renamed"));
    EXPECT_NE(state.find(Utf16Bytes(KM_TEXT("language=\"Renamed\"/>\n\t</Main>\n\t<Extra/>"))), state.npos);
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
        kmProfile profile = Load(info.GetID().c_str());
        ASSERT_EQ(profile.Save(KM_TEXT("w"), true), PROFILE_ERROR_NONE) << Utf8(info.GetID());
        // The same bytes again say that every field that a file keeps was read back.
        const std::string state = State();
        ASSERT_EQ(Load(KM_TEXT("w")).Save(KM_TEXT("w"), false), PROFILE_ERROR_NONE) << Utf8(info.GetID());
        EXPECT_EQ(State(), state) << Utf8(info.GetID());
    }
}

}  // namespace
