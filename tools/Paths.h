// SPDX-License-Identifier: MIT
// Where profiles are. Folders and paths are the library's: "\" separates, and folders end with it.
#pragma once

#include <filesystem>
#include <string>

#include "kmTypes.h"

// The profiles folder that the command line names; the default one for an empty argument.
kmString ProfilesFolder(const std::string& argument);

// A path as a program's argument gives it, UTF-8, as the machine takes paths; and back.
std::filesystem::path SystemPath(const std::string& path);
std::string Utf8FromSystemPath(const std::filesystem::path& path);

// Whether there is anything of that name, links followed.
bool PathExists(const kmString& path);

// Whether the folder's files can be listed.
bool IsReadableFolder(const kmString& path);
