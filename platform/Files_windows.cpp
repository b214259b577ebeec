#ifndef NOMINMAX
#define NOMINMAX
#endif
#define WIN32_LEAN_AND_MEAN
#include <aclapi.h>
#include <windows.h>

#include <algorithm>
#include <string>
#include <utility>

#include "platform/Files.h"

namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr kmStringView kVerbatim = KM_TEXT("\\\\?\\");
constexpr kmStringView kDevice = KM_TEXT("\\\\.\\");

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

// An open file; closed by the destructor unless Close was called.
class FileHandle {
public:
    explicit FileHandle(HANDLE handle) : m_handle(handle) {}
    FileHandle(const FileHandle&) = delete;
    FileHandle& operator=(const FileHandle&) = delete;
    FileHandle(FileHandle&& other) noexcept : m_handle(std::exchange(other.m_handle, INVALID_HANDLE_VALUE)) {}
    ~FileHandle() {
        if (IsOpen()) CloseHandle(m_handle);
    }
    bool IsOpen() const { return m_handle != INVALID_HANDLE_VALUE; }
    HANDLE Get() const { return m_handle; }
    bool Close() { return CloseHandle(std::exchange(m_handle, INVALID_HANDLE_VALUE)) != 0; }

    bool WriteAll(const void* bytes, std::size_t count) {
        const auto* at = static_cast<const char*>(bytes);
        while (count > 0) {
            constexpr std::size_t kPiece = std::size_t{1} << 26;  // network drives refuse huge ones
            DWORD step = 0;
            const auto wanted = static_cast<DWORD>(std::min(count, kPiece));
            if (WriteFile(m_handle, at, wanted, &step, nullptr) == 0 || step == 0) return false;
            at += step;
            count -= step;
        }
        return true;
    }

    // Some file systems cannot be asked to flush; what they hold is as safe as it gets.
    bool Flush() { return FlushFileBuffers(m_handle) != 0 || GetLastError() == ERROR_INVALID_FUNCTION; }

private:
    HANDLE m_handle;
};

FileHandle OpenExisting(const kmString& path, DWORD access) {
    return FileHandle(
        CreateFileW(path.c_str(), access, kShareAll, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
}

// Ends a search for files.
class Search {
public:
    Search(const kmString& pattern, WIN32_FIND_DATAW& entry)
        : m_handle(FindFirstFileExW(pattern.c_str(), FindExInfoBasic, &entry, FindExSearchNameMatch, nullptr,
                                    FIND_FIRST_EX_LARGE_FETCH)) {}
    Search(const Search&) = delete;
    Search& operator=(const Search&) = delete;
    ~Search() {
        if (HasEntry()) FindClose(m_handle);
    }
    bool HasEntry() const { return m_handle != INVALID_HANDLE_VALUE; }
    bool Next(WIN32_FIND_DATAW& entry) { return FindNextFileW(m_handle, &entry) != 0; }

private:
    HANDLE m_handle;
};

// The existing file's name as the folder spells it; empty when it cannot be told.
kmString NameOnDisk(const kmString& path) {
    WIN32_FIND_DATAW entry;
    const Search search(path, entry);
    return search.HasEntry() ? kmString(entry.cFileName) : kmString();
}

// Where the open file really is: behind symbolic links, with the spelling on disk. A replacement takes the
// name that it is given, so this keeps the old one.
kmString PathOnDisk(const FileHandle& file, kmString path, DWORD attributes) {
    if ((attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0) {
        kmString target = GrowingBuffer([&file](kmChar* buffer, DWORD size) {
            return GetFinalPathNameByHandleW(file.Get(), buffer, size, FILE_NAME_NORMALIZED);
        });
        if (!target.empty()) path.swap(target);
    }
    const kmString name = NameOnDisk(path);
    return name.empty() ? path : FolderOf(path) + name;
}

WriteResult WriteInPlace(const kmString& path, const void* bytes, std::size_t count) {
    FileHandle file = OpenExisting(path, GENERIC_WRITE);
    if (!file.IsOpen()) return WriteResult::CannotOpen;
    const bool written = file.WriteAll(bytes, count);
    return file.Close() && written ? WriteResult::Done : WriteResult::CannotWrite;
}

// A new file in `folder` whose name no listing of profiles shows; `path` receives its name.
FileHandle CreateTemporary(const kmString& folder, kmString& path) {
    static unsigned counter = 0;
    constexpr int kTries = 100;
    const kmString start = folder + KM_TEXT(".km") + std::to_wstring(GetCurrentProcessId()) + KM_TEXT("-");
    for (int i = 0; i < kTries; ++i) {
        path = start + std::to_wstring(counter++) + KM_TEXT(".tmp");
        FileHandle file(
            CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
        if (file.IsOpen() || GetLastError() != ERROR_FILE_EXISTS) return file;
    }
    return FileHandle(INVALID_HANDLE_VALUE);
}

// As far as the file system knows permissions and the user may set them. What `to` inherits from the folder
// is not copied: it stays what the folder says.
void TakeOverPermissions(const kmString& from, const kmString& to) {
    PACL list = nullptr;
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    if (GetNamedSecurityInfoW(from.c_str(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr, nullptr,
                              &list, nullptr, &descriptor) != ERROR_SUCCESS) {
        return;
    }
    SECURITY_DESCRIPTOR_CONTROL control = 0;
    DWORD revision = 0;
    if (list != nullptr && GetSecurityDescriptorControl(descriptor, &control, &revision) != 0) {
        const SECURITY_INFORMATION inheritance = (control & SE_DACL_PROTECTED) != 0
                                                     ? PROTECTED_DACL_SECURITY_INFORMATION
                                                     : UNPROTECTED_DACL_SECURITY_INFORMATION;
        kmString target = to;  // the call takes a pointer that is not constant
        SetNamedSecurityInfoW(target.data(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION | inheritance, nullptr,
                              nullptr, list, nullptr);
    }
    LocalFree(descriptor);
}

void TakeOverAttributes(const kmString& to, DWORD attributes) {
    constexpr DWORD kKept =
        FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;
    if ((attributes & kKept) != 0) {
        SetFileAttributesW(to.c_str(), (attributes & kKept) | FILE_ATTRIBUTE_ARCHIVE);
    }
}

// `attributes` are those of the file that is replaced, or INVALID_FILE_ATTRIBUTES when there is none. Moving
// is one step; a call that swaps two files and merges what they have can stop between its steps.
WriteResult WriteBeside(const kmString& path, DWORD attributes, const void* bytes, std::size_t count) {
    kmString temporary;
    FileHandle file = CreateTemporary(FolderOf(path), temporary);
    if (!file.IsOpen()) return WriteResult::CannotOpen;
    if (attributes != INVALID_FILE_ATTRIBUTES) {
        TakeOverPermissions(path, temporary);
        TakeOverAttributes(temporary, attributes);
    }
    constexpr DWORD kFlags = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
    const bool flushed = file.WriteAll(bytes, count) && file.Flush();
    if (!file.Close() || !flushed || MoveFileExW(temporary.c_str(), path.c_str(), kFlags) == 0) {
        DeleteFileW(temporary.c_str());
        return WriteResult::CannotWrite;
    }
    return WriteResult::Done;
}

WriteResult Replace(const kmString& path, const void* bytes, std::size_t count) {
    // Asking for the right to delete shows in advance whether somebody holds the file in a way that
    // forbids to replace it.
    FileHandle file = OpenExisting(path, GENERIC_WRITE | DELETE);
    if (!file.IsOpen()) return WriteResult::CannotOpen;
    const kmString target = PathOnDisk(file, path, GetFileAttributesW(path.c_str()));
    const DWORD attributes = GetFileAttributesW(target.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_READONLY) != 0) {
        return WriteResult::CannotOpen;
    }
    return file.Close() ? WriteBeside(target, attributes, bytes, count) : WriteResult::CannotWrite;
}

bool IsThere(const kmString& path) {
    if (GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES) return true;
    const DWORD error = GetLastError();
    return error == ERROR_ACCESS_DENIED || error == ERROR_SHARING_VIOLATION;
}

HANDLE HandleOf(std::intptr_t handle) { return reinterpret_cast<HANDLE>(handle); }

}  // namespace

InputFile::~InputFile() {
    if (HandleOf(m_handle) != INVALID_HANDLE_VALUE) CloseHandle(HandleOf(m_handle));
}

bool InputFile::Open(const kmChar* path) {
    const HANDLE handle = CreateFileW(ToSystemPath(path).c_str(), GENERIC_READ, kShareAll, nullptr,
                                      OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr);
    m_handle = reinterpret_cast<std::intptr_t>(handle);
    if (handle == INVALID_HANDLE_VALUE) return false;
    if (GetFileType(handle) != FILE_TYPE_DISK) return true;  // devices have no size
    LARGE_INTEGER size;
    if (GetFileSizeEx(handle, &size) == 0) return false;
    m_size = static_cast<std::uint64_t>(size.QuadPart);
    return true;
}

bool InputFile::Read(void* bytes, std::size_t count, std::size_t& got) {
    got = 0;
    while (got < count) {
        constexpr std::size_t kPiece = std::size_t{1} << 26;
        DWORD step = 0;
        const auto wanted = static_cast<DWORD>(std::min(count - got, kPiece));
        if (ReadFile(HandleOf(m_handle), static_cast<char*>(bytes) + got, wanted, &step, nullptr) == 0) {
            return false;
        }
        if (step == 0) return true;
        got += step;
    }
    return true;
}

WriteResult StoreFile(const kmChar* path, const void* bytes, std::size_t count) {
    const kmString target = ToSystemPath(path);
    if (target.starts_with(kDevice)) return WriteInPlace(target, bytes, count);
    const DWORD attributes = GetFileAttributesW(target.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        if (GetLastError() != ERROR_FILE_NOT_FOUND) return WriteResult::CannotOpen;
        return WriteBeside(target, attributes, bytes, count);
    }
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return WriteResult::CannotOpen;
    return Replace(target, bytes, count);
}

void RespellFile(const kmChar* path) {
    const kmString wanted = ToSystemPath(path);
    if (GetFileAttributesW(wanted.c_str()) == INVALID_FILE_ATTRIBUTES) return;
    const kmString name = NameOf(wanted);
    const kmString found = NameOnDisk(wanted);
    // The name that was found can also be the long one of a short alias, which is no matter of spelling.
    const int order = CompareStringOrdinal(found.c_str(), -1, name.c_str(), -1, TRUE);
    if (order != CSTR_EQUAL || found == name) return;
    MoveFileExW((FolderOf(wanted) + found).c_str(), wanted.c_str(), MOVEFILE_WRITE_THROUGH);
    if (NameOnDisk(wanted) == name) return;
    // Not every file system takes a new spelling of the same name, but each takes two different names.
    const kmString between = wanted + KM_TEXT(".respelling");
    if (MoveFileExW(wanted.c_str(), between.c_str(), MOVEFILE_WRITE_THROUGH) == 0) return;
    MoveFileExW(between.c_str(), wanted.c_str(), MOVEFILE_WRITE_THROUGH);
}

bool EntryExists(const kmChar* path) { return IsThere(ToSystemPath(path)); }

bool RemoveFile(const kmChar* path) { return DeleteFileW(ToSystemPath(path).c_str()) != 0; }

bool RenameFile(const kmChar* from, const kmChar* to) {
    // Asked first, because a file may be renamed onto its own name in other letter case.
    const kmString target = ToSystemPath(to);
    return !IsThere(target) &&
           MoveFileExW(ToSystemPath(from).c_str(), target.c_str(), MOVEFILE_WRITE_THROUGH) != 0;
}

void CreateFolder(const kmChar* path) { CreateDirectoryW(ToSystemPath(path).c_str(), nullptr); }

void ListFiles(const kmString& folder, kmStringView suffix, std::vector<kmString>& names) {
    names.clear();
    const kmString path = ToSystemPath(folder.c_str());
    if (path.empty()) return;
    WIN32_FIND_DATAW entry;
    // The pattern takes everything: the system's own test for a suffix also looks at short names.
    Search search(path + KM_TEXT("*"), entry);
    for (bool more = search.HasEntry(); more; more = search.Next(entry)) {
        const kmStringView name = entry.cFileName;
        if (name.front() == KM_TEXT('.') || name.size() < suffix.size()) continue;
        if ((entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) continue;
        if (EqualNoCase(name.substr(name.size() - suffix.size()), suffix)) names.emplace_back(name);
    }
    std::sort(names.begin(), names.end(), NameLess);
}
