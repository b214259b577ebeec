// SPDX-License-Identifier: MIT
// The options that an option string never holds.
#pragma once

#include "kmExport.h"
#include "kmTypes.h"

// Whether the option (without its "-", in any letter case) is held back from kmProfile::GetAvcString: start
// time, duration, frame size, frame rate, picture interval and zoom, which whoever starts the encoder applies
// by other means. False for a null name and for names of no option.
KM_EXPORT bool kmIsHeldBack(const kmChar* name);
