// SPDX-License-Identifier: MIT
// The table of the rooms in docs/architecture.md, lowest first, is the order that the sources have to keep.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <string>

namespace {

const std::filesystem::path kSource = KM_SOURCE_DIR;
constexpr const char* kDocument = "docs/architecture.md";

using Ranks = std::map<std::string, int>;  // of the rooms ("xml") and of the public headers ("kmTypes.h")

// A row of the table: | `room/` | `header`, `header` | what it holds |
Ranks ReadTable() {
    const std::regex row(R"(\| `(\w+)/` \| (.*?) ?\|.*)"), header("`([^`]+)`");
    Ranks ranks;
    int rank = 0;
    std::ifstream document(kSource / kDocument);
    std::smatch cells;
    for (std::string line; std::getline(document, line);) {
        if (!std::regex_match(line, cells, row)) continue;
        ranks[cells[1]] = ++rank;
        const std::string headers = cells[2];
        for (std::sregex_iterator at(headers.begin(), headers.end(), header), end; at != end; ++at)
            ranks[at->str(1)] = rank;
    }
    return ranks;
}

void ExpectIncludesOfLowerRooms(const std::filesystem::path& path, int rank, const Ranks& ranks) {
    const std::regex include("#include \"(([^/\"]+)[^\"]*)\".*");
    std::ifstream file(path);
    std::smatch match;
    for (std::string line; std::getline(file, line);) {
        if (!std::regex_match(line, match, include)) continue;
        const auto owner = ranks.find(match[2]);  // the room of an included header, or a public header
        ASSERT_NE(owner, ranks.end())
            << path << " includes " << match[1] << ", which has no room in " << kDocument;
        EXPECT_LE(owner->second, rank) << path << " includes " << match[1] << " of a higher room";
    }
}

TEST(Layers, IncludeOnlyLowerOnes) {
    const Ranks ranks = ReadTable();
    ASSERT_TRUE(ranks.count("text") == 1 && ranks.count("list") == 1) << "no table in " << kDocument;
    for (const auto& [name, rank] : ranks) {
        if (name.ends_with(".h")) {
            ExpectIncludesOfLowerRooms(kSource / "include" / name, rank, ranks);
            continue;
        }
        for (const auto& entry : std::filesystem::directory_iterator(kSource / name))
            ExpectIncludesOfLowerRooms(entry.path(), rank, ranks);
    }
    for (const auto& entry : std::filesystem::directory_iterator(kSource / "include"))
        EXPECT_EQ(ranks.count(entry.path().filename().string()), 1u) << entry.path() << " is in no room";
}

TEST(Licence, StandsInEverySource) {
    int sources = 0;
    for (const auto& room : std::filesystem::directory_iterator(kSource)) {
        const std::string name = room.path().filename().string();
        if (!room.is_directory() || name == "build" || name == ".git") continue;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(room.path())) {
            const std::string extension = entry.path().extension().string();
            if (extension != ".cpp" && extension != ".h") continue;
            std::ifstream file(entry.path());
            std::string line;
            std::getline(file, line);
            EXPECT_EQ(line, "// SPDX-License-Identifier: MIT") << entry.path();
            ++sources;
        }
    }
    EXPECT_GT(sources, 0);
}

}  // namespace
