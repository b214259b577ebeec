// SPDX-License-Identifier: MIT
// Character references in texts and attribute values.
#pragma once

#include <cstddef>

#include "text/Ascii.h"

// Whether every "&" in `text` starts one of the five named entities or a numeric reference.
bool EntitiesAreKnown(kmStringView text);

// Replaces the references of a text that passes EntitiesAreKnown, in place, and returns its new length,
// which is never longer.
std::size_t DecodeEntities(kmChar* text, std::size_t length);

// The entity that stands for `c` in written files; empty for a character that is written as it is.
kmStringView EntityFor(kmChar c);
