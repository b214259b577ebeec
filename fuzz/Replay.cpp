// SPDX-License-Identifier: MIT
// A fuzz target without a fuzzer, for every run of the tests: the target gets each file of the folders that
// are named, and then the same changes of them, made up from the fuzzers' dictionary, every time.
#include <cstdint>
#include <map>
#include <random>
#include <vector>

#include "tests/support/TemporaryFolder.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

using Texts = std::vector<std::string>;

void Run(const std::string& input) {
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
}

// The small files of a folder, in the same order on every system.
Texts ReadFiles(const std::filesystem::path& folder) {
    std::map<std::filesystem::path, std::string> texts;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        if (entry.is_regular_file() && entry.file_size() < 5000)
            texts[entry.path()] = ReadBytes(entry.path());
    Texts values;
    for (const auto& [path, text] : texts) values.push_back(text);
    return values;
}

// The lines of the dictionary, without their quotation marks; escapes stand for themselves.
Texts ReadWords(const char* path) {
    Texts words;
    std::ifstream dictionary(path);
    for (std::string line; std::getline(dictionary, line);) words.push_back(line.substr(1, line.size() - 2));
    return words;
}

// Takes something away, or adds a byte, part of a number or a word.
void Change(std::string& text, const Texts& words, std::mt19937& random) {
    const std::size_t at = random() % (text.size() + 1);
    const std::string added[] = {"", std::string(1, static_cast<char>(random() % 256)),
                                 std::string(1, ".:-+/* 0123456789x"[random() % 18]),
                                 words[random() % words.size()]};
    const std::string& chosen = added[random() % std::size(added)];
    text.replace(at, chosen.empty() ? random() % 8 : 0, chosen);
}

}  // namespace

// The arguments: how many changes are made of each file, the dictionary, the folders.
int main(int count, char** arguments) {
    const int changes = std::stoi(arguments[1]);
    const Texts words = ReadWords(arguments[2]);
    std::mt19937 random(1);
    Texts texts = {""};
    for (int i = 3; i < count; ++i)
        for (const std::string& text : ReadFiles(arguments[i])) texts.push_back(text);
    for (const std::string& text : texts) {
        Run(text);
        for (int i = 0; i < changes; ++i) {
            std::string changed = text;
            for (std::size_t steps = 1 + random() % 8; steps > 0; --steps) Change(changed, words, random);
            Run(changed);
        }
    }
    return 0;
}
