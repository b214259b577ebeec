// SPDX-License-Identifier: MIT
// What the library knows about the encoder's options: one constant table of 150 rows.
#pragma once

#include <cstdint>

#include "kmExport.h"
#include "kmTypes.h"

// The bits of _ArgOption::flags. Only SWITCH, SWITCH_ONE, AUDIO, NOT_PASSED and LOWER_TEXT change what
// the library does; the others are carried for the application.

inline constexpr std::uint32_t ARG_SWITCH = 0x1;        // takes no value; written when "true" or "yes"
inline constexpr std::uint32_t ARG_INTEGER = 0x2;       // integer-valued
inline constexpr std::uint32_t ARG_TEXT = 0x80;         // free text
inline constexpr std::uint32_t ARG_SWITCH_ONE = 0x100;  // on a switch: the name is followed by "1"
inline constexpr std::uint32_t ARG_EXPERT = 0x1000;     // for experts
inline constexpr std::uint32_t ARG_VIDEO = 0x2000;      // video option
inline constexpr std::uint32_t ARG_AUDIO = 0x4000;      // audio option; left out when audio is not wanted
inline constexpr std::uint32_t ARG_GENERAL = 0x8000;    // timing and picture output
inline constexpr std::uint32_t ARG_TAG = 0x10000;       // a tag of the output file
inline constexpr std::uint32_t ARG_FLAG_21 = 0x200000;  // meaning known to the application alone
inline constexpr std::uint32_t ARG_FLAG_22 = 0x400000;  // meaning known to the application alone
inline constexpr std::uint32_t ARG_NOT_PASSED = 0x10000000;  // never written into the option string
inline constexpr std::uint32_t ARG_LOWER_TEXT = 0x20000000;  // written in lower case, compared exactly

// One option of the encoder. All texts are constant and live as long as the library.
struct _ArgOption {
    const kmChar* name;          // without the leading "-"
    std::uint32_t flags;         // ARG_ bits
    std::int32_t textId;         // for the application; options with the same help text share it
    const kmChar* comments;      // help text, or null
    const kmChar* defVal;        // default value, or null
    const kmChar* listVal[130];  // suggested values in display order, up to the first null
};

// Look-ups in the option table. Names are matched without regard to ASCII case; a null name matches
// nothing. Results are constant and never to be freed.
class KM_EXPORT kmArgOption {
public:
    // The index of the option, 0 to 149; -1 when there is none of that name.
    static int GetOptionID(const kmChar* name);

    // The option with that index or name, or null.
    static const _ArgOption* GetArgOption(int index);
    static const _ArgOption* GetArgOption(const kmChar* name);

    // The name of the option with that index, or null.
    static const kmChar* GetOptionName(int index);

    // The table's own spelling of the name, the help text and the default value; null when there is no
    // such option, or it has no help text or no default.
    static const kmChar* GetOptionTitle(const kmChar* name);
    static const kmChar* GetOptionComments(const kmChar* name);
    static const kmChar* GetOptionDefVal(const kmChar* name);

    // True when the option exists and has at least one bit of `mask`.
    static bool HasFlag(const kmChar* name, std::uint32_t mask);

    // The first of the option's suggested values, a list that ends with a null; null when there is no
    // such option.
    static const kmChar* const* GetListVal(const kmChar* name);
};
