// SPDX-License-Identifier: MIT
#include "LibraryMessages.h"

#include "kmFolders.h"
#include "kmText.h"

namespace {

std::vector<LibraryMessage> collected;

void Collect(const kmMessage& message, void*) {
    collected.push_back(
        {message.path, message.code, kmUtf8FromText(message.text), message.line, message.column});
}

}  // namespace

void CollectLibraryMessages() { kmSetMessageHandler(Collect, nullptr); }

const std::vector<LibraryMessage>& LibraryMessages() { return collected; }

std::string Describe(const LibraryMessage& message) {
    std::string text = kmUtf8FromPath(message.path) + ": " + message.text;
    if (message.line == 0) return text;
    return text + " (line " + std::to_string(message.line) + ", column " + std::to_string(message.column) +
           ')';
}
