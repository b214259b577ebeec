// A fuzz target without a fuzzer, for every run of the tests: the target gets each file of the folders that
// are named, and then the same changes of them, made up from the fuzzers' dictionary, every time.
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <set>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

using Texts = std::vector<std::string>;

void Run(const std::string& input) {
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
}

Texts ReadFiles(const std::filesystem::path& folder) {
    std::set<std::filesystem::path> paths;  // in the same order on every system
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        if (entry.is_regular_file() && entry.file_size() < 5000) paths.insert(entry.path());
    Texts texts;
    for (const auto& path : paths) {
        std::ifstream file(path, std::ios::binary);
        texts.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }
    return texts;
}

// The lines of the dictionary, without their quotation marks; escapes stand for themselves.
Texts ReadWords(const char* path) {
    Texts words;
    std::ifstream dictionary(path);
    for (std::string line; std::getline(dictionary, line);) words.push_back(line.substr(1, line.size() - 2));
    return words;
}

void Change(std::string& text, const Texts& words, std::mt19937& random) {
    const std::size_t at = random() % (text.size() + 1);
    switch (random() % 4) {
        case 0:
            text.erase(at, random() % 8);
            break;
        case 1:
            text.insert(at, 1, static_cast<char>(random() % 256));
            break;
        case 2:
            text.insert(at, 1, ".:-+/* 0123456789x"[random() % 18]);
            break;
        default:
            text.insert(at, words[random() % words.size()]);
    }
}

}  // namespace

// The arguments: how many changes are made of each file, the dictionary, the folders.
int main(int count, char** arguments) {
    const int changes = std::stoi(arguments[1]);
    const Texts words = ReadWords(arguments[2]);
    std::mt19937 random(1);
    Texts texts = {""};
    for (int i = 3; i < count; ++i)
        for (std::string& text : ReadFiles(arguments[i])) texts.push_back(std::move(text));
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
