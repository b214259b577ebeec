// SPDX-License-Identifier: MIT
#include "Environment.h"

#include <cstdlib>

std::string EnvironmentVariable(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? std::string() : value;
}

// A relative path there is not valid.
std::string UserDataFolder() {
    std::string data = EnvironmentVariable("XDG_DATA_HOME");
    if (data.starts_with('/')) return data;
    const std::string home = EnvironmentVariable("HOME");
    return home.starts_with('/') ? home + "/.local/share" : std::string();
}
