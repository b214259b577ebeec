#include <gtest/gtest.h>

#include "kmManager.h"
#include "tests/support/Messages.h"
#include "tests/support/TemporaryFolder.h"

namespace {

struct TestManager : kmManager {
    // The IDs of all records, then the groups with theirs.
    std::string Loaded(const TemporaryFolder& folder) {
        std::string text = Load(folder.Path()) ? "" : "failed ";
        for (const kmProfileInfo& info : GetProfiles()) text += Utf8(info.GetID()) + " ";
        for (std::size_t i = 0; i <= GetSystemGroups().size(); ++i) {
            kmGroup& group = i < GetSystemGroups().size() ? GetSystemGroups()[i] : GetUserGroup();
            text += "| " + Utf8(group.GetOriginalName());
            for (const kmString& id : group.GetProfileIDs()) text += " " + Utf8(id);
        }
        return text;
    }
};

TEST(Loading, FilesBecomeRecordsAndGroups) {
    const CapturedMessages messages;
    using Files = std::vector<std::pair<const kmChar*, std::string>>;
    const std::string yes = "<Main><issysprofile>Yes</issysprofile></Main>", user = "<Main/>";
    // clang-format off
    const auto in = [&yes](const std::string& name) { return yes + "<group><GroupName language='" + name + "'/></group>"; };
    const struct { const char* fault; Files files; const char* expected; } rows[] = {
        {"ungrouped_lost_or_empty_group_not_empty", {{KM_TEXT("a.pf"), yes}, {KM_TEXT("b.pf"), yes + "<Group/>"}}, "a b | others a| User Defined"},
        {"group_without_a_name_listed", {{KM_TEXT("a.pf"), yes + "<Group><GroupName/><GroupName language=''/></Group>"}}, "a |  a| User Defined"},
        {"user_profile_in_a_system_group", {{KM_TEXT("a.pf"), "<Main><IsSysProfile>true</IsSysProfile></Main><Group><GroupName language='g'/></Group>"}}, "a | User Defined a"},
        {"id_cut_at_the_first_dot", {{KM_TEXT("a.b.PF"), user}}, "a.b | User Defined a.b"},
        {"wrong_files_taken", {{KM_TEXT("x\\a.pf"), user}, {KM_TEXT(".h.pf"), user}, {KM_TEXT("a.pfx"), user}, {KM_TEXT("b.pf"), ""}, {KM_TEXT("c.pf"), "</x>"}, {KM_TEXT("d.pf\\x"), user}}, "| User Defined"},
        {"duplicate_id_twice_in_a_group", {{KM_TEXT("a.pf"), in("g")}, {KM_TEXT("USER\\a.pf"), in("g") + "<Group/>"}, {KM_TEXT("USER\\b.pf"), user}}, "a a b | g a| User Defined b"},
        {"display_order", {{KM_TEXT("1.pf"), in("A")}, {KM_TEXT("2.pf"), in("others")}, {KM_TEXT("3.pf"), in("iPod")}, {KM_TEXT("4.pf"), in("X")}, {KM_TEXT("5.pf"), in("Common Video")}}, "1 2 3 4 5 | Common Video 5| iPod 3| A 1| X 4| others 2| User Defined"},
        {"order_ignores_carets_or_case", {{KM_TEXT("1.pf"), in("^PSP")}, {KM_TEXT("2.pf"), in("zune")}, {KM_TEXT("3.pf"), in("Zune")}}, "1 2 3 | Zune 3| zune 2| ^PSP 1| User Defined"}};
    // clang-format on
    TestManager manager;  // the same for all: a load begins anew
    EXPECT_EQ(manager.GetIconParser(), nullptr);
    for (const auto& row : rows) {
        const TemporaryFolder folder;
        for (const auto& [name, text] : row.files)
            folder.WriteBytes(name, "<profiles>" + text + "</profiles>");
        EXPECT_EQ(manager.Loaded(folder), row.expected) << row.fault;
    }
}

TEST(Loading, KnowsTheNamesOfSystemProfiles) {
    const CapturedMessages messages;
    const TemporaryFolder folder;
    TestManager manager;
    // clang-format off
    folder.WriteBytes(KM_TEXT("Sys.pf"), "<Profiles><Main><IsSysProfile>yes</IsSysProfile><Name language='^^Shown'/></Main></Profiles>");
    folder.WriteBytes(KM_TEXT("user\\sys.pf"), "<Profiles><Main><Name language='Own'/></Main></Profiles>");
    manager.Loaded(folder);
    // clang-format on
    for (const kmChar* name : {KM_TEXT("sHOWN"), KM_TEXT("SYS")}) EXPECT_TRUE(manager.IsSysName(name));
    for (const kmChar* name : {KM_TEXT("^^Shown"), KM_TEXT("Own")}) EXPECT_FALSE(manager.IsSysName(name));
    EXPECT_EQ(manager.GetProfileInfo(KM_TEXT("sys")), &manager.GetProfiles()[0]);
    EXPECT_FALSE(manager.ProfileExist(nullptr) || manager.ProfileExist(KM_TEXT("Shown")));
}

}  // namespace
