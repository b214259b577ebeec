// SPDX-License-Identifier: MIT
// A named group of profiles.
#pragma once

#include <vector>

#include "kmExport.h"
#include "kmTypes.h"

KM_CLASSES_BEGIN

// A name and the IDs of the group's profiles in the order in which they were added; owns both.
class KM_EXPORT kmGroup {
public:
    // A group without a name and without profiles; copies own their texts.
    kmGroup() = default;
    kmGroup(const kmGroup& other) = default;
    kmGroup(kmGroup&& other) noexcept = default;
    const kmGroup& operator=(const kmGroup& other);
    const kmGroup& operator=(kmGroup&& other) noexcept;
    virtual ~kmGroup();

    // The name as users see it, without leading "^", and as it is stored.
    kmString GetName() const;
    kmString GetOriginalName() const { return m_name; }
    void SetName(const kmString& name) { m_name = name; }

    // The group's own list; to change it is to change the group. Lives as long as the group.
    std::vector<kmString>& GetProfileIDs() { return m_profileIDs; }
    const std::vector<kmString>& GetProfileIDs() const { return m_profileIDs; }

private:
    friend class kmManager;

    kmString m_name;
    std::vector<kmString> m_profileIDs;
};

KM_CLASSES_END
