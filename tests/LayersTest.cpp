#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <string>

// Layers of the same rank do not know each other.
// clang-format off
const std::map<std::string, int> kRanks = {
    {"include", -1}, {"platform", 0}, {"text", 1}, {"xml", 2}, {"options", 2}, {"icons", 3}, {"profile", 3},
    {"catalogue", 4}, {"list", 4}};
// clang-format on

TEST(Layers, IncludeOnlyLowerOnes) {
    int seen = 0;
    for (const auto& [layer, rank] : kRanks) {
        const auto folder = std::filesystem::path(KM_SOURCE_DIR) / layer;
        if (!std::filesystem::exists(folder)) continue;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
            std::ifstream file(entry.path());
            for (std::string line; std::getline(file, line);) {
                if (line.rfind("#include \"", 0) != 0) continue;
                const std::string header = line.substr(10, line.find('"', 10) - 10);
                const std::string target = header.substr(0, header.find('/'));
                ++seen;
                if (target == layer || target == header) continue;  // without a folder: from include/
                const auto found = kRanks.find(target);
                EXPECT_TRUE(found != kRanks.end() && found->second < rank) << entry.path() << header;
            }
        }
    }
    EXPECT_GT(seen, 0) << "no sources in " << KM_SOURCE_DIR;
}
