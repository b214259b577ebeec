// SPDX-License-Identifier: MIT
// The files of a machine. Paths are UTF-16 with "\" between the folders on every machine. Names resolve as on
// the library's home system: the exact name first, else the one entry of the folder that differs in ASCII
// case alone. Paths may have any length. Only regular files are listed, read, replaced and removed; nothing
// waits for a device or a pipe.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/FileSystem.h"
#include "text/Ascii.h"

// What a listing passed over although its name has the suffix.
struct PassedEntry {
    kmString name;
    bool isHidden;  // begins with "."; otherwise it is no file: a folder, a pipe, a device
};

// What a listing says besides the names.
struct ListingNotes {
    bool hasBegun = false;  // false: there is no such folder, or it may not be listed
    std::vector<PassedEntry> passed;
};

// A folder whose files are read one after the other, found once.
class InputFolder {
public:
    // `path` ends with "\". A folder that does not exist has no files.
    explicit InputFolder(const kmString& path);
    InputFolder(const InputFolder&) = delete;
    InputFolder& operator=(const InputFolder&) = delete;
    ~InputFolder();

    const kmString& Path() const { return m_path; }
    machine::Handle Handle() const { return m_handle; }

    // Replaces `names` by the names of the files that end in `suffix` in any letter case; nothing that begins
    // with ".". In the order of the library's home system. False when the listing broke off: `names` then
    // holds what came before. `notes`, when not null, learns the rest.
    bool List(kmStringView suffix, std::vector<kmString>& names, ListingNotes* notes = nullptr) const;

private:
    kmString m_path;
    machine::Handle m_handle;
};

// A file open for reading; closed by the destructor.
class InputFile {
public:
    InputFile() = default;
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;
    ~InputFile();

    // Opens the file, by its path or by a name that the folder listed; once an object. False when there is
    // none of that name, it is no regular file, or it may not be read.
    [[nodiscard]] bool Open(const kmChar* path);
    [[nodiscard]] bool Open(const InputFolder& folder, const kmString& name);

    // The size in bytes at the time of opening.
    std::uint64_t Size() const { return m_size; }

    // Reads the next bytes, as many as there are up to `count`; `got` receives their number. False when
    // the device failed.
    [[nodiscard]] bool Read(void* bytes, std::size_t count, std::size_t& got);

private:
    machine::Handle m_handle = machine::kNoHandle;
    std::uint64_t m_size = 0;
};

// What storing a file came to. CannotOpen: a missing folder, no permission, something of that name that is no
// regular file; CannotWrite: the disk; Exists: there is something of the new name.
enum class StoreResult { Done, CannotOpen, CannotWrite, Exists };

// How a stored file gets its name.
enum class Storing {
    Replace,  // in the place of an old one, whose spelling stays
    Respell,  // likewise, spelled as the path is
    New,      // only if there is nothing of that name, in any letter case; decided in one step
};

// Puts `count` bytes into a file in one step: they go to a temporary file in the same folder, which gets the
// name when everything is on the disk. After any failure the old file is as it was and nothing is left
// behind, unless the process itself ended: what it left is removed by a later call. A replaced file keeps its
// owner, permissions and access list where the user may pass them on, else it loses access; a symbolic link
// stays and its target is replaced.
[[nodiscard]] StoreResult StoreFile(const kmChar* path, const void* bytes, std::size_t count,
                                    Storing storing = Storing::Replace);

// Stores `count` bytes as `to`, and the file `from`, in whose place they stand, is gone. Only `from` itself
// is ever replaced, which may be what `to` names in another letter case. After a failure both names are as
// they were.
[[nodiscard]] StoreResult StoreRenamed(const kmChar* from, const kmChar* to, const void* bytes,
                                       std::size_t count);

// Gives a file another name. Never replaces anything: false when something else is called `to`, in any letter
// case. The file's own name in other letter case changes its spelling.
[[nodiscard]] bool RenameFile(const kmChar* from, const kmChar* to);

// Whether there is anything of that name, readable or not. True also when that cannot be told.
bool EntryExists(const kmChar* path);

// Removes a file. False when there is none, it is no regular file, or it may not be written.
[[nodiscard]] bool RemoveFile(const kmChar* path);

// Makes one folder, whose parent must exist. True also when there was something of that name. Failure shows when
// something is written into it, too.
bool CreateFolder(const kmChar* path);
