// SPDX-License-Identifier: MIT
// What somebody may have meant whose word nobody knows.
#pragma once

#include <string>
#include <vector>

// "; did you mean "..."?" with the nearest of the known words, UTF-8; nothing when none is near.
std::string DidYouMean(const std::string& word, const std::vector<std::string>& known);
