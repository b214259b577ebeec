#include <gtest/gtest.h>

#include "kmManager.h"
#include "tests/support/Messages.h"
#include "tests/support/TemporaryFolder.h"

namespace {

void Record(PROFILE_CHANGED_TYPE type, const kmChar* first, const kmChar* second, void* calls) {
    *static_cast<std::string*>(calls) += std::to_string(type) + " " + Utf8(first) + " " + Utf8(second) + ";";
}

// Holds the user profiles Main (in the folder itself), A and B and the system profile S, with B and A in the
// recent list; New has come to the disk since.
struct TestManager : kmManager {
    // clang-format off
    TestManager() {
        for (const kmChar* name : {KM_TEXT("Main.pf"), KM_TEXT("user\\A.pf"), KM_TEXT("user\\B.pf")}) folder.WriteBytes(name, "<Profiles><Main/></Profiles>");
        folder.WriteBytes(KM_TEXT("S.pf"), "<Profiles><Main><IsSysProfile>yes</IsSysProfile></Main></Profiles>");
        Load(folder.Path());
        folder.WriteBytes(KM_TEXT("user\\New.pf"), "<Profiles><Main/></Profiles>");
        for (const kmChar* id : {KM_TEXT("A"), KM_TEXT("B")}) AddRecentProfile(id);
        RegisterChangedCallback(&Record, &calls);
    }
    // clang-format on

    // Records | user's group | recent list | calls.
    std::string State() {
        std::string text;
        for (const kmProfileInfo& info : GetProfiles()) text += Utf8(info.GetID()) + " ";
        for (const kmGroup* group : {&GetUserGroup(), &GetRecentGroup()}) {
            text += "| ";
            for (const kmString& id : group->GetProfileIDs()) text += Utf8(id) + " ";
        }
        return text + "| " + calls;
    }

    TemporaryFolder folder;
    CapturedMessages messages;
    std::string calls;
};

TEST(Changes, UpdateAndTell) {
    // clang-format off
    const struct { const char* fault; bool (*change)(TestManager&); const char* state; } rows[] = {
        {"new_profile_not_added", [](TestManager& m) { m.ProfileChanged(PROFILE_SAVED, KM_TEXT("New"), nullptr); return true; }, "Main S A B New | Main A B New | B A | 0 New (null);"},
        {"saved_profile_twice", [](TestManager& m) { m.ProfileChanged(PROFILE_SAVED, KM_TEXT("A"), nullptr); return true; }, "Main S B A | Main A B | B A | 0 A (null);"},
        {"folder_itself_read_again", [](TestManager& m) { m.ProfileChanged(PROFILE_SAVED, KM_TEXT("Main"), KM_TEXT("x")); return true; }, "S A B | Main A B | B A | 0 Main x;"},
        {"deleted_type_drops_the_record", [](TestManager& m) { m.ProfileChanged(PROFILE_DELETED, KM_TEXT("A"), nullptr); return true; }, "Main S A B A | Main A B | B A | 1 A (null);"},
        {"old_id_stays", [](TestManager& m) { m.ProfileChanged(PROFILE_RENAMED, KM_TEXT("New"), KM_TEXT("A")); return true; }, "Main S B New | Main B New | B New | 2 New A;"},
        {"old_id_in_other_case_leaves_lists", [](TestManager& m) { m.ProfileChanged(PROFILE_RENAMED, KM_TEXT("New"), KM_TEXT("a")); return true; }, "Main S B New | Main A B New | B A | 2 New a;"},
        {"recent_list_made_unique", [](TestManager& m) { m.ProfileChanged(PROFILE_RENAMED, KM_TEXT("B"), KM_TEXT("A")); return true; }, "Main S B B | Main B | B B | 2 B A;"},
        {"recent_type_reads", [](TestManager& m) { m.ProfileChanged(PROFILE_RECENT_ADDED, KM_TEXT("New"), nullptr); return true; }, "Main S A B | Main A B | B A | 3 New (null);"},
        {"user_profile_not_deleted", [](TestManager& m) { return m.DeleteProfile(m.GetUserGroup().GetProfileIDs()[1]) && !m.DeleteProfile(KM_TEXT("A")); }, "Main S B | Main B | B A | 1 A (null);"},
        {"wrong_profile_deleted", [](TestManager& m) { return !m.DeleteProfile(KM_TEXT("S")) && !m.DeleteProfile(KM_TEXT("New")) && !m.DeleteProfile(KM_TEXT("Main")); }, "Main S A B | Main A B | B A | "},
        {"user_folder_read_for_an_addition", [](TestManager& m) { return m.AddUserProfile(KM_TEXT("New")) && m.AddUserProfile(KM_TEXT("Main")); }, "Main S A B Main | Main A B | B A | "},
        {"nothing_taken_for_an_id", [](TestManager& m) { return !m.AddUserProfile(KM_TEXT("")) && !m.AddUserProfile(nullptr) && !m.AddRecentProfile(KM_TEXT("")) && !m.AddRecentProfile(nullptr); }, "Main S A B | Main A B | B A | "},
        {"recent_id_moved_or_told", [](TestManager& m) { return m.AddRecentProfile(KM_TEXT("A")) && m.AddRecentProfile(KM_TEXT("a")); }, "Main S A B | Main A B | a B A | 3 a (null);"},
        {"more_than_ten_recent", [](TestManager& m) { for (kmString id = KM_TEXT("0"); id[0] < KM_TEXT('9'); ++id[0]) m.AddRecentProfile(id.c_str()); m.calls.clear(); return true; }, "Main S A B | Main A B | 8 7 6 5 4 3 2 1 0 B | "}};
    // clang-format on
    for (const auto& row : rows) {
        TestManager manager;
        EXPECT_TRUE(row.change(manager)) << row.fault;
        EXPECT_EQ(manager.State(), row.state) << row.fault;
    }
}

TEST(Changes, CallbacksMayRegisterAndChange) {
    TestManager manager;
    const auto nested = [](PROFILE_CHANGED_TYPE type, const kmChar* first, const kmChar*, void* data) {
        TestManager& self = *static_cast<TestManager*>(data);
        for (int i = 0; i < 50; ++i) self.RegisterChangedCallback([](auto...) {}, nullptr);
        if (type == PROFILE_SAVED) self.RegisterChangedCallback(&Record, &self.calls);
        if (type == PROFILE_SAVED) self.AddRecentProfile((kmString(first) + KM_TEXT("+")).c_str());
    };
    manager.RegisterChangedCallback(nested, &manager);
    manager.ProfileChanged(PROFILE_SAVED, manager.GetRecentGroup().GetProfileIDs()[0].c_str(), nullptr);
    EXPECT_EQ(manager.State(), "Main S A B | Main A B | B+ B A | 0 B (null);3 B+ (null);3 B+ (null);");
}

TEST(Changes, HarmlessBeforeTheFirstLoad) {
    struct : kmManager {
    } manager;
    std::string calls;
    manager.RegisterChangedCallback(&Record, &calls);
    for (const auto type : {PROFILE_SAVED, PROFILE_DELETED, PROFILE_RENAMED}) {
        manager.ProfileChanged(type, KM_TEXT("A"), KM_TEXT("B"));
    }
    EXPECT_EQ(calls, "0 A B;1 A B;2 A B;");
    EXPECT_TRUE(manager.AddUserProfile(KM_TEXT("A")) && !manager.DeleteProfile(KM_TEXT("A")));
}

}  // namespace
