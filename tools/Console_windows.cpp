// SPDX-License-Identifier: MIT
#ifndef NOMINMAX
#define NOMINMAX
#endif
#define WIN32_LEAN_AND_MEAN
#include <io.h>
#include <windows.h>

#include <shellapi.h>

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <memory>

#include "Console.h"
#include "Printable.h"
#include "kmText.h"

namespace {

bool outputLost = false;

// The console that a stream goes to, or null when it goes elsewhere.
HANDLE FindConsole(std::FILE* stream) {
    const int file = _fileno(stream);
    if (file < 0) return nullptr;
    const auto handle = reinterpret_cast<HANDLE>(_get_osfhandle(file));
    DWORD mode = 0;
    return handle != INVALID_HANDLE_VALUE && GetConsoleMode(handle, &mode) != 0 ? handle : nullptr;
}

// In pieces, because older consoles take 64 KB at once.
bool WriteToConsole(HANDLE console, std::basic_string_view<kmChar> text) {
    constexpr std::size_t kPiece = 8192;
    while (!text.empty()) {
        const auto count = static_cast<DWORD>(std::min(text.size(), kPiece));
        DWORD written = 0;
        if (WriteConsoleW(console, text.data(), count, &written, nullptr) == 0 || written == 0) return false;
        text.remove_prefix(written);
    }
    return true;
}

// A console takes UTF-16 whatever its code page; files and pipes receive the bytes.
bool Write(std::FILE* stream, std::string_view text) {
    if (const HANDLE console = FindConsole(stream)) return WriteToConsole(console, kmTextFromUtf8(text));
    return std::fwrite(text.data(), 1, text.size(), stream) == text.size();
}

struct FreeLocal {
    void operator()(wchar_t** memory) const { LocalFree(memory); }
};

}  // namespace

// From the wide command line: the narrow one has lost what its code page lacks.
std::vector<std::string> ProgramArguments(int, char**) {
    int count = 0;
    const std::unique_ptr<wchar_t*, FreeLocal> texts(CommandLineToArgvW(GetCommandLineW(), &count));
    std::vector<std::string> arguments;
    for (int i = 1; texts && i < count; ++i) arguments.push_back(kmUtf8FromText(texts.get()[i]));
    return arguments;
}

// A stream that is closed keeps its number here.
void KeepStandardStreams() {}

void Print(std::string_view text) {
    if (!Write(stdout, text)) outputLost = true;
}

void PrintExactly(std::string_view line) {
    Print((FindConsole(stdout) != nullptr ? Printable(line) : std::string(line)) + '\n');
}

void PrintError(std::string_view message) { Write(stderr, "kmprofile: " + Printable(message) + '\n'); }

void PrintWarning(std::string_view message) { PrintError("warning: " + std::string(message)); }

std::size_t TerminalWidth() {
    CONSOLE_SCREEN_BUFFER_INFO info;
    const HANDLE console = FindConsole(stdout);
    if (console == nullptr || GetConsoleScreenBufferInfo(console, &info) == 0) return 0;
    return static_cast<std::size_t>(info.srWindow.Right - info.srWindow.Left + 1);
}

bool ErrorGoesToTerminal() { return FindConsole(stderr) != nullptr; }

void PrintStatus(std::string_view text) { Write(stderr, text); }

bool FinishOutput() { return std::fflush(stdout) == 0 && std::ferror(stdout) == 0 && !outputLost; }
