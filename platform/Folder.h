// A folder whose files are read one after the other.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/Files.h"

// A folder open for reading, found once: opening its files costs no search for the folder again.
class InputFolder {
public:
    // `path` ends with "\". A folder that does not exist has no files.
    explicit InputFolder(const kmString& path);
    InputFolder(const InputFolder&) = delete;
    InputFolder& operator=(const InputFolder&) = delete;
    ~InputFolder();

    const kmString& Path() const { return m_path; }

    // As ListFiles.
    void List(kmStringView suffix, std::vector<kmString>& names) const;

    // Opens a file by a name that List gave. False when it is gone, a folder, or may not be read.
    [[nodiscard]] bool OpenFile(const kmString& name, InputFile& file) const;

private:
    kmString m_path;
    [[maybe_unused]] std::intptr_t m_handle = -1;
};
