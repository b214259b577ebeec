// The README's table of the rooms, lowest first, is the order that the sources have to keep.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <string>

namespace {

const std::filesystem::path kSource = KM_SOURCE_DIR;

using Ranks = std::map<std::string, int>;  // of the rooms ("xml") and of the public headers ("kmTypes.h")

// A row of the table: | `room/` | `header`, `header` | what it holds |
Ranks ReadTable() {
    const std::regex row(R"(\| `([a-z]+)/` \|([^|]*)\|.*)"), header("`(km[A-Za-z0-9]+[.]h)`");
    Ranks ranks;
    int rank = 0;
    std::ifstream readme(kSource / "README.md");
    for (std::string line; std::getline(readme, line);) {
        std::smatch cells;
        if (!std::regex_match(line, cells, row)) continue;
        ranks[cells[1]] = ++rank;
        const std::string headers = cells[2];
        for (std::sregex_iterator at(headers.begin(), headers.end(), header), end; at != end; ++at)
            ranks[(*at)[1]] = rank;
    }
    return ranks;
}

// The room of an included header, or of a public one.
std::string OwnerOf(const std::string& header) { return header.substr(0, header.find('/')); }

void ExpectIncludesOfLowerRooms(const std::filesystem::path& path, int rank, const Ranks& ranks) {
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
        if (line.rfind("#include \"", 0) != 0) continue;
        const std::string header = line.substr(10, line.find('"', 10) - 10);
        const auto owner = ranks.find(OwnerOf(header));
        if (owner == ranks.end()) {
            ADD_FAILURE() << path << " includes " << header << ", which the README's table gives no room";
        } else {
            EXPECT_LE(owner->second, rank) << path << " includes " << header << " of a higher room";
        }
    }
}

TEST(Layers, IncludeOnlyLowerOnes) {
    const Ranks ranks = ReadTable();
    ASSERT_TRUE(ranks.count("text") == 1 && ranks.count("list") == 1) << "no table in README.md";
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

}  // namespace
