// SPDX-License-Identifier: MIT
// Which texts can be the ID of a profile.
#pragma once

#include <cstdint>
#include <vector>

#include "kmExport.h"
#include "kmTypes.h"

// Why a text cannot be an ID: the file named by the ID and ".pf" could not exist on every system that the
// library runs on, or would not come back when its folder is listed. Applications may keep the numbers.
enum PROFILE_ID_FAULT : std::int32_t {
    PROFILE_ID_FAULT_NONE = 0,         // it can be an ID
    PROFILE_ID_FAULT_EMPTY = 1,        // there is no text
    PROFILE_ID_FAULT_LEADING_DOT = 2,  // listings skip files that begin with "."
    PROFILE_ID_FAULT_CHARACTER = 3,    // a control character or one of \ / : * ? " < > |
    PROFILE_ID_FAULT_DEVICE = 4,       // the name of a device, such as "con" or "lpt1", with any extension
    PROFILE_ID_FAULT_ENCODING = 5,     // a lone surrogate that no file name can hold
};

// The first of these faults that `id` has. The ID ends at its first null unit, as in every operation that
// takes one. Saving and renaming refuse a new ID with any fault.
KM_EXPORT PROFILE_ID_FAULT kmFindIDFault(const kmString& id);

// The reason as the end of a sentence, in English: "it is the name of a device". Constant; empty for
// PROFILE_ID_FAULT_NONE and for any other number.
KM_EXPORT const kmChar* kmIDFaultText(PROFILE_ID_FAULT fault);

// The path of the file of that ID in `folder`, which ends with "\".
KM_EXPORT kmString kmProfilePath(const kmString& folder, const kmString& id);

// Replaces `ids` by those of the files in `folder` that are called like profiles, read or not: by their names
// alone, in the order in which a catalogue takes them. False, with what came before, when there is no such
// folder or it cannot be listed; kmLastFileFault tells why.
KM_EXPORT bool kmListProfileIDs(const kmString& folder, std::vector<kmString>& ids);
