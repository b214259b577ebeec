// SPDX-License-Identifier: MIT
#include "Sizes.h"

#include <charconv>
#include <cstdio>
#include <iterator>

namespace {

// 0 for no unit.
std::int64_t BytesOfUnit(std::string_view unit) {
    if (unit.empty()) return 1;
    constexpr std::string_view kUnits = "KkMmGg";
    const std::size_t at = unit.size() == 1 ? kUnits.find(unit.front()) : std::string_view::npos;
    return at == std::string_view::npos ? 0 : std::int64_t{1} << (at / 2 + 1) * 10;
}

}  // namespace

std::optional<std::int64_t> ReadSize(std::string_view text) {
    if (text.empty() || text.front() < '0' || text.front() > '9') return std::nullopt;  // no sign, no "inf"
    double number = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number, std::chars_format::fixed);
    const std::int64_t unit = BytesOfUnit({stop, static_cast<std::size_t>(end - stop)});
    const bool isWhole = text.find('.') == std::string_view::npos;
    const double bytes = number * static_cast<double>(unit);
    if (error != std::errc() || unit == 0 || (unit == 1 && !isWhole) || bytes >= 9223372036854775808.0)
        return std::nullopt;
    return static_cast<std::int64_t>(bytes);
}

std::string GroupDigits(std::int64_t number) {
    std::string digits = std::to_string(number);
    const std::ptrdiff_t first = number < 0 ? 1 : 0;
    for (auto at = static_cast<std::ptrdiff_t>(digits.size()) - 3; at > first; at -= 3) {
        digits.insert(static_cast<std::size_t>(at), 1, ' ');
    }
    return digits;
}

std::string InLargeUnits(std::int64_t bytes) {
    constexpr const char* kUnits[] = {"KiB", "MiB", "GiB", "TiB", "PiB", "EiB"};
    double size = static_cast<double>(bytes) / 1024;
    if (size < 1) return {};
    std::size_t unit = 0;
    for (; size >= 1024 && unit + 1 < std::size(kUnits); ++unit) size /= 1024;
    char text[32];
    std::snprintf(text, sizeof text, "%.1f %s", size, kUnits[unit]);
    return text;
}

std::string SizeText(std::int64_t bytes) {
    const std::string rounded = InLargeUnits(bytes);
    return GroupDigits(bytes) + (bytes == 1 ? " byte" : " bytes") +
           (rounded.empty() ? "" : " (" + rounded + ')');
}
