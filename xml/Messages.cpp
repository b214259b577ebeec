// SPDX-License-Identifier: MIT
// The texts of the codes, and where messages go: to the one handler of the process or to standard output.
#include "xml/Messages.h"

#include <cstddef>
#include <iterator>

#include "platform/Process.h"
#include "text/Numbers.h"

namespace {

constexpr const kmChar* kTexts[] = {
    KM_TEXT("No error"),
    KM_TEXT("Warning: Unmatched end tag"),
    KM_TEXT("Warning: No XML tag found"),
    KM_TEXT("Error: No XML data"),
    KM_TEXT("Error: Missing start tag name"),
    KM_TEXT("Error: Missing end tag name"),
    KM_TEXT("Error: Unmatched end tag"),
    KM_TEXT("Error: Unmatched clear tag end"),
    KM_TEXT("Error: Unexpected token found"),
    KM_TEXT("Error: No elements found"),
    KM_TEXT("Error: File not found"),
    KM_TEXT("Error: First Tag not found"),
    KM_TEXT("Error: Unknown character entity"),
    KM_TEXT("Error: unable to convert between WideChar and MultiByte chars"),
    KM_TEXT("Error: unable to open file for writing"),
    KM_TEXT("Error: cannot write into file"),
    KM_TEXT("Warning: Base64-string length is not a multiple of 4"),
    KM_TEXT("Error: Base64-string contains an illegal character"),
    KM_TEXT("Warning: Base64-string is truncated"),
    KM_TEXT("Error: Base64 decode output buffer is too small"),
};
static_assert(std::size(kTexts) == XML_ERROR_BASE64_BUFFER + 1, "one text a code");

struct MessageTarget {
    kmMessageHandler handler = nullptr;
    void* userData = nullptr;
};

MessageTarget messageTarget;

kmString FormatMessage(const kmChar* path, const XMLParseResult& result, const kmChar* firstTag) {
    kmString message = KM_TEXT("XML Parsing error inside file '");
    message.append(path).append(KM_TEXT("'.\n")).append(XMLErrorText(result.code));
    message.append(KM_TEXT("\nAt line ")).append(IntegerText(result.line));
    message.append(KM_TEXT(", column ")).append(IntegerText(result.column)).append(KM_TEXT(".\n"));
    if (result.code == XML_ERROR_FIRST_TAG_NOT_FOUND) {
        message.append(KM_TEXT("First Tag should be '")).append(firstTag).append(KM_TEXT("'.\n"));
    }
    return message;
}

}  // namespace

const kmChar* XMLErrorText(XMLErrorCode code) {
    const auto index = static_cast<std::size_t>(code);  // a negative code becomes too large
    return index < std::size(kTexts) ? kTexts[index] : KM_TEXT("Unknown");
}

void ReportXMLError(const kmChar* path, const XMLParseResult& result, const kmChar* firstTag) {
    if (path == nullptr) path = KM_TEXT("");
    if (messageTarget.handler == nullptr) {
        PrintText(FormatMessage(path, result, firstTag));
        return;
    }
    const kmMessage message{path, result.code, XMLErrorText(result.code), result.line, result.column};
    messageTarget.handler(message, messageTarget.userData);
}

void kmSetMessageHandler(kmMessageHandler handler, void* userData) { messageTarget = {handler, userData}; }
