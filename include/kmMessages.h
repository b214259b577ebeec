// SPDX-License-Identifier: MIT
// The messages about XML files that could not be read, and their codes.
#pragma once

#include <cstdint>

#include "kmExport.h"
#include "kmTypes.h"

// What is wrong with a file. Applications may keep the numbers: they never change.
enum XMLErrorCode : std::int32_t {
    XML_ERROR_NONE = 0,
    XML_WARNING_UNMATCHED_END_TAG = 1,     // an element was open at the end, or closed by another's end tag
    XML_WARNING_NO_TAG = 2,                // there is no element at all
    XML_ERROR_NO_DATA = 3,                 // the file is empty
    XML_ERROR_MISSING_START_TAG_NAME = 4,  // no name follows "<" or "<?"
    XML_ERROR_MISSING_END_TAG_NAME = 5,    // no name and ">" follow "</"
    XML_ERROR_UNMATCHED_END_TAG = 6,       // an end tag of no open element
    XML_ERROR_UNMATCHED_RAW_END = 7,       // a comment or the like has no end
    XML_ERROR_UNEXPECTED_TOKEN = 8,        // something in a start tag that cannot stand there
    XML_ERROR_NO_TEXT = 9,                 // there was nothing to parse
    XML_ERROR_FILE_NOT_FOUND = 10,         // the file cannot be opened or read
    XML_ERROR_FIRST_TAG_NOT_FOUND = 11,    // the first element is another one than the file must have
    XML_ERROR_UNKNOWN_ENTITY = 12,         // an "&" that begins no known character reference
    XML_ERROR_CONVERSION = 13,             // 8-bit text that is no UTF-8
    XML_ERROR_OPEN_FOR_WRITING = 14,       // only in results of writing, like the next one
    XML_ERROR_WRITE = 15,
    XML_WARNING_BASE64_LENGTH = 16,  // this one and the rest are reserved: nothing raises them
    XML_ERROR_BASE64_CHARACTER = 17,
    XML_WARNING_BASE64_TRUNCATED = 18,
    XML_ERROR_BASE64_BUFFER = 19,
};

// Whether a file with this code was used all the same. The reserved warnings never accompany a file.
constexpr bool kmIsWarning(XMLErrorCode code) {
    return code == XML_WARNING_UNMATCHED_END_TAG || code == XML_WARNING_NO_TAG;
}

// One message. The texts are valid during the handler's call only.
struct kmMessage {
    const kmChar* path;   // the file, as the library was asked for it, with "\" as separator
    XMLErrorCode code;    // for the warnings the file was used all the same, see kmIsWarning
    const kmChar* text;   // the error's text, for example "Error: File not found"
    std::int32_t line;    // from 1; 0 when the error has no position in the file
    std::int32_t column;  // from 1, in UTF-16 units; 0 likewise
};

// What takes the messages instead of the standard output; see kmSetMessageHandler.
using kmMessageHandler = void (*)(const kmMessage& message, void* userData);

// From now on gives every message to `handler`, with `userData` as it is, instead of printing it on
// standard output, which is what the library does by itself. Null restores the printing. The handler
// is process-wide, runs on the thread that reads the file, and must not throw.
KM_EXPORT void kmSetMessageHandler(kmMessageHandler handler, void* userData);
