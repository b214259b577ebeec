// SPDX-License-Identifier: MIT
// The texts that files have for the fields of items.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "document/Format.h"
#include "text/Numbers.h"
#include "text/kmCTString.h"

// Nothing for what a file leaves out: an empty text, 0, a flag that is not set, an empty list.
inline std::optional<kmString> FieldText(const kmString& value) {
    if (value.empty()) return std::nullopt;
    return value;
}

inline std::optional<kmString> FieldText(std::int32_t value) {
    if (value == 0) return std::nullopt;
    return IntegerText(value);
}

inline std::optional<kmString> FieldText(bool value) {
    if (!value) return std::nullopt;
    return format::kYes;
}

inline std::optional<kmString> FieldText(const std::vector<kmString>& value) {
    if (value.empty()) return std::nullopt;
    kmString joined;
    JoinTexts(value, format::kListSeparator, joined);
    return joined;
}
