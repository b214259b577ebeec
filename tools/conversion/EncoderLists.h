// SPDX-License-Identifier: MIT
// What an encoder program says of itself.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "kmArguments.h"

// Asks the program, ffmpeg or one that takes its arguments, for its codecs and output formats. Throws a
// Failure for a program that cannot be started or lists none.
kmEncoderAbilities ReadAbilities(const std::string& program);

// The names in such a list: the second word of each line after the line of dashes that ends the legend; names
// with commas between them are several.
std::vector<kmString> NamesInList(std::string_view list);
