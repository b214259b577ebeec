// SPDX-License-Identifier: MIT
#include "Suggestion.h"

#include <string_view>

#include "Printable.h"
#include "kmNearest.h"
#include "kmText.h"

std::string DidYouMean(const std::string& word, const std::vector<std::string>& known) {
    std::vector<kmString> texts;
    texts.reserve(known.size());
    for (const std::string& each : known) texts.push_back(kmTextFromUtf8(each));
    const std::vector<std::basic_string_view<kmChar>> views(texts.begin(), texts.end());
    const std::basic_string_view<kmChar> nearest = kmFindNearest(kmTextFromUtf8(word), views);
    return nearest.empty() ? std::string() : "; did you mean " + Quoted(kmUtf8FromText(nearest)) + '?';
}
