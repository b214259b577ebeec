// SPDX-License-Identifier: MIT
// The library's messages about files that it could not read, kept until a command fails.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "kmMessages.h"

struct LibraryMessage {
    kmString path;
    XMLErrorCode code;
    std::string text;
    std::int32_t line;
    std::int32_t column;
};

// From now on the library prints nothing: its messages are collected.
void CollectLibraryMessages();

// All messages so far, in order.
const std::vector<LibraryMessage>& LibraryMessages();

// "path: text", with line and column where the message has them.
std::string Describe(const LibraryMessage& message);
