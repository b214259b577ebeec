// SPDX-License-Identifier: MIT
// Memory that runs out at a chosen allocation. Linking this replaces the program's operators new and delete.
#pragma once

#include <cstddef>

// From now on allocations are counted, from 1, and the one of that number throws std::bad_alloc; 0 fails
// none.
void PlanAllocationFailure(std::size_t allocation);

// How many allocations there were since then.
std::size_t AllocationCount();

// While one lives, allocations neither count nor fail: a test double stands for a system that has memory of
// its own.
class AllocationsAllowed {
public:
    AllocationsAllowed();
    AllocationsAllowed(const AllocationsAllowed&) = delete;
    AllocationsAllowed& operator=(const AllocationsAllowed&) = delete;
    ~AllocationsAllowed();
};
