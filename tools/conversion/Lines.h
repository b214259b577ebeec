// SPDX-License-Identifier: MIT
// Text that comes in pieces, line by line.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

class Lines {
public:
    // Hands on each line that is complete now, without its end. What a line has beyond kLongest is dropped.
    template <typename Reader>
    void Add(std::string_view bytes, const Reader& reader) {
        for (std::size_t end = 0; (end = bytes.find_first_of("\r\n")) != std::string_view::npos;
             bytes.remove_prefix(end + 1)) {
            Append(bytes.substr(0, end));
            reader(std::string_view(m_line));
            m_line.clear();
        }
        Append(bytes);
    }

    // Hands on a last line that has no end.
    template <typename Reader>
    void Finish(const Reader& reader) {
        if (!m_line.empty()) reader(std::string_view(m_line));
        m_line.clear();
    }

private:
    static constexpr std::size_t kLongest = 4096;

    void Append(std::string_view part) {
        m_line += part.substr(0, kLongest - std::min(kLongest, m_line.size()));
    }

    std::string m_line;
};
