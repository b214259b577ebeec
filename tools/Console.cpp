// SPDX-License-Identifier: MIT
#include "Console.h"

#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include "Printable.h"

std::vector<std::string> ProgramArguments(int argc, char** argv) {
    if (argc < 1) return {};  // a caller may pass not even the name
    return {argv + 1, argv + argc};
}

// Opened for reading, so that writing fails as on what is closed.
void KeepStandardStreams() {
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (fcntl(stream, F_GETFD) >= 0 || errno != EBADF) continue;
        if (open("/dev/null", O_RDONLY) < 0) return;
    }
}

void Print(std::string_view text) { std::fwrite(text.data(), 1, text.size(), stdout); }

void PrintExactly(std::string_view line) {
    Print((isatty(STDOUT_FILENO) != 0 ? Printable(line) : std::string(line)) + '\n');
}

void PrintError(std::string_view message) {
    const std::string line = "kmprofile: " + Printable(message) + '\n';
    std::fwrite(line.data(), 1, line.size(), stderr);
}

void PrintWarning(std::string_view message) { PrintError("warning: " + std::string(message)); }

std::size_t TerminalWidth() {
    winsize size{};
    return ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 ? size.ws_col : 0;
}

bool ErrorGoesToTerminal() { return isatty(STDERR_FILENO) != 0; }

void PrintStatus(std::string_view text) { std::fwrite(text.data(), 1, text.size(), stderr); }

bool FinishOutput() { return std::fflush(stdout) == 0 && std::ferror(stdout) == 0; }
