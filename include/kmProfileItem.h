// SPDX-License-Identifier: MIT
// One setting of a profile.
#pragma once

#include <cstdint>
#include <vector>

#include "kmExport.h"
#include "kmTypes.h"

KM_CLASSES_BEGIN

// An encoder option with its value and what the two editing views, the simple and the advanced one, need to
// show it. A value class: owns all its texts and lists. Setters check nothing and touch no other field. The
// lists of one view are meant to have the same length; nothing enforces it. One thread at a time.
class KM_EXPORT kmProfileItem {
public:
    // An item without ID and value, which no view shows; copies own their texts and lists.
    kmProfileItem() = default;
    kmProfileItem(const kmProfileItem& other) = default;
    kmProfileItem(kmProfileItem&& other) noexcept = default;
    const kmProfileItem& operator=(const kmProfileItem& other);
    const kmProfileItem& operator=(kmProfileItem&& other) noexcept;
    virtual ~kmProfileItem();

    // Whether both items have the same ID, exactly; no other field is compared.
    bool operator==(const kmProfileItem& other) const { return m_id == other.m_id; }

    // The name of the encoder option without its "-"; the item's element name in a file.
    kmString GetID() const { return m_id; }
    void SetID(const kmString& id) { m_id = id; }

    // The current value as it is written to the file and used for the encoder.
    kmString GetValue() const { return m_value; }
    void SetValue(const kmString& value) { m_value = value; }

    // The advanced view: position, label, section, whether the value is fixed or chosen from the candidates.
    int GetAdvPriority() const { return m_advPriority; }
    void SetAdvPriority(int priority) { m_advPriority = priority; }
    kmString GetAdvName() const { return m_advName; }
    void SetAdvName(const kmString& name) { m_advName = name; }
    kmString GetAdvGroup() const { return m_advGroup; }
    void SetAdvGroup(const kmString& group) { m_advGroup = group; }
    bool GetAdvReadOnly() const { return m_advReadOnly; }
    void SetAdvReadOnly(bool readOnly) { m_advReadOnly = readOnly; }
    bool GetAdvHasCandidates() const { return m_advHasCandidates; }
    void SetAdvHasCandidates(bool hasCandidates) { m_advHasCandidates = hasCandidates; }

    // The item's own lists: texts shown and values chosen. References live as long as the item; to change
    // a list is to change the item.
    std::vector<kmString>& GetAdvCandidatesDisplay() { return m_advCandidatesDisplay; }
    const std::vector<kmString>& GetAdvCandidatesDisplay() const { return m_advCandidatesDisplay; }
    std::vector<kmString>& GetAdvCandidatesValue() { return m_advCandidatesValue; }
    const std::vector<kmString>& GetAdvCandidatesValue() const { return m_advCandidatesValue; }

    // The simple view, likewise. An item without a simple name is not shown there.
    int GetSimplePriority() const { return m_simplePriority; }
    void SetSimplePriority(int priority) { m_simplePriority = priority; }
    kmString GetSimpleName() const { return m_simpleName; }
    void SetSimpleName(const kmString& name) { m_simpleName = name; }
    bool GetSimpleReadOnly() const { return m_simpleReadOnly; }
    void SetSimpleReadOnly(bool readOnly) { m_simpleReadOnly = readOnly; }
    bool GetSimpleHasCandidates() const { return m_simpleHasCandidates; }
    void SetSimpleHasCandidates(bool hasCandidates) { m_simpleHasCandidates = hasCandidates; }
    std::vector<kmString>& GetSimpleCandidatesDisplay() { return m_simpleCandidatesDisplay; }
    const std::vector<kmString>& GetSimpleCandidatesDisplay() const { return m_simpleCandidatesDisplay; }
    std::vector<kmString>& GetSimpleCandidatesValue() { return m_simpleCandidatesValue; }
    const std::vector<kmString>& GetSimpleCandidatesValue() const { return m_simpleCandidatesValue; }

    // Makes the simple candidate value at `index` the item's value. False, with nothing changed, when there
    // is none.
    bool SetSimpleValue(int index);

    // The position in the simple lists that stands for the current value; -1 for an item without a simple
    // name. A value that is not among the candidates gives the last position. "b" and "ab" take the first
    // candidate whose number is not above the value's, and the middle one for "Auto"; "pq" looks in the texts
    // shown, if there are as many as values. Option names without regard to ASCII case, candidates exactly.
    int GetSimpleItemIndex() const;

    // Whether a typed value is acceptable for the option `id`. False leaves the reason, for the user, in
    // `message` (nothing for a null or empty `id`); true leaves `message` alone. A null value counts as an
    // empty one.
    static bool Check(kmString& message, const kmChar* id, const kmChar* value);

    // 1: a well-formed time "h:m:s", or a null or empty text; 0: digits and at most two colons otherwise; -1:
    // anything else. `seconds`, which may be null, receives the total for a text that gives 1 or 0 and is not
    // empty.
    static int IsValidTime(const kmChar* time, int* seconds);

private:
    friend class kmProfile;
    friend class kmProfileList;

    kmString m_id;
    kmString m_value;
    std::int32_t m_advPriority = 0;
    kmString m_advName;
    kmString m_advGroup;
    bool m_advReadOnly = false;
    bool m_advHasCandidates = false;
    std::vector<kmString> m_advCandidatesDisplay;
    std::vector<kmString> m_advCandidatesValue;
    std::int32_t m_simplePriority = 0;
    kmString m_simpleName;
    bool m_simpleReadOnly = false;
    bool m_simpleHasCandidates = false;
    std::vector<kmString> m_simpleCandidatesDisplay;
    std::vector<kmString> m_simpleCandidatesValue;
};

KM_CLASSES_END
