// SPDX-License-Identifier: MIT
#include "conversion/ProgressBar.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>

#include "Console.h"
#include "Printable.h"
#include "Sizes.h"

namespace {

constexpr std::size_t kLineWidth = 70;
constexpr double kBarWidth = 24;
constexpr double kTellingPart = 0.05;  // what has come by then lets the whole be told

std::string TimeText(std::int64_t microseconds) {
    const std::int64_t seconds = microseconds / 1'000'000;
    char text[64];
    std::snprintf(text, sizeof text, "%lld:%02d:%02d", static_cast<long long>(seconds / 3600),
                  static_cast<int>(seconds / 60 % 60), static_cast<int>(seconds % 60));
    return text;
}

std::string BarText(double part) {
    const auto done = static_cast<std::size_t>(part * kBarWidth);
    char percent[16];
    std::snprintf(percent, sizeof percent, "%3d %% [", static_cast<int>(part * 100));
    return percent + std::string(done, '#') + std::string(static_cast<std::size_t>(kBarWidth) - done, ' ') +
           ']';
}

// "about" as long as it is not the real one.
std::string SizeText(double part, std::int64_t bytes, std::int64_t estimate) {
    if (part >= 1 && bytes > 0) return InLargeUnits(bytes);
    const bool isTelling = part >= kTellingPart && bytes > 0;
    const double whole = isTelling ? static_cast<double>(bytes) / part : static_cast<double>(estimate);
    const std::string size = InLargeUnits(static_cast<std::int64_t>(std::min(whole, 9e18)));
    return size.empty() ? size : "about " + size;
}

}  // namespace

std::string ProgressLine(const Progress& progress, const Expectation& expectation) {
    std::string line;
    std::string size;
    if (expectation.microseconds > 0) {
        const double part = std::min(
            static_cast<double>(progress.microseconds) / static_cast<double>(expectation.microseconds), 1.0);
        line = BarText(part);
        size = SizeText(part, progress.bytes, expectation.bytes);
    } else {
        line = TimeText(progress.microseconds);
        size = InLargeUnits(progress.bytes);
    }
    for (const std::string& text : {progress.speed, size}) {
        if (!text.empty()) line += "  " + text;
    }
    return line.substr(0, kLineWidth);
}

ProgressBar::ProgressBar() : m_hasTerminal(ErrorGoesToTerminal()) {}

void ProgressBar::Show(const std::string& line) {
    if (!m_hasTerminal) return;
    PrintStatus('\r' + Printable(line) + std::string(kLineWidth - std::min(kLineWidth, line.size()), ' '));
    m_isShown = true;
}

void ProgressBar::Erase() {
    if (m_isShown) PrintStatus('\r' + std::string(kLineWidth, ' ') + '\r');
    m_isShown = false;
}
