// SPDX-License-Identifier: MIT
#include "kmFolders.h"
#include "platform/FileFault.h"
#include "platform/Files.h"
#include "text/Folders.h"

namespace {

constexpr std::uint64_t kLargest = std::uint64_t{1} << 30;  // profiles and pictures are far from it

kmFailedFile Failed(const kmString& path) { return {path, kmLastFileFault()}; }

// Each folder of the path that does not exist yet. Where the last one cannot be made, the first failure is
// why.
bool MakeFolders(const kmString& folder, kmCopiedFiles& files) {
    kmFailedFile first;
    bool isMade = true;
    for (std::size_t at = folder.find(KM_TEXT('\\'), 1); at != kmString::npos;
         at = folder.find(KM_TEXT('\\'), at + 1)) {
        const kmString path = folder.substr(0, at + 1);
        isMade = CreateFolder(path.c_str());
        if (!isMade && first.path.empty()) first = Failed(path);
    }
    if (!isMade) files.failed.push_back(first);
    return isMade;
}

bool ReadWhole(const InputFolder& folder, const kmString& name, std::vector<char>& bytes) {
    InputFile file;
    if (!file.Open(folder, name)) return false;
    if (file.Size() > kLargest) {
        NoteFault(FILE_FAULT_TOO_LARGE);
        return false;
    }
    bytes.resize(static_cast<std::size_t>(file.Size()));
    std::size_t got = 0;
    if (!file.Read(bytes.data(), bytes.size(), got)) return false;
    bytes.resize(got);
    return true;
}

void CopyFile(const InputFolder& from, const kmString& name, const kmString& to, kmCopiedFiles& files) {
    const kmString path = to + name;
    std::vector<char> bytes;
    if (!ReadWhole(from, name, bytes)) return files.failed.push_back(Failed(from.Path() + name));
    switch (StoreFile(path.c_str(), bytes.data(), bytes.size(), Storing::New)) {
        case StoreResult::Done:
            return files.copied.push_back(path);
        case StoreResult::Exists:
            return files.kept.push_back(path);
        default:
            return files.failed.push_back(Failed(path));
    }
}

// False when the new folder cannot be made.
bool CopyFiles(const kmString& from, const kmString& to, kmCopiedFiles& files) {
    const InputFolder folder(from);
    std::vector<kmString> names;
    ListingNotes notes;
    const bool isComplete = folder.List({}, names, &notes);
    const bool isMissing = !notes.hasBegun && kmLastFileFault() == FILE_FAULT_NOT_FOUND;
    if (!isMissing && (!isComplete || !notes.hasBegun)) files.failed.push_back(Failed(from));
    if (names.empty()) return true;
    if (!MakeFolders(to, files)) return false;
    for (const kmString& name : names) CopyFile(folder, name, to, files);
    return true;
}

}  // namespace

kmCopiedFiles kmCopyProfilesFolder(const kmString& from, const kmString& to) {
    kmCopiedFiles files;
    kmString source = from;
    kmString target = to;
    NormalizeFolder(source);
    NormalizeFolder(target);
    if (CopyFiles(source, target, files)) CopyFiles(kmUserFolder(source), kmUserFolder(target), files);
    return files;
}
