// SPDX-License-Identifier: MIT
#include "tests/faults/FailingAllocations.h"

#include <cstdlib>
#include <new>

namespace {

std::size_t planned = 0;
std::size_t count = 0;
int allowed = 0;

void* Allocate(std::size_t size) {
    if (allowed == 0 && ++count == planned) throw std::bad_alloc();
    if (void* memory = std::malloc(size == 0 ? 1 : size)) return memory;
    throw std::bad_alloc();
}

}  // namespace

void PlanAllocationFailure(std::size_t allocation) {
    planned = allocation;
    count = 0;
}

std::size_t AllocationCount() { return count; }

AllocationsAllowed::AllocationsAllowed() { ++allowed; }
AllocationsAllowed::~AllocationsAllowed() { --allowed; }

void* operator new(std::size_t size) { return Allocate(size); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
