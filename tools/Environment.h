// SPDX-License-Identifier: MIT
// What the system says about the user; UTF-8. What another system does differently stays in Environment.cpp.
#pragma once

#include <string>

// Empty when it is not set.
std::string EnvironmentVariable(const char* name);

// The folder in which programs keep a user's data; empty when there is none.
std::string UserDataFolder();
