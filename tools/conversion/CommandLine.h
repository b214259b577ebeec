// SPDX-License-Identifier: MIT
// Windows starts programs with one text, which each takes apart by itself.
#pragma once

#include <vector>

#include "kmTypes.h"

// The text that programs with the C runtime, and those that call CommandLineToArgvW, take apart into exactly
// `program` and `arguments`. The name of a program cannot hold a quotation mark.
kmString CommandLineOf(const kmString& program, const std::vector<kmString>& arguments);
