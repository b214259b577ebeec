// SPDX-License-Identifier: MIT
#include "Json.h"

#include <CLI/CLI.hpp>

#include "Console.h"
#include "kmFolders.h"
#include "kmText.h"

CLI::Option* AddJsonFlag(CLI::App& command, bool& asJson) {
    return command.add_flag("--json", asJson, "Print JSON, for programs");
}

Json JsonText(const kmString& text) { return kmUtf8FromText(text); }

Json JsonPath(const kmString& path) { return kmUtf8FromPath(path); }

Json JsonTexts(const std::vector<kmString>& texts) {
    Json all = Json::array();
    for (const kmString& text : texts) all.push_back(JsonText(text));
    return all;
}

Json JsonPosition(std::int32_t number) { return number == 0 ? Json() : Json(number); }

void PrintJson(const Json& json) {
    Print(json.dump(2, ' ', /*ensure_ascii=*/false, Json::error_handler_t::replace) + '\n');
}
