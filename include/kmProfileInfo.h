// SPDX-License-Identifier: MIT
// What the catalogue knows of one profile file.
#pragma once

#include "kmExport.h"
#include "kmTypes.h"

KM_CLASSES_BEGIN

// One record of the catalogue; owns its texts. While it describes a system profile, the setters of texts do
// nothing; assignment and SetIsSystem always work.
class KM_EXPORT kmProfileInfo {
public:
    // A record of nothing; copies own their texts.
    kmProfileInfo() = default;
    kmProfileInfo(const kmProfileInfo& other) = default;
    kmProfileInfo(kmProfileInfo&& other) noexcept = default;
    const kmProfileInfo& operator=(const kmProfileInfo& other);
    const kmProfileInfo& operator=(kmProfileInfo&& other) noexcept;
    virtual ~kmProfileInfo();

    // The profile's file name without ".pf".
    kmString GetID() const { return m_id; }

    // Name and description as users see them: those of a system profile without leading "^".
    kmString GetName() const;
    kmString GetDesc() const;

    // The output file extension.
    kmString GetExtname() const { return m_extName; }

    // Whether the file marks the profile as one of the system's.
    bool IsSystem() const { return m_isSystem; }

    // Change the record alone, not the file; the texts of a system profile's record not at all.
    void SetID(const kmString& id);
    void SetName(const kmString& name);
    void SetDesc(const kmString& desc);
    void SetExtname(const kmString& extName);
    void SetIsSystem(bool isSystem) { m_isSystem = isSystem; }

private:
    friend class kmManager;

    kmString m_id;
    kmString m_name;
    kmString m_desc;
    bool m_isSystem = false;
    kmString m_extName;
};

KM_CLASSES_END
