// SPDX-License-Identifier: MIT
// What the library's look-up of options is measured against.
#pragma once

#include "kmTypes.h"

// The index of the option of that name in any ASCII letter case, or -1: by a perfect hash, as generators of
// such functions make them. It looks at the length and a few characters of the name, computes the one slot in
// which the option must be, and compares the name there.
int FindByPerfectHash(const kmChar* name);
