// SPDX-License-Identifier: MIT
#ifndef NOMINMAX
#define NOMINMAX
#endif
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include "conversion/FileSteps.h"

namespace {

std::error_code LastError() {
    const DWORD error = GetLastError();
    if (error == ERROR_ALREADY_EXISTS || error == ERROR_FILE_EXISTS)
        return std::make_error_code(std::errc::file_exists);
    return {static_cast<int>(error), std::system_category()};
}

}  // namespace

std::error_code MakeNewFile(const std::filesystem::path& path) {
    const HANDLE file =
        CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return LastError();
    CloseHandle(file);
    return {};
}

std::error_code MoveToNew(const std::filesystem::path& from, const std::filesystem::path& to) {
    return MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_WRITE_THROUGH) != 0 ? std::error_code()
                                                                              : LastError();
}
