// SPDX-License-Identifier: MIT
// The files that every reader reads, and how a program reads one with the fewest system calls.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <new>
#include <string>
#include <vector>

#include "kmTypes.h"

// One profile file, named as the machine and as the library want it.
struct ProfileFile {
    std::string path;
    kmString textPath;
    kmString textFolder;
    kmString id;
    std::uintmax_t size = 0;
};

struct ProfileFolder {
    std::filesystem::path root;
    kmString textRoot;
    std::vector<ProfileFile> files;  // of the folder and of its "user" subfolder, sorted by path
    std::uintmax_t bytes = 0;
};

ProfileFolder ListProfiles(const std::filesystem::path& root);

// A folder for generated profiles, removed with the object.
class TemporaryProfiles {
public:
    TemporaryProfiles(std::size_t files, std::uint64_t seed);
    TemporaryProfiles(const TemporaryProfiles&) = delete;
    TemporaryProfiles& operator=(const TemporaryProfiles&) = delete;
    ~TemporaryProfiles();

    const std::filesystem::path& Path() const { return m_path; }

private:
    std::filesystem::path m_path;
};

// Memory that starts on a cache line: the kernel copies into it nearly twice as fast as into other memory.
class AlignedBuffer {
public:
    AlignedBuffer() = default;
    AlignedBuffer(const AlignedBuffer&) = delete;
    AlignedBuffer& operator=(const AlignedBuffer&) = delete;
    ~AlignedBuffer() { Free(); }

    // At least `size` bytes; what the buffer held is lost when it has to grow.
    char* Reserve(std::size_t size);
    char* Data() { return m_data; }

private:
    static constexpr std::align_val_t kLine{64};
    void Free() { ::operator delete(m_data, kLine); }

    char* m_data = nullptr;
    std::size_t m_capacity = 0;
};

// Open, fstat, read, close; nothing else. Returns the number of bytes in `buffer`. Throws when a call fails.
std::size_t ReadPlainly(const std::string& path, AlignedBuffer& buffer);

// Whatever is in the file, as UTF-8: marked UTF-16 is converted, anything else is passed on as it is. Both
// buffers are kept for the next file.
class Utf8File {
public:
    void Read(const std::string& path);
    char* Data() { return m_text; }
    std::size_t Size() const { return m_size; }

private:
    AlignedBuffer m_file;
    AlignedBuffer m_converted;
    char* m_text = nullptr;
    std::size_t m_size = 0;
};
