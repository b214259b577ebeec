// SPDX-License-Identifier: MIT
// What the targets share.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>

#include "kmMessages.h"
#include "kmText.h"

// Ends the process, which the fuzzer takes for a find, when the law is broken.
inline void Require(bool holds, const char* law, const std::string& given = {}) {
    if (holds) return;
    std::fprintf(stderr, "Broken: %s\n%s\n", law, given.c_str());
    std::abort();
}

inline void RequireSame(const kmString& a, const kmString& b, const char* law) {
    if (a != b) Require(false, law, "one: " + kmUtf8FromText(a) + "\nother: " + kmUtf8FromText(b));
}

// Most inputs are no good files, and nobody reads the messages about them.
inline const bool kIsQuiet = (kmSetMessageHandler([](const kmMessage&, void*) {}, nullptr), true);
