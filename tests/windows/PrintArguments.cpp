// SPDX-License-Identifier: MIT
// Writes its arguments as the C runtime takes the command line apart, and to standard error as the system
// does, each as UTF-8 with a null byte after it. Its exit status is their number.
#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <shellapi.h>

#include <cstdio>

#include "kmText.h"

namespace {

void Write(std::FILE* stream, int count, wchar_t** arguments) {
    _setmode(_fileno(stream), _O_BINARY);
    for (int i = 1; i < count; ++i) {
        const std::string bytes = kmUtf8FromText(arguments[i]);
        std::fwrite(bytes.c_str(), 1, bytes.size() + 1, stream);
    }
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    Write(stdout, count, arguments);
    int systemCount = 0;
    wchar_t** systemArguments = CommandLineToArgvW(GetCommandLineW(), &systemCount);
    Write(stderr, systemCount, systemArguments);
    return count - 1;
}
