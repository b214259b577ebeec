// The README's table of the rooms, lowest first, is the order that the sources have to keep.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <vector>

namespace {

const std::filesystem::path kSource = KM_SOURCE_DIR;

using Ranks = std::map<std::string, int>;  // of the rooms ("xml") and of the public headers ("kmTypes.h")

// The texts between the backquotes of a cell.
std::vector<std::string> QuotedIn(const std::string& cell) {
    std::vector<std::string> texts;
    for (std::size_t start = cell.find('`'); start != std::string::npos; start = cell.find('`', start + 1)) {
        const std::size_t end = std::min(cell.find('`', start + 1), cell.size());
        texts.push_back(cell.substr(start + 1, end - start - 1));
        start = end;
    }
    return texts;
}

// A row of the table: | `room/` | `header`, `header` | what it holds |
Ranks ReadTable() {
    Ranks ranks;
    int rank = 0;
    std::ifstream readme(kSource / "README.md");
    for (std::string line; std::getline(readme, line);) {
        const std::size_t secondCell = line.find(" |", 3);
        if (!line.starts_with("| `") || secondCell == std::string::npos) continue;
        const std::size_t thirdCell = std::min(line.find(" |", secondCell + 2), line.size());
        const std::vector<std::string> room = QuotedIn(line.substr(0, secondCell));
        if (room.size() != 1 || !room[0].ends_with('/')) continue;
        ranks[room[0].substr(0, room[0].size() - 1)] = ++rank;
        for (const std::string& header : QuotedIn(line.substr(secondCell, thirdCell - secondCell)))
            ranks[header] = rank;
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
