// SPDX-License-Identifier: MIT
// What several profiles say of one setting.
#pragma once

#include <map>
#include <optional>
#include <vector>

#include "kmProfile.h"

struct CommonSetting {
    kmString value;  // empty when they differ
    bool differs = false;
    bool isReadOnly = false;             // in the advanced view of some
    kmString text;                       // what the advanced view shows for the value, if anything
    std::optional<kmString> simpleText;  // the choice of the simple view that stands for the value
    // What the advanced view of all profiles shows for the values that the first one offers.
    std::map<kmString, kmString> textOfValue;
};

// The library answers such questions for a whole selection, and walks along all settings each time. Here it
// is asked once for every ID, about profiles that hold nothing but that setting, which costs what the setting
// holds. Keeps references to the profiles, which must not change meanwhile.
class CommonSettings {
public:
    explicit CommonSettings(const std::vector<kmProfile*>& profiles);

    // Of an ID that every profile has; the first item of that ID counts, as in the library. Valid as long as
    // the object.
    const CommonSetting& Of(const kmString& id);

private:
    std::vector<std::map<kmString, const kmProfileItem*>> m_items;  // of each profile
    std::map<kmString, CommonSetting> m_settings;
};
