// SPDX-License-Identifier: MIT
// The operations that the micro-benchmarks measure.
#pragma once

// The names that the targets speak of.
inline constexpr const char* kArguments = "GetAvcString, 30 items";
inline constexpr const char* kAppending = "appending the finished pieces";
inline constexpr const char* kLookUp = "kmArgOption::GetOptionID";
inline constexpr const char* kPerfectHash = "the same by a perfect hash";

// Counters that go with each measurement: how many operations an iteration does, where that is not one, and
// how many allocations it makes.
inline constexpr const char* kOperations = "operations";
inline constexpr const char* kAllocations = "allocations";

// Makes them known to Google Benchmark.
void RegisterMicroCases();
