// SPDX-License-Identifier: MIT
#include "conversion/EncoderLog.h"

#include <algorithm>
#include <cstdio>
#include <iterator>

namespace {

constexpr std::string_view kLevels[] = {"[info] ", "[warning] ", "[error] ", "[fatal] ", "[panic] "};
constexpr std::string_view kFaults[] = {"[error] ", "[fatal] ", "[panic] "};

struct Message {
    std::string_view level;  // empty when the line has none
    std::string_view text;
    bool isOfPart = false;  // said by a codec or a format: "[mp3 @ 0x5587] [error] ..."
};

Message Split(std::string_view line) {
    std::string_view rest = line;
    for (bool isOfPart = false; rest.starts_with('['); isOfPart = true) {
        const std::size_t end = rest.find("] ");
        if (end == std::string_view::npos) break;
        const std::string_view word = rest.substr(0, end + 2);
        rest.remove_prefix(word.size());
        if (std::find(std::begin(kLevels), std::end(kLevels), word) != std::end(kLevels))
            return {word, rest, isOfPart};
    }
    return {{}, line};
}

// Nothing that the file itself says, such as its title, begins a line with these two spaces alone.
std::int64_t ReadDuration(const std::string& text) {
    long long hours = 0;
    int minutes = 0;
    double seconds = 0;
    if (std::sscanf(text.c_str(), "  Duration: %lld:%d:%lf", &hours, &minutes, &seconds) != 3) return 0;
    const bool isInRange =
        hours >= 0 && hours < 1'000'000 && minutes >= 0 && minutes < 60 && seconds >= 0 && seconds < 60;
    if (!text.starts_with("  Duration: ") || !isInRange) return 0;
    return (hours * 60 + minutes) * 60'000'000 + static_cast<std::int64_t>(seconds * 1e6);
}

// Some messages end where a reason is missing: "... -- ".
std::string_view Trimmed(std::string_view text) { return text.substr(0, text.find_last_not_of(" -") + 1); }

}  // namespace

void EncoderLog::Add(std::string_view line) {
    const Message message = Split(line);
    if (m_inputDuration == 0) m_inputDuration = ReadDuration(std::string(message.text));
    const std::string_view text = Trimmed(message.text);
    if (text.empty()) return;
    if (message.level.empty()) {
        m_lastLine = text;
    } else if (std::find(std::begin(kFaults), std::end(kFaults), message.level) != std::end(kFaults)) {
        (message.isOfPart ? m_cause : m_fault) = text;
    }
}

std::string EncoderLog::LastWords() const {
    if (m_cause.empty() && m_fault.empty()) return m_lastLine;
    return m_cause + (m_cause.empty() || m_fault.empty() ? "" : "; ") + m_fault;
}
