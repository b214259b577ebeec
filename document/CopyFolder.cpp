// SPDX-License-Identifier: MIT
#include "kmFolders.h"
#include "platform/FileFault.h"
#include "platform/Files.h"
#include "text/Folders.h"

namespace {

constexpr std::uint64_t kLargest = std::uint64_t{1} << 30;  // profiles and pictures are far from it

// Each folder of the path that does not exist yet. Failing shows when a file is written.
void MakeFolders(const kmString& folder) {
    for (std::size_t at = folder.find(KM_TEXT('\\'), 1); at != kmString::npos;
         at = folder.find(KM_TEXT('\\'), at + 1))
        CreateFolder(folder.substr(0, at + 1).c_str());
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
    if (!ReadWhole(from, name, bytes)) return files.failed.push_back(path);
    switch (StoreFile(path.c_str(), bytes.data(), bytes.size(), Storing::New)) {
        case StoreResult::Done:
            return files.copied.push_back(path);
        case StoreResult::Exists:
            return files.kept.push_back(path);
        default:
            return files.failed.push_back(path);
    }
}

void CopyFiles(const kmString& from, const kmString& to, kmCopiedFiles& files) {
    const InputFolder folder(from);
    std::vector<kmString> names;
    const bool isComplete = folder.List({}, names);
    if (!names.empty()) MakeFolders(to);
    for (const kmString& name : names) CopyFile(folder, name, to, files);
    if (!isComplete) files.failed.push_back(from);
}

}  // namespace

kmCopiedFiles kmCopyProfilesFolder(const kmString& from, const kmString& to) {
    kmCopiedFiles files;
    kmString source = from;
    kmString target = to;
    NormalizeFolder(source);
    NormalizeFolder(target);
    CopyFiles(source, target, files);
    CopyFiles(kmUserFolder(source), kmUserFolder(target), files);
    return files;
}
