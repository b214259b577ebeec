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

    // What went wrong, on one line: the last error with the one before it, which often is its cause. Without
    // errors the last line of any other program.
    std::string LastWords() const;

private:
    std::int64_t m_inputDuration = 0;
    bool m_hasLevels = false;
    std::string m_cause;
    std::string m_last;
};
