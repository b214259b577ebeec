// SPDX-License-Identifier: MIT
// The settings that the option string holds back, as values for an option.
#pragma once

#include "kmArguments.h"
#include "options/OptionTraits.h"

struct HeldBackValue {
    ARGUMENT_FATE fate;  // WRITTEN; DEFAULT; or DROPPED for what no encoder can do
    kmString text;       // of WRITTEN
    kmStringView why;    // of DROPPED
};

// Times become seconds ("90.5"), frame sizes "640x480", as the library reads them; other values stay.
HeldBackValue ReadHeldBack(const Option& option, const kmString& value);
