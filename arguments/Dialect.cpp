// SPDX-License-Identifier: MIT
#include "arguments/Dialect.h"

#include <algorithm>

namespace {

constexpr kmStringView kOwnCodecOptions[] = {KM_TEXT("-vcodec"), KM_TEXT("-acodec")};

// The encoder of profiles takes everything as it is.
constexpr Dialect kOwnDialect = {{}, {}, {}, {}, kOwnCodecOptions};

template <typename Row, typename Fits>
const Row* FindRow(std::span<const Row> rows, const Fits& fits) {
    const auto found = std::find_if(rows.begin(), rows.end(), fits);
    return found == rows.end() ? nullptr : &*found;
}

}  // namespace

const Dialect& DialectOf(KM_DIALECT dialect) {
    return dialect == KM_DIALECT_FFMPEG ? kFfmpegDialect : kOwnDialect;
}

const DialectOption* FindDialectOption(const Dialect& dialect, kmStringView name, kmStringView codec) {
    return FindRow(dialect.options, [&](const DialectOption& row) {
        return row.name == name && (row.codec.empty() || row.codec == codec);
    });
}

const DialectValue* FindDialectValue(const Dialect& dialect, kmStringView name, kmStringView with,
                                     kmStringView value) {
    return FindRow(dialect.values, [&](const DialectValue& row) {
        return row.name == name && (row.with.empty() || EqualNoCase(row.with, with)) &&
               EqualNoCase(row.value, value);
    });
}

const DialectContainer* FindDialectContainer(const Dialect& dialect, kmStringView format) {
    return FindRow(dialect.containers,
                   [&](const DialectContainer& row) { return EqualNoCase(row.format, format); });
}
