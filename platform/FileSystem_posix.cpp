// SPDX-License-Identifier: MIT
// Names are bytes here, and letter case counts; where a name does not exist as it is asked for, the entries
// of its folder are compared.
#include "platform/FileSystem.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "text/Encoding.h"

namespace machine {

const bool kNamesIgnoreCase = false;
const bool kListsInOrder = false;

namespace {

// Nothing that is opened may hold the caller (a pipe) or become the process's terminal.
constexpr int kSafeFlags = O_CLOEXEC | O_NONBLOCK | O_NOCTTY;

constexpr int ToFile(Handle handle) { return static_cast<int>(handle); }

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

std::string FolderOf(const std::string& path) { return path.substr(0, path.rfind('/') + 1); }

// As the calls want it for a path without a folder.
std::string OpenableFolderOf(const std::string& path) {
    std::string folder = FolderOf(path);
    return folder.empty() ? "." : folder;
}

struct EndFolderStream {
    void operator()(DIR* folder) const { closedir(folder); }
};
using FolderStream = std::unique_ptr<DIR, EndFolderStream>;

// An open file; closed by the destructor.
class OpenedFile {
public:
    explicit OpenedFile(int file) : m_file(file) {}
    OpenedFile(const OpenedFile&) = delete;
    OpenedFile& operator=(const OpenedFile&) = delete;
    ~OpenedFile() {
        if (m_file >= 0) close(m_file);
    }
    bool IsOpen() const { return m_file >= 0; }
    int Get() const { return m_file; }

private:
    int m_file;
};

char FoldByte(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; }

// Bytes beyond ASCII are compared exactly, so that this is the comparison of the decoded names too.
bool SameName(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return FoldByte(x) == FoldByte(y); });
}

enum class Answer { Yes, No, Unknown };

Answer Exists(const std::string& path) {
    struct stat info {};
    if (lstat(path.c_str(), &info) == 0) return Answer::Yes;
    return errno == ENOENT || errno == ENOTDIR || errno == ENAMETOOLONG ? Answer::No : Answer::Unknown;
}

// The entry of `folder` that is called `name` in other letter case; the first in byte order where several
// are. A listing that breaks off could hide it.
Answer FindOtherCase(const std::string& folder, std::string_view name, std::string& found) {
    const FolderStream entries(opendir(folder.empty() ? "." : folder.c_str()));
    if (!entries) return errno == ENOENT || errno == ENOTDIR ? Answer::No : Answer::Unknown;
    found.clear();
    errno = 0;
    while (const dirent* entry = readdir(entries.get())) {
        const std::string_view candidate = entry->d_name;
        if (SameName(candidate, name) && (found.empty() || candidate < found)) found = candidate;
        errno = 0;
    }
    if (errno != 0) return Answer::Unknown;
    return found.empty() ? Answer::No : Answer::Yes;
}

// The path with every component spelled as on disk.
Answer ResolveCase(const std::string& path, std::string& resolved) {
    resolved.clear();
    for (std::size_t at = 0; at < path.size();) {
        if (path[at] == '/') {
            resolved += path[at++];
            continue;
        }
        const std::size_t end = std::min(path.find('/', at), path.size());
        std::string name = path.substr(at, end - at);
        Answer answer = Exists(resolved + name);
        if (answer == Answer::No) {
            const std::string wanted = name;
            answer = FindOtherCase(resolved, wanted, name);
        }
        if (answer != Answer::Yes) return answer;
        resolved += name;
        at = end;
    }
    return resolved.empty() ? Answer::No : Answer::Yes;
}

Answer FindSpelling(const std::string& path, std::string& found) {
    const Answer exact = path.empty() ? Answer::No : Exists(path);
    if (exact != Answer::No) {
        found = path;
        return exact;
    }
    return ResolveCase(path, found);
}

// Follows symbolic links, also to something that does not exist yet; empty when they go in a circle or cannot
// be read.
std::string FollowLinks(std::string path) {
    constexpr int kMostLinks = 40;
    for (int i = 0; i < kMostLinks; ++i) {
        char target[PATH_MAX];
        const ssize_t length = readlink(path.c_str(), target, sizeof target);
        if (length < 0) return errno == EINVAL || errno == ENOENT ? path : std::string();
        const std::string_view link(target, static_cast<std::size_t>(length));
        path = link.starts_with('/') ? std::string(link) : FolderOf(path).append(link);
    }
    return {};
}

Kind KindOfMode(mode_t mode) {
    return S_ISREG(mode) ? Kind::File : S_ISDIR(mode) ? Kind::Folder : Kind::Other;
}

// `file` belongs to the result from now on, or is closed. What was opened is judged, not what had the name
// before: another process may replace a file at any time.
Handle AdoptFile(int file, std::uint64_t& size) {
    struct stat info {};
    if (file >= 0 && fstat(file, &info) == 0 && S_ISREG(info.st_mode)) {
        size = static_cast<std::uint64_t>(info.st_size);
        return file;
    }
    if (file < 0) return kNoHandle;
    close(file);
    errno = EISDIR;
    return kNoHandle;
}

std::string ReadAttribute(const Path& path, const char* name) {
    const ssize_t size = getxattr(path.c_str(), name, nullptr, 0);
    if (size <= 0) return {};
    std::string value(static_cast<std::size_t>(size), '\0');
    const ssize_t got = getxattr(path.c_str(), name, value.data(), value.size());
    value.resize(got < 0 ? 0 : static_cast<std::size_t>(got));
    return value;
}

void TakeOverUserAttributes(int file, const Path& old) {
    const ssize_t size = listxattr(old.c_str(), nullptr, 0);
    if (size <= 0) return;
    std::string names(static_cast<std::size_t>(size), '\0');
    const ssize_t got = listxattr(old.c_str(), names.data(), names.size());
    names.resize(got < 0 ? 0 : static_cast<std::size_t>(got));
    for (std::size_t at = 0; at < names.size(); at = names.find('\0', at) + 1) {
        const char* name = names.data() + at;
        if (!std::string_view(name).starts_with("user.")) continue;
        const std::string value = ReadAttribute(old, name);
        fsetxattr(file, name, value.data(), value.size(), 0);
    }
}

// Only the superuser may give a file away; others can at least keep it in its group. What was for a group or
// a list of users must not become another group's.
void TakeOverAccess(int file, const Path& old) {
    struct stat before {};
    struct stat now {};
    if (stat(old.c_str(), &before) != 0) return;  // gone meanwhile: the new one stays its writer's alone
    if (fchown(file, before.st_uid, before.st_gid) != 0 &&
        fchown(file, static_cast<uid_t>(-1), before.st_gid) != 0) {
        // What that means for the mode is seen below.
    }
    if (fstat(file, &now) != 0) return;
    mode_t mode = before.st_mode & 07777;
    if (now.st_uid != before.st_uid) mode &= ~static_cast<mode_t>(S_ISUID);
    const bool isSameGroup = now.st_gid == before.st_gid;
    if (!isSameGroup) mode &= ~static_cast<mode_t>(S_ISGID | S_IRWXG);
    constexpr const char* kAccessList = "system.posix_acl_access";
    const std::string list = ReadAttribute(old, kAccessList);
    // With a list, the group's bits of the mode are the most that anybody on it may do.
    if (!list.empty()) fchmod(file, mode & ~static_cast<mode_t>(S_IRWXG));
    if (!list.empty() && (!isSameGroup || fsetxattr(file, kAccessList, list.data(), list.size(), 0) != 0))
        return;
    if (list.empty()) fchmod(file, mode);
}

struct Listing {
    FolderStream stream;
    int folder;
};

Kind KindOfEntry(int folder, const dirent& entry) {
    if (entry.d_type == DT_REG) return Kind::File;
    if (entry.d_type == DT_DIR) return Kind::Folder;
    struct stat info {};
    return fstatat(folder, entry.d_name, &info, 0) == 0 ? KindOfMode(info.st_mode) : Kind::Nothing;
}

struct Reason {
    int error;
    FILE_FAULT fault;
};
constexpr Reason kReasons[] = {
    {0, FILE_FAULT_NOT_FOUND},  // a search through a folder that came to its end
    {ENOENT, FILE_FAULT_NOT_FOUND},    {ENOTDIR, FILE_FAULT_NOT_FOUND},
    {EROFS, FILE_FAULT_READ_ONLY},     {EACCES, FILE_FAULT_ACCESS_DENIED},
    {EPERM, FILE_FAULT_ACCESS_DENIED}, {EBUSY, FILE_FAULT_IN_USE},
    {ETXTBSY, FILE_FAULT_IN_USE},      {ENAMETOOLONG, FILE_FAULT_NAME_TOO_LONG},
    {EILSEQ, FILE_FAULT_BAD_NAME},     {EINVAL, FILE_FAULT_BAD_NAME},
    {EISDIR, FILE_FAULT_NO_FILE},      {ELOOP, FILE_FAULT_NO_FILE},  // a link that leads to itself
    {ENXIO, FILE_FAULT_NO_FILE},                                     // a pipe or a socket without a partner
    {EEXIST, FILE_FAULT_EXISTS},       {ENOSPC, FILE_FAULT_DISK_FULL},
    {EDQUOT, FILE_FAULT_DISK_FULL},    {EFBIG, FILE_FAULT_DISK_FULL},  // beyond what this user may write
};

}  // namespace

FILE_FAULT LastFault() {
    for (const Reason& reason : kReasons) {
        if (reason.error == errno) return reason.fault;
    }
    return FILE_FAULT_DEVICE;
}

bool FindEntry(const kmChar* path, Path& entry) {
    const Answer answer = FindSpelling(ToSystemPath(path), entry);
    if (answer != Answer::Yes) entry.clear();
    return answer != Answer::Unknown;
}

Path FindPlace(const kmChar* path) {
    std::string found;
    switch (FindSpelling(ToSystemPath(path), found)) {
        case Answer::Yes:
            return FollowLinks(found);
        case Answer::No:
            return FindGivenPlace(path);
        default:
            return {};
    }
}

Path FindGivenPlace(const kmChar* path) {
    const std::string wanted = ToSystemPath(path);
    const std::string folder = FolderOf(wanted);
    std::string resolved;
    if (!folder.empty() && FindSpelling(folder, resolved) != Answer::Yes) return {};
    return resolved + wanted.substr(folder.size());
}

Path Beside(const Path& file, std::string_view name) { return FolderOf(file).append(name); }

Kind KindOf(const Path& path) {
    struct stat info {};
    return stat(path.c_str(), &info) == 0 ? KindOfMode(info.st_mode) : Kind::Nothing;
}

bool IsLink(const Path& entry) {
    struct stat info {};
    return lstat(entry.c_str(), &info) == 0 && S_ISLNK(info.st_mode);
}

Handle OpenFile(const kmChar* path, std::uint64_t& size) {
    const std::string wanted = ToSystemPath(path);
    const int file = open(wanted.c_str(), O_RDONLY | kSafeFlags);
    if (file >= 0 || errno != ENOENT) return AdoptFile(file, size);
    std::string resolved;
    if (ResolveCase(wanted, resolved) != Answer::Yes) return kNoHandle;
    return AdoptFile(open(resolved.c_str(), O_RDONLY | kSafeFlags), size);
}

bool Read(Handle file, void* bytes, std::size_t count, std::size_t& got) {
    ssize_t step = -1;
    do step = read(ToFile(file), bytes, count);
    while (step < 0 && errno == EINTR);
    got = step < 0 ? 0 : static_cast<std::size_t>(step);
    return step >= 0;
}

void CloseRead(Handle file) { close(ToFile(file)); }

Handle OpenFolder(const kmString& path) {
    std::string resolved;
    if (FindSpelling(ToSystemPath(path), resolved) != Answer::Yes) return kNoHandle;
    return open(resolved.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
}

Handle OpenFileIn(Handle folder, const kmString& /*path*/, const kmString& name, std::uint64_t& size) {
    // What a listing called a file is opened without another look.
    return AdoptFile(openat(ToFile(folder), BytesFromText(name).c_str(), O_RDONLY | kSafeFlags), size);
}

void CloseFolder(Handle folder) { close(ToFile(folder)); }

Handle BeginListing(Handle folder, const kmString& /*path*/, bool& exists) {
    exists = folder != kNoHandle;
    // A stream takes over the file that it reads from.
    const int file = folder == kNoHandle ? -1 : fcntl(ToFile(folder), F_DUPFD_CLOEXEC, 0);
    FolderStream stream(file < 0 ? nullptr : fdopendir(file));
    if (!stream) {
        if (file >= 0) close(file);
        return kNoHandle;
    }
    rewinddir(stream.get());
    return reinterpret_cast<Handle>(new Listing{std::move(stream), file});
}

ListStep NextEntry(Handle listing, Entry& entry) {
    const Listing& list = *reinterpret_cast<const Listing*>(listing);
    errno = 0;
    const dirent* next = readdir(list.stream.get());
    if (next == nullptr) return errno == 0 ? ListStep::End : ListStep::Failed;
    entry.name = TextFromBytes(next->d_name);
    entry.kind = KindOfEntry(list.folder, *next);
    return ListStep::Entry;
}

void EndListing(Handle listing) { delete reinterpret_cast<Listing*>(listing); }

Handle CreateNew(const Path& path, const Path& old, bool& exists) {
    const mode_t mode = old.empty() ? 0666 : 0600;
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    exists = file < 0 && errno == EEXIST;
    if (file < 0) return kNoHandle;
    flock(file, LOCK_EX | LOCK_NB);  // tells those who tidy up that somebody is writing
    if (!old.empty()) {
        TakeOverUserAttributes(file, old);
        TakeOverAccess(file, old);
    }
    return file;
}

bool Write(Handle file, const void* bytes, std::size_t count, std::size_t& written) {
    ssize_t step = -1;
    do step = write(ToFile(file), bytes, count);
    while (step < 0 && errno == EINTR);
    written = step < 0 ? 0 : static_cast<std::size_t>(step);
    return step >= 0;
}

// Some file systems cannot be asked to flush; what they hold is as safe as it gets.
bool Flush(Handle file) { return fsync(ToFile(file)) == 0 || errno == EINVAL; }

bool CloseWritten(Handle file) { return close(ToFile(file)) == 0; }

bool MayReplace(const Path& path) {
    if (OpenedFile(open(path.c_str(), O_WRONLY | kSafeFlags)).IsOpen()) return true;
    if (errno == EACCES) errno = EROFS;  // the file's folder was reached, so it is the file
    return false;
}

bool AddName(const Path& file, const Path& name) { return link(file.c_str(), name.c_str()) == 0; }

bool MoveOver(const Path& from, const Path& to) { return rename(from.c_str(), to.c_str()) == 0; }

MoveResult MoveToNew(const Path& from, const Path& to) {
    if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0)
        return MoveResult::Done;
    if (errno == EEXIST) return MoveResult::Exists;
    if (errno != EINVAL && errno != ENOSYS) return MoveResult::Failed;
    // Not every file system knows that call. A second name never replaces anything either, where there are
    // second names.
    if (link(from.c_str(), to.c_str()) == 0) {
        if (unlink(from.c_str()) == 0) return MoveResult::Done;
        unlink(to.c_str());
        return MoveResult::Failed;
    }
    if (errno == EEXIST) return MoveResult::Exists;
    if (Exists(to) != Answer::No) return MoveResult::Exists;
    return rename(from.c_str(), to.c_str()) == 0 ? MoveResult::Done : MoveResult::Failed;
}

bool Remove(const Path& path) { return unlink(path.c_str()) == 0; }

bool MayRemove(const Path& path) {
    if (access(path.c_str(), W_OK) == 0) return true;
    if (errno == EACCES) errno = EROFS;
    return false;
}

void RemoveAbandoned(Handle folder, const kmString& /*path*/, const kmString& name,
                     std::chrono::seconds age) {
    const std::string bytes = BytesFromText(name);
    const OpenedFile file(openat(ToFile(folder), bytes.c_str(), O_WRONLY | O_NOFOLLOW | kSafeFlags));
    struct stat info {};
    if (!file.IsOpen() || fstat(file.Get(), &info) != 0 || !S_ISREG(info.st_mode)) return;
    if (time(nullptr) - info.st_mtime < age.count()) return;
    if (flock(file.Get(), LOCK_EX | LOCK_NB) == 0) unlinkat(ToFile(folder), bytes.c_str(), 0);
}

bool FlushFolderOf(const Path& file) {
    const OpenedFile folder(open(OpenableFolderOf(file).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!folder.IsOpen()) return errno == EACCES;  // one may be allowed to write a folder and not to read it
    return fsync(folder.Get()) == 0 || errno == EINVAL;
}

bool MakeFolder(const kmChar* path) {
    kmString name = path;
    name.erase(name.find_last_not_of(KM_TEXT('\\')) + 1);
    Path entry;
    if (!FindEntry(name.c_str(), entry) || !entry.empty()) return !entry.empty();
    const Path place = FindGivenPlace(name.c_str());
    if (place.empty() || mkdir(place.c_str(), 0777) != 0) return false;
    static_cast<void>(FlushFolderOf(place));  // what is written into it decides
    return true;
}

}  // namespace machine
