// SPDX-License-Identifier: MIT
#include "conversion/PictureSeries.h"

#include <algorithm>
#include <charconv>
#include <string_view>
#include <system_error>

#include "Failure.h"
#include "conversion/SystemPaths.h"
#include "conversion/OutputChecks.h"

namespace fs = std::filesystem;

namespace {

bool IsDigit(char byte) { return byte >= '0' && byte <= '9'; }

// "%%" is how the encoder is told a "%" that stands for itself.
std::string Escaped(const std::string& folder) {
    std::string text;
    for (const char byte : folder) text.append(byte == '%' ? 2 : 1, byte);
    return text;
}

}  // namespace

std::optional<PicturePattern> ReadPattern(const std::string& name) {
    PicturePattern pattern;
    bool hasNumber = false;
    for (std::size_t i = 0; i < name.size(); ++i) {
        std::string& text = hasNumber ? pattern.after : pattern.before;
        if (name[i] != '%') {
            text += name[i];
            continue;
        }
        const std::size_t end = std::min(name.find_first_not_of("0123456789", i + 1), name.size() - 1);
        if (name[end] == '%' && end == i + 1) {
            text += '%';
        } else if (name[end] == 'd' && !hasNumber) {
            hasNumber = true;
            std::from_chars(name.data() + i + 1, name.data() + end, pattern.width);
        } else {
            return std::nullopt;
        }
        i = end;
    }
    return hasNumber ? std::optional(pattern) : std::nullopt;
}

bool Matches(const PicturePattern& pattern, const std::string& name) {
    const std::size_t around = pattern.before.size() + pattern.after.size();
    if (name.size() <= around || !name.starts_with(pattern.before) || !name.ends_with(pattern.after))
        return false;
    const std::string_view digits =
        std::string_view(name).substr(pattern.before.size(), name.size() - around);
    const std::size_t width = std::max<std::size_t>(pattern.width, 1);
    const bool isPadded = digits.size() == width || (digits.size() > width && digits.front() != '0');
    return isPadded && std::all_of(digits.begin(), digits.end(), IsDigit);
}

PictureSeries::PictureSeries(const OutputRequest& request, const PicturePattern& pattern)
    : m_path(request.path), m_pattern(pattern), m_earlier(FindFiles()) {
    for (const fs::path& file : m_earlier) RequireOther(file, request.input);
    if (!m_earlier.empty() && !request.mayReplace) RefuseToReplace(*m_earlier.begin());
}

PictureSeries::~PictureSeries() {
    if (m_isSettled) return;
    std::error_code ignored;
    for (const fs::path& file : FindFiles()) {
        if (!m_earlier.contains(file)) fs::remove(file, ignored);
    }
}

std::string PictureSeries::EncoderPath() const {
    const std::string folder = m_path.has_parent_path() ? Utf8FromSystemPath(m_path.parent_path() / "") : "";
    return Escaped(folder) + Utf8FromSystemPath(m_path.filename());
}

void PictureSeries::Finish() {
    if (FindFiles().empty()) throw Failure("the encoder has written nothing");
    m_isSettled = true;
}

std::string PictureSeries::KeepHalf() {
    m_isSettled = true;
    return FindFiles().size() == m_earlier.size()
               ? ""
               : "the pictures written so far are " + Utf8FromSystemPath(m_path);
}

PictureSeries::Files PictureSeries::FindFiles() const {
    Files files;
    std::error_code error;
    for (fs::directory_iterator entry(FolderOf(m_path), error); !error && entry != fs::directory_iterator();
         entry.increment(error)) {
        const fs::path name = entry->path().filename();
        if (Matches(m_pattern, Utf8FromSystemPath(name))) files.insert(m_path.parent_path() / name);
    }
    return files;
}
