// SPDX-License-Identifier: MIT
// The patterns of a dialect, filled in.
#pragma once

#include <functional>
#include <vector>

#include "text/Ascii.h"

// The text that a placeholder stands for, by the name between its braces.
using PlaceholderValue = std::function<kmString(kmStringView name)>;

// The arguments of a pattern: its words, each placeholder replaced by its value, which is never taken apart.
std::vector<kmString> FillPattern(kmStringView pattern, const PlaceholderValue& valueOf);
