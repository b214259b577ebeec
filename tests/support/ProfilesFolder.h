// SPDX-License-Identifier: MIT
// A profiles folder that a test fills.
#pragma once

#include <string>

#include "kmProfileInfo.h"
#include "tests/support/TemporaryFolder.h"

// Texts of profile files; `rest` is what follows the header.
inline std::string UserProfile(const std::string& rest = {}) {
    return "<Profiles><Main/>" + rest + "</Profiles>";
}
inline std::string SystemProfile(const std::string& rest = {}) {
    return "<Profiles><Main><IsSysProfile>yes</IsSysProfile></Main>" + rest + "</Profiles>";
}

// For `rest`: the one group that the profile says it is in.
inline std::string InGroup(const std::string& name) {
    return "<Group><GroupName language='" + name + "'/></Group>";
}

// The IDs of a catalogue's records, a bar in front of each.
inline std::string Records(const std::vector<kmProfileInfo>& infos) {
    std::string ids;
    for (const kmProfileInfo& info : infos) ids += '|' + Utf8(info.GetID());
    return ids;
}

// The path below that folder, with "/" as separator.
inline std::string Relative(const kmString& path, const kmString& folder) {
    std::string name = Utf8(path.substr(std::min(folder.size(), path.size())));
    std::replace(name.begin(), name.end(), '\\', '/');
    return name;
}

class ProfilesFolder : public TemporaryFolder {
public:
    // The file of that ID in the folder itself, or in its subfolder for an ID such as "user\\A".
    void AddProfile(const std::string& id, const std::string& text) const {
        WriteBytes(Text(id + ".pf"), text);
    }
};
