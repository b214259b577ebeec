// SPDX-License-Identifier: MIT
// One long run through the library, told line by line. The recording was made on one system; every system
// has to tell the same, byte for byte.
#include <gtest/gtest.h>

#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "kmIconParser.h"
#include "kmManager.h"
#include "kmProfile.h"
#include "tests/support/Messages.h"
#include "tests/support/TemporaryFolder.h"

namespace {

const std::filesystem::path kSource = KM_SOURCE_DIR;

// By their names relative to `root`.
std::map<std::string, std::string> ReadFiles(const std::filesystem::path& root) {
    std::map<std::string, std::string> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root)) {
        if (!entry.is_regular_file()) continue;
        const std::u8string name = entry.path().lexically_relative(root).generic_u8string();
        files.emplace(std::string(name.begin(), name.end()), ReadBytes(entry.path()));
    }
    return files;
}

class Transcript {
public:
    std::string Run() {
        std::filesystem::copy(kSource / "samples/Profiles", m_folder.SystemPath(KM_TEXT("p")),
                              std::filesystem::copy_options::recursive);
        MakeBrokenFiles();
        m_filesBefore = ReadFiles(m_folder.SystemPath());
        kmManager::GetInstance().RegisterChangedCallback(&OnChange, this);
        TellCatalogue();
        TellProfiles();
        ChangeProfiles();
        TellCatalogue();
        TellFiles();
        return m_told;
    }

private:
    template <class... Parts>
    void Tell(const Parts&... parts) {
        std::ostringstream line;
        (line << ... << parts);
        m_told += line.str() + '\n';
    }

    void TellMessages() {
        const std::string root = Utf8(m_folder.Path());
        for (std::size_t& i = m_messagesTold; i < m_messages.All().size(); ++i) {
            CapturedMessage message = m_messages.All()[i];
            if (message.path.starts_with(root)) message.path.replace(0, root.size(), "<folder>\\");
            Tell("message ", message.code, ' ', message.path, ' ', message.line, ':', message.column, ' ',
                 message.text);
        }
    }

    static void OnChange(PROFILE_CHANGED_TYPE type, const kmChar* first, const kmChar* second, void* self) {
        static_cast<Transcript*>(self)->Tell("changed ", type, ' ', Utf8(first), ' ', Utf8(second));
    }

    void MakeBrokenFiles() {
        const std::string good =
            "<Profiles><Main><Name language='n'/></Main><Parameter><ab/></Parameter></Profiles>";
        // clang-format off
        const std::pair<const char*, std::string> files[] = {
            {"empty", ""},
            {"mark alone", "\xEF\xBB\xBF"},
            {"no xml", "plain text"},
            {"cut short", good.substr(0, 40)},
            {"end tag missing", "<Profiles>\n  <Main>\n</Profiles>"},
            {"end tag too many", good + "</Main>"},
            {"other root", "<Profile><Main/></Profile>"},
            {"unknown entity", "<Profiles>\n<Main a='&none;'/></Profiles>"},
            {"not utf8", "<Profiles><Main><Name language='caf\xE9'/></Main></Profiles>"},
            {"utf16 cut", "\xFF\xFE" + Utf16Bytes(KM_TEXT("<Profiles><Main/></Profiles>")) + ">"},
            {"caf\xC3\xA9 \xE6\x97\xA5\xE6\x9C\xAC", good},
            {"\xF0\x9F\x98\x80 UPPER", "\xEF\xBB\xBF" + good},
        };
        // clang-format on
        for (const auto& [name, bytes] : files)
            m_folder.WriteBytes(KM_TEXT("p\\user\\") + TextFromBytes(name) + KM_TEXT(".pf"), bytes);
    }

    void TellCatalogue() {
        kmManager& manager = kmManager::GetInstance();
        manager.Load(m_folder.Path(KM_TEXT("p")));
        TellMessages();
        std::vector<kmGroup> groups = manager.GetSystemGroups();
        groups.insert(groups.begin(), {manager.GetUserGroup(), manager.GetRecentGroup()});
        for (const kmGroup& group : groups)
            Tell("group ", Utf8(group.GetName()), Icon(group.GetOriginalName(), true),
                 Joined(group.GetProfileIDs()));
        for (const kmProfileInfo& info : manager.GetProfiles()) {
            Tell("record ", info.IsSystem(), Icon(info.GetID(), false),
                 Joined({info.GetID(), info.GetName(), info.GetDesc(), info.GetExtname()}));
        }
    }

    std::string Icon(const kmString& id, bool group) const {
        const kmIconParser& icons = kmIconParser::GetInstance();
        return " icon " + std::to_string(icons.GetIconIndex(id.c_str(), group)) + ' ' +
               Utf8(icons.GetImageFileName(id.c_str(), group)) + ' ';
    }

    kmProfile Load(const kmString& id) {
        kmProfile profile;
        profile.SetID(id);
        Tell("load ", Utf8(id), ' ', profile.Load(m_folder.Path(KM_TEXT("p"))));
        TellMessages();
        return profile;
    }

    void TellProfiles() {
        for (const kmProfileInfo& info : kmManager::GetInstance().GetProfiles()) {
            kmProfile profile = Load(info.GetID());
            Tell(Joined({profile.GetSName(), profile.GetFormat(), profile.GetExtName()}));
            for (const kmProfileItem& item : profile.GetProfileItems()) TellItem(item);
            TellDerived(profile);
        }
        Load(KM_TEXT("none"));
    }

    void TellItem(const kmProfileItem& item) {
        Tell("item ", Utf8(item.GetID()), '=', Utf8(item.GetValue()), " names",
             Joined({item.GetAdvName(), item.GetAdvGroup(), item.GetSimpleName()}));
        Tell("  advanced: priority ", item.GetAdvPriority(), " read-only ", item.GetAdvReadOnly(), " list ",
             item.GetAdvHasCandidates());
        TellList("    shown", item.GetAdvCandidatesDisplay());
        TellList("    values", item.GetAdvCandidatesValue());
        Tell("  simple: priority ", item.GetSimplePriority(), " read-only ", item.GetSimpleReadOnly(),
             " list ", item.GetSimpleHasCandidates(), " index ", item.GetSimpleItemIndex());
        TellList("    shown", item.GetSimpleCandidatesDisplay());
        TellList("    values", item.GetSimpleCandidatesValue());
    }

    void TellList(const char* kind, const std::vector<kmString>& texts) {
        if (!texts.empty()) Tell(kind, ' ', Joined(texts));
    }

    void TellDerived(kmProfile& profile) {
        constexpr std::int64_t kMinute = 60'000'000;
        std::int32_t width = -1;
        std::int32_t height = -1;
        const bool sized = profile.GetSize(width, height);
        Tell("type ", profile.GetType(), " size ", sized, ' ', width, 'x', height, " zoom ",
             profile.GetZoom(), " aspect ", profile.GetAspectratio(), " time ", profile.GetStartTime(), '+',
             profile.GetDuration());
        Tell("bytes ", profile.CalcOutputFileSize(kMinute, true, 640, 480), ' ',
             profile.CalcAVOutputFileSize(kMinute, 128000, 900000, 3), ' ',
             profile.CalcImageOutputFileSize(kMinute, 640, 480), ' ', profile.CalcP2VOutputFileSize(kMinute));
        Tell("video ", Utf8(profile.GetAvcString(false)));
        const std::string options = Utf8(profile.GetAvcString(true));  // may change the profile
        Tell("options ", options, ' ', profile.GetChangedFlag());
    }

    void Save(const kmString& id, const kmString& newID, bool overwrite) {
        kmProfile profile = Load(id);
        profile.SetItemValue(KM_TEXT("ab"), KM_TEXT("a<b & \"c\" caf\u00E9"));
        Tell("save ", Utf8(newID), ' ', profile.Save(newID, overwrite));
        TellMessages();
    }

    void Rename(const kmString& id, const kmString& newID) {
        kmProfile profile = Load(id);
        const PROFILE_EERROR result = profile.ReName(newID);
        Tell("rename ", Utf8(newID), ' ', result, ' ', Utf8(profile.GetID()));
        TellMessages();
    }

    void ChangeProfiles() {
        kmManager& manager = kmManager::GetInstance();
        const kmString music = KM_TEXT("MP3 - High Quality");
        const kmString radio = KM_TEXT("Car Radio MP3");
        manager.AddRecentProfile(KM_TEXT("Holiday Clips"));
        manager.AddRecentProfile(music.c_str());
        Save(music, music, true);
        Save(music, KM_TEXT("Copy \u65E5\u672C"), false);
        for (const bool overwrite : {false, true}) Save(music, KM_TEXT("Phone 240p"), overwrite);
        for (const kmChar* id : {radio.c_str(), KM_TEXT("Car \U0001F600"), KM_TEXT("a\\b"), KM_TEXT("nul")})
            Save(radio, id, false);
        Save(KM_TEXT("none"), KM_TEXT("from none"), false);
        Rename(KM_TEXT("Holiday Clips"), KM_TEXT("Holiday Clips 2"));
        for (const kmChar* id : {KM_TEXT("My iPod Movies"), KM_TEXT("cut short")})
            Rename(KM_TEXT("Photo Frame JPG"), id);
        Rename(music, KM_TEXT("any"));
        for (const kmChar* id :
             {KM_TEXT("Musique du salon"), KM_TEXT("musique DU salon"), KM_TEXT("PSP"), KM_TEXT("")})
            Tell("delete ", Utf8(id), ' ', manager.DeleteProfile(id));
        Tell("icon copied ",
             kmIconParser::GetInstance().CopyIconFrom(KM_TEXT("new"), KM_TEXT("iPod Audio AAC")));
        TellMessages();
    }

    void TellFiles() {
        for (const auto& [name, bytes] : ReadFiles(m_folder.SystemPath())) {
            const auto before = m_filesBefore.find(name);
            if (before != m_filesBefore.end() && before->second == bytes) {
                Tell("file ", name, " unchanged");
            } else {
                Tell("file ", name, ' ', bytes.size(), " bytes:\n\xEF\xBB\xBF",
                     ReadText(m_folder.SystemPath() / std::u8string(name.begin(), name.end())));
            }
        }
    }

    std::map<std::string, std::string> m_filesBefore;
    TemporaryFolder m_folder;
    CapturedMessages m_messages;
    std::size_t m_messagesTold = 0;
    std::string m_told;
};

// From the start of the line at which, or in which, the texts differ: a few lines.
std::string Excerpt(const std::string& text, std::size_t difference) {
    const std::size_t line = text.rfind('\n', difference == 0 ? 0 : difference - 1) + 1;
    return text.substr(line, 400);
}

// What was told is left in the working folder: after a change that is meant to be seen, it is the new
// recording.
TEST(Transcript, IsTheSameOnEverySystem) {
    const std::string told = Transcript().Run();
    std::ofstream("transcript.txt", std::ios::binary) << told;
    const std::string expected = ReadBytes(kSource / "tests/transcript/expected.txt");
    const auto [at, _] = std::mismatch(told.begin(), told.end(), expected.begin(), expected.end());
    const auto difference = static_cast<std::size_t>(at - told.begin());
    const std::size_t subject = told.rfind("\nload ", difference) + 1;
    EXPECT_EQ(Excerpt(expected, difference), Excerpt(told, difference))
        << "in line " << std::count(told.begin(), at, '\n') + 1 << " of transcript.txt, after \""
        << told.substr(subject, told.find('\n', subject) - subject) << '"';
    EXPECT_EQ(expected.size(), told.size());
}

}  // namespace
