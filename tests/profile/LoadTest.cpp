// From a file to a profile: where it is looked for, what is kept, what items become.
#include <gtest/gtest.h>

#include "kmProfile.h"
#include "tests/support/Messages.h"
#include "tests/support/TemporaryFolder.h"
#include "document/DefaultFolder.h"

namespace {

// An item on one line: value, then of each view priority, name, group, read-only, has candidates, the lists.
std::string View(const kmProfileItem& item) {
    return Utf8(item.GetID()) + "=" + Utf8(item.GetValue()) + " " + std::to_string(item.GetAdvPriority()) +
           Utf8(item.GetAdvName()) + Utf8(item.GetAdvGroup()) + (item.GetAdvReadOnly() ? " fixed" : "") +
           (item.GetAdvHasCandidates() ? " chosen" : "") + Joined(item.GetAdvCandidatesDisplay()) +
           Joined(item.GetAdvCandidatesValue()) + " " + std::to_string(item.GetSimplePriority()) +
           Utf8(item.GetSimpleName()) + (item.GetSimpleReadOnly() ? " fixed" : "") +
           (item.GetSimpleHasCandidates() ? " chosen" : "") + Joined(item.GetSimpleCandidatesDisplay()) +
           Joined(item.GetSimpleCandidatesValue());
}

class LoadTest : public testing::Test {
protected:
    bool Load(const kmChar* id) {
        m_profile.SetID(id);
        return m_profile.Load(m_folder.Path());
    }

    bool LoadText(std::string_view text) {
        m_folder.WriteBytes(KM_TEXT("P.pf"), text);
        return Load(KM_TEXT("P"));
    }

    std::string Header() const {
        return Utf8(m_profile.GetSName()) + "," + Utf8(m_profile.GetFormat()) + "," +
               Utf8(m_profile.GetExtName()) + (m_profile.IsSystem() ? ",system" : "");
    }

    TemporaryFolder m_folder;
    CapturedMessages m_messages;
    kmProfile m_profile;
};

constexpr const char* kBroad = R"(<?xml version="1.0"?>
<PROFILES><Other/><main><Other>x</Other><NAME language="Shown"/><SNAME> Short </SNAME><SName>second</SName>
<format>mp4</format><extname>m4v</extname><issysprofile>Yes</issysprofile></main><Main><Format>avi</Format></Main>
<!-- the settings --><parameter><vcodec value=" MPEG4 " ADVPRIORITY="0x10" advname="Codec" advGroup="Video &amp; more"
 AdvReadOnly="TRUE" advHasCandidates="yes" advCandidatesDisplay="MPEG-4, H.264 " advCandidatesValue="mpeg4,,h264,"
 Value="later" unknown="1"><b Value="nested"/></vcodec>
<AB Value="" advPriority="010" simplePriority="-7" simpleName="Sound" simpleReadonly="yes" simpleHasCandidates="True"
 simpleCandidatesDiaplay="High,Low" simpleCandidatesValue="64, 128 ," simpleCandidatesDisplay="ignored"/>
<s advReadOnly="1" simpleReadonly="no" advHasCandidates="" advPriority="abc" simplePriority="99999999999"
 advCandidatesValue=""/><B/><nonsense/><ar/><vcodec Value="second"/></parameter>
<Parameter><g Value="1"/></Parameter></PROFILES>)";

TEST_F(LoadTest, BroadDocument) {
    ASSERT_TRUE(LoadText(kBroad));
    EXPECT_EQ(Header() + std::to_string(m_messages.All().size()), "Short,mp4,m4v,system0");
    std::vector<std::string> views;
    for (const kmProfileItem& item : m_profile.GetProfileItems()) views.push_back(View(item));
    // clang-format off
    EXPECT_EQ(views, std::vector<std::string>({
        "vcodec= MPEG4  16CodecVideo & more fixed chosen|MPEG-4|H.264|mpeg4||h264| 0",
        "AB= 8 -7Sound fixed chosen|High|Low|64|128|", "s=Auto 0| 2147483647", "B=Auto 0 0",
        "nonsense= 0 0", "ar= 0 0", "vcodec=second 0 0"}));
    // clang-format on
    EXPECT_EQ(m_profile.GetProfileItem(KM_TEXT("vcodec")), &m_profile.GetProfileItems()[0]);
    EXPECT_TRUE(!m_profile.GetProfileItem(KM_TEXT("VCODEC")) && !m_profile.GetChangedFlag());
}

TEST_F(LoadTest, LaterLoadsReplaceTheItemsAndKeepWhatTheFileLacks) {
    constexpr const char* kept = "Short,mp4,m4v,system";
    // Messages: one for each of the two files that could not be used.
    // clang-format off
    const struct { const char *text, *header; std::size_t messages; } rows[] = {
        {"<Profiles><Main><Format/><SName>New</SName></Main></Profiles>", "New,mp4,m4v", 0},
        {"<Profiles><Parameter><b/></Parameter></Profiles>", kept, 0},
        {"<Presets><Main/></Presets>", kept, 2}, {"<Profiles><Main></Wrong></Profiles>", kept, 2},
        {"", kept, 2}};
    // clang-format on
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        ASSERT_TRUE(LoadText(kBroad));
        m_profile.SetChangedFlag(true);
        const CapturedMessages messages;
        EXPECT_EQ(LoadText(row.text), row.header != kept);
        EXPECT_TRUE(m_profile.GetProfileItems().empty() && m_profile.GetChangedFlag());
        EXPECT_EQ(Header(), row.header);
        EXPECT_EQ(messages.All().size(), row.messages);
    }
}

TEST_F(LoadTest, UserFolderIsTheSecondPlace) {
    m_folder.WriteBytes(KM_TEXT("user\\Mine.pf"), "<Profiles><Main><SName>user's</SName></Main></Profiles>");
    EXPECT_TRUE(Load(KM_TEXT("Mine")) && Utf8(m_profile.GetSName()) == "user's");
    ASSERT_EQ(m_messages.All().size(), 1u);
    EXPECT_EQ(m_messages.All()[0].path, Utf8(m_folder.Path(KM_TEXT("Mine.pf"))));

    m_folder.WriteBytes(KM_TEXT("Mine.pf"), "<Profiles><Main><SName>first</SName></Main></Profiles>");
    kmString folder = m_folder.Path();
    folder.pop_back();
    std::replace(folder.begin(), folder.end(), KM_TEXT('\\'), KM_TEXT('/'));
    EXPECT_TRUE(m_profile.Load(folder) && Utf8(m_profile.GetSName()) == "first") << "other separators";
    EXPECT_FALSE(Load(KM_TEXT("")));
    EXPECT_EQ(m_messages.All().back().path, Utf8(m_folder.Path(KM_TEXT("user\\.pf"))));
}

TEST_F(LoadTest, ReloadLooksInTheDefaultFolderAlone) {
    ASSERT_TRUE(LoadText(kBroad));
    EXPECT_TRUE(!m_profile.Reload() && m_profile.GetProfileItems().empty());
    ASSERT_EQ(m_messages.All().size(), 2u);
    EXPECT_EQ(m_messages.All()[0].path, Utf8(GetExeFolder() + KM_TEXT("Profiles\\P.pf")));
    EXPECT_EQ(m_messages.All()[1].path, Utf8(GetExeFolder() + KM_TEXT("Profiles\\user\\P.pf")));
}

}  // namespace
