// What can go wrong with an XML file, and where it did.
#pragma once

#include <cstdint>

#include "kmTypes.h"

enum XMLErrorCode : std::int32_t {
    XML_ERROR_NONE = 0,
    XML_WARNING_UNMATCHED_END_TAG = 1,  // the tree is delivered
    XML_WARNING_NO_TAG = 2,             // likewise
    XML_ERROR_NO_DATA = 3,
    XML_ERROR_MISSING_START_TAG_NAME = 4,
    XML_ERROR_MISSING_END_TAG_NAME = 5,
    XML_ERROR_UNMATCHED_END_TAG = 6,
    XML_ERROR_UNMATCHED_RAW_END = 7,
    XML_ERROR_UNEXPECTED_TOKEN = 8,
    XML_ERROR_NO_TEXT = 9,
    XML_ERROR_FILE_NOT_FOUND = 10,
    XML_ERROR_FIRST_TAG_NOT_FOUND = 11,
    XML_ERROR_UNKNOWN_ENTITY = 12,
    XML_ERROR_CONVERSION = 13,
    XML_ERROR_OPEN_FOR_WRITING = 14,
    XML_ERROR_WRITE = 15,
    XML_WARNING_BASE64_LENGTH = 16,  // this one and the rest are reserved: nothing raises them
    XML_ERROR_BASE64_CHARACTER = 17,
    XML_WARNING_BASE64_TRUNCATED = 18,
    XML_ERROR_BASE64_BUFFER = 19,
};

struct XMLParseResult {
    XMLErrorCode code = XML_ERROR_NONE;
    std::int32_t line = 0;    // from 1; 0 when the error has no position in the text
    std::int32_t column = 0;  // from 1, in code units; 0 likewise
};

// The text of an error code; "Unknown" for any other number. Constant.
const kmChar* XMLErrorText(XMLErrorCode code);

// Tells of a file that could not be read without trouble: to the handler of kmSetMessageHandler, else on
// standard output. `firstTag` is the element that was missing when the code says so.
void ReportXMLError(const kmChar* path, const XMLParseResult& result, const kmChar* firstTag);
