// SPDX-License-Identifier: MIT
// Folders of profiles for measuring, of any size.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>

// Writes `files` profiles into `folder`, which must exist, and both icon indexes. They are made from
// the sample profiles' settings and words: on average 11.2 KB of UTF-16 with a mark, 39 elements and 188
// attributes. One of twenty is a user's profile, in the subfolder "user"; the others are the system's, in
// groups. The same seed gives the same bytes on every machine. Throws std::runtime_error when the disk fails.
//
// All text is ASCII: the readers that convert to UTF-8 get their best case.
void WriteProfileFolder(const std::filesystem::path& folder, std::size_t files, std::uint64_t seed);
