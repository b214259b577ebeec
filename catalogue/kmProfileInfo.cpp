// SPDX-License-Identifier: MIT
#include "kmProfileInfo.h"

#include <utility>

#include "catalogue/DisplayName.h"

kmProfileInfo::~kmProfileInfo() = default;

const kmProfileInfo& kmProfileInfo::operator=(const kmProfileInfo& other) {
    if (this != &other) *this = kmProfileInfo(other);
    return *this;
}

const kmProfileInfo& kmProfileInfo::operator=(kmProfileInfo&& other) noexcept {
    m_id = std::move(other.m_id);
    m_name = std::move(other.m_name);
    m_desc = std::move(other.m_desc);
    m_isSystem = other.m_isSystem;
    m_extName = std::move(other.m_extName);
    return *this;
}

kmString kmProfileInfo::GetName() const { return m_isSystem ? StripLeadingCarets(m_name) : m_name; }
kmString kmProfileInfo::GetDesc() const { return m_isSystem ? StripLeadingCarets(m_desc) : m_desc; }

void kmProfileInfo::SetID(const kmString& id) {
    if (!m_isSystem) m_id = id;
}

void kmProfileInfo::SetName(const kmString& name) {
    if (!m_isSystem) m_name = name;
}

void kmProfileInfo::SetDesc(const kmString& desc) {
    if (!m_isSystem) m_desc = desc;
}

void kmProfileInfo::SetExtname(const kmString& extName) {
    if (!m_isSystem) m_extName = extName;
}
