// SPDX-License-Identifier: MIT
// docs/json.md and what the commands print: the same keys.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <nlohmann/json.hpp>
#include <regex>
#include <sstream>

#include "tests/tools/RunTool.h"

namespace {

using Keys = std::set<std::string>;
using Json = nlohmann::json;

// Of every command in the document: a heading, then the keys in the first column.
std::map<std::string, Keys> ReadDocument() {
    std::map<std::string, Keys> commands;
    std::ifstream file(std::filesystem::path(KM_SOURCE_DIR) / "docs/json.md");
    const std::regex heading("## (.*)"), row(R"(\| `([^`]+)` \|.*)");
    std::string command;
    std::smatch found;
    for (std::string line; std::getline(file, line);) {
        if (std::regex_match(line, found, heading)) command = found[1];
        if (std::regex_match(line, found, row)) commands[command].insert(found[1]);
    }
    return commands;
}

bool IsNested(const Json& json) {
    return json.is_object() || (json.is_array() && !json.empty() && json[0].is_object());
}

void CollectKeys(const Json& json, const std::string& at, Keys& keys) {
    if (json.is_array()) {
        for (const Json& element : json) CollectKeys(element, at + "[]", keys);
    } else if (json.is_object()) {
        for (const auto& [key, value] : json.items())
            CollectKeys(value, at.empty() ? key : at + '.' + key, keys);
    }
    if (!at.empty() && !json.is_object() && !(json.is_array() && (IsNested(json) || json.empty())))
        keys.insert(at);
}

// What can only be seen where there is something to put into it stands in the document as an array and as its
// elements.
Keys WithoutArrays(Keys keys) {
    Keys bare;
    for (const std::string& key : keys) {
        const bool isArray = std::any_of(keys.begin(), keys.end(), [&key](const std::string& other) {
            return other.starts_with(key + "[]");
        });
        if (!isArray) bare.insert(key);
    }
    return bare;
}

// By their names in the document.
const std::map<std::string, std::vector<std::string>> kRuns = {
    {"list", {"list"}},
    {"show", {"show", "Holiday Clips"}},
    {"lint", {"lint"}},
    {"diff", {"diff", "Holiday Clips", "Phone 240p"}},
    {"args", {"args", "Holiday Clips"}},
    {"explain", {"explain", "MP3 - Voice 22050Hz", "--for", "ffmpeg"}},
    {"available", {"available", "--encoder", "./encoder"}},
    {"estimate", {"estimate", "Holiday Clips", "--duration", "60"}},
    {"estimate --fit", {"estimate", "Holiday Clips", "--duration", "60", "--fit", "9M"}},
    {"edit", {"edit", "Holiday Clips", "Phone 240p"}},
    {"icon", {"icon", "Holiday Clips"}},
    {"check", {"check", "b", "x"}},
    {"options", {"options", "vcodec"}},
    {"where", {"where"}},
};

TEST(Json, KeysAreThoseOfTheDocument) {
    const TemporaryFolder folder;
    std::filesystem::copy(std::filesystem::path(KM_SOURCE_DIR) / "samples/Profiles",
                          folder.SystemPath(KM_TEXT("p")), std::filesystem::copy_options::recursive);
    folder.WriteBytes(KM_TEXT("p\\broken.pf"), "<Profiles>");
    folder.WriteBytes(KM_TEXT("encoder"), "#!/bin/sh\nprintf 'A\\n --\\n E a b\\n'\n");
    std::filesystem::permissions(folder.SystemPath(KM_TEXT("encoder")), std::filesystem::perms::owner_all);
    const std::map<std::string, Keys> documented = ReadDocument();
    ASSERT_EQ(documented.size(), kRuns.size());
    for (auto [command, words] : kRuns) {
        words.insert(words.end(), {"--folder", "p", "--json"});
        const ToolRun run = RunTool(folder, words);
        const Json json = Json::parse(run.output, nullptr, /*allow_exceptions=*/false);
        ASSERT_TRUE(json.is_object()) << run;
        Keys printed;
        CollectKeys(json, {}, printed);
        const auto keys = documented.find(command);
        ASSERT_NE(keys, documented.end()) << command << " is not in the document";
        EXPECT_EQ(WithoutArrays(keys->second), WithoutArrays(printed)) << command;
    }
}

}  // namespace
