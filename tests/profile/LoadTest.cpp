// From a file to a profile: where it is looked for, what is kept, what items become.
#include <gtest/gtest.h>

#include "document/DefaultFolder.h"
#include "kmProfile.h"
#include "tests/support/Messages.h"
#include "tests/support/ProfilesFolder.h"

namespace {

// What the rows below set of an item: its value and what the advanced view shows.
std::string Described(const kmProfileItem& item) {
    return Utf8(item.GetID()) + "='" + Utf8(item.GetValue()) + "' " + std::to_string(item.GetAdvPriority()) +
           Utf8(item.GetAdvName() + item.GetAdvGroup()) + (item.GetAdvReadOnly() ? " fixed" : "") +
           (item.GetAdvHasCandidates() ? " chosen" : "") + Joined(item.GetAdvCandidatesDisplay()) +
           Joined(item.GetAdvCandidatesValue()) + Joined(item.GetSimpleCandidatesDisplay());
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
        {"other_attribute_or_child_read", "<g value='1' Value='2' x='3'><b Value='4'/></g>", "g='1' 0"},
        {"default_not_found_in_any_case", "<B/>",                                    "B='Auto' 0"},
        {"texts_or_hexadecimal_lost",     "<x ADVPRIORITY='0x10' advname='N' advGroup='G'/>", "x='' 16NG"},
        {"read_only_lost_or_1_is_true",   "<x AdvReadOnly='TRUE' advHasCandidates='1'/>", "x='' 0 fixed"},
        {"empty_candidates_dropped",      "<x advCandidatesValue='a,,b,'/>",         "x='' 0|a||b|"},
        {"empty_list_dropped",            "<x advCandidatesValue=''/>",              "x='' 0|"},
        {"simple_texts_lost",             "<x simpleCandidatesDiaplay='A,B'/>",      "x='' 0|A|B"}};
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
    kmString path = folder.Path();
    path.pop_back();
    std::replace(path.begin(), path.end(), KM_TEXT('\\'), KM_TEXT('/'));
    EXPECT_TRUE(profile.Load(path)) << "other separators, and none at the end";
    EXPECT_EQ(Utf8(profile.GetSName()), "first");
}

TEST_F(Loading, ReloadLooksInTheDefaultFolderAlone) {
    ASSERT_TRUE(LoadText(kPhone));
    EXPECT_FALSE(profile.Reload());
    EXPECT_EQ(profile.GetProfileItems().size(), 0u);
    const std::string base = Utf8(GetExeFolder()) + "Profiles\\";
    EXPECT_EQ(messages.Paths(), (Strings{base + "P.pf", base + "user\\P.pf"}));
}

}  // namespace
