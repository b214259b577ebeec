// The system's two runtimes, asked directly: the compiler would put functions of its own in their place.
#pragma once

#include <windows.h>

#include <cstdarg>
#include <cstddef>
#include <stdexcept>
#include <string>

struct Runtime {
    std::string name;
    long (*toLong)(const wchar_t*, wchar_t**, int) = nullptr;
    double (*toDouble)(const wchar_t*, wchar_t**) = nullptr;
    int (*compareNoCase)(const wchar_t*, const wchar_t*) = nullptr;
    int (*isDigit)(wint_t) = nullptr;

    explicit Runtime(const char* library) : name(library), m_module(LoadLibraryA(library)) {
        Find(toLong, "wcstol");
        Find(toDouble, "wcstod");
        Find(compareNoCase, "_wcsicmp");
        Find(isDigit, "iswdigit");
        if (IsNewer())
            Find(m_newerPrint, "__stdio_common_vswprintf");
        else
            Find(m_olderPrint, "_vsnwprintf");
    }

    bool IsNewer() const { return name == "ucrtbase.dll"; }

    // _snwprintf, which is no function of the newer runtime but one of its headers.
    int Print(wchar_t* buffer, std::size_t size, const wchar_t* format, ...) const {
        constexpr unsigned long long kAsSnwprintf = 1;      // no terminator when there is no room for it
        constexpr unsigned long long kWideTextsInWide = 4;  // "%s"
        std::va_list arguments;
        va_start(arguments, format);
        const int length = IsNewer() ? m_newerPrint(kAsSnwprintf | kWideTextsInWide, buffer, size, format,
                                                    nullptr, arguments)
                                     : m_olderPrint(buffer, size, format, arguments);
        va_end(arguments);
        return length;
    }

private:
    template <class Function>
    void Find(Function& function, const char* entry) {
        function = reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(m_module, entry)));
        if (function == nullptr) throw std::runtime_error(name + " has no " + entry);
    }

    HMODULE m_module;
    int (*m_olderPrint)(wchar_t*, std::size_t, const wchar_t*, std::va_list) = nullptr;
    int (*m_newerPrint)(unsigned long long, wchar_t*, std::size_t, const wchar_t*, void*,
                        std::va_list) = nullptr;
};

inline const Runtime kRuntimes[] = {Runtime("msvcrt.dll"), Runtime("ucrtbase.dll")};
