// SPDX-License-Identifier: MIT
// The thin layer under Files.h: what a machine's file system does, one step each, implemented once for every
// system. What the systems have in common (loops, temporary names, the order of steps, what a listing takes)
// stands above, in Files.cpp. Names resolve as on the library's home system: the exact name first, else the
// one entry of the folder that differs in ASCII case alone.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string_view>

#include "kmFileFault.h"
#include "text/Ascii.h"

namespace machine {

// A path as the system takes it: bytes, or UTF-16 in the form that may have any length.
using Path = std::filesystem::path::string_type;

// An open file, folder or listing.
using Handle = std::intptr_t;
inline constexpr Handle kNoHandle = -1;

// What a name leads to, links followed. Other: a device, a pipe, a socket.
enum class Kind { Nothing, File, Folder, Other };

// Whether two names that differ in letter case alone are the same file to the system.
extern const bool kNamesIgnoreCase;

// Whether listings come in the order of the library's home system; elsewhere whoever lists sorts.
extern const bool kListsInOrder;

// The reason of the call that failed last in this thread, before any other call.
FILE_FAULT LastFault();

// The existing entry, spelled as on the disk, links not followed; empty when there is none. False when that
// cannot be told.
[[nodiscard]] bool FindEntry(const kmChar* path, Path& entry);

// Where the file of that name is, links followed and spelled as on the disk, or where it would be. Empty when
// there is no such folder, or it cannot be told.
Path FindPlace(const kmChar* path);

// The name itself, as it is spelled, in the folder that `path` names; empty likewise.
Path FindGivenPlace(const kmChar* path);

// Another name in the folder of `file`. `name` is ASCII.
Path Beside(const Path& file, std::string_view name);

Kind KindOf(const Path& path);

// Whether the entry itself is a symbolic link.
bool IsLink(const Path& entry);

// Opens a regular file for reading; kNoHandle for everything else, for which it never waits.
Handle OpenFile(const kmChar* path, std::uint64_t& size);

// Reads once, at most `count` bytes; `got` is 0 at the end. False when the device failed.
[[nodiscard]] bool Read(Handle file, void* bytes, std::size_t count, std::size_t& got);

void CloseRead(Handle file);

// A folder stays found while it is open: opening its files costs no search for it. `path` ends with "\".
Handle OpenFolder(const kmString& path);
Handle OpenFileIn(Handle folder, const kmString& path, const kmString& name, std::uint64_t& size);
void CloseFolder(Handle folder);

// The entries of a folder, without an order unless kListsInOrder.
struct Entry {
    kmString name;
    Kind kind = Kind::Nothing;
};
enum class ListStep { Entry, End, Failed };
// kNoHandle when there is no such folder (`exists`), or it cannot be listed.
Handle BeginListing(Handle folder, const kmString& path, bool& exists);
ListStep NextEntry(Handle listing, Entry& entry);
void EndListing(Handle listing);

// Makes a file that was not there; kNoHandle when it was (`exists`) or cannot be made. Unless `old` is empty
// the new file gets what that file has: owner, permissions, access list, attributes, as far as the user may
// pass them on; where not, less access rather than more.
Handle CreateNew(const Path& path, const Path& old, bool& exists);

// Writes once, at most `count` bytes.
[[nodiscard]] bool Write(Handle file, const void* bytes, std::size_t count, std::size_t& written);

// Returns when what was written is on the disk.
[[nodiscard]] bool Flush(Handle file);

[[nodiscard]] bool CloseWritten(Handle file);

// Whether the user may write the file and put another into its place.
bool MayReplace(const Path& path);

// Gives a file a second name in its folder, until one of them is removed or replaced. False where that cannot
// be.
bool AddName(const Path& file, const Path& name);

// Gives a file another name in the same folder; a file that has that name is replaced in one step.
[[nodiscard]] bool MoveOver(const Path& from, const Path& to);

// The same without ever replacing anything.
enum class MoveResult { Done, Exists, Failed };
[[nodiscard]] MoveResult MoveToNew(const Path& from, const Path& to);

[[nodiscard]] bool Remove(const Path& path);

// Whether the user may write the file, without which its removal is refused on the home system.
bool MayRemove(const Path& path);

// Removes a temporary file that has not been written for `age` and that nobody has open.
void RemoveAbandoned(Handle folder, const kmString& path, const kmString& name, std::chrono::seconds age);

// Makes changes of names in the folder of `file` last.
[[nodiscard]] bool FlushFolderOf(const Path& file);

// Makes one folder, whose parent must exist. True also when there was something of that name.
[[nodiscard]] bool MakeFolder(const kmChar* path);

}  // namespace machine
