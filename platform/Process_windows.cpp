// SPDX-License-Identifier: MIT
#ifndef NOMINMAX
#define NOMINMAX
#endif
#define WIN32_LEAN_AND_MEAN
#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <string>

#include "platform/Process.h"
#include "text/Encoding.h"

namespace {

// The console that standard output goes to, or null when it goes elsewhere.
HANDLE FindConsole(int file) {
    const auto handle = reinterpret_cast<HANDLE>(_get_osfhandle(file));
    DWORD mode = 0;
    return handle != INVALID_HANDLE_VALUE && GetConsoleMode(handle, &mode) != 0 ? handle : nullptr;
}

// Whether the application has set the stream to take wide text, which it converts by itself.
bool IsWide(int file) {
    constexpr int kWideModes = _O_WTEXT | _O_U16TEXT | _O_U8TEXT;
    const int mode = _setmode(file, _O_BINARY);  // there is no way to ask without setting
    if (mode == -1) return false;
    _setmode(file, mode);
    return (mode & kWideModes) != 0;
}

// In pieces, because older consoles take 64 KB at once.
void WriteToConsole(HANDLE console, kmStringView text) {
    constexpr std::size_t kPiece = 8192;
    while (!text.empty()) {
        const auto count = static_cast<DWORD>(std::min(text.size(), kPiece));
        DWORD written = 0;
        if (WriteConsoleW(console, text.data(), count, &written, nullptr) == 0 || written == 0) return;
        text.remove_prefix(written);
    }
}

}  // namespace

kmString ExecutablePath() {
    kmString path(MAX_PATH, KM_TEXT('\0'));
    for (;;) {
        const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(2 * path.size());
    }
}

void PrintText(kmStringView text) {
    const int file = _fileno(stdout);
    if (file < 0) return;  // a program without a console and without redirection
    if (const HANDLE console = FindConsole(file)) {
        std::fflush(stdout);
        WriteToConsole(console, text);
        return;
    }
    std::fflush(stdout);
    if (IsWide(file)) {
        std::fputws(kmString(text).c_str(), stdout);
    } else {
        const std::string bytes = BytesFromText(text);
        std::fwrite(bytes.data(), 1, bytes.size(), stdout);
    }
    // An application that was built with another runtime does not share this buffer.
    std::fflush(stdout);
}
