// SPDX-License-Identifier: MIT
#include "conversion/SingleOutput.h"

#include <cstdint>
#include <cstdio>
#include <random>
#include <system_error>
#include <utility>

#include "Failure.h"
#include "conversion/SystemPaths.h"
#include "conversion/FileSteps.h"
#include "conversion/OutputChecks.h"

namespace fs = std::filesystem;

namespace {

std::string RandomName() {
    std::random_device random;
    char name[32];
    std::snprintf(name, sizeof name, ".km%08x%08x", random(), random());
    return name;
}

// The encoder may choose what it writes by the extension.
fs::path MakeTemporary(const fs::path& output) {
    for (;;) {
        const fs::path path = output.parent_path() / (RandomName() + Utf8FromSystemPath(output.extension()));
        const std::error_code error = MakeNewFile(path);
        if (!error) return path;
        if (error != std::errc::file_exists)
            throw Failure(Utf8FromSystemPath(output) + ": cannot be written: " + error.message());
    }
}

// What a link of that name leads to is what gets replaced, not the link.
fs::path PlaceOf(const OutputRequest& request) {
    std::error_code ignored;
    const bool isLink = request.mayReplace && fs::is_symlink(request.path, ignored);
    const fs::path place = isLink ? fs::canonical(request.path, ignored) : fs::path();
    return place.empty() ? request.path : place;
}

bool HoldsSomething(const fs::path& file) {
    std::error_code error;
    return fs::file_size(file, error) > 0 && !error;
}

std::error_code Replace(const fs::path& from, const fs::path& to) {
    std::error_code error;
    const fs::file_status old = fs::status(to, error);
    if (fs::exists(old)) fs::permissions(from, old.permissions(), error);
    fs::rename(from, to, error);
    return error;
}

}  // namespace

SingleOutput::SingleOutput(const OutputRequest& request)
    : m_path(PlaceOf(request)), m_mayReplace(request.mayReplace) {
    RequireOther(m_path, request.input);
    std::error_code ignored;
    const fs::file_status old = fs::status(m_path, ignored);
    if (fs::is_directory(old)) throw Failure(Utf8FromSystemPath(m_path) + ": is a folder");
    if (fs::exists(old) && !fs::is_regular_file(old))
        throw Failure(Utf8FromSystemPath(m_path) + ": is no regular file");
    if (fs::exists(old) && !m_mayReplace) RefuseToReplace(m_path);
    m_temporary = MakeTemporary(m_path);
}

SingleOutput::~SingleOutput() {
    std::error_code ignored;
    if (!m_temporary.empty()) fs::remove(m_temporary, ignored);
}

std::string SingleOutput::EncoderPath() const { return Utf8FromSystemPath(m_temporary); }

// A finished file is never thrown away: it keeps its temporary name when it cannot get the other one.
void SingleOutput::Finish() {
    if (!HoldsSomething(m_temporary)) throw Failure("the encoder has written nothing");
    const fs::path finished = std::exchange(m_temporary, {});
    const std::error_code error = m_mayReplace ? Replace(finished, m_path) : MoveToNew(finished, m_path);
    if (!error) return;
    const bool isTaken = !m_mayReplace && error == std::errc::file_exists;
    throw Failure(Utf8FromSystemPath(m_path) + ": " +
                  (isTaken ? "there is such a file by now" : "cannot be written: " + error.message()) +
                  "; the finished one is " + Utf8FromSystemPath(finished));
}

std::string SingleOutput::KeepHalf() {
    if (!HoldsSomething(m_temporary)) return {};
    return "the half-written file is " + Utf8FromSystemPath(std::exchange(m_temporary, {}));
}
