// SPDX-License-Identifier: MIT
// The system's two runtimes, asked directly: the compiler would put functions of its own in their place.
#pragma once

#include <windows.h>

#include <stdexcept>
#include <string>

struct Runtime {
    std::string name;
    long (*toLong)(const wchar_t*, wchar_t**, int) = nullptr;
    double (*toDouble)(const wchar_t*, wchar_t**) = nullptr;
    int (*compareNoCase)(const wchar_t*, const wchar_t*) = nullptr;

    explicit Runtime(const char* library) : name(library), m_module(LoadLibraryA(library)) {
        Find(toLong, "wcstol");
        Find(toDouble, "wcstod");
        Find(compareNoCase, "_wcsicmp");
    }

    bool IsNewer() const { return name == "ucrtbase.dll"; }

private:
    template <class Function>
    void Find(Function& function, const char* entry) {
        function = reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(m_module, entry)));
        if (function == nullptr) throw std::runtime_error(name + " has no " + entry);
    }

    HMODULE m_module;
};

inline const Runtime kRuntimes[] = {Runtime("msvcrt.dll"), Runtime("ucrtbase.dll")};
