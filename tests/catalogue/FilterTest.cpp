// The filter lists live as long as the process, so every row has one of its own.
#include <gtest/gtest.h>

#include <iostream>

#include "kmManager.h"
#include "tests/support/Messages.h"
#include "tests/support/TemporaryFolder.h"

namespace {

// The texts of two loads, and the IDs that each takes with the number of system groups.
// clang-format off
struct FilterCase { const char *fault, *id, *group, *laterID, *laterGroup, *expected; };
// clang-format on

int PrintTaken(const FilterCase& row) {
    const TemporaryFolder folder;
    const CapturedMessages messages;
    // clang-format off
    const std::string system = "<Profiles><Main><IsSysProfile>yes</IsSysProfile></Main>";
    folder.WriteBytes(KM_TEXT("A.pf"), system +
                      "<Group><GroupName language='Zune'/><GroupName language='iPod'/></Group></Profiles>");
    folder.WriteBytes(KM_TEXT("B.pf"), system + "<Group><GroupName language='PSP'/></Group></Profiles>");
    folder.WriteBytes(KM_TEXT("C.pf"), system + "</Profiles>");
    folder.WriteBytes(KM_TEXT("D.pf"), system + "<Group><GroupName/></Group></Profiles>");
    folder.WriteBytes(KM_TEXT("U.pf"),
                      "<Profiles><Main/><Group><GroupName language='PSP'/></Group></Profiles>");
    // clang-format on
    struct : kmManager {
    } manager;
    for (const auto& [id, group] : {std::pair(row.id, row.group), std::pair(row.laterID, row.laterGroup)}) {
        manager.SetIDFilter(TextFromBytes(id).c_str());
        manager.SetGroupFilter(TextFromBytes(group).c_str());
        manager.Load(folder.Path());
        for (const kmProfileInfo& info : manager.GetProfiles()) std::cerr << Utf8(info.GetID());
        std::cerr << manager.GetSystemGroups().size() << " ";
    }
    return 0;
}

TEST(FilterDeathTest, TakesWhatTheListsName) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    // clang-format off
    const FilterCase rows[] = {
        {"other_case_or_spaces_missed", "a | x", "", "", "", "^ACU3 ABCDU4"},
        {"named_ids_not_left_out", "~A|c", "", "A", "", "^BCDU2 BCDU2"},
        {"other_groups_of_a_taken_profile_lost", "", "zune", "", "PSP", "^ACU3 ACU3"},
        {"one_group_that_passes_is_not_enough", "", "~Zune|PSP", "A", "", "^ACDU3 ACDU3"},
        {"empty_piece_dropped", "", "PSP|", "", "", "^BCDU2 ABCDU4"},
        {"group_filter_used_beside_the_other", "B", "Zune", "", "Zune", "^BCU2 BCU2"},
        {"lists_read_without_a_text", "", "", "B", "", "^ABCDU4 BCU2"}};
    // clang-format on
    for (const FilterCase& row : rows)
        EXPECT_EXIT(std::exit(PrintTaken(row)), testing::ExitedWithCode(0), row.expected) << row.fault;
}

}  // namespace
