// SPDX-License-Identifier: MIT
#include "conversion/ProgressOutput.h"

#include <algorithm>
#include <charconv>
#include <system_error>

namespace {

// Leaves the number as it is where the encoder says "N/A".
void ReadNumber(std::string_view text, std::int64_t& number) {
    std::int64_t value = 0;
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error == std::errc() && stop == text.data() + text.size()) number = std::max<std::int64_t>(value, 0);
}

}  // namespace

bool ReadProgressLine(std::string_view line, Progress& progress) {
    const std::string_view name = line.substr(0, line.find('='));
    if (name.size() == line.size()) return false;
    std::string_view value = line.substr(name.size() + 1);
    value.remove_prefix(std::min(value.find_first_not_of(' '), value.size()));
    // Both are microseconds: the name of the older one promises something else.
    if (name == "out_time_us" || name == "out_time_ms") ReadNumber(value, progress.microseconds);
    if (name == "total_size") ReadNumber(value, progress.bytes);
    if (name == "speed") progress.speed = value == "N/A" ? std::string_view() : value;
    return name == "progress";
}
