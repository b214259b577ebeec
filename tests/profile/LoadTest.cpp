// From a file to a profile: where it is looked for, what is kept, what items become.
#include <gtest/gtest.h>

#include "document/DefaultFolder.h"
#include "kmProfile.h"
#include "tests/support/Messages.h"
#include "tests/support/ProfilesFolder.h"

namespace {

std::string View(int priority, const kmString& texts, bool isFixed, bool isChosen,
                 const std::vector<kmString>& display, const std::vector<kmString>& values) {
    return " " + std::to_string(priority) + (texts.empty() ? "" : " ") + Utf8(texts) +
           (isFixed ? " fixed" : "") + (isChosen ? " chosen" : "") + Joined(display) + Joined(values);
}

// "id='value'", then what the advanced and the simple view show.
std::string Described(const kmProfileItem& item) {
    return Utf8(item.GetID()) + "='" + Utf8(item.GetValue()) + "'" +
           View(item.GetAdvPriority(), item.GetAdvName() + item.GetAdvGroup(), item.GetAdvReadOnly(),
                item.GetAdvHasCandidates(), item.GetAdvCandidatesDisplay(), item.GetAdvCandidatesValue()) +
           View(item.GetSimplePriority(), item.GetSimpleName(), item.GetSimpleReadOnly(),
                item.GetSimpleHasCandidates(), item.GetSimpleCandidatesDisplay(),
                item.GetSimpleCandidatesValue());
}

using Strings = std::vector<std::string>;

struct Loading : testing::Test {
    bool Load(const char* id) {
        profile.SetID(Text(id));
        return profile.Load(folder.Path());
    }
    bool LoadText(const std::string& text) {
        folder.AddProfile("P", text);
        return Load("P");
    }
    std::string Header() const {
        return Utf8(profile.GetSName()) + ", " + Utf8(profile.GetFormat()) + ", " +
               Utf8(profile.GetExtName()) + (profile.IsSystem() ? ", system" : "");
    }

    const ProfilesFolder folder;
    CapturedMessages messages;
    kmProfile profile;
};

constexpr const char* kPhone = R"(<?xml version="1.0"?>
<PROFILES><Other/><main><Other>x</Other><NAME language="Shown"/><SNAME> Short </SNAME><SName>second</SName>
<format>mp4</format><extname>m4v</extname><issysprofile>Yes</issysprofile></main>
<Main><Format>avi</Format></Main><!-- the settings -->
<parameter><vcodec Value="first"/><!-- again --><vcodec Value="second"/></parameter>
<Parameter><g Value="1"/></Parameter></PROFILES>)";

constexpr const char* kPhoneHeader = "Short, mp4, m4v, system";

TEST_F(Loading, FirstElementsOfAnySpellingCount) {
    ASSERT_TRUE(LoadText(kPhone));
    EXPECT_EQ(Header(), kPhoneHeader);
    ASSERT_EQ(profile.GetProfileItems().size(), 2u);
    EXPECT_EQ(profile.GetProfileItem(KM_TEXT("vcodec")), &profile.GetProfileItems()[0]);
    EXPECT_EQ(profile.GetProfileItem(KM_TEXT("VCODEC")), nullptr);
    EXPECT_FALSE(profile.GetChangedFlag());
    EXPECT_EQ(messages.Paths(), Strings{});
}

TEST_F(Loading, ElementsBecomeItems) {
    // clang-format off
    const struct { const char *fault, *element, *expected; } rows[] = {
        {"value_trimmed",                 "<vcodec Value=' MPEG4 '/>",               "vcodec=' MPEG4 ' 0 0"},
        {"other_attribute_or_child_read", "<g value='1' Value='2' x='3'><b Value='4'/></g>", "g='1' 0 0"},
        {"empty_value_replaced",          "<AB Value=''/>",                          "AB='' 0 0"},
        {"default_not_found_in_any_case", "<B/>",                                    "B='Auto' 0 0"},
        {"default_made_up",               "<ar/>",                                   "ar='' 0 0"},
        {"texts_or_hexadecimal_lost",     "<x ADVPRIORITY='0x10' advname='N' advGroup='G'/>", "x='' 16 NG 0"},
        {"read_only_lost_or_1_is_true",   "<x AdvReadOnly='TRUE' advHasCandidates='1'/>", "x='' 0 fixed 0"},
        {"choice_lost_or_no_is_true",     "<x advReadOnly='no' advHasCandidates='yes'/>", "x='' 0 chosen 0"},
        {"display_texts_not_trimmed",     "<x advCandidatesDisplay='A b, C '/>",     "x='' 0|A b|C 0"},
        {"empty_candidates_dropped",      "<x advCandidatesValue='a,,b,'/>",         "x='' 0|a||b| 0"},
        {"empty_list_dropped",            "<x advCandidatesValue=''/>",              "x='' 0| 0"},
        {"simple_name_or_priority_lost",  "<x simplePriority='-7' simpleName='N'/>", "x='' 0 -7 N"},
        {"simple_read_only_lost",         "<x simpleReadonly='yes'/>",               "x='' 0 0 fixed"},
        {"simple_choice_lost",            "<x simpleHasCandidates='True'/>",         "x='' 0 0 chosen"},
        {"simple_texts_lost",             "<x simpleCandidatesDiaplay='A,B'/>",      "x='' 0 0|A|B"},
        {"simple_texts_spelled_right",    "<x simpleCandidatesDisplay='A'/>",        "x='' 0 0"},
        {"simple_candidates_lost",        "<x simpleCandidatesValue='64, 128'/>",    "x='' 0 0|64|128"}};
    // clang-format on
    for (const auto& row : rows) {
        ASSERT_TRUE(LoadText(UserProfile("<Parameter>" + std::string(row.element) + "</Parameter>")));
        ASSERT_EQ(profile.GetProfileItems().size(), 1u) << row.element;
        EXPECT_EQ(Described(profile.GetProfileItems()[0]), row.expected) << row.fault << ": " << row.element;
    }
}

TEST_F(Loading, NextLoadReplacesTheItemsAndKeepsWhatTheFileLacks) {
    constexpr const char* kNewName = "<Profiles><Main><Format/><SName>New</SName></Main></Profiles>";
    // Of a file that could not be used two places are told.
    // clang-format off
    const struct { const char *fault, *text, *header; std::size_t messages; } rows[] = {
        {"mark_kept_or_texts_lost",    kNewName, "New, mp4, m4v", 0},
        {"file_without_header_loaded", "<Profiles><Parameter><b/></Parameter></Profiles>", kPhoneHeader, 0},
        {"other_document_loaded",      "<Presets><Main/></Presets>",          kPhoneHeader, 2},
        {"broken_file_loaded",         "<Profiles><Main></Wrong></Profiles>", kPhoneHeader, 2}};
    // clang-format on
    for (const auto& row : rows) {
        SCOPED_TRACE(row.fault + (", given " + std::string(row.text)));
        ASSERT_TRUE(LoadText(kPhone));
        profile.SetChangedFlag(true);
        const std::size_t before = messages.All().size();
        EXPECT_EQ(LoadText(row.text), row.header != kPhoneHeader);
        EXPECT_EQ(profile.GetProfileItems().size(), 0u);
        EXPECT_TRUE(profile.GetChangedFlag());
        EXPECT_EQ(Header(), row.header);
        EXPECT_EQ(messages.All().size() - before, row.messages);
    }
}

TEST_F(Loading, UserFolderIsTheSecondPlace) {
    folder.AddProfile("user\\P", "<Profiles><Main><SName>user's</SName></Main></Profiles>");
    EXPECT_TRUE(Load("P"));
    EXPECT_EQ(Utf8(profile.GetSName()), "user's");
    EXPECT_EQ(messages.Paths(), Strings{Utf8(folder.Path(KM_TEXT("P.pf")))});
    folder.AddProfile("P", "<Profiles><Main><SName>first</SName></Main></Profiles>");
    EXPECT_TRUE(Load("P"));
    EXPECT_EQ(Utf8(profile.GetSName()), "first");
}

TEST_F(Loading, FolderMayHaveOtherSeparatorsAndNoneAtTheEnd) {
    ASSERT_TRUE(LoadText(kPhone));
    kmString path = folder.Path();
    path.pop_back();
    std::replace(path.begin(), path.end(), KM_TEXT('\\'), KM_TEXT('/'));
    EXPECT_TRUE(profile.Load(path)) << Utf8(path);
}

TEST_F(Loading, MissingFileIsLookedForInBothPlaces) {
    EXPECT_FALSE(Load(""));
    const Strings expected = {Utf8(folder.Path(KM_TEXT(".pf"))), Utf8(folder.Path(KM_TEXT("user\\.pf")))};
    EXPECT_EQ(messages.Paths(), expected);
}

TEST_F(Loading, ReloadLooksInTheDefaultFolderAlone) {
    ASSERT_TRUE(LoadText(kPhone));
    EXPECT_FALSE(profile.Reload());
    EXPECT_EQ(profile.GetProfileItems().size(), 0u);
    const std::string base = Utf8(GetExeFolder()) + "Profiles\\";
    EXPECT_EQ(messages.Paths(), (Strings{base + "P.pf", base + "user\\P.pf"}));
}

}  // namespace
