// SPDX-License-Identifier: MIT
// The reason that kmLastFileFault gives. Whoever sees a step of the machine fail notes it at once: tidying up
// may take further steps.
#pragma once

#include "kmFileFault.h"

// The reason that the machine gives for the step that has just failed, or one that is known here.
void NoteFault();
void NoteFault(FILE_FAULT fault);
