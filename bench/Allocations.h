// SPDX-License-Identifier: MIT
// Counting the allocations of a program that links Allocations.cpp, which replaces the global operator new.
#pragma once

#include <cstddef>

// Since the start of the program, in all threads together.
std::size_t CountAllocations();

// Those of one call.
template <class Call>
std::size_t AllocationsOf(Call call) {
    const std::size_t before = CountAllocations();
    call();
    return CountAllocations() - before;
}
