// SPDX-License-Identifier: MIT
// How far a conversion is, on one line of the terminal that is written again and again.
#pragma once

#include <cstdint>
#include <string>

#include "conversion/ProgressOutput.h"

// What the conversion is expected to come to; 0: not known.
struct Expectation {
    std::int64_t microseconds = 0;
    std::int64_t bytes = 0;
};

// " 42 % [########            ]  3.1x  about 12.3 MiB", or without the expectation what is done so far. Never
// longer than 70 characters.
std::string ProgressLine(const Progress& progress, const Expectation& expectation);

// The bar on standard error, if that is a terminal.
class ProgressBar {
public:
    ProgressBar();
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;
    ~ProgressBar() { Erase(); }

    void Show(const std::string& line);
    void Erase();

private:
    bool m_hasTerminal;
    bool m_isShown = false;
};
