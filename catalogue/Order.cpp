// The display order of the system groups.
#include <algorithm>
#include <cstddef>
#include <utility>

#include "kmManager.h"
#include "text/Ascii.h"

namespace {

constexpr const kmChar* kOrder[] = {
    KM_TEXT("Common Video"),
    KM_TEXT("Common Audio"),
    KM_TEXT("Apple TV"),
    KM_TEXT("HD Video"),
    KM_TEXT("iPod"),
    KM_TEXT("iPhone"),
    KM_TEXT("Lossless Audio"),
    KM_TEXT("Mobile Phone"),
    KM_TEXT("Picture and Animation"),
    KM_TEXT("Portable Multimedia Device"),
    KM_TEXT("PS3"),
    KM_TEXT("PSP"),
    KM_TEXT("Wii and DS"),
    KM_TEXT("Xbox HD Video"),
    KM_TEXT("Zune"),
};

}  // namespace

kmGroup* kmManager::FindSystemGroup(const kmChar* name) {
    const kmStringView wanted = name;
    const auto found = std::find_if(m_systemGroups.begin(), m_systemGroups.end(),
                                    [wanted](const kmGroup& group) { return group.m_name == wanted; });
    return found == m_systemGroups.end() ? nullptr : &*found;
}

// By swapping: the groups that are not listed stand wherever that leaves them.
void kmManager::Sort() {
    std::size_t placed = 0;
    for (const kmChar* name : kOrder) {
        kmGroup* group = FindSystemGroup(name);
        if (group == nullptr) continue;
        if (group != &m_systemGroups[placed]) std::swap(*group, m_systemGroups[placed]);
        ++placed;
    }
    kmGroup* others = FindSystemGroup(KM_TEXT("others"));
    if (others != nullptr && others != &m_systemGroups.back()) std::swap(*others, m_systemGroups.back());
    ++m_groupChanges;
}
