// From a file to a profile: where it is looked for, what is kept, what items become.
#include <gtest/gtest.h>

#include <algorithm>

#include "kmProfile.h"
#include "tests/support/Messages.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/Text.h"
#include "text/Folders.h"

namespace {

std::string Joined(const std::vector<kmString>& list) {
    std::string joined;
    for (const kmString& entry : list) joined += "<" + Utf8(entry) + ">";
    return joined;
}

// Both views of an item on one line: priority, name, group, read-only, has candidates, the two lists.
std::string AdvancedView(const kmProfileItem& item) {
    return std::to_string(item.GetAdvPriority()) + " " + Utf8(item.GetAdvName()) + " " +
           Utf8(item.GetAdvGroup()) + (item.GetAdvReadOnly() ? " fixed" : "") +
           (item.GetAdvHasCandidates() ? " chosen " : " ") + Joined(item.GetAdvCandidatesDisplay()) +
           Joined(item.GetAdvCandidatesValue());
}

std::string SimpleView(const kmProfileItem& item) {
    return std::to_string(item.GetSimplePriority()) + " " + Utf8(item.GetSimpleName()) +
           (item.GetSimpleReadOnly() ? " fixed" : "") + (item.GetSimpleHasCandidates() ? " chosen " : " ") +
           Joined(item.GetSimpleCandidatesDisplay()) + Joined(item.GetSimpleCandidatesValue());
}

class LoadTest : public testing::Test {
protected:
    bool Load(const kmChar* id) {
        m_profile.SetID(id);
        return m_profile.Load(m_folder.Path());
    }

    bool LoadText(const kmChar* text) {
        m_folder.WriteUtf8(KM_TEXT("P.pf"), text);
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

constexpr const kmChar* kBroad = KM_TEXT(R"(<?xml version="1.0"?>
<PROFILES><Other/><main><Other>x</Other><NAME language="Shown"/><SNAME> Short </SNAME><SName>second</SName>
<format>mp4</format><extname>m4v</extname><issysprofile>Yes</issysprofile></main><Main><Format>avi</Format></Main>
<!-- the settings --><parameter><vcodec value=" MPEG4 " ADVPRIORITY="0x10" advname="Codec" advGroup="Video &amp; more"
 AdvReadOnly="TRUE" advHasCandidates="yes" advCandidatesDisplay="MPEG-4, H.264 " advCandidatesValue="mpeg4,,h264,"
 Value="later" unknown="1"><b Value="nested"/></vcodec>
<AB Value="" advPriority="010" simplePriority="-7" simpleName="Sound" simpleReadonly="yes" simpleHasCandidates="True"
 simpleCandidatesDiaplay="High,Low" simpleCandidatesValue="64, 128 ," simpleCandidatesDisplay="ignored"/>
<s advReadOnly="1" simpleReadonly="no" advHasCandidates="" advPriority="abc" simplePriority="99999999999"
 advCandidatesValue=""/><B/><nonsense/><ar/><vcodec Value="second"/></parameter>
<Parameter><g Value="1"/></Parameter></PROFILES>)");

TEST_F(LoadTest, BroadDocument) {
    ASSERT_TRUE(LoadText(kBroad));
    EXPECT_TRUE(m_messages.All().empty());
    EXPECT_EQ(Header(), "Short,mp4,m4v,system");
    std::string values;
    for (const kmProfileItem& item : m_profile.GetProfileItems()) {
        values += Utf8(item.GetID()) + "=" + Utf8(item.GetValue()) + ";";
    }
    EXPECT_EQ(values, "vcodec= MPEG4 ;AB=;s=Auto;B=Auto;nonsense=;ar=;vcodec=second;");
    const std::vector<kmProfileItem>& items = m_profile.GetProfileItems();
    EXPECT_EQ(AdvancedView(items[0]), "16 Codec Video & more fixed chosen <MPEG-4><H.264><mpeg4><><h264><>");
    EXPECT_EQ(SimpleView(items[0]), "0  ");
    EXPECT_EQ(AdvancedView(items[1]), "8   ");
    EXPECT_EQ(SimpleView(items[1]), "-7 Sound fixed chosen <High><Low><64><128><>");
    EXPECT_EQ(AdvancedView(items[2]), "0   <>");
    EXPECT_EQ(SimpleView(items[2]), "2147483647  ");
    EXPECT_EQ(m_profile.GetProfileItem(KM_TEXT("vcodec")), &items[0]) << "the first of two";
    EXPECT_EQ(m_profile.GetProfileItem(KM_TEXT("VCODEC")), nullptr);
    EXPECT_FALSE(m_profile.ItemExist(KM_TEXT("g"))) << "the second parameter element was read";
    EXPECT_FALSE(m_profile.GetChangedFlag());
}

TEST_F(LoadTest, SecondLoadReplacesItemsAndKeepsWhatTheFileLacks) {
    ASSERT_TRUE(LoadText(kBroad));
    m_profile.SetChangedFlag(true);
    ASSERT_TRUE(LoadText(KM_TEXT("<Profiles><Main><Format/><SName>New</SName></Main></Profiles>")));
    EXPECT_EQ(Header(), "New,mp4,m4v") << "only the system mark is reset";
    EXPECT_TRUE(m_profile.GetProfileItems().empty());
    EXPECT_TRUE(m_profile.GetChangedFlag()) << "loading cleared it";
    ASSERT_TRUE(LoadText(KM_TEXT("<Profiles><Main><IsSysProfile>true</IsSysProfile></Main></Profiles>")));
    EXPECT_FALSE(m_profile.IsSystem()) << "only \"yes\" marks a system profile";
}

TEST_F(LoadTest, FailuresDropTheItemsAndKeepTheHeader) {
    const struct {
        const char* fault;
        const kmChar* text;
        std::size_t messages;  // one for each of the two files that could not be used
    } cases[] = {
        {"header_missing", KM_TEXT("<Profiles><Parameter><b/></Parameter></Profiles>"), 0},
        {"other_document_taken", KM_TEXT("<Presets><Main/></Presets>"), 2},
        {"broken_document_taken", KM_TEXT("<Profiles><Main></Wrong></Profiles>"), 2},
        {"empty_file_taken", KM_TEXT(""), 2},
    };
    for (const auto& c : cases) {
        ASSERT_TRUE(LoadText(kBroad)) << c.fault;
        const CapturedMessages messages;
        EXPECT_FALSE(LoadText(c.text)) << c.fault;
        EXPECT_TRUE(m_profile.GetProfileItems().empty()) << c.fault;
        EXPECT_EQ(Header(), "Short,mp4,m4v,system") << c.fault;
        EXPECT_EQ(messages.All().size(), c.messages) << c.fault;
    }
}

TEST_F(LoadTest, UserFolderIsTheSecondPlace) {
    m_folder.WriteUtf8(KM_TEXT("user\\Mine.pf"),
                       KM_TEXT("<Profiles><Main><SName>user's</SName></Main></Profiles>"));
    EXPECT_TRUE(Load(KM_TEXT("Mine")));
    EXPECT_EQ(Utf8(m_profile.GetSName()), "user's");
    ASSERT_EQ(m_messages.All().size(), 1u);
    EXPECT_EQ(m_messages.All()[0].text, "Error: File not found");
    EXPECT_EQ(m_messages.All()[0].path, Utf8(m_folder.Path(KM_TEXT("Mine.pf"))));

    m_folder.WriteUtf8(KM_TEXT("Mine.pf"), KM_TEXT("<Profiles><Main><SName>first</SName></Main></Profiles>"));
    kmString folder = m_folder.Path();
    folder.pop_back();
    std::replace(folder.begin(), folder.end(), KM_TEXT('\\'), KM_TEXT('/'));
    EXPECT_TRUE(m_profile.Load(folder)) << "other separators, none at the end";
    EXPECT_EQ(Utf8(m_profile.GetSName()), "first");
    EXPECT_EQ(m_messages.All().size(), 1u);

    EXPECT_FALSE(Load(KM_TEXT("")));
    ASSERT_EQ(m_messages.All().size(), 3u);
    EXPECT_EQ(m_messages.All()[2].path, Utf8(m_folder.Path(KM_TEXT("user\\.pf"))));
}

TEST_F(LoadTest, ReloadLooksInTheDefaultFolderAlone) {
    ASSERT_TRUE(LoadText(kBroad));
    EXPECT_FALSE(m_profile.Reload());
    EXPECT_TRUE(m_profile.GetProfileItems().empty());
    ASSERT_EQ(m_messages.All().size(), 2u);
    EXPECT_EQ(m_messages.All()[0].path, Utf8(GetDefaultProfilesFolder() + KM_TEXT("P.pf")));
    EXPECT_EQ(m_messages.All()[1].path, Utf8(GetDefaultProfilesFolder() + KM_TEXT("user\\P.pf")));
}

TEST_F(LoadTest, UnclosedElementsAreAWarning) {
    ASSERT_TRUE(LoadText(KM_TEXT("<Profiles><Main><SName>S</SName></Main><Parameter><g Value='7'/>")));
    EXPECT_EQ(Header(), "S,,");
    EXPECT_EQ(m_profile.GetItemValue(KM_TEXT("g")), KM_TEXT("7"));
    ASSERT_EQ(m_messages.All().size(), 1u);
    EXPECT_EQ(m_messages.All()[0].text, "Warning: Unmatched end tag");
}

}  // namespace
