// SPDX-License-Identifier: MIT
// A disk in memory behind the library's own layer for a machine's file system: tests link it in the place of
// the real one. Its operations are counted, and one of them can be made to fail, to do half its work, or to
// stop the process. Paths have "\" between folders; names resolve as on the system that the tests run on.
#pragma once

#include <cstddef>
#include <map>
#include <string>

#include "text/Ascii.h"

namespace memory {

enum class Fault {
    Fail,   // the operation answers that it failed, and has done nothing
    Short,  // a read or a write moves one byte; other operations fail
    Stop,   // the process ends there: nothing changes the disk until Restart, and ProcessStopped is thrown,
            // but by what destructors call
};

struct ProcessStopped {};

// An empty disk, and no fault.
void Format();

// Counts as no operation. Folders on the way are made.
void WriteFile(kmStringView path, std::string_view bytes);

// What is on the disk: the bytes of every file by its path.
std::map<std::string, std::string> Files();

// From now on the operations are counted, from 1, and the one of that number is hit; 0 hits none.
void Plan(std::size_t operation, Fault fault);

// The name of the operation that was hit; empty before.
std::string HitOperation();

// After a stop: what had not been flushed is torn, files that were open are closed, operations work again.
void Restart();

}  // namespace memory
