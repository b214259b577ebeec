// SPDX-License-Identifier: MIT
// Sizes in bytes as people write and read them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// Whole bytes, or a decimal number followed by K, M or G in either case, which stand for 1024, 1024 x 1024
// and 1024 x 1024 x 1024 bytes. Nothing for any other text.
std::optional<std::int64_t> ReadSize(std::string_view text);

// With a space between groups of three digits.
std::string GroupDigits(std::int64_t number);

// "12.3 MiB"; empty below one kibibyte, where the bytes are readable enough.
std::string InLargeUnits(std::int64_t bytes);

// The bytes, from one kibibyte on also in the largest fitting unit: "2 048 bytes (2.0 KiB)".
std::string SizeText(std::int64_t bytes);
