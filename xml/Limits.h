// SPDX-License-Identifier: MIT
// How large a file may be.
#pragma once

#include <cstdint>

// In bytes. Larger files are not read and not written: no profile comes near, and memory is bounded.
inline constexpr std::uint64_t kLargestFile = std::uint64_t{64} << 20;
