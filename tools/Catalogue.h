// SPDX-License-Identifier: MIT
// The catalogue of the profiles folder, for the commands that need more than one profile.
#pragma once

#include <cstdint>

#include "kmManager.h"

// The library's catalogue, loaded from `folder`. Throws a Failure for a folder that cannot be read.
kmManager& LoadCatalogue(const kmString& folder);

// Whether the catalogue has a user's profile of exactly this ID.
bool IsUsers(kmManager& catalogue, const kmString& id);

const char* OwnerName(bool isSystem);

// A profile's icon: the image file and the place in it, -1 for none.
struct ProfileIcon {
    kmString image;
    std::int32_t index = -1;

    bool operator==(const ProfileIcon&) const = default;
};
ProfileIcon IconOf(kmManager& catalogue, const kmString& id);

// Warns when the profile, which should have taken over that icon, did not get it.
void WarnOfLostIcon(kmManager& catalogue, const kmString& folder, const kmString& id,
                    const ProfileIcon& wanted);
