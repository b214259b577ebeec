// SPDX-License-Identifier: MIT
// Texts for people. What a file says, or is called, must not steer the terminal.
#pragma once

#include <string>
#include <string_view>

#include "kmTypes.h"

// UTF-8 text with a space for everything that a terminal could obey: control characters, marks that turn the
// direction of writing, and stray bytes that some terminals take for control characters.
std::string Printable(std::string_view text);

// The text in quotation marks, printable; and an ID likewise.
std::string Quoted(std::string_view text);
std::string QuotedID(const kmString& id);
