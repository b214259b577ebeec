// SPDX-License-Identifier: MIT
#include "bench/Generator.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "bench/Vocabulary.h"

namespace fs = std::filesystem;

namespace {

// splitmix64. Not the standard library's distributions: those differ from one implementation to the next.
class Random {
public:
    explicit Random(std::uint64_t seed) : m_state(seed) {}

    std::uint64_t Below(std::uint64_t limit) {
        m_state += 0x9E3779B97F4A7C15u;
        std::uint64_t z = m_state;
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
        return (z ^ (z >> 31)) % limit;
    }

    bool Percent(std::uint64_t chance) { return Below(100) < chance; }

    template <std::size_t N>
    std::string_view Pick(const std::string_view (&words)[N]) {
        return words[Below(N)];
    }

    std::string_view PickFrom(std::string_view list) {
        const auto commas = static_cast<std::uint64_t>(std::count(list.begin(), list.end(), ','));
        for (std::uint64_t skip = Below(commas + 1); skip > 0; --skip) list.remove_prefix(list.find(',') + 1);
        return list.substr(0, list.find(','));
    }

private:
    std::uint64_t m_state;
};

std::string Numbered(std::string_view text, std::size_t number) {
    char digits[24];
    std::snprintf(digits, sizeof digits, " %05zu", number);
    return std::string(text).append(digits);
}

// The text of one profile, in the layout that the library writes.
class ProfileText {
public:
    ProfileText(Random& random, std::string& text) : m_random(random), m_text(text) {}

    void Write(std::string_view name, bool isSystem) {
        m_text.assign("<?xml version=\"1.0\" encoding=\"utf-16\"?>\n<Profiles>\n");
        WriteMain(name, isSystem);
        if (isSystem) WriteGroups();
        m_text.append("\t<Parameter>\n");
        for (const VocabularyItem& item : kVocabulary) {
            if (item.isAlwaysThere || m_random.Percent(kOptionalPercent)) WriteItem(item);
        }
        m_text.append("\t</Parameter>\n</Profiles>\n");
    }

private:
    // Chosen so that the averages come out as promised.
    static constexpr std::uint64_t kOptionalPercent = 57;
    static constexpr std::uint64_t kValuePercent = 97;
    static constexpr std::uint64_t kReadOnlyPercent = 25;

    void WriteMain(std::string_view name, bool isSystem) {
        const std::string_view extension = m_random.Pick(kExtensions);
        m_text.append("\t<Main>\n");
        WriteLanguage("Name", name);
        WriteLanguage("Desc", m_random.Pick(kDescriptions));
        if (isSystem) WriteTextElement("IsSysProfile", "yes");
        WriteTextElement("SName", extension);
        WriteTextElement("Format", extension);
        WriteTextElement("ExtName", extension);
        m_text.append("\t</Main>\n");
    }

    void WriteGroups() {
        m_text.append("\t<Group>\n");
        WriteLanguage("GroupName", m_random.Pick(kGroups));
        if (m_random.Percent(10)) WriteLanguage("GroupName", m_random.Pick(kGroups));
        m_text.append("\t</Group>\n");
    }

    void WriteLanguage(std::string_view element, std::string_view value) {
        m_text.append("\t\t<").append(element);
        WriteAttribute("language", value);
        m_text.append("/>\n");
    }

    void WriteTextElement(std::string_view element, std::string_view value) {
        m_text.append("\t\t<").append(element).append(">\n\t\t\t").append(value);
        m_text.append("\n\t\t</").append(element).append(">\n");
    }

    void WriteAttribute(std::string_view name, std::string_view value) {
        if (value.empty()) return;
        m_text.append(" ").append(name).append("=\"").append(value).append("\"");
    }

    void WriteItem(const VocabularyItem& item) {
        const std::string priority = std::to_string(&item - kVocabulary + 1);
        m_text.append("\t\t<").append(item.id);
        const std::string_view values = item.candidates.empty() ? item.values : item.candidates;
        if (m_random.Percent(kValuePercent)) WriteAttribute("Value", m_random.PickFrom(values));
        WriteAttribute("advPriority", priority);
        WriteAttribute("advName", item.advName);
        WriteAttribute("advGroup", item.advGroup);
        if (m_random.Percent(kReadOnlyPercent)) WriteAttribute("advReadOnly", "yes");
        if (!item.candidates.empty()) WriteAttribute("advHasCandidates", "yes");
        WriteAttribute("advCandidatesDisplay", item.display);
        WriteAttribute("advCandidatesValue", item.candidates);
        if (!item.simpleName.empty()) WriteSimpleView(item, priority);
        m_text.append("/>\n");
    }

    void WriteSimpleView(const VocabularyItem& item, std::string_view priority) {
        WriteAttribute("simplePriority", priority);
        WriteAttribute("simpleName", item.simpleName);
        WriteAttribute("simpleHasCandidates", "yes");
        WriteAttribute("simpleCandidatesDiaplay", item.simpleDisplay);
        WriteAttribute("simpleCandidatesValue", item.simpleCandidates);
    }

    Random& m_random;
    std::string& m_text;
};

// Writes ASCII text as marked UTF-16; keeps its buffer, because there may be very many files.
class FileWriter {
public:
    void Write(const fs::path& path, std::string_view text) {
        m_bytes.assign("\xFF\xFE");
        for (const char c : text) m_bytes.append({c, '\0'});
        std::ofstream file(path, std::ios::binary);
        file.write(m_bytes.data(), static_cast<std::streamsize>(m_bytes.size()));
        if (!file.flush()) throw std::runtime_error("cannot write " + path.string());
    }

private:
    std::string m_bytes;
};

void AppendIcon(std::string& text, std::string_view id, std::string_view image, std::size_t index) {
    text.append("\t\t<item id=\"").append(id).append("\" image=\"").append(image);
    text.append("\" index=\"").append(std::to_string(index)).append("\"/>\n");
}

std::string IconIndex() {
    std::string text = "<?xml version=\"1.0\" encoding=\"utf-16\"?>\n<items>\n";
    text.append("\t<groups SingleFile=\"yes\" width=\"16\" height=\"16\" transclr=\"RGB(255,0,255)\">\n");
    AppendIcon(text, "default", "group.bmp", 0);
    for (const std::string_view& group : kGroups) {
        AppendIcon(text, group, "group.bmp", static_cast<std::size_t>(&group - kGroups) + 1);
    }
    text.append("\t</groups>\n\t<profiles SingleFile=\"yes\" width=\"32\" height=\"32\">\n");
    AppendIcon(text, "default", "profile.bmp", 0);
    return text.append("\t</profiles>\n</items>\n");
}

}  // namespace

void WriteProfileFolder(const fs::path& folder, std::size_t files, std::uint64_t seed) {
    Random random(seed);
    FileWriter writer;
    std::string text;
    fs::create_directories(folder / "user");
    for (std::size_t i = 0; i < files; ++i) {
        std::string name(random.Pick(kDevices));
        name.append(" ").append(random.Pick(kCodecs)).append(" ").append(random.Pick(kSizes));
        name = Numbered(name, i);
        const bool isSystem = !random.Percent(5);
        ProfileText(random, text).Write(name, isSystem);
        writer.Write((isSystem ? folder : folder / "user") / (name + ".pf"), text);
    }
    writer.Write(folder / "pficon.con", IconIndex());
    writer.Write(folder / "user" / "userpf.con", "<items>\n\t<user_pf/>\n</items>\n");
}
