// SPDX-License-Identifier: MIT
// From a file to a profile: where it is looked for, what is kept, what items become.
#include <gtest/gtest.h>

#include <array>
#include <thread>
#include <utility>

#include "document/DefaultFolder.h"
#include "kmProfile.h"
#include "tests/support/Messages.h"
#include "tests/support/ProfilesFolder.h"

namespace {

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
<parameter><vcodec Value="first"/><!-- again --><vcodec value="second" ADVPRIORITY='0x10' AdvReadOnly='TRUE'
advHasCandidates='1' advCandidatesValue='a,, b,'/><B/></parameter>
<Parameter><g Value="1"/></Parameter></PROFILES>)";

constexpr const char* kPhoneHeader = "Short, mp4, m4v, system";

TEST_F(Loading, FirstElementsOfAnySpellingCount) {
    ASSERT_TRUE(LoadText(kPhone));
    EXPECT_EQ(Header(), kPhoneHeader);
    ASSERT_EQ(profile.GetProfileItems().size(), 3u);
    EXPECT_EQ(profile.GetProfileItem(KM_TEXT("vcodec")), &profile.GetProfileItems()[0]);
    EXPECT_EQ(profile.GetProfileItem(KM_TEXT("VCODEC")), nullptr);
    EXPECT_FALSE(profile.GetChangedFlag());
    EXPECT_EQ(messages.Paths(), Strings{});
    const kmProfileItem& second = profile.GetProfileItems()[1];
    EXPECT_EQ(second.GetAdvPriority(), 16);
    EXPECT_TRUE(second.GetAdvReadOnly());
    EXPECT_FALSE(second.GetAdvHasCandidates()) << "1 is no yes";
    EXPECT_EQ(Joined(second.GetAdvCandidatesValue()), "|a||b|");
    EXPECT_EQ(Utf8(profile.GetItemValue(KM_TEXT("B"))), "Auto") << "the option's default";
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

// Items that a load has read share its texts, and make lists of them when they are asked.
TEST_F(Loading, TextsAndListsStayWhateverBecomesOfTheirItems) {
    const auto item = [this]() -> kmProfileItem& {
        EXPECT_TRUE(
            LoadText("<Profiles><Main/><Parameter><b advName='Bit rate' advCandidatesValue='1, 2,3'/>"
                     "<g advName='Pictures'/></Parameter></Profiles>"));
        return profile.GetProfileItems().front();
    };
    const auto told = [](const kmProfileItem& told) {
        return Utf8(told.GetAdvName()) + Joined(told.GetAdvCandidatesValue());
    };
    constexpr const char* kAll = "Bit rate|1|2|3";

    kmProfileItem kept;
    const std::vector<kmString>& held = kept.GetAdvCandidatesValue();
    kept = item();
    profile = kmProfile();
    EXPECT_EQ(Joined(held), "|1|2|3") << "the list that was asked for before is the item's still";
    EXPECT_EQ(told(kept), kAll) << "a copy outlives the profile";
    kept.SetAdvName(KM_TEXT("Rate"));
    kmProfileItem& read = item();
    kmProfileItem changed = read;
    changed.GetAdvCandidatesValue().pop_back();
    EXPECT_EQ(told(changed) + told(kept) + told(read), "Bit rate|1|2Rate|1|2|3Bit rate|1|2|3");
    const kmProfileItem taken = std::move(item());
    EXPECT_EQ(told(taken) + told(profile.GetProfileItems().front()), kAll) << "nothing stays behind";
    profile.GetProfileItems().erase(profile.GetProfileItems().begin());
    EXPECT_EQ(told(profile.GetProfileItems().front()), "Pictures");

    for (int round = 0; round < 50; ++round) {
        const kmProfileItem& shared = item();
        std::array<std::string, 4> answers;
        std::vector<std::thread> readers;
        for (std::string& answer : answers) {
            readers.emplace_back([&] { answer = told(round % 2 == 0 ? shared : kmProfileItem(shared)); });
        }
        for (std::thread& reader : readers) reader.join();
        for (const std::string& answer : answers) ASSERT_EQ(answer, kAll) << "of several threads";
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
