// SPDX-License-Identifier: MIT
#include "Selection.h"

#include <algorithm>

#include "Refusals.h"
#include "Text.h"
#include "kmCompare.h"
#include "kmProfileFile.h"
#include "kmProfileList.h"

namespace {

bool IsSame(const kmProfile& one, const kmProfile& other) { return kmCompareProfiles(one, other).empty(); }

}  // namespace

void Selection::Load(const kmString& folder, const std::vector<kmString>& ids) {
    m_profiles.clear();
    for (const kmString& id : ids) {
        kmProfile profile;
        profile.SetID(id);
        if (profile.Load(folder)) m_profiles.push_back(std::move(profile));
    }
    m_files = m_profiles;
    m_pointers.clear();
    for (kmProfile& profile : m_profiles) m_pointers.push_back(&profile);
    m_refused.clear();
    emit Replaced();
}

std::vector<kmString> Selection::IDs() const {
    std::vector<kmString> ids;
    for (const kmProfile& profile : m_profiles) ids.push_back(profile.GetID());
    return ids;
}

bool Selection::HasSystem() const { return std::ranges::any_of(m_profiles, &kmProfile::IsSystem); }

bool Selection::IsModified() const { return !std::ranges::equal(m_profiles, m_files, IsSame); }

bool Selection::IsOutdated() const {
    return std::ranges::any_of(m_files, [](const kmProfile& known) {
        kmProfile now;
        return !kmReadFileOf(known, now) || !IsSame(known, now);
    });
}

QString Selection::SetValue(const kmString& id, const kmString& value) {
    kmString message;
    if (kmProfileList::IsValidValue(message, m_pointers, id.c_str(), value.c_str())) {
        kmProfileList::SetItemValue(m_pointers, id.c_str(), value.c_str());
        m_refused.erase(id);
    } else {
        m_refused.insert(id);
    }
    emit Edited();
    return ToQt(message);
}

QString Selection::SetChoice(const kmString& id, int index) {
    kmProfileList::SetSimpleItemValue(m_pointers, id.c_str(), index);
    emit Edited();
    return {};
}

// What files cannot keep, such as an empty value in place of the option's default, comes back as it is there.
QString Selection::Save() {
    bool isAsShown = true;
    for (std::size_t i = 0; i < m_profiles.size(); ++i) {
        kmProfile& profile = m_profiles[i];
        const PROFILE_EERROR error = profile.Save(profile.GetID(), /*overwrite=*/true);
        if (error != PROFILE_ERROR_NONE) return WhyRefused(error, profile, profile.GetID());
        if (!kmReadFileOf(profile, m_files[i])) m_files[i] = profile;
        isAsShown = isAsShown && IsSame(profile, m_files[i]);
        profile.CopyFrom(m_files[i]);
    }
    isAsShown ? emit Edited() : emit Replaced();
    return {};
}
