// Between the bytes of the command line and the library's texts. Bytes are UTF-8; a byte that is no valid
// UTF-8 becomes the lone low surrogate {DC00} + byte, the library's own way to carry it, and comes back.
#pragma once

#include <string>
#include <string_view>

#include "kmTypes.h"

// A value.
kmString TextFromUtf8(std::string_view bytes);

// A folder or an ID, in the system's own form. Where "\" may be part of a name it becomes {DC5C}, because the
// library takes a plain one as the separator of folders.
kmString NameFromUtf8(std::string_view bytes);

// The reverse of both.
std::string Utf8FromText(std::basic_string_view<kmChar> text);

// A path of the library in the system's own form.
std::string Utf8FromPath(kmString path);

// The text with a space for every control character: what a file says must not steer the terminal.
std::string Printable(std::string_view text);

// The text in quotation marks, printable.
std::string Quoted(std::string_view text);

// Without the spaces at both ends.
std::string_view TrimSpaces(std::string_view text);
