// SPDX-License-Identifier: MIT
#include "Environment.h"

#include <cstdlib>
#include <string_view>

#include "kmText.h"

// The wide form: the narrow one has lost what its code page lacks.
std::string EnvironmentVariable(const char* name) {
    const wchar_t* value = _wgetenv(kmTextFromUtf8(name).c_str());
    return value == nullptr ? std::string() : kmUtf8FromText(value);
}

std::string UserDataFolder() { return EnvironmentVariable("APPDATA"); }
