// SPDX-License-Identifier: MIT
#include "arguments/Pattern.h"

#include <algorithm>
#include <iterator>

namespace {

kmString Escape(kmStringView text, kmStringView special) {
    kmString escaped;
    for (const kmChar c : text) {
        if (special.find(c) != kmStringView::npos) escaped += KM_TEXT('\\');
        escaped += c;
    }
    return escaped;
}

// Read twice there: first the list is taken apart, then the filter's options.
kmString EscapeForFilter(kmStringView value) {
    return Escape(Escape(value, KM_TEXT("\\':")), KM_TEXT("\\'[],;"));
}

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
        const bool isFilter = !arguments.empty() &&
                              std::find(std::begin(kFilterLists), std::end(kFilterLists), arguments.back()) !=
                                  std::end(kFilterLists);
        const auto escaped = [&valueOf](kmStringView name) { return EscapeForFilter(valueOf(name)); };
        arguments.push_back(isFilter ? FillWord(pattern.substr(0, end), escaped)
                                     : FillWord(pattern.substr(0, end), valueOf));
        pattern.remove_prefix(std::min(end + 1, pattern.size()));
    }
    return arguments;
}
