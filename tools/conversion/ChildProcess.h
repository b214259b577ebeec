// SPDX-License-Identifier: MIT
// Running another program.
#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

// How a program ended.
struct ChildEnd {
    enum class Kind { Exited, Died, Interrupted };
    Kind kind = Kind::Exited;
    int code = 0;  // the exit status; what it died of; the signal that this program received
};

// In words: "signal 9".
std::string CauseOfDeath(const ChildEnd& end);

using OutputReader = std::function<void(std::string_view bytes)>;

// From now on a request to stop this program (Ctrl-C, a signal, a closed console) ends the program that
// RunChild runs, and not this one.
void DeferInterrupts();

// Runs `program` with exactly these arguments, all UTF-8, without a shell, and hands on what it writes to
// standard output and standard error as it comes. Its standard input is empty. A name without a folder is
// looked for in PATH. A request to stop asks the program to end; a second one, or kPatience, kills it.
// Throws a Failure when it cannot be started.
ChildEnd RunChild(const std::string& program, const std::vector<std::string>& arguments,
                  const OutputReader& output, const OutputReader& error);

inline constexpr std::chrono::seconds kPatience{5};
