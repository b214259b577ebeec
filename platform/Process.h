// SPDX-License-Identifier: MIT
// What the running process knows of itself, and its standard output.
#pragma once

#include "text/Ascii.h"

// The full path of the running executable, with "\" between the folders; empty when it cannot be told.
kmString ExecutablePath();

// Writes to standard output as UTF-8, in order with what the application prints through the C library.
void PrintText(kmStringView text);
