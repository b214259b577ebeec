#include "EncoderLog.h"

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <utility>

namespace {

constexpr std::string_view kLevels[] = {"[info] ", "[warning] ", "[error] ", "[fatal] ", "[panic] "};
constexpr std::string_view kFaults[] = {"[error] ", "[fatal] ", "[panic] "};

struct Message {
    std::string_view level;  // empty when the line has none
    std::string_view text;
};

// Before the level may stand which parts of the encoder speak: "[mp3 @ 0x5587] ".
Message Split(std::string_view line) {
    std::string_view rest = line;
    while (rest.starts_with('[')) {
        const std::size_t end = rest.find("] ");
        if (end == std::string_view::npos) break;
        const std::string_view word = rest.substr(0, end + 2);
        rest.remove_prefix(word.size());
        if (std::find(std::begin(kLevels), std::end(kLevels), word) != std::end(kLevels)) return {word, rest};
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

bool IsBlank(std::string_view text) { return text.find_first_not_of(' ') == std::string_view::npos; }

}  // namespace

void EncoderLog::Add(std::string_view line) {
    const Message message = Split(line);
    if (m_inputDuration == 0) m_inputDuration = ReadDuration(std::string(message.text));
    if (IsBlank(message.text)) return;
    if (message.level.empty()) {
        if (!m_hasLevels) m_last = message.text;
        return;
    }
    if (!m_hasLevels) m_last.clear();
    m_hasLevels = true;
    if (std::find(std::begin(kFaults), std::end(kFaults), message.level) == std::end(kFaults)) return;
    if (m_last != message.text) m_cause = std::exchange(m_last, message.text);
}

std::string EncoderLog::LastWords() const { return m_cause.empty() ? m_last : m_cause + "; " + m_last; }
