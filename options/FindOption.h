// SPDX-License-Identifier: MIT
// The look-up under all others, for callers that know how long the name is.
#pragma once

#include "text/Ascii.h"

// The index of the option of that name, in any letter case; -1 when there is none.
int FindOption(kmStringView name);
