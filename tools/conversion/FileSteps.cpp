// SPDX-License-Identifier: MIT
#include "conversion/FileSteps.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace {

std::error_code ResultOf(int result) {
    return result < 0 ? std::error_code(errno, std::generic_category()) : std::error_code();
}

}  // namespace

std::error_code MakeNewFile(const std::filesystem::path& path) {
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    const std::error_code error = ResultOf(file);
    if (file >= 0) close(file);
    return error;
}

std::error_code MoveToNew(const std::filesystem::path& from, const std::filesystem::path& to) {
    const std::error_code error =
        ResultOf(renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE));
    if (error != std::errc::invalid_argument && error != std::errc::function_not_supported) return error;
    // Not every file system knows that call. A second name never replaces anything either.
    if (const std::error_code linkError = ResultOf(link(from.c_str(), to.c_str()))) return linkError;
    return ResultOf(unlink(from.c_str()));
}
