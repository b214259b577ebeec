// SPDX-License-Identifier: MIT
// docs/file-format.md and the schema say what the tables of the library say.
#include <gtest/gtest.h>

#include <algorithm>
#include <regex>
#include <string>
#include <vector>

#include "catalogue/GroupOrder.h"
#include "document/HeaderFields.h"
#include "document/ItemFields.h"
#include "kmHeldBack.h"
#include "kmLint.h"
#include "options/OptionTraits.h"
#include "tests/support/ProfilesFolder.h"
#include "text/Numbers.h"

namespace {

using Names = std::vector<std::string>;

const std::filesystem::path kDocuments = std::filesystem::path(KM_SOURCE_DIR) / "docs";
const std::string kGuide = ReadBytes(kDocuments / "file-format.md");
const std::string kSchema = ReadBytes(kDocuments / "profile.xsd");

// What stands behind `begin`, up to the next `end`.
std::string Part(const std::string& text, const std::string& begin, const std::string& end) {
    const std::size_t start = text.find(begin);
    if (start == std::string::npos) return "nothing behind " + begin;
    return text.substr(start + begin.size(), text.find(end, start + begin.size()) - start - begin.size());
}

Names Matches(const std::string& text, const char* pattern) {
    const std::regex expression(pattern);
    Names names;
    for (std::sregex_iterator at(text.begin(), text.end(), expression), none; at != none; ++at)
        names.push_back(at->str(1));
    return names;
}

Names Sorted(Names names) {
    std::sort(names.begin(), names.end());
    return names;
}

template <class Row, std::size_t kCount>
Names NamesOf(const Row (&rows)[kCount]) {
    Names names;
    for (const Row& row : rows) names.push_back(Utf8(row.name));
    return names;
}

template <class Wanted>
Names OptionsWith(Wanted isWanted) {
    Names names;
    for (const Option& option : kOptions) {
        if (isWanted(option)) names.push_back(Utf8(option.name));
    }
    return names;
}

constexpr const char* kFirstCell = "\n\\| `(\\w+)` \\|";
constexpr const char* kQuoted = "`([^`]+)`";

TEST(FileFormat, TablesAreTheLibrarys) {
    EXPECT_EQ(Matches(Part(kGuide, "\n## The header\n", "\n## "), kFirstCell), NamesOf(kHeaderFields));
    EXPECT_EQ(Matches(Part(kGuide, "\n## Settings\n", "\n## "), kFirstCell), NamesOf(kItemFields));

    Names groups;
    for (const kmStringView name : kGroupOrder) groups.push_back(Utf8(name));
    groups.push_back(Utf8(kOtherGroup));
    EXPECT_EQ(Matches(Part(kGuide, "\n## Groups\n", "\n## "), "\n\\d+\\. `([^`]+)`"), groups);
}

TEST(FileFormat, SpecialOptionsAreTheLibrarys) {
    EXPECT_EQ(Sorted(Matches(Part(kGuide, "**held back**:", ";"), kQuoted)),
              Sorted(OptionsWith([](const Option& option) { return kmIsHeldBack(option.name.data()); })));
    EXPECT_EQ(Sorted(Matches(Part(kGuide, "application alone:", ";"), kQuoted)),
              Sorted(OptionsWith([](const Option& option) { return (option.flags & ARG_NOT_PASSED) != 0; })));
    EXPECT_EQ(
        Sorted(Matches(Part(kGuide, "settings are left out:", "."), kQuoted)),
        Sorted(OptionsWith([](const Option& option) { return (option.traits & TRAIT_SET_BY_TARGET) != 0; })));
}

TEST(FileFormat, DefaultsAreTheLibrarys) {
    const std::string values = Part(kGuide, "\n## Values\n", "\n## ");
    const Names rows = Matches(values, "\n\\| (.*`.*) \\|(?=\n)");
    EXPECT_FALSE(rows.empty());
    for (const std::string& row : rows) {
        const std::string said = row.substr(row.rfind("| ") + 2);
        for (const std::string& name : Matches(row.substr(0, row.find(" |")), kQuoted)) {
            const kmChar* value = kmArgOption::GetOptionDefVal(Text(name).c_str());
            EXPECT_EQ(said, value == nullptr ? "none" : "`" + Utf8(value) + "`") << name;
        }
    }
}

TEST(FileFormat, SchemaHasEveryOptionAndAttribute) {
    EXPECT_EQ(Matches(kSchema, "<xs:element name=\"([^\"]+)\" type=\"Setting\"/>"),
              OptionsWith([](const Option& option) { return !IsDigit(option.name.front()); }));
    EXPECT_EQ(Matches(Part(kSchema, "<xs:complexType name=\"Setting\">", "</xs:complexType>"),
                      "<xs:attribute name=\"(\\w+)\""),
              NamesOf(kItemFields));
}

TEST(FileFormat, ExamplesAreSound) {
    const ProfilesFolder folder;
    const std::string icons = Part(kGuide, "\n## Icons\n", "nothing");
    folder.AddProfile("Pocket Player", Part(kGuide, "```xml\n", "```"));
    folder.AddProfile("user\\Holiday Clips", ReadBytes(kDocuments.parent_path() / "samples" / "Profiles" /
                                                       "user" / "Holiday Clips.pf"));
    folder.WriteBytes(Text("pficon.con"), Part(icons, "```xml\n", "```"));
    folder.WriteBytes(Text("user\\userpf.con"),
                      Part(icons.substr(icons.find("</items>")), "```xml\n", "```"));
    for (const kmLintFinding& lint : kmLintFolder(folder.Path({}))) {
        const bool isExpected = lint.code == LINT_DROPPED_COMMENT || lint.path.ends_with(KM_TEXT("Clips.pf"));
        EXPECT_TRUE(isExpected) << Utf8(lint.path) << ':' << lint.line << ' ' << lint.name << ' '
                                << Utf8(lint.what);
    }
}

}  // namespace
