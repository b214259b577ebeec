// SPDX-License-Identifier: MIT
#include "conversion/EncoderLists.h"

#include <sstream>

#include "Failure.h"
#include "Printable.h"
#include "conversion/ChildProcess.h"
#include "kmText.h"

namespace {

std::vector<kmString> AskFor(const std::string& program, const std::string& list) {
    std::string answer;
    const auto take = [&answer](std::string_view bytes) { answer += bytes; };
    const auto ignore = [](std::string_view /*bytes*/) {};
    RunChild(program, {"-hide_banner", "-loglevel", "quiet", list}, take, ignore);
    std::vector<kmString> names = NamesInList(answer);
    if (names.empty()) throw Failure(Quoted(program) + " does not list what it can do (" + list + ")");
    return names;
}

}  // namespace

std::vector<kmString> NamesInList(std::string_view list) {
    std::istringstream lines{std::string(list)};
    std::vector<kmString> names;
    bool isAfterLegend = false;
    for (std::string line, flags, all; std::getline(lines, line);) {
        std::istringstream words(line);
        words >> flags >> all;
        if (isAfterLegend) {
            std::istringstream several(all);
            for (std::string name; std::getline(several, name, ',');) names.push_back(kmTextFromUtf8(name));
        } else {
            isAfterLegend = flags.size() > 1 && flags.find_first_not_of('-') == std::string::npos;
        }
    }
    return names;
}

kmEncoderAbilities ReadAbilities(const std::string& program) {
    return {AskFor(program, "-encoders"), AskFor(program, "-muxers")};
}
