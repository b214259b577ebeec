// SPDX-License-Identifier: MIT
// The steps whose growth is measured.
#pragma once

#include <vector>

#include "bench/Growth.h"

// On XML of many shapes; sizes are units of text.
std::vector<GrowthCase> TextCases();

// On profiles and the catalogue; sizes are numbers of items, candidates or group names.
std::vector<GrowthCase> ProfileCases();
