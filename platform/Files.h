// The files of a machine. Paths are UTF-16 with "\" between the folders on every machine; each backend
// translates at its own edge. Names resolve as on the library's home system: the exact name first, else the
// one entry of the folder that differs in ASCII case alone. Paths may have any length.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "text/Ascii.h"

// A file open for reading; closed by the destructor.
class InputFile {
public:
    InputFile() = default;
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;
    ~InputFile();

    // Opens the file; once an object. False when there is none of that name, it is a folder, or it may not be
    // read.
    [[nodiscard]] bool Open(const kmChar* path);

    // The size in bytes at the time of opening.
    std::uint64_t Size() const { return m_size; }

    // Reads the next bytes, as many as there are up to `count`; `got` receives their number. False when
    // the device failed.
    [[nodiscard]] bool Read(void* bytes, std::size_t count, std::size_t& got);

private:
    friend class InputFolder;
    bool Adopt(std::intptr_t handle);

    std::intptr_t m_handle = -1;
    std::uint64_t m_size = 0;
};

// What writing a file came to.
enum class WriteResult { Done, CannotOpen, CannotWrite };

// Puts `count` bytes into the place of the file at `path`, or into a new one, in one step: they go to a
// temporary file in the same folder, which replaces the old file when everything is on the disk. Otherwise
// the old file stays as it was and nothing is left behind. The old file keeps its spelling and its
// permissions, a symbolic link stays and its target is replaced, and what is no regular file (a device, a
// pipe) is written in place. CannotOpen: a missing folder, a folder of that name, no permission to write;
// CannotWrite: the disk.
[[nodiscard]] WriteResult StoreFile(const kmChar* path, const void* bytes, std::size_t count);

// Gives a file that differs from `path` in letter case alone the spelling of `path`.
void RespellFile(const kmChar* path);

// Whether there is anything of that name, readable or not.
bool EntryExists(const kmChar* path);

// Removes a file. False when there is none, it is a folder, or it may not be written.
[[nodiscard]] bool RemoveFile(const kmChar* path);

// Gives a file another name. Never replaces anything: false when something is called `to`, in any letter
// case.
[[nodiscard]] bool RenameFile(const kmChar* from, const kmChar* to);

// Makes one folder, whose parent must exist. Failure shows when something is written into it.
void CreateFolder(const kmChar* path);

// Replaces `names` by the names of the files in `folder`, which ends with "\", that end in `suffix` in any
// letter case; no folders, nothing that begins with ".". In the order of NameLess.
void ListFiles(const kmString& folder, kmStringView suffix, std::vector<kmString>& names);
