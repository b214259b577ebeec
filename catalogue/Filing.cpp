// SPDX-License-Identifier: MIT
// Repeated IDs are found by sorting, not by hashing: IDs are file names, which somebody may have chosen.
#include "catalogue/Filing.h"

#include <algorithm>
#include <numeric>

namespace {

// Removes from `ids` those from position `known` on that stand in front of them already.
void RemoveRepeated(std::vector<kmString>& ids, std::size_t known) {
    if (known >= ids.size()) return;
    if (known + 1 == ids.size()) {
        if (std::find(ids.begin(), ids.end() - 1, ids.back()) != ids.end() - 1) ids.pop_back();
        return;
    }
    // Listings come in this order, so that most groups need no second look.
    const auto isOutOfOrder = [](const kmString& a, const kmString& b) { return !NameLess(a, b); };
    if (std::adjacent_find(ids.begin(), ids.end(), isOutOfOrder) == ids.end()) return;

    std::vector<std::size_t> order(ids.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::sort(order.begin(), order.end(), [&ids](std::size_t a, std::size_t b) {
        return ids[a] == ids[b] ? a < b : NameLess(ids[a], ids[b]);
    });
    std::vector<bool> isRepeated(ids.size());
    for (std::size_t i = 1; i < order.size(); ++i)
        isRepeated[order[i]] = order[i] >= known && ids[order[i]] == ids[order[i - 1]];
    std::size_t kept = 0;
    for (std::size_t i = 0; i < ids.size(); ++i) {
        if (isRepeated[i]) continue;
        if (kept != i) ids[kept] = std::move(ids[i]);
        ++kept;
    }
    ids.resize(kept);
}

}  // namespace

void kmManager::Filing::Append(kmGroup& group, const kmString& id, Known& known) {
    if (known == kUntouched) known = group.m_profileIDs.size();
    group.m_profileIDs.push_back(id);
}

void kmManager::Filing::AddToUserGroup(const kmString& id) {
    Append(m_catalogue.m_userGroup, id, m_knownInUserGroup);
}

void kmManager::Filing::AddToSystemGroup(kmStringView name, const kmString& id) {
    const std::size_t position = PositionOf(name);
    if (position >= m_knownInSystemGroups.size()) m_knownInSystemGroups.resize(position + 1, kUntouched);
    Append(m_catalogue.m_systemGroups[position], id, m_knownInSystemGroups[position]);
}

std::size_t kmManager::Filing::PositionOf(kmStringView name) {
    std::vector<kmGroup>& groups = m_catalogue.m_systemGroups;
    if (!m_isIndexed || m_indexed != m_catalogue.m_groupChanges) BuildIndex();
    auto found = m_positions.find(name);
    if (found != m_positions.end()) {
        const bool isStill = found->second < groups.size() && groups[found->second].m_name == name;
        if (isStill) return found->second;
        BuildIndex();
        found = m_positions.find(name);
        if (found != m_positions.end()) return found->second;
    }
    groups.emplace_back().SetName(kmString(name));
    m_positions.emplace(name, groups.size() - 1);
    m_indexed = ++m_catalogue.m_groupChanges;
    return groups.size() - 1;
}

void kmManager::Filing::BuildIndex() {
    const std::vector<kmGroup>& groups = m_catalogue.m_systemGroups;
    m_positions.clear();
    for (std::size_t i = 0; i < groups.size(); ++i) m_positions.emplace(groups[i].m_name, i);
    m_indexed = m_catalogue.m_groupChanges;
    m_isIndexed = true;
}

void kmManager::Filing::Finish() {
    RemoveRepeated(m_catalogue.m_userGroup.m_profileIDs, m_knownInUserGroup);
    std::vector<kmGroup>& groups = m_catalogue.m_systemGroups;
    const std::size_t count = std::min(groups.size(), m_knownInSystemGroups.size());
    for (std::size_t i = 0; i < count; ++i) RemoveRepeated(groups[i].m_profileIDs, m_knownInSystemGroups[i]);
}
