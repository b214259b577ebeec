// Texts for people. What a file says, or is called, must not steer the terminal.
#pragma once

#include <string>
#include <string_view>

#include "kmTypes.h"

// UTF-8 text with a space for every control character.
std::string Printable(std::string_view text);

// The text in quotation marks, printable; and an ID likewise.
std::string Quoted(std::string_view text);
std::string QuotedID(const kmString& id);
