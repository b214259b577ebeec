// SPDX-License-Identifier: MIT
// The members of kmProfileItem that hold the attributes of its element.
#pragma once

#include <iterator>
#include <variant>

#include "document/ItemFields.h"
#include "kmProfile.h"

// A member of kmProfile, because items let only that see their members.
struct kmProfile::ItemMembers {
    using Text = kmString kmProfileItem::*;
    using Number = std::int32_t kmProfileItem::*;
    using Flag = bool kmProfileItem::*;
    using Label = kmProfileItem::Label kmProfileItem::*;
    using List = kmProfileItem::List kmProfileItem::*;
    using Member = std::variant<Text, Label, Number, Flag, List>;  // in the order of ItemFieldKind

    static constexpr Text kID = &kmProfileItem::m_id;

    // In the order of kItemFields.
    static constexpr Member kMembers[] = {
        &kmProfileItem::m_value,
        &kmProfileItem::m_advPriority,
        &kmProfileItem::m_advName,
        &kmProfileItem::m_advGroup,
        &kmProfileItem::m_advReadOnly,
        &kmProfileItem::m_advHasCandidates,
        &kmProfileItem::m_advCandidatesDisplay,
        &kmProfileItem::m_advCandidatesValue,
        &kmProfileItem::m_simplePriority,
        &kmProfileItem::m_simpleName,
        &kmProfileItem::m_simpleReadOnly,
        &kmProfileItem::m_simpleHasCandidates,
        &kmProfileItem::m_simpleCandidatesDisplay,
        &kmProfileItem::m_simpleCandidatesValue,
    };

    // What a member holds, as the application gets it.
    template <class Field>
    static const Field& Content(const Field& field) {
        return field;
    }
    static kmString Content(const kmProfileItem::Label& label) { return kmString(label.Text()); }
    static const std::vector<kmString>& Content(const kmProfileItem::List& list) { return list.Get(); }
    static std::vector<kmString>& Content(kmProfileItem::List& list) { return list.Get(); }

    static constexpr bool AreOfTheirKinds() {
        for (std::size_t i = 0; i < std::size(kMembers); ++i) {
            if (kMembers[i].index() != static_cast<std::size_t>(kItemFields[i].kind)) return false;
        }
        return std::size(kMembers) == std::size(kItemFields);
    }
};
