// SPDX-License-Identifier: MIT
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <string>

#include "platform/Process.h"
#include "text/Encoding.h"

kmString ExecutablePath() {
    std::string path(256, '\0');
    for (;;) {
        const ssize_t length = readlink("/proc/self/exe", path.data(), path.size());
        if (length < 0) return {};
        const auto size = static_cast<std::size_t>(length);
        if (size < path.size()) {
            path.resize(size);
            break;
        }
        path.resize(2 * path.size());
    }
    kmString text = TextFromBytes(path);
    std::replace(text.begin(), text.end(), KM_TEXT('/'), KM_TEXT('\\'));
    return text;
}

void PrintText(kmStringView text) {
    const std::string bytes = BytesFromText(text);
    std::fwrite(bytes.data(), 1, bytes.size(), stdout);
}
