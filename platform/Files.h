// The files of a machine. Paths are UTF-16 with "\" between the folders on every machine; each backend
// translates at its own edge. Names resolve as on the library's home system: the exact name first, else the
// one entry of the folder that differs in ASCII case alone. Paths may have any length.
#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/Ascii.h"

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
    std::intptr_t m_handle = -1;
    std::uint64_t m_size = 0;
};
