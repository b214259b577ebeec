// The attributes of a profile's item element and the fields that they hold: one table for reader and writer,
// in the order in which files have them.
#pragma once

#include <variant>

#include "kmProfile.h"
#include "text/Ascii.h"

struct kmProfile::ItemFields {
    using Text = kmString kmProfileItem::*;
    using Number = std::int32_t kmProfileItem::*;
    using Flag = bool kmProfileItem::*;
    using List = std::vector<kmString> kmProfileItem::*;

    struct Row {
        kmStringView name;  // null-terminated
        std::variant<Text, Number, Flag, List> field;
    };

    // "Diaplay" and "Readonly" are how the format spells them.
    static constexpr Row kRows[] = {
        {KM_TEXT("Value"), &kmProfileItem::m_value},
        {KM_TEXT("advPriority"), &kmProfileItem::m_advPriority},
        {KM_TEXT("advName"), &kmProfileItem::m_advName},
        {KM_TEXT("advGroup"), &kmProfileItem::m_advGroup},
        {KM_TEXT("advReadOnly"), &kmProfileItem::m_advReadOnly},
        {KM_TEXT("advHasCandidates"), &kmProfileItem::m_advHasCandidates},
        {KM_TEXT("advCandidatesDisplay"), &kmProfileItem::m_advCandidatesDisplay},
        {KM_TEXT("advCandidatesValue"), &kmProfileItem::m_advCandidatesValue},
        {KM_TEXT("simplePriority"), &kmProfileItem::m_simplePriority},
        {KM_TEXT("simpleName"), &kmProfileItem::m_simpleName},
        {KM_TEXT("simpleReadonly"), &kmProfileItem::m_simpleReadOnly},
        {KM_TEXT("simpleHasCandidates"), &kmProfileItem::m_simpleHasCandidates},
        {KM_TEXT("simpleCandidatesDiaplay"), &kmProfileItem::m_simpleCandidatesDisplay},
        {KM_TEXT("simpleCandidatesValue"), &kmProfileItem::m_simpleCandidatesValue},
    };
};
