// SPDX-License-Identifier: MIT
// Letter case does not count here; paths take the form that may have any length.
#ifndef NOMINMAX
#define NOMINMAX
#endif
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "platform/FileSystem.h"

namespace machine {

const bool kNamesIgnoreCase = true;
const bool kListsInOrder = true;

namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr kmStringView kVerbatim = KM_TEXT("\\\\?\\");
constexpr kmStringView kDevice = KM_TEXT("\\\\.\\");
constexpr std::size_t kPiece = std::size_t{1} << 26;  // network drives refuse to move huge ones

HANDLE ToSystem(Handle handle) { return reinterpret_cast<HANDLE>(handle); }
Handle FromSystem(HANDLE handle) { return reinterpret_cast<Handle>(handle); }
static_assert(sizeof(Handle) == sizeof(HANDLE), "INVALID_HANDLE_VALUE is kNoHandle");

// What a call of the form (buffer, size) -> length, or the size that it needs, answers; empty when it fails.
template <class Call>
kmString GrowingBuffer(Call call) {
    kmString text(MAX_PATH, KM_TEXT('\0'));
    for (;;) {
        const DWORD length = call(text.data(), static_cast<DWORD>(text.size()));
        if (length < text.size()) {
            text.resize(length);
            return text;
        }
        text.resize(length + std::size_t{1});
    }
}

// The absolute path in the form that may have any length; empty for an empty path. That form is taken as it
// stands, so the usual reading of names (".", "/", dots at the end, devices) happens here, not in the calls.
kmString ToSystemPath(const kmChar* path) {
    kmString full = GrowingBuffer(
        [path](kmChar* buffer, DWORD size) { return GetFullPathNameW(path, size, buffer, nullptr); });
    if (full.empty() || full.starts_with(kVerbatim) || full.starts_with(kDevice)) return full;
    if (full.starts_with(KM_TEXT("\\\\"))) return full.replace(0, 2, KM_TEXT("\\\\?\\UNC\\"));
    return full.insert(0, kVerbatim);
}

kmString FolderOf(const kmString& path) { return path.substr(0, path.rfind(KM_TEXT('\\')) + 1); }
kmString NameOf(const kmString& path) { return path.substr(path.rfind(KM_TEXT('\\')) + 1); }

// Closes a file in the end.
class OpenedFile {
public:
    OpenedFile(const kmString& path, DWORD access, DWORD sharing, DWORD flags = FILE_ATTRIBUTE_NORMAL)
        : m_handle(CreateFileW(path.c_str(), access, sharing, nullptr, OPEN_EXISTING, flags, nullptr)) {}
    OpenedFile(const OpenedFile&) = delete;
    OpenedFile& operator=(const OpenedFile&) = delete;
    ~OpenedFile() {
        if (IsOpen()) CloseHandle(m_handle);
    }
    bool IsOpen() const { return m_handle != INVALID_HANDLE_VALUE; }
    HANDLE Get() const { return m_handle; }

private:
    HANDLE m_handle;
};

struct Listing {
    HANDLE search;
    WIN32_FIND_DATAW entry;
    bool isAtFirst = true;
};

// Without looking at short names, which the system otherwise makes for every entry.
HANDLE FindFirst(const kmString& pattern, WIN32_FIND_DATAW& entry) {
    return FindFirstFileExW(pattern.c_str(), FindExInfoBasic, &entry, FindExSearchNameMatch, nullptr,
                            FIND_FIRST_EX_LARGE_FETCH);
}

// The existing file's name as the folder spells it; empty when it cannot be told.
kmString NameOnDisk(const kmString& path) {
    WIN32_FIND_DATAW entry;
    const HANDLE search = FindFirst(path, entry);
    if (search == INVALID_HANDLE_VALUE) return {};
    FindClose(search);
    // The name that is found can also be the long one of a short alias, which is no matter of spelling.
    const kmString name = NameOf(path);
    const bool isSame = CompareStringOrdinal(entry.cFileName, -1, name.c_str(), -1, TRUE) == CSTR_EQUAL;
    return isSame ? kmString(entry.cFileName) : kmString();
}

kmString SpelledAsOnDisk(const kmString& path) {
    const kmString name = NameOnDisk(path);
    return name.empty() ? path : FolderOf(path) + name;
}

// Behind a symbolic link.
kmString FollowLink(const kmString& path) {
    const OpenedFile file(path, 0, kShareAll, FILE_FLAG_BACKUP_SEMANTICS);
    if (!file.IsOpen()) return {};
    return GrowingBuffer([&file](kmChar* buffer, DWORD size) {
        return GetFinalPathNameByHandleW(file.Get(), buffer, size, FILE_NAME_NORMALIZED);
    });
}

bool IsMissing(DWORD error) { return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND; }

bool HasForbiddenName(DWORD error) {
    return error == ERROR_INVALID_NAME || error == ERROR_BAD_PATHNAME || error == ERROR_DIRECTORY ||
           error == ERROR_FILENAME_EXCED_RANGE;
}

Kind KindOfAttributes(DWORD attributes) {
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return Kind::Folder;
    return (attributes & FILE_ATTRIBUTE_DEVICE) != 0 ? Kind::Other : Kind::File;
}

Handle OpenRegular(const kmString& path, std::uint64_t& size) {
    if (path.starts_with(kDevice)) {
        SetLastError(ERROR_NOT_SUPPORTED);
        return kNoHandle;
    }
    const HANDLE handle = CreateFileW(path.c_str(), GENERIC_READ, kShareAll, nullptr, OPEN_EXISTING,
                                      FILE_FLAG_SEQUENTIAL_SCAN, nullptr);
    if (handle == INVALID_HANDLE_VALUE) return kNoHandle;
    LARGE_INTEGER length;
    if (GetFileType(handle) != FILE_TYPE_DISK || GetFileSizeEx(handle, &length) == 0) {
        CloseHandle(handle);
        SetLastError(ERROR_NOT_SUPPORTED);
        return kNoHandle;
    }
    size = static_cast<std::uint64_t>(length.QuadPart);
    return FromSystem(handle);
}

// False when the new file may be open to more people than the old one. Both lie in one folder, so that what
// they inherit is the same. File systems without access lists have none to take over.
bool TakeOverAccess(const kmString& from, const kmString& to) {
    DWORD size = 0;
    GetFileSecurityW(from.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
    if (GetLastError() != ERROR_INSUFFICIENT_BUFFER) return GetLastError() != ERROR_ACCESS_DENIED;
    std::vector<std::max_align_t> buffer(size / sizeof(std::max_align_t) + 1);
    const PSECURITY_DESCRIPTOR descriptor = buffer.data();
    if (GetFileSecurityW(from.c_str(), DACL_SECURITY_INFORMATION, descriptor, size, &size) == 0) return false;
    SECURITY_DESCRIPTOR_CONTROL control = 0;
    DWORD revision = 0;
    GetSecurityDescriptorControl(descriptor, &control, &revision);
    if ((control & SE_DACL_AUTO_INHERITED) != 0)  // else later changes of the folder would not reach the file
        SetSecurityDescriptorControl(descriptor, SE_DACL_AUTO_INHERIT_REQ, SE_DACL_AUTO_INHERIT_REQ);
    return SetFileSecurityW(to.c_str(), DACL_SECURITY_INFORMATION, descriptor) != 0;
}

void TakeOverAttributes(const kmString& from, const kmString& to) {
    constexpr DWORD kKept =
        FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;
    const DWORD attributes = GetFileAttributesW(from.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & kKept) == 0) return;
    SetFileAttributesW(to.c_str(), (attributes & kKept) | FILE_ATTRIBUTE_ARCHIVE);
}

struct Reason {
    DWORD error;
    FILE_FAULT fault;
};
constexpr Reason kReasons[] = {
    {ERROR_SUCCESS, FILE_FAULT_NOT_FOUND},
    {ERROR_FILE_NOT_FOUND, FILE_FAULT_NOT_FOUND},
    {ERROR_PATH_NOT_FOUND, FILE_FAULT_NOT_FOUND},
    {ERROR_BAD_NETPATH, FILE_FAULT_NOT_FOUND},
    {ERROR_BAD_NET_NAME, FILE_FAULT_NOT_FOUND},
    {ERROR_DIRECTORY, FILE_FAULT_NOT_FOUND},
    {ERROR_INVALID_DRIVE, FILE_FAULT_NOT_FOUND},
    {ERROR_WRITE_PROTECT, FILE_FAULT_READ_ONLY},
    {ERROR_FILE_READ_ONLY, FILE_FAULT_READ_ONLY},
    {ERROR_ACCESS_DENIED, FILE_FAULT_ACCESS_DENIED},
    {ERROR_SHARING_VIOLATION, FILE_FAULT_IN_USE},
    {ERROR_LOCK_VIOLATION, FILE_FAULT_IN_USE},
    {ERROR_USER_MAPPED_FILE, FILE_FAULT_IN_USE},
    {ERROR_FILENAME_EXCED_RANGE, FILE_FAULT_NAME_TOO_LONG},
    {ERROR_BUFFER_OVERFLOW, FILE_FAULT_NAME_TOO_LONG},
    {ERROR_INVALID_NAME, FILE_FAULT_BAD_NAME},
    {ERROR_BAD_PATHNAME, FILE_FAULT_BAD_NAME},
    {ERROR_NOT_SUPPORTED, FILE_FAULT_NO_FILE},
    {ERROR_FILE_EXISTS, FILE_FAULT_EXISTS},
    {ERROR_ALREADY_EXISTS, FILE_FAULT_EXISTS},
    {ERROR_DISK_FULL, FILE_FAULT_DISK_FULL},
    {ERROR_HANDLE_DISK_FULL, FILE_FAULT_DISK_FULL},
    {1295, FILE_FAULT_DISK_FULL},  // ERROR_DISK_QUOTA_EXCEEDED, which not every header names
};

}  // namespace

FILE_FAULT LastFault() {
    const DWORD error = GetLastError();
    for (const Reason& reason : kReasons) {
        if (reason.error == error) return reason.fault;
    }
    return FILE_FAULT_DEVICE;
}

bool FindEntry(const kmChar* path, Path& entry) {
    entry.clear();
    const kmString wanted = ToSystemPath(path);
    if (wanted.empty()) return true;
    if (GetFileAttributesW(wanted.c_str()) == INVALID_FILE_ATTRIBUTES) {
        const DWORD error = GetLastError();
        if (IsMissing(error) || HasForbiddenName(error)) return true;
        if (error != ERROR_ACCESS_DENIED && error != ERROR_SHARING_VIOLATION) return false;
    }
    entry = SpelledAsOnDisk(wanted);
    return true;
}

Path FindPlace(const kmChar* path) {
    kmString place;
    if (!FindEntry(path, place)) return {};
    if (place.empty()) return FindGivenPlace(path);
    if (!IsLink(place)) return place;
    const kmString target = FollowLink(place);
    return target.empty() ? target : SpelledAsOnDisk(target);
}

Path FindGivenPlace(const kmChar* path) {
    kmString wanted = ToSystemPath(path);
    const DWORD attributes = GetFileAttributesW(FolderOf(wanted).c_str());
    const bool isInFolder =
        attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    return isInFolder && !NameOf(wanted).empty() ? wanted : kmString();
}

Path Beside(const Path& file, std::string_view name) {
    return FolderOf(file).append(name.begin(), name.end());
}

Kind KindOf(const Path& path) {
    if (path.starts_with(kDevice)) return Kind::Other;
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES) return KindOfAttributes(attributes);
    const DWORD error = GetLastError();
    return error == ERROR_ACCESS_DENIED || error == ERROR_SHARING_VIOLATION ? Kind::File : Kind::Nothing;
}

// Other reparse points are files too, only kept elsewhere.
bool IsLink(const Path& entry) {
    WIN32_FIND_DATAW found;
    const HANDLE search = FindFirst(entry, found);
    if (search == INVALID_HANDLE_VALUE) return false;
    FindClose(search);
    return (found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
           found.dwReserved0 == IO_REPARSE_TAG_SYMLINK;
}

Handle OpenFile(const kmChar* path, std::uint64_t& size) { return OpenRegular(ToSystemPath(path), size); }

bool Read(Handle file, void* bytes, std::size_t count, std::size_t& got) {
    DWORD step = 0;
    const bool isRead =
        ReadFile(ToSystem(file), bytes, static_cast<DWORD>(std::min(count, kPiece)), &step, nullptr) != 0;
    got = step;
    return isRead;
}

void CloseRead(Handle file) { CloseHandle(ToSystem(file)); }

// The system finds a file by its full path as fast as by a handle to its folder, so there is nothing to keep.
Handle OpenFolder(const kmString& /*path*/) { return kNoHandle; }

Handle OpenFileIn(Handle /*folder*/, const kmString& path, const kmString& name, std::uint64_t& size) {
    return OpenFile((path + name).c_str(), size);
}

void CloseFolder(Handle /*folder*/) {}

Handle BeginListing(Handle /*folder*/, const kmString& path, bool& exists) {
    exists = false;
    const kmString folder = ToSystemPath(path.c_str());
    if (folder.empty()) return kNoHandle;
    Listing listing{};
    // The pattern takes everything: the system's own test for a suffix also looks at short names.
    listing.search = FindFirst(folder + KM_TEXT("*"), listing.entry);
    if (listing.search == INVALID_HANDLE_VALUE) {
        return kNoHandle;  // one that may not be listed has no files either
    }
    return reinterpret_cast<Handle>(new Listing(listing));
}

ListStep NextEntry(Handle listing, Entry& entry) {
    Listing& list = *reinterpret_cast<Listing*>(listing);
    if (!list.isAtFirst && FindNextFileW(list.search, &list.entry) == 0)
        return GetLastError() == ERROR_NO_MORE_FILES ? ListStep::End : ListStep::Failed;
    list.isAtFirst = false;
    entry.name = list.entry.cFileName;
    entry.kind = KindOfAttributes(list.entry.dwFileAttributes);
    return ListStep::Entry;
}

void EndListing(Handle listing) {
    Listing* list = reinterpret_cast<Listing*>(listing);
    FindClose(list->search);
    delete list;
}

Handle CreateNew(const Path& path, const Path& old, bool& exists) {
    const HANDLE handle =
        CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
    exists = handle == INVALID_HANDLE_VALUE && GetLastError() == ERROR_FILE_EXISTS;
    if (handle == INVALID_HANDLE_VALUE || old.empty()) return FromSystem(handle);
    if (!TakeOverAccess(old, path)) {
        CloseHandle(handle);
        DeleteFileW(path.c_str());
        return FromSystem(INVALID_HANDLE_VALUE);
    }
    TakeOverAttributes(old, path);
    return FromSystem(handle);
}

bool Write(Handle file, const void* bytes, std::size_t count, std::size_t& written) {
    DWORD step = 0;
    const bool isWritten =
        WriteFile(ToSystem(file), bytes, static_cast<DWORD>(std::min(count, kPiece)), &step, nullptr) != 0;
    written = step;
    return isWritten;
}

// Some file systems cannot be asked to flush; what they hold is as safe as it gets.
bool Flush(Handle file) {
    return FlushFileBuffers(ToSystem(file)) != 0 || GetLastError() == ERROR_INVALID_FUNCTION;
}

bool CloseWritten(Handle file) { return CloseHandle(ToSystem(file)) != 0; }

// Asking for the right to delete shows in advance whether somebody holds the file in a way that forbids to
// replace it.
bool MayReplace(const Path& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) return false;
    if ((attributes & FILE_ATTRIBUTE_READONLY) != 0) {
        SetLastError(ERROR_FILE_READ_ONLY);
        return false;
    }
    return OpenedFile(path, GENERIC_WRITE | DELETE, kShareAll).IsOpen();
}

// Not needed: what a replacement does is lasting when it returns, see FlushFolderOf.
bool AddName(const Path& /*file*/, const Path& /*name*/) { return false; }

// One step; a call that swaps two files and merges what they have can stop between its steps.
bool MoveOver(const Path& from, const Path& to) {
    return MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
}

MoveResult MoveToNew(const Path& from, const Path& to) {
    if (MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_WRITE_THROUGH) != 0) return MoveResult::Done;
    const DWORD error = GetLastError();
    const bool isTaken = error == ERROR_ALREADY_EXISTS || error == ERROR_FILE_EXISTS;
    return isTaken ? MoveResult::Exists : MoveResult::Failed;
}

bool Remove(const Path& path) { return DeleteFileW(path.c_str()) != 0; }

// The system itself refuses what may not be written, but says no more than that it does.
bool MayRemove(const Path& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_READONLY) == 0) return true;
    SetLastError(ERROR_FILE_READ_ONLY);
    return false;
}

void RemoveAbandoned(Handle /*folder*/, const kmString& path, const kmString& name,
                     std::chrono::seconds age) {
    const kmString file = ToSystemPath((path + name).c_str());
    WIN32_FILE_ATTRIBUTE_DATA info;
    if (GetFileAttributesExW(file.c_str(), GetFileExInfoStandard, &info) == 0) return;
    FILETIME now;
    GetSystemTimeAsFileTime(&now);
    const auto ticks = [](const FILETIME& time) {
        return static_cast<std::int64_t>(std::uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime);
    };
    constexpr std::int64_t kTicksPerSecond = 10'000'000;
    if (ticks(now) - ticks(info.ftLastWriteTime) < age.count() * kTicksPerSecond) return;
    // Sharing nothing: whoever still writes it has it open. It goes when it is closed.
    const OpenedFile abandoned(file, DELETE, 0, FILE_FLAG_DELETE_ON_CLOSE | FILE_FLAG_OPEN_REPARSE_POINT);
}

// Names are written through by the calls that change them.
bool FlushFolderOf(const Path& /*file*/) { return true; }

bool MakeFolder(const kmChar* path) {
    return CreateDirectoryW(ToSystemPath(path).c_str(), nullptr) != 0 ||
           GetLastError() == ERROR_ALREADY_EXISTS;
}

}  // namespace machine
