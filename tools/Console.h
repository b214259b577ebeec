// SPDX-License-Identifier: MIT
// The program's arguments and its two outputs, UTF-8 throughout. What another system does differently here
// stays in Console.cpp.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// The arguments without the program's name.
std::vector<std::string> ProgramArguments(int argc, char** argv);

// Before anything is opened: a file must not get the number of an output that is closed.
void KeepStandardStreams();

// Writes to standard output. A failure shows at the end, in FinishOutput.
void Print(std::string_view text);

// Writes a line that a program may read: as it is into a file or a pipe, printable on a terminal.
void PrintExactly(std::string_view line);

// Writes "kmprofile: ", the message and a line end to standard error; the message becomes one line. A warning
// says that it is one.
void PrintError(std::string_view message);
void PrintWarning(std::string_view message);

// The columns of the terminal that standard output goes to; 0 for a file, a pipe or an unknown width.
std::size_t TerminalWidth();

// Whether standard error is a terminal; and what only a terminal is told, as it is.
bool ErrorGoesToTerminal();
void PrintStatus(std::string_view text);

// Writes what is still pending. False when any part of the output was lost.
[[nodiscard]] bool FinishOutput();
