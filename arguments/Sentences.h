// SPDX-License-Identifier: MIT
// What became of a setting, in English.
#pragma once

#include "kmArguments.h"
#include "text/Ascii.h"

// `correction` and `why` finish sentences: why the value was corrected, and why the setting was translated or
// dropped; both may be empty.
kmString DescribeFate(const kmArgument& setting, kmStringView correction, kmStringView why);
