// SPDX-License-Identifier: MIT
// A folder of its own for every test that needs files.
#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <random>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>

#include "tests/support/Text.h"

// Empty for a file that is not there.
inline std::string ReadBytes(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// The content as UTF-8, also that of a file in UTF-16 with its mark.
inline std::string ReadText(const std::filesystem::path& path) {
    const std::string bytes = ReadBytes(path);
    if (!bytes.starts_with("\xFF\xFE")) return bytes;
    kmString text;
    for (std::size_t i = 2; i + 1 < bytes.size(); i += 2)
        text += static_cast<kmChar>((bytes[i] & 0xFF) | (bytes[i + 1] & 0xFF) << 8);
    return Utf8(text);
}

// Names are relative to the folder, with "\" as separator; missing folders on the way are made. Everything
// goes away with the object.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::random_device random;
        do m_root = std::filesystem::temp_directory_path() / ("kmprofile-test-" + std::to_string(random()));
        while (!std::filesystem::create_directory(m_root));
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_root, ignored);
    }

    // As the library takes paths; without a name the folder itself, with its final "\".
    kmString Path(kmStringView name = {}) const {
        kmString path = (m_root / "").string<kmChar>().append(name);
        std::replace(path.begin(), path.end(), KM_TEXT('/'), KM_TEXT('\\'));
        return path;
    }

    // As the machine takes paths.
    std::filesystem::path SystemPath(kmStringView name = {}) const {
        kmString relative(name);
        std::replace(relative.begin(), relative.end(), KM_TEXT('\\'), KM_TEXT('/'));
        return m_root / relative;
    }

    // "name:content" of what every name in the folder leads to, temporary files included.
    std::set<std::string> State() const {
        std::set<std::string> files;
        for (const auto& entry : std::filesystem::directory_iterator(m_root))
            files.insert(Utf8(entry.path().filename().string<kmChar>()) + ":" + ReadBytes(entry.path()));
        return files;
    }

    void MakeFolder(kmStringView name) const { std::filesystem::create_directories(SystemPath(name)); }

    void WriteBytes(kmStringView name, std::string_view bytes) const {
        const std::filesystem::path path = SystemPath(name);
        std::filesystem::create_directories(path.parent_path());
        std::ofstream file(path, std::ios::binary);
        file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        if (!file.flush()) throw std::runtime_error("cannot write a file of the test");
    }

private:
    std::filesystem::path m_root;
};
