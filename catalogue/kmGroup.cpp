// SPDX-License-Identifier: MIT
#include "kmGroup.h"

#include <utility>

#include "catalogue/DisplayName.h"

kmGroup::~kmGroup() = default;

const kmGroup& kmGroup::operator=(const kmGroup& other) {
    if (this != &other) *this = kmGroup(other);
    return *this;
}

const kmGroup& kmGroup::operator=(kmGroup&& other) noexcept {
    if (this == &other) return *this;
    m_name = std::move(other.m_name);
    m_profileIDs = std::move(other.m_profileIDs);
    return *this;
}

kmString kmGroup::GetName() const { return StripLeadingCarets(m_name); }
