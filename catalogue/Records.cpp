#include "catalogue/Records.h"

#include "kmGroup.h"
#include "kmProfileInfo.h"
#include "text/kmCTString.h"

kmString StripLeadingCarets(const kmString& name) { return kmString(TrimLeftView(name, KM_TEXT('^'))); }

kmProfileInfo::~kmProfileInfo() = default;

const kmProfileInfo& kmProfileInfo::operator=(const kmProfileInfo& other) {
    if (this != &other) *this = kmProfileInfo(other);
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

kmGroup::~kmGroup() = default;

const kmGroup& kmGroup::operator=(const kmGroup& other) {
    if (this != &other) *this = kmGroup(other);
    return *this;
}

kmString kmGroup::GetName() const { return StripLeadingCarets(m_name); }
