// SPDX-License-Identifier: MIT
#include "bench/Allocations.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::size_t> allocations = 0;

void* Count(void* memory) {
    if (memory == nullptr) throw std::bad_alloc();
    allocations.fetch_add(1, std::memory_order_relaxed);
    return memory;
}

}  // namespace

std::size_t CountAllocations() { return allocations.load(std::memory_order_relaxed); }

// The forms for arrays, and those that do not throw, end up here too.
void* operator new(std::size_t size) { return Count(std::malloc(size == 0 ? 1 : size)); }

void* operator new(std::size_t size, std::align_val_t alignment) {
    const auto unit = static_cast<std::size_t>(alignment);
    return Count(std::aligned_alloc(unit, (size + unit - 1) / unit * unit));
}

void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete(void* memory, std::align_val_t) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t, std::align_val_t) noexcept { std::free(memory); }
