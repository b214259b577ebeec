// SPDX-License-Identifier: MIT
#include "bench/Folder.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <random>
#include <stdexcept>

#include "bench/Generator.h"
#include "bench/Utf8.h"
#include "text/Encoding.h"

namespace fs = std::filesystem;

namespace {

kmString LibraryPath(const std::string& path) {
    kmString text = TextFromBytes(path);
    std::replace(text.begin(), text.end(), KM_TEXT('/'), KM_TEXT('\\'));
    return text;
}

void AddFiles(ProfileFolder& folder, const fs::path& path) {
    for (const fs::directory_entry& entry : fs::directory_iterator(path)) {
        if (!entry.is_regular_file() || entry.path().extension() != ".pf") continue;
        ProfileFile file;
        file.path = entry.path().string();
        file.textPath = LibraryPath(file.path);
        file.textFolder = LibraryPath((path / "").string());
        file.id = LibraryPath(entry.path().stem().string());
        file.size = entry.file_size();
        folder.bytes += file.size;
        folder.files.push_back(std::move(file));
    }
}

[[noreturn]] void Fail(const std::string& path) { throw std::runtime_error("cannot read " + path); }

// Closes a file at the end of its scope; checked where it is part of what is measured.
class Descriptor {
public:
    explicit Descriptor(const std::string& path) : m_number(open(path.c_str(), O_RDONLY | O_CLOEXEC)) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() {
        if (m_number >= 0) close(m_number);
    }
    int Number() const { return m_number; }

private:
    int m_number;
};

}  // namespace

ProfileFolder ListProfiles(const fs::path& root) {
    ProfileFolder folder;
    folder.root = fs::absolute(root);
    folder.textRoot = LibraryPath((folder.root / "").string());
    AddFiles(folder, folder.root);
    if (fs::is_directory(folder.root / "user")) AddFiles(folder, folder.root / "user");
    std::sort(folder.files.begin(), folder.files.end(),
              [](const ProfileFile& a, const ProfileFile& b) { return a.path < b.path; });
    return folder;
}

TemporaryProfiles::TemporaryProfiles(std::size_t files, std::uint64_t seed) {
    std::random_device random;
    do m_path = fs::temp_directory_path() / ("kmprofile-bench-" + std::to_string(random()));
    while (!fs::create_directory(m_path));
    WriteProfileFolder(m_path, files, seed);
}

TemporaryProfiles::~TemporaryProfiles() {
    std::error_code ignored;
    fs::remove_all(m_path, ignored);
}

char* AlignedBuffer::Reserve(std::size_t size) {
    if (size > m_capacity) {
        Free();
        m_data = nullptr;
        m_data = static_cast<char*>(::operator new(size, kLine));
        m_capacity = size;
    }
    return m_data;
}

std::size_t ReadPlainly(const std::string& path, AlignedBuffer& buffer) {
    const Descriptor file(path);
    struct stat info {};
    if (file.Number() < 0 || fstat(file.Number(), &info) != 0) Fail(path);
    const auto size = static_cast<std::size_t>(info.st_size);
    char* bytes = buffer.Reserve(size);
    if (read(file.Number(), bytes, size) != info.st_size) Fail(path);
    return size;
}

void Utf8File::Read(const std::string& path) {
    m_size = ReadPlainly(path, m_file);
    m_text = m_file.Data();
    if (m_size < 2 || m_text[0] != '\xFF' || m_text[1] != '\xFE') return;
    const std::size_t units = m_size / 2 - 1;
    m_text = m_converted.Reserve(3 * units + kUtf8Padding);
    m_size = Utf16ToUtf8(reinterpret_cast<const char16_t*>(m_file.Data() + 2), units, m_text);
}
