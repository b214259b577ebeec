// SPDX-License-Identifier: MIT
#include "conversion/SystemPaths.h"

#include "kmText.h"

namespace {

// The standard's own conversions refuse names that are no valid text.
template <typename Path>
constexpr bool kTakesBytes = sizeof(typename Path::value_type) == 1;

template <typename Path>
Path FromUtf8(const std::string& bytes) {
    if constexpr (kTakesBytes<Path>)
        return bytes;
    else
        return kmTextFromUtf8(bytes);
}

template <typename Path>
std::string ToUtf8(const Path& path) {
    if constexpr (kTakesBytes<Path>)
        return path.native();
    else
        return kmUtf8FromText(path.native());
}

}  // namespace

std::filesystem::path SystemPath(const std::string& path) { return FromUtf8<std::filesystem::path>(path); }

std::string Utf8FromSystemPath(const std::filesystem::path& path) { return ToUtf8(path); }
