// SPDX-License-Identifier: MIT
// The filter lists live as long as the process, so every row has one of its own.
#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>

#include "kmLoadReport.h"
#include "tests/support/Messages.h"
#include "tests/support/ProfilesFolder.h"

namespace {

using Filter = std::pair<std::string, std::string>;  // of IDs, of groups

struct FilterCase {
    const char* fault;
    Filter first, later;
    const char* taken;
};

// For each of two loads the IDs that it takes and the number of system groups.
int PrintTaken(const FilterCase& row) {
    const CapturedMessages messages;
    const ProfilesFolder folder;
    const std::string zuneAndIPod = "<Group><GroupName language='Zune'/><GroupName language='iPod'/></Group>";
    folder.AddProfile("A", SystemProfile(zuneAndIPod));
    folder.AddProfile("B", SystemProfile(InGroup("PSP")));
    folder.AddProfile("C", SystemProfile());
    folder.AddProfile("D", SystemProfile("<Group><GroupName/></Group>"));
    folder.AddProfile("U", UserProfile(InGroup("PSP")));
    struct : kmManager {
    } catalogue;
    for (const auto& [ids, groups] : {row.first, row.later}) {
        catalogue.SetIDFilter(Text(ids).c_str());
        catalogue.SetGroupFilter(Text(groups).c_str());
        const kmLoadReport report = kmLoadWithReport(catalogue, folder.Path());
        const auto filtered =
            std::count_if(report.findings.begin(), report.findings.end(),
                          [](const kmLoadFinding& finding) { return finding.fault == LOAD_FAULT_FILTERED; });
        if (report.taken.size() + static_cast<std::size_t>(filtered) != 5)
            std::cerr << "not all in the report";
        for (const kmProfileInfo& info : catalogue.GetProfiles()) std::cerr << Utf8(info.GetID());
        std::cerr << catalogue.GetSystemGroups().size() << ";";
    }
    return 0;
}

TEST(CatalogueFilterDeathTest, TakesWhatTheListsName) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    // clang-format off
    const FilterCase rows[] = {
        {"other_case_or_spaces_missed",         {"a | x", ""},     {"", ""},     "^ACU3;ABCDU4;"},
        {"named_ids_not_left_out",              {"~A|c", ""},      {"A", ""},    "^BCDU2;BCDU2;"},
        {"other_groups_of_a_taken_one_lost",    {"", "zune"},      {"", "PSP"},  "^ACU3;ACU3;"},
        {"empty_piece_dropped",                 {"", "PSP|"},      {"", ""},     "^BCDU2;ABCDU4;"},
        {"group_filter_used_beside_the_other",  {"B", "Zune"},     {"", "Zune"}, "^BCU2;BCU2;"}};
    // clang-format on
    for (const FilterCase& row : rows)
        EXPECT_EXIT(std::exit(PrintTaken(row)), testing::ExitedWithCode(0), row.taken)
            << row.fault << ", given " << testing::PrintToString(std::pair(row.first, row.later));
}

}  // namespace
