// SPDX-License-Identifier: MIT
#include "Console.h"

#include <unistd.h>

#include <cstdio>

#include "Printable.h"

std::vector<std::string> ProgramArguments(int argc, char** argv) {
    if (argc < 1) return {};  // a caller may pass not even the name
    return {argv + 1, argv + argc};
}

void Print(std::string_view text) { std::fwrite(text.data(), 1, text.size(), stdout); }

void PrintExactly(std::string_view line) {
    Print((isatty(STDOUT_FILENO) != 0 ? Printable(line) : std::string(line)) + '\n');
}

void PrintError(std::string_view message) {
    const std::string line = "kmprofile: " + Printable(message) + '\n';
    std::fwrite(line.data(), 1, line.size(), stderr);
}

bool ErrorGoesToTerminal() { return isatty(STDERR_FILENO) != 0; }

void PrintStatus(std::string_view text) { std::fwrite(text.data(), 1, text.size(), stderr); }

bool FinishOutput() { return std::fflush(stdout) == 0 && std::ferror(stdout) == 0; }
