// SPDX-License-Identifier: MIT
#include "arguments/Pattern.h"

#include <algorithm>

namespace {

kmString FillWord(kmStringView word, const PlaceholderValue& valueOf) {
    kmString filled;
    while (!word.empty()) {
        const std::size_t open = word.find(KM_TEXT('{'));
        const std::size_t close = word.find(KM_TEXT('}'), std::min(open, word.size()));
        filled += word.substr(0, close == kmStringView::npos ? close : open);
        if (close == kmStringView::npos) break;
        filled += valueOf(word.substr(open + 1, close - open - 1));
        word.remove_prefix(close + 1);
    }
    return filled;
}

}  // namespace

std::vector<kmString> FillPattern(kmStringView pattern, const PlaceholderValue& valueOf) {
    std::vector<kmString> arguments;
    while (!pattern.empty()) {
        const std::size_t end = std::min(pattern.find(KM_TEXT(' ')), pattern.size());
        arguments.push_back(FillWord(pattern.substr(0, end), valueOf));
        pattern.remove_prefix(std::min(end + 1, pattern.size()));
    }
    return arguments;
}
