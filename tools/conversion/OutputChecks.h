// SPDX-License-Identifier: MIT
// What no output may do.
#pragma once

#include <filesystem>

// The folder that a file is in, also that of a name alone.
std::filesystem::path FolderOf(const std::filesystem::path& file);

void RequireFolder(const std::filesystem::path& folder);
void RequireOther(const std::filesystem::path& output, const std::filesystem::path& input);
[[noreturn]] void RefuseToReplace(const std::filesystem::path& file);
