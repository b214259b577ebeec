// SPDX-License-Identifier: MIT
// What is told about XML files that could not be read.
#pragma once

#include <cstdint>

#include "kmMessages.h"

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
