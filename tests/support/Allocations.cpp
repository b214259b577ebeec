// In a file of its own, because a compiler that sees into these operators while it compiles a test takes them
// for mismatched.
#include "tests/support/Allocations.h"

#include <cstdlib>
#include <new>

#if defined(__SANITIZE_ADDRESS__)
#define KM_COUNTS_ALLOCATIONS 0
#elif defined(__has_feature)
#define KM_COUNTS_ALLOCATIONS !(__has_feature(address_sanitizer) || __has_feature(memory_sanitizer))
#else
#define KM_COUNTS_ALLOCATIONS 1
#endif

#if KM_COUNTS_ALLOCATIONS
namespace {
thread_local long allocations = 0;
}

long AllocationsSoFar() { return allocations; }

void* operator new(std::size_t size) {
    ++allocations;
    if (void* memory = std::malloc(size == 0 ? 1 : size)) return memory;
    throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
#else
long AllocationsSoFar() { return -1; }
#endif
