// SPDX-License-Identifier: MIT
// The display order of the system groups.
#include <algorithm>
#include <cstddef>
#include <utility>

#include "catalogue/GroupOrder.h"
#include "kmManager.h"

kmGroup* kmManager::FindSystemGroup(const kmChar* name) {
    const kmStringView wanted = name;
    const auto found = std::find_if(m_systemGroups.begin(), m_systemGroups.end(),
                                    [wanted](const kmGroup& group) { return group.m_name == wanted; });
    return found == m_systemGroups.end() ? nullptr : &*found;
}

// By swapping: the groups that are not listed stand wherever that leaves them.
void kmManager::Sort() {
    std::size_t placed = 0;
    for (const kmStringView name : kGroupOrder) {
        kmGroup* group = FindSystemGroup(name.data());
        if (group == nullptr) continue;
        if (group != &m_systemGroups[placed]) std::swap(*group, m_systemGroups[placed]);
        ++placed;
    }
    kmGroup* others = FindSystemGroup(kOtherGroup);
    if (others != nullptr && others != &m_systemGroups.back()) std::swap(*others, m_systemGroups.back());
    ++m_groupChanges;
}
