// SPDX-License-Identifier: MIT
// How a command gives up.
#pragma once

#include <stdexcept>
#include <string>

inline constexpr int kExitDone = 0;
inline constexpr int kExitFailure = 1;
inline constexpr int kExitUsage = 2;
inline constexpr int kExitNoOutput = 3;

// Thrown by a command; the message, UTF-8, becomes one line on standard error. An empty one stays silent: the
// reason already stands on standard output.
class Failure : public std::runtime_error {
public:
    explicit Failure(const std::string& message, int exitCode = kExitFailure)
        : std::runtime_error(message), m_exitCode(exitCode) {}

    int ExitCode() const { return m_exitCode; }

private:
    int m_exitCode;
};

// A bad argument.
inline Failure UsageFailure(const std::string& message) { return Failure(message, kExitUsage); }
