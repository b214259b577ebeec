// SPDX-License-Identifier: MIT
// What the encoder says of its progress, as name=value lines.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

struct Progress {
    std::int64_t microseconds = 0;  // of the output
    std::int64_t bytes = 0;         // 0 also when the encoder does not know
    std::string speed;              // such as "3.1x"; empty when the encoder does not know
};

// Takes one line into `progress`. True when it ends a report, so that all fields belong together.
bool ReadProgressLine(std::string_view line, Progress& progress);
