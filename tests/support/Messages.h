// SPDX-License-Identifier: MIT
// What the library would have printed about files that it could not read.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "kmMessages.h"
#include "tests/support/Text.h"

struct CapturedMessage {
    std::string path;
    std::int32_t code;
    std::string text;
    std::int32_t line;
    std::int32_t column;
};

// Takes the messages while it lives; printing is restored afterwards.
class CapturedMessages {
public:
    CapturedMessages() { kmSetMessageHandler(&Take, this); }
    CapturedMessages(const CapturedMessages&) = delete;
    CapturedMessages& operator=(const CapturedMessages&) = delete;
    ~CapturedMessages() { kmSetMessageHandler(nullptr, nullptr); }

    const std::vector<CapturedMessage>& All() const { return m_messages; }

    std::vector<std::string> Paths() const {
        std::vector<std::string> paths;
        for (const CapturedMessage& message : m_messages) paths.push_back(message.path);
        return paths;
    }

private:
    static void Take(const kmMessage& message, void* self) {
        static_cast<CapturedMessages*>(self)->m_messages.push_back(
            {Utf8(message.path), message.code, Utf8(message.text), message.line, message.column});
    }

    std::vector<CapturedMessage> m_messages;
};
