#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <memory>
#include <string>
#include <string_view>

#include "platform/Encoding.h"
#include "platform/Files.h"

namespace {

std::string ToSystemPath(kmStringView path) {
    kmString slashes(path);
    std::replace(slashes.begin(), slashes.end(), KM_TEXT('\\'), KM_TEXT('/'));
    return BytesFromText(slashes);
}

struct CloseFolder {
    void operator()(DIR* folder) const { closedir(folder); }
};
using Folder = std::unique_ptr<DIR, CloseFolder>;

char FoldByte(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; }

// Bytes beyond ASCII are compared exactly, so that this is the comparison of the decoded names too.
bool SameName(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return FoldByte(x) == FoldByte(y); });
}

// The entry of `folder` that is called `name` in other letter case; the first in byte order where several
// are.
std::string FindEntry(const std::string& folder, std::string_view name) {
    std::string found;
    const Folder entries(opendir(folder.empty() ? "." : folder.c_str()));
    if (!entries) return found;
    while (const dirent* entry = readdir(entries.get())) {
        const std::string_view candidate = entry->d_name;
        if (SameName(candidate, name) && (found.empty() || candidate < found)) found = candidate;
    }
    return found;
}

bool Exists(const std::string& path) {
    struct stat info {};
    return lstat(path.c_str(), &info) == 0;
}

// The path with every component spelled as on disk; empty when some component does not exist.
std::string ResolveCase(const std::string& path) {
    std::string resolved;
    for (std::size_t at = 0; at < path.size();) {
        if (path[at] == '/') {
            resolved += path[at++];
            continue;
        }
        const std::size_t end = std::min(path.find('/', at), path.size());
        const std::string name = path.substr(at, end - at);
        const std::string found = Exists(resolved + name) ? name : FindEntry(resolved, name);
        if (found.empty()) return {};
        resolved += found;
        at = end;
    }
    return resolved;
}

int OpenForReading(const std::string& path) {
    // Without O_NONBLOCK a pipe of that name would hold the caller until somebody writes to it.
    return open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
}

int OpenResolved(const std::string& path) {
    const int handle = OpenForReading(path);
    if (handle >= 0 || errno != ENOENT) return handle;
    const std::string resolved = ResolveCase(path);
    return resolved.empty() ? -1 : OpenForReading(resolved);
}

}  // namespace

InputFile::~InputFile() {
    if (m_handle >= 0) close(static_cast<int>(m_handle));
}

bool InputFile::Open(const kmChar* path) {
    m_handle = OpenResolved(ToSystemPath(path));
    if (m_handle < 0) return false;
    struct stat info {};
    if (fstat(static_cast<int>(m_handle), &info) != 0 || S_ISDIR(info.st_mode)) return false;
    m_size = static_cast<std::uint64_t>(info.st_size);
    return true;
}

bool InputFile::Read(void* bytes, std::size_t count, std::size_t& got) {
    got = 0;
    while (got < count) {
        const ssize_t step = read(static_cast<int>(m_handle), static_cast<char*>(bytes) + got, count - got);
        if (step == 0) return true;
        if (step > 0) {
            got += static_cast<std::size_t>(step);
        } else if (errno != EINTR) {
            return false;
        }
    }
    return true;
}
