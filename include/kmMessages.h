// The messages about XML files that could not be read.
#pragma once

#include <cstdint>

#include "kmExport.h"
#include "kmTypes.h"

// One message. The texts are valid during the handler's call only.
struct kmMessage {
    const kmChar* path;   // the file, as the library was asked for it, with "\" as separator
    std::int32_t code;    // 1 and 2 are warnings: the file was used all the same
    const kmChar* text;   // the error's text, for example "Error: File not found"
    std::int32_t line;    // from 1; 0 when the error has no position in the file
    std::int32_t column;  // from 1, in UTF-16 units; 0 likewise
};

using kmMessageHandler = void (*)(const kmMessage& message, void* userData);

// From now on gives every message to `handler`, with `userData` as it is, instead of printing it on
// standard output, which is what the library does by itself. Null restores the printing. The handler
// is process-wide, runs on the thread that reads the file, and must not throw.
KM_EXPORT void kmSetMessageHandler(kmMessageHandler handler, void* userData);
