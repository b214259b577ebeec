// SPDX-License-Identifier: MIT
// What the encoder says to people, each line with its level: "[error] ...", "[mp3 @ 0x5587] [info] ...".
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

class EncoderLog {
public:
    void Add(std::string_view line);

    // Of the input, in microseconds; 0 as long as it is not known.
    std::int64_t InputDuration() const { return m_inputDuration; }

    // What went wrong, on one line: the last error of a codec or a format, which says why, and the last one
    // of the encoder itself. Without errors the last line that has no level, as other programs write them.
    std::string LastWords() const;

private:
    std::int64_t m_inputDuration = 0;
    std::string m_cause;
    std::string m_fault;
    std::string m_lastLine;
};
