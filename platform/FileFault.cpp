// SPDX-License-Identifier: MIT
#include "platform/FileFault.h"

#include <iterator>

#include "platform/FileSystem.h"

namespace {

thread_local FILE_FAULT lastFault = FILE_FAULT_NONE;

constexpr const kmChar* kTexts[] = {
    KM_TEXT(""),
    KM_TEXT("the file or its folder does not exist"),
    KM_TEXT("the file or what it is on is read-only"),
    KM_TEXT("permission is denied"),
    KM_TEXT("another program uses the file"),
    KM_TEXT("the name is longer than the file system allows"),
    KM_TEXT("the file system does not take such a name"),
    KM_TEXT("what has that name is no file"),
    KM_TEXT("something of that name exists"),
    KM_TEXT("the disk is full"),
    KM_TEXT("the file is too large"),
    KM_TEXT("the system refused it, or the device failed"),
};
static_assert(std::size(kTexts) == FILE_FAULT_DEVICE + 1, "one text a fault");

}  // namespace

void NoteFault() { lastFault = machine::LastFault(); }

void NoteFault(FILE_FAULT fault) { lastFault = fault; }

FILE_FAULT kmLastFileFault() { return lastFault; }

const kmChar* kmFileFaultText(FILE_FAULT fault) {
    const bool isKnown = fault >= FILE_FAULT_NONE && fault <= FILE_FAULT_DEVICE;
    return kTexts[isKnown ? fault : FILE_FAULT_NONE];
}
