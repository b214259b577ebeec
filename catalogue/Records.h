// How the catalogue's stored names become the texts that users see.
#pragma once

#include "kmTypes.h"

// The text without the "^" that it begins with.
kmString StripLeadingCarets(const kmString& name);
