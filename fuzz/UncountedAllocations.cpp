// SPDX-License-Identifier: MIT
// The sanitizers watch the memory here, so operators new and delete stay theirs: the disk in memory may
// allocate as it likes.
#include "tests/faults/FailingAllocations.h"

AllocationsAllowed::AllocationsAllowed() = default;
AllocationsAllowed::~AllocationsAllowed() = default;
