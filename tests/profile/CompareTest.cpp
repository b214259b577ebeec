// SPDX-License-Identifier: MIT
// What differs between profiles, and what is left after taking it back.
#include "kmCompare.h"

#include "kmProfileFile.h"
#include "tests/support/SavingFixture.h"

namespace {

std::string Told(const kmDifferences& differences) {
    constexpr const char* kMarks[] = {"", "", "-", "+", "order"};
    std::string told;
    for (const kmDifference& each : differences) {
        const std::string which = each.occurrence == 0 ? "" : "#" + std::to_string(each.occurrence);
        told += kMarks[each.kind] + Utf8(each.id) + which + " " + Utf8(each.field) + "(" + Utf8(each.first) +
                "|" + Utf8(each.second) + ") ";
    }
    return told;
}

void TakeAll(kmProfile& to, const kmProfile& from) {
    for (const kmDifference& each : kmCompareProfiles(to, from)) {
        to.SetChangedFlag(false);
        const bool isTaken = each.kind == DIFFERENCE_HEADER_FIELD
                                 ? kmTakeHeaderField(to, from, each.field)
                                 : kmTakeSetting(to, from, each.id, each.occurrence);
        EXPECT_EQ(to.GetChangedFlag(), isTaken) << Told({each});
    }
}

TEST_F(Saving, DifferencesOfProfilesAndWhatIsLeftAfterTakingThem) {
    const auto read = [this](const std::string& main, const std::string& items) {
        folder.AddProfile(
            "P", "<Profiles><Main>" + main + "</Main><Parameter>" + items + "</Parameter></Profiles>");
        return Load("P");
    };
    // clang-format off
    const struct { const char *fault, *firstMain, *first, *secondMain, *second, *told, *left; } rows[] = {
        {"default_told", "", "<s/>", "", "<s Value='Auto'/>", "", ""},
        {"empty_value_taken_for_the_default", "", "<s Value=''/>", "", "<s/>", "s Value(|Auto) ", ""},
        {"header_field_lost_or_out_of_order",
         "<Name language='n'/><Desc language='d'/><IsSysProfile>yes</IsSysProfile><ExtName>e</ExtName>", "",
         "<ExtName>E</ExtName><Format>F</Format><SName>S</SName>", "",
         " Name(n|)  Desc(d|)  SName(|S)  Format(|F)  ExtName(e|E)  IsSysProfile(yes|) ",
         " Name(n|)  IsSysProfile(yes|) "},
        {"item_field_lost_or_misnamed", "",
         "<x Value='1' advPriority='0x10' advName='2' advGroup='3' advReadOnly='true' advHasCandidates='yes' "
         "advCandidatesDisplay='a, b' advCandidatesValue=',c'/>", "",
         "<x simplePriority='-4' simpleName='5' simpleReadonly='yes' simpleHasCandidates='yes' "
         "simpleCandidatesDiaplay='d' simpleCandidatesValue='e,'/>",
         "x Value(1|) x advPriority(16|) x advName(2|) x advGroup(3|) x advReadOnly(yes|) "
         "x advHasCandidates(yes|) x advCandidatesDisplay(a,b|) x advCandidatesValue(,c|) "
         "x simplePriority(|-4) x simpleName(|5) x simpleReadonly(|yes) x simpleHasCandidates(|yes) "
         "x simpleCandidatesDiaplay(|d) x simpleCandidatesValue(|e,) ", ""},
        {"empty_list_is_an_empty_entry", "", "<x/>", "", "<x advCandidatesValue=''/>",
         "x advCandidatesValue(|) ", ""},
        {"items_of_one_id_mixed_up", "", "<a Value='1'/><a Value='2'/>", "",
         "<a Value='1'/><a Value='3'/><a Value='4'/>", "a#1 Value(2|3) +a#2 (|4) ", ""},
        {"letter_case_ignored", "", "<b Value='1'/>", "", "<B/>", "-b (1|) +B (|Auto) ", "-b (1|) "},
        {"missing_item_changes_the_order", "", "<x/><a/><b/>", "", "<a/><y/><b/>", "-x (|) +y (|) ", "-x (|) "},
        {"order_ignored", "", "<a/><x/><c/><b/>", "", "<a/><y/><b/><c/>", "-x (|) +y (|) order (c|b) ",
         "-x (|) order (c|b) "},
        {"taken_before_one_of_its_id", "", "<q/><a Value='1'/>", "", "<a Value='1'/><q/><a Value='2'/><n/>",
         "+a#1 (|2) +n (|) order (q|a) ", "order (q|a) "}};
    // clang-format on
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.fault << ", given " << row.firstMain << row.first << " and "
                                        << row.secondMain << row.second);
        kmProfile first = read(row.firstMain, row.first);
        const kmProfile second = read(row.secondMain, row.second);
        EXPECT_EQ(Told(kmCompareProfiles(first, second)), row.told);
        TakeAll(first, second);
        EXPECT_EQ(Told(kmCompareProfiles(first, second)), row.left);
    }
}

TEST_F(Saving, NothingIsTakenWhereTheItemsBeforeItAreMissing) {
    folder.AddProfile("P", UserProfile("<Parameter><a Value='1'/><a Value='2'/></Parameter>"));
    kmProfile to;
    EXPECT_FALSE(kmTakeSetting(to, Load("P"), KM_TEXT("a"), 1));
    EXPECT_EQ(to.GetProfileItems().size(), 0u);
}

void SetX(kmProfile& profile, const kmChar* value, bool changedFlag) {
    profile.SetItemValue(KM_TEXT("x"), value);
    profile.SetChangedFlag(changedFlag);
}

TEST_F(Saving, ProfilesAndTheirFiles) {
    using Files = ProfilesFolder;
    using Change = void (*)(kmProfile&, const Files&);
    // clang-format off
    const struct { const char* fault; Change change; FILE_COMPARISON expected; } rows[] = {
        {"flag_believed_when_clear", [](kmProfile& p, const Files&) { SetX(p, KM_TEXT("2"), false); },
         FILE_COMPARISON_DIFFERENT},
        {"flag_believed_when_set", [](kmProfile& p, const Files&) { SetX(p, KM_TEXT("1"), true); },
         FILE_COMPARISON_EQUAL},
        {"text_that_the_file_lacks_kept", [](kmProfile& p, const Files&) { p.SetSName(KM_TEXT("s")); },
         FILE_COMPARISON_DIFFERENT},
        {"saved_name_is_a_change", [](kmProfile& p, const Files&) { p.Save(p.GetID(), false); },
         FILE_COMPARISON_EQUAL},
        {"file_of_another_folder_taken", [](kmProfile& p, const Files& all) {
            all.AddProfile("user\\user\\P", UserProfile());
            std::filesystem::remove(all.SystemPath(KM_TEXT("user\\P.pf")));
            EXPECT_FALSE(kmReadFileOf(p, p));
            EXPECT_EQ(p.GetProfileItems().size(), 2u);
         }, FILE_COMPARISON_UNREADABLE},
        {"file_without_header_read", [](kmProfile&, const Files& all) { all.AddProfile("user\\P", "<Profiles/>"); },
         FILE_COMPARISON_UNREADABLE}};
    // clang-format on
    for (const auto& row : rows) {
        folder.AddProfile("user\\P",
                          "<Profiles><Main><Name language='shown'/></Main><Parameter><s/><x Value='1'/>"
                          "</Parameter></Profiles>");
        kmProfile profile = Load("P");
        row.change(profile, folder);
        const kmFileComparison comparison = kmCompareWithFile(profile);
        EXPECT_EQ(comparison.result, row.expected) << row.fault << ": " << Told(comparison.differences);
    }
}

}  // namespace
