// The library's messages about files that it could not read, kept until a command fails.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "kmTypes.h"

struct LibraryMessage {
    kmString path;
    std::int32_t code;
    std::string text;
    std::int32_t line;
    std::int32_t column;

    // The file was used all the same.
    bool IsWarning() const;
    // There is no such file, or it may not be read.
    bool IsFileNotFound() const;
};

// From now on the library prints nothing: its messages are collected.
void CollectLibraryMessages();

// All messages so far, in order.
const std::vector<LibraryMessage>& LibraryMessages();

// "path: text", with line and column where the message has them.
std::string Describe(const LibraryMessage& message);
