// SPDX-License-Identifier: MIT
// The attributes of a setting's element, in the order in which files have them.
#pragma once

#include "text/Ascii.h"

// How an attribute's text is read: as it stands (values change, labels hardly ever), as an integer ("0x10",
// "010" too), as a flag, as a list.
enum class ItemFieldKind { Value, Label, Number, Flag, List };

struct ItemFieldRow {
    kmStringView name;  // null-terminated
    ItemFieldKind kind;
};

// "Diaplay" and "Readonly" are how the format spells them.
inline constexpr ItemFieldRow kItemFields[] = {
    {KM_TEXT("Value"), ItemFieldKind::Value},
    {KM_TEXT("advPriority"), ItemFieldKind::Number},
    {KM_TEXT("advName"), ItemFieldKind::Label},
    {KM_TEXT("advGroup"), ItemFieldKind::Label},
    {KM_TEXT("advReadOnly"), ItemFieldKind::Flag},
    {KM_TEXT("advHasCandidates"), ItemFieldKind::Flag},
    {KM_TEXT("advCandidatesDisplay"), ItemFieldKind::List},
    {KM_TEXT("advCandidatesValue"), ItemFieldKind::List},
    {KM_TEXT("simplePriority"), ItemFieldKind::Number},
    {KM_TEXT("simpleName"), ItemFieldKind::Label},
    {KM_TEXT("simpleReadonly"), ItemFieldKind::Flag},
    {KM_TEXT("simpleHasCandidates"), ItemFieldKind::Flag},
    {KM_TEXT("simpleCandidatesDiaplay"), ItemFieldKind::List},
    {KM_TEXT("simpleCandidatesValue"), ItemFieldKind::List},
};
