#include "LibraryMessages.h"

#include "Texts.h"
#include "kmMessages.h"

namespace {

constexpr std::int32_t kLastWarning = 2;
constexpr std::int32_t kFileNotFound = 10;

std::vector<LibraryMessage> collected;

void Collect(const kmMessage& message, void*) {
    collected.push_back(
        {message.path, message.code, Utf8FromText(message.text), message.line, message.column});
}

}  // namespace

bool LibraryMessage::IsWarning() const { return code <= kLastWarning; }
bool LibraryMessage::IsFileNotFound() const { return code == kFileNotFound; }

void CollectLibraryMessages() { kmSetMessageHandler(Collect, nullptr); }

const std::vector<LibraryMessage>& LibraryMessages() { return collected; }

std::string Describe(const LibraryMessage& message) {
    std::string text = Utf8FromPath(message.path) + ": " + message.text;
    if (message.line == 0) return text;
    return text + " (line " + std::to_string(message.line) + ", column " + std::to_string(message.column) +
           ')';
}
