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
        for (const kmChar* name : {KM_TEXT("Main.pf"), KM_TEXT("user\\A.pf"), KM_TEXT("user\\B.pf")})
            folder.WriteBytes(name, "<Profiles><Main/></Profiles>");
        folder.WriteBytes(KM_TEXT("S.pf"),
                          "<Profiles><Main><IsSysProfile>yes</IsSysProfile></Main></Profiles>");
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

// The IDs stand between bars. Of the operations on each of them, D deletes, U adds to the user's, R to the
// recent ones, and a number tells of that change; the state begins with what they return.
TEST(Changes, UpdateAndTell) {
    // clang-format off
    const struct { char operation; const char *ids, *other, *state; } rows[] = {
        {'0', "New", "", "Main S A B New | Main A B New | B A | 0 New ;"},
        {'0', "A", "", "Main S B A | Main A B | B A | 0 A ;"},
        {'0', "Main", "x", "S A B | Main A B | B A | 0 Main x;"},
        {'1', "A", "", "Main S A B A | Main A B | B A | 1 A ;"},
        {'2', "New", "A", "Main S B New | Main B New | B New | 2 New A;"},
        {'2', "New", "a", "Main S B New | Main A B New | B A | 2 New a;"},
        {'2', "B", "A", "Main S B B | Main B | B B | 2 B A;"},
        {'3', "New", "", "Main S A B | Main A B | B A | 3 New ;"},
        {'D', "A|A", "", "10Main S B | Main B | B A | 1 A (null);"},
        {'D', "S|New|Main", "", "000Main S A B | Main A B | B A | "},
        {'U', "New|Main", "", "11Main S A B Main | Main A B | B A | "},
        {'R', "A|a", "", "11Main S A B | Main A B | a B A | 3 a (null);"}};
    // clang-format on
    for (const auto& [operation, ids, other, state] : rows) {
        TestManager manager;
        std::string results;
        for (const kmString& id : Pieces(ids)) {
            if (operation == 'D') results += manager.DeleteProfile(id.c_str()) ? "1" : "0";
            if (operation == 'U') results += manager.AddUserProfile(id.c_str()) ? "1" : "0";
            if (operation == 'R') results += manager.AddRecentProfile(id.c_str()) ? "1" : "0";
            if (operation <= '9')
                manager.ProfileChanged(static_cast<PROFILE_CHANGED_TYPE>(operation - '0'), id.c_str(),
                                       TextFromBytes(other).c_str());
        }
        EXPECT_EQ(results + manager.State(), state) << operation << ids;
    }
    TestManager manager;
    for (const kmChar* none : {KM_TEXT(""), static_cast<const kmChar*>(nullptr)})
        EXPECT_FALSE(manager.AddUserProfile(none) || manager.AddRecentProfile(none));
    for (const kmString& id : Pieces("0|1|2|3|4|5|6|7|8")) manager.AddRecentProfile(id.c_str());
    manager.calls.clear();
    EXPECT_TRUE(manager.DeleteProfile(manager.GetUserGroup().GetProfileIDs()[1]));
    EXPECT_EQ(manager.State(), "Main S B | Main B | 8 7 6 5 4 3 2 1 0 B | 1 A (null);");
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

}  // namespace
