// SPDX-License-Identifier: MIT
// Steps on files that must not be two.
#pragma once

#include <filesystem>
#include <system_error>

// Makes an empty file; std::errc::file_exists when there is something of that name.
std::error_code MakeNewFile(const std::filesystem::path& path);

// Gives the file a name in the same folder; std::errc::file_exists when there is something of that name.
std::error_code MoveToNew(const std::filesystem::path& from, const std::filesystem::path& to);
