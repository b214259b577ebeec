// SPDX-License-Identifier: MIT
// docs/file-format.md and the schema say what the tables of the library say.
#include <gtest/gtest.h>

#include <regex>
#include <string>
#include <vector>

#include "catalogue/GroupOrder.h"
#include "document/HeaderFields.h"
#include "document/ItemFields.h"
#include "options/OptionTraits.h"
#include "tests/support/TemporaryFolder.h"
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

template <class Row, std::size_t kCount>
Names NamesOf(const Row (&rows)[kCount]) {
    Names names;
    for (const Row& row : rows) names.push_back(Utf8(row.name));
    return names;
}

constexpr const char* kFirstCell = "\n\\| `(\\w+)` \\|";

TEST(FileFormat, TablesAreTheLibrarys) {
    EXPECT_EQ(Matches(Part(kGuide, "\n## The header\n", "\n## "), kFirstCell), NamesOf(kHeaderFields));
    EXPECT_EQ(Matches(Part(kGuide, "\n## Settings\n", "\n## "), kFirstCell), NamesOf(kItemFields));

    Names groups;
    for (const kmStringView name : kGroupOrder) groups.push_back(Utf8(name));
    groups.push_back(Utf8(kOtherGroup));
    EXPECT_EQ(Matches(Part(kGuide, "\n## Groups\n", "\n## "), "\n\\d+\\. `([^`]+)`"), groups);
}

TEST(FileFormat, SchemaHasEveryOptionAndAttribute) {
    Names options;
    for (const Option& option : kOptions)
        if (!IsDigit(option.name.front())) options.push_back(Utf8(option.name));
    EXPECT_EQ(Matches(kSchema, "<xs:element name=\"([^\"]+)\" type=\"Setting\"/>"), options);
    EXPECT_EQ(Matches(Part(kSchema, "<xs:complexType name=\"Setting\">", "</xs:complexType>"),
                      "<xs:attribute name=\"(\\w+)\""),
              NamesOf(kItemFields));
}

}  // namespace
