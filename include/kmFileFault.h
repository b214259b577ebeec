// SPDX-License-Identifier: MIT
// Why the machine refused a file: the reason behind PROFILE_ERROR_FILE and behind a load or a delete that
// failed.
#pragma once

#include <cstdint>

#include "kmExport.h"
#include "kmTypes.h"

// Applications may keep the numbers.
enum FILE_FAULT : std::int32_t {
    FILE_FAULT_NONE = 0,
    FILE_FAULT_NOT_FOUND = 1,      // there is no such file, or no such folder to write it into
    FILE_FAULT_READ_ONLY = 2,      // the file, or the medium that it is on, cannot be written
    FILE_FAULT_ACCESS_DENIED = 3,  // the user may not read, write or list it
    FILE_FAULT_IN_USE = 4,         // another program has it open and forbids the change
    FILE_FAULT_NAME_TOO_LONG = 5,  // the name or the path is longer than the file system allows
    FILE_FAULT_BAD_NAME = 6,       // the file system takes no such name
    FILE_FAULT_NO_FILE = 7,        // what has the name is a folder, a pipe or a device
    FILE_FAULT_EXISTS = 8,         // the new name is taken
    FILE_FAULT_DISK_FULL = 9,      // no room on the disk, or none left for this user
    FILE_FAULT_TOO_LARGE = 10,     // the library reads no file of that size
    FILE_FAULT_DEVICE = 11,        // the device failed, or a reason that has no number here
};

// Why the last file operation of this thread that failed did: reading, storing, renaming, removing a file, or
// listing a folder. An operation that works leaves it as it is, so ask right after a failure; one that was
// refused before it came to a file (a bad ID, a system profile) has no reason here.
KM_EXPORT FILE_FAULT kmLastFileFault();

// The reason as the end of a sentence, in English: "the disk is full". Constant; empty for FILE_FAULT_NONE
// and for any other number.
KM_EXPORT const kmChar* kmFileFaultText(FILE_FAULT fault);
