// SPDX-License-Identifier: MIT
// The children of "Main", in the order in which files have them.
#pragma once

#include <variant>

#include "kmProfileHeader.h"
#include "text/Ascii.h"

// Where a child of "Main" carries its field.
enum class HeaderCarrier { Attribute, Text };

// What saving puts into the file.
enum class HeaderSaving { Field, ID, Nothing };

struct HeaderFieldRow {
    kmStringView name;  // of the element; null-terminated
    HeaderCarrier carrier;
    std::variant<kmString kmProfileHeader::*, bool kmProfileHeader::*> field;
    HeaderSaving saved = HeaderSaving::Field;
};

// A new field is a row here and a member of the structure.
inline constexpr HeaderFieldRow kHeaderFields[] = {
    {KM_TEXT("Name"), HeaderCarrier::Attribute, &kmProfileHeader::name, HeaderSaving::ID},
    {KM_TEXT("Desc"), HeaderCarrier::Attribute, &kmProfileHeader::desc},
    {KM_TEXT("SName"), HeaderCarrier::Text, &kmProfileHeader::sName},
    {KM_TEXT("Format"), HeaderCarrier::Text, &kmProfileHeader::format},
    {KM_TEXT("ExtName"), HeaderCarrier::Text, &kmProfileHeader::extName},
    {KM_TEXT("IsSysProfile"), HeaderCarrier::Text, &kmProfileHeader::isSystem, HeaderSaving::Nothing},
};
