// SPDX-License-Identifier: MIT
#include "conversion/OutputChecks.h"

#include <system_error>

#include "Failure.h"
#include "conversion/SystemPaths.h"

namespace fs = std::filesystem;

fs::path FolderOf(const fs::path& file) {
    return file.has_parent_path() ? file.parent_path() : fs::path(".");
}

void RequireFolder(const fs::path& folder) {
    std::error_code ignored;
    if (!fs::is_directory(folder, ignored)) throw Failure(Utf8FromSystemPath(folder) + ": no such folder");
}

void RequireOther(const fs::path& output, const fs::path& input) {
    std::error_code ignored;
    if (fs::equivalent(output, input, ignored))
        throw Failure(Utf8FromSystemPath(output) + ": is the input itself");
}

void RefuseToReplace(const fs::path& file) {
    throw Failure(Utf8FromSystemPath(file) + ": there is such a file; replace it with --force");
}
