// SPDX-License-Identifier: MIT
// Profiles that no file describes.
#pragma once

#include <sstream>
#include <string>

#include "kmProfile.h"
#include "tests/support/Text.h"

// Settings as "id=value;", each with its semicolon.
inline kmProfile ProfileWith(const std::string& settings) {
    kmProfile profile;
    std::istringstream rest(settings);
    for (std::string id, value; std::getline(rest, id, '=') && std::getline(rest, value, ';');) {
        kmProfileItem& item = profile.GetProfileItems().emplace_back();
        item.SetID(TextFromBytes(id));
        item.SetValue(TextFromBytes(value));
    }
    return profile;
}
