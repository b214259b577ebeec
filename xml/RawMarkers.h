// SPDX-License-Identifier: MIT
// The sections that a file keeps as they are, by what opens and closes them.
#pragma once

#include <cstdint>

#include "text/Ascii.h"

struct RawMarker {
    kmStringView open;
    kmStringView close;
};

enum RawMarkerRow : std::uint8_t {
    RAW_CDATA,
    RAW_DOCTYPE,
    RAW_PRE,
    RAW_SCRIPT,
    RAW_COMMENT,
    RAW_DOCTYPE_SUBSET
};

// In the order of RawMarkerRow. The last row is the form that a "<!DOCTYPE" takes when a "<" comes before its
// first ">"; it is never looked for by itself.
inline constexpr RawMarker kRawMarkers[] = {
    {KM_TEXT("<![CDATA["), KM_TEXT("]]>")}, {KM_TEXT("<!DOCTYPE"), KM_TEXT(">")},
    {KM_TEXT("<PRE>"), KM_TEXT("</PRE>")},  {KM_TEXT("<Script>"), KM_TEXT("</Script>")},
    {KM_TEXT("<!--"), KM_TEXT("-->")},      {KM_TEXT("<!DOCTYPE"), KM_TEXT("]>")},
};
