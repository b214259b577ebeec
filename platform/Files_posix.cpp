#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "text/Encoding.h"
#include "platform/Files.h"
#include "platform/Folder.h"

namespace {

std::string ToSystemPath(kmStringView path) {
    std::string bytes(path.size(), ' ');
    for (std::size_t i = 0; i < path.size(); ++i) {
        if (path[i] >= 0x80) {
            kmString slashes(path);
            std::replace(slashes.begin(), slashes.end(), KM_TEXT('\\'), KM_TEXT('/'));
            return BytesFromText(slashes);
        }
        bytes[i] = path[i] == KM_TEXT('\\') ? '/' : static_cast<char>(path[i]);
    }
    return bytes;
}

struct CloseFolder {
    void operator()(DIR* folder) const { closedir(folder); }
};
using FolderStream = std::unique_ptr<DIR, CloseFolder>;

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
    const FolderStream entries(opendir(folder.empty() ? "." : folder.c_str()));
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

// Where `path` leads: its spelling on disk where the entry exists, else the name itself in the folder as
// spelled on disk; empty when the folder does not exist.
std::string ResolveTarget(const std::string& path) {
    if (Exists(path)) return path;
    std::string resolved = ResolveCase(path);
    if (!resolved.empty()) return resolved;
    const std::size_t nameAt = path.rfind('/') + 1;
    const std::string folder = path.substr(0, nameAt);
    resolved = folder.empty() ? folder : ResolveCase(folder);
    return resolved.empty() && !folder.empty() ? resolved : resolved + path.substr(nameAt);
}

std::string FolderOf(const std::string& path) { return path.substr(0, path.rfind('/') + 1); }

// Follows symbolic links, also to something that does not exist yet; empty when they go in a circle.
std::string FollowLinks(std::string path) {
    constexpr int kMostLinks = 40;
    for (int i = 0; i < kMostLinks; ++i) {
        char target[PATH_MAX];
        const ssize_t length = readlink(path.c_str(), target, sizeof target);
        if (length < 0) return path;
        const std::string_view link(target, static_cast<std::size_t>(length));
        path = link.starts_with('/') ? std::string(link) : FolderOf(path).append(link);
    }
    return {};
}

// A file open for writing; closed by the destructor unless Close was called.
class OutputHandle {
public:
    explicit OutputHandle(int handle) : m_handle(handle) {}
    OutputHandle(const OutputHandle&) = delete;
    OutputHandle& operator=(const OutputHandle&) = delete;
    ~OutputHandle() {
        if (m_handle >= 0) close(m_handle);
    }
    bool IsOpen() const { return m_handle >= 0; }
    int Get() const { return m_handle; }
    bool Close() { return close(std::exchange(m_handle, -1)) == 0; }

    bool WriteAll(const void* bytes, std::size_t count) {
        const auto* at = static_cast<const char*>(bytes);
        while (count > 0) {
            const ssize_t step = write(m_handle, at, count);
            if (step < 0 && errno == EINTR) continue;
            if (step <= 0) return false;
            at += step;
            count -= static_cast<std::size_t>(step);
        }
        return true;
    }

private:
    int m_handle;
};

WriteResult WriteInPlace(const std::string& path, const void* bytes, std::size_t count) {
    // Without O_NONBLOCK a pipe that nobody reads would hold the caller; with it a full pipe would fail.
    OutputHandle file(open(path.c_str(), O_WRONLY | O_CLOEXEC | O_NONBLOCK));
    if (!file.IsOpen()) return WriteResult::CannotOpen;
    fcntl(file.Get(), F_SETFL, fcntl(file.Get(), F_GETFL) & ~O_NONBLOCK);
    const bool written = file.WriteAll(bytes, count);
    return file.Close() && written ? WriteResult::Done : WriteResult::CannotWrite;
}

// A new file in `folder` whose name no listing of profiles shows; `path` receives its name.
int CreateTemporary(const std::string& folder, std::string& path) {
    static unsigned counter = 0;
    constexpr int kTries = 100;
    for (int i = 0; i < kTries; ++i) {
        path = folder + ".km" + std::to_string(getpid()) + "-" + std::to_string(counter++) + ".tmp";
        const int handle = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (handle >= 0 || errno != EEXIST) return handle;
    }
    return -1;
}

void TakeOverPermissions(int handle, const struct stat& old) {
    // Only the superuser may give a file away; others can at least keep it in its group. Before the mode,
    // which a change of owner would reduce.
    if (fchown(handle, old.st_uid, old.st_gid) != 0 &&
        fchown(handle, static_cast<uid_t>(-1), old.st_gid) != 0) {
        // The file is the writer's own now, which is what saving means where owners cannot be kept.
    }
    fchmod(handle, old.st_mode & 07777);
}

// A name is on the disk only when its folder is.
void FlushFolder(const std::string& folder) {
    const OutputHandle handle(
        open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (handle.IsOpen()) fsync(handle.Get());
}

// `old` describes the file that is replaced, or is null.
WriteResult WriteBeside(const std::string& path, const struct stat* old, const void* bytes,
                        std::size_t count) {
    std::string temporary;
    OutputHandle file(CreateTemporary(FolderOf(path), temporary));
    if (!file.IsOpen()) return WriteResult::CannotOpen;
    if (old != nullptr) TakeOverPermissions(file.Get(), *old);
    const bool flushed = file.WriteAll(bytes, count) && (fsync(file.Get()) == 0 || errno == EINVAL);
    if (!file.Close() || !flushed || rename(temporary.c_str(), path.c_str()) != 0) {
        unlink(temporary.c_str());
        return WriteResult::CannotWrite;
    }
    FlushFolder(FolderOf(path));
    return WriteResult::Done;
}

bool IsWritable(const std::string& path) {
    return OutputHandle(open(path.c_str(), O_WRONLY | O_CLOEXEC | O_NONBLOCK)).IsOpen();
}

bool IsFolder(int folder, const dirent& entry) {
    if (entry.d_type != DT_UNKNOWN && entry.d_type != DT_LNK) return entry.d_type == DT_DIR;
    struct stat info {};
    return fstatat(folder, entry.d_name, &info, 0) == 0 && S_ISDIR(info.st_mode);
}

// Without replacing; not every file system can promise that in one step.
bool RenameEntry(const std::string& from, const std::string& to) {
    if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return true;
    return (errno == EINVAL || errno == ENOSYS) && !Exists(to) && rename(from.c_str(), to.c_str()) == 0;
}

// Without O_NONBLOCK a pipe of that name would hold the caller until somebody writes to it.
constexpr int kReadingFlags = O_RDONLY | O_CLOEXEC | O_NONBLOCK;

int OpenForReading(const std::string& path) { return open(path.c_str(), kReadingFlags); }

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

bool InputFile::Open(const kmChar* path) { return Adopt(OpenResolved(ToSystemPath(path))); }

// The object owns the handle from now on, whatever the result.
bool InputFile::Adopt(std::intptr_t handle) {
    m_handle = handle;
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

WriteResult StoreFile(const kmChar* path, const void* bytes, std::size_t count) {
    const std::string target = FollowLinks(ResolveTarget(ToSystemPath(path)));
    if (target.empty()) return WriteResult::CannotOpen;
    struct stat info {};
    if (stat(target.c_str(), &info) != 0) return WriteBeside(target, nullptr, bytes, count);
    if (!S_ISREG(info.st_mode)) return WriteInPlace(target, bytes, count);
    return IsWritable(target) ? WriteBeside(target, &info, bytes, count) : WriteResult::CannotOpen;
}

void RespellFile(const kmChar* path) {
    const std::string wanted = ToSystemPath(path);
    if (Exists(wanted)) return;
    const std::string found = ResolveCase(wanted);
    if (!found.empty()) RenameEntry(found, FolderOf(found) + wanted.substr(wanted.rfind('/') + 1));
}

bool EntryExists(const kmChar* path) {
    const std::string wanted = ToSystemPath(path);
    return Exists(wanted) || !ResolveCase(wanted).empty();
}

bool RemoveFile(const kmChar* path) {
    const std::string found = ResolveTarget(ToSystemPath(path));
    // Elsewhere a read-only file is not removed, so it is not here either.
    return !found.empty() && access(found.c_str(), W_OK) == 0 && unlink(found.c_str()) == 0;
}

bool RenameFile(const kmChar* from, const kmChar* to) {
    if (EntryExists(to)) return false;
    const std::string source = ResolveTarget(ToSystemPath(from));
    const std::string target = ResolveTarget(ToSystemPath(to));
    return !source.empty() && !target.empty() && RenameEntry(source, target);
}

void CreateFolder(const kmChar* path) {
    std::string wanted = ToSystemPath(path);
    wanted.erase(wanted.find_last_not_of('/') + 1);
    if (ResolveCase(wanted).empty()) mkdir(ResolveTarget(wanted).c_str(), 0777);
}

void ListFiles(const kmString& folder, kmStringView suffix, std::vector<kmString>& names) {
    InputFolder(folder).List(suffix, names);
}

InputFolder::InputFolder(const kmString& path) : m_path(path) {
    const std::string resolved = ResolveCase(ToSystemPath(path));
    if (!resolved.empty()) m_handle = open(resolved.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
}

InputFolder::~InputFolder() {
    if (m_handle >= 0) close(static_cast<int>(m_handle));
}

void InputFolder::List(kmStringView suffix, std::vector<kmString>& names) const {
    names.clear();
    // A stream takes over the handle that it reads from.
    const int handle = m_handle < 0 ? -1 : fcntl(static_cast<int>(m_handle), F_DUPFD_CLOEXEC, 0);
    const FolderStream entries(handle < 0 ? nullptr : fdopendir(handle));
    if (!entries) return;
    rewinddir(entries.get());
    const std::string ending = BytesFromText(suffix);
    while (const dirent* entry = readdir(entries.get())) {
        const std::string_view name = entry->d_name;
        if (name.front() == '.' || name.size() < ending.size()) continue;
        if (!SameName(name.substr(name.size() - ending.size()), ending) || IsFolder(handle, *entry)) continue;
        names.push_back(TextFromBytes(name));
    }
    std::sort(names.begin(), names.end(), NameLess);
}

bool InputFolder::OpenFile(const kmString& name, InputFile& file) const {
    return file.Adopt(openat(static_cast<int>(m_handle), BytesFromText(name).c_str(), kReadingFlags));
}
