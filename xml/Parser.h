// SPDX-License-Identifier: MIT
// Builds the tree of a document from the text that it holds.
#pragma once

#include "xml/Document.h"
#include "xml/Messages.h"

// Parses the text of `document`, up to its first null unit, as the content of a nameless element, which is
// the result. `result` receives the code and the place where parsing stopped; the tree is complete when the
// code is at most XML_WARNING_NO_TAG, and not to be used otherwise. Keeps no state and needs no
// stack for nested elements.
Element* ParseContent(Document& document, kmChar* text, XMLParseResult& result);
