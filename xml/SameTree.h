// SPDX-License-Identifier: MIT
// Whether two trees say the same.
#pragma once

struct Element;

// Names, attributes, texts and raw sections in their order. White space around texts and empty texts do not
// count: reading drops them.
bool HoldTheSame(const Element& a, const Element& b);
