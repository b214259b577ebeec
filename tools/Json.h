// SPDX-License-Identifier: MIT
// What commands print with --json. Every command's keys stand in docs/json.md.
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "kmTypes.h"

namespace CLI {
class App;
class Option;
}  // namespace CLI

using Json = nlohmann::ordered_json;

CLI::Option* AddJsonFlag(CLI::App& command, bool& asJson);

// Texts and paths as UTF-8.
Json JsonText(const kmString& text);
Json JsonPath(const kmString& path);
Json JsonTexts(const std::vector<kmString>& texts);

// A position in a file, from 1; null for 0.
Json JsonPosition(std::int32_t number);

// Bytes that are no UTF-8 are printed as U+FFFD.
void PrintJson(const Json& json);
