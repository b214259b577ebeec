// SPDX-License-Identifier: MIT
// Paths of the encoder's files, which the standard library handles.
#pragma once

#include <filesystem>
#include <string>

// A path as a program's argument gives it, UTF-8, as the machine takes paths; and back.
std::filesystem::path SystemPath(const std::string& path);
std::string Utf8FromSystemPath(const std::filesystem::path& path);
