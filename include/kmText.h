// SPDX-License-Identifier: MIT
// Texts between the library's UTF-16 and UTF-8, and as names.
#pragma once

#include <string>
#include <string_view>

#include "kmExport.h"
#include "kmTypes.h"

// Any text as UTF-16. A byte that is part of no valid UTF-8 becomes one lone surrogate ({DC00} + the byte),
// so that nothing is lost on the way back.
KM_EXPORT kmString kmTextFromUtf8(std::string_view bytes);

// Any text as UTF-8, null units included; with the bytes that kmTextFromUtf8 could not decode. Any other lone
// surrogate takes three bytes.
KM_EXPORT std::string kmUtf8FromText(std::basic_string_view<kmChar> text);

// Whether two texts are one name to the library: equal but for the case of ASCII letters.
KM_EXPORT bool kmSameName(std::basic_string_view<kmChar> a, std::basic_string_view<kmChar> b);
