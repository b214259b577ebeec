// SPDX-License-Identifier: MIT
// The patterns of a dialect, filled in.
#pragma once

#include <functional>
#include <vector>

#include "text/Ascii.h"

// The text that a placeholder stands for, by the name between its braces.
using PlaceholderValue = std::function<kmString(kmStringView name)>;

// Options whose argument is a list of filters; an encoder takes each once.
inline constexpr kmStringView kFilterLists[] = {KM_TEXT("-vf"), KM_TEXT("-af")};

// The arguments of a pattern: its words, each placeholder replaced by its value, which is never taken apart:
// in a list of filters what could end a value there, or begin another filter, is escaped.
std::vector<kmString> FillPattern(kmStringView pattern, const PlaceholderValue& valueOf);
