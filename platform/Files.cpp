// SPDX-License-Identifier: MIT
// How files are stored, on every system in the same steps. New content goes to a temporary file beside its
// place, is flushed, and takes the name at the end; so at every moment each name leads to the old content or
// to the new one, whole. Temporary names are random, so that they never meet those that an interrupted
// process left, which the next call removes.
#include "platform/Files.h"

#include <algorithm>
#include <chrono>
#include <exception>
#include <random>
#include <string>
#include <utility>

#include "platform/FileFault.h"

using machine::Handle;
using machine::Kind;
using machine::kNoHandle;
using machine::MoveResult;
using machine::Path;

namespace {

constexpr kmStringView kTemporaryStart = KM_TEXT(".km");
constexpr kmStringView kTemporaryEnd = KM_TEXT(".tmp");
constexpr std::chrono::minutes kAbandonedAfter{15};

// The system's randomness, or the time where it has none: names that exist already are no harm.
std::uint64_t RandomNumber() {
    try {
        std::random_device random;
        return std::uint64_t{random()} << 32 | random();
    } catch (const std::exception&) {
        return static_cast<std::uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count());
    }
}

std::string RandomName() {
    constexpr char kDigits[] = "0123456789abcdef";
    std::string name = ".km";
    for (std::uint64_t number = RandomNumber(), i = 0; i < 16; ++i, number >>= 4)
        name += kDigits[number % 16];
    return name + ".tmp";
}

// A listing that is under way; ended by the destructor.
class Listing {
public:
    explicit Listing(const InputFolder& folder)
        : m_handle(machine::BeginListing(folder.Handle(), folder.Path(), m_exists)) {}
    Listing(const Listing&) = delete;
    Listing& operator=(const Listing&) = delete;
    ~Listing() {
        if (m_handle != kNoHandle) machine::EndListing(m_handle);
    }
    bool HasBegun() const { return m_handle != kNoHandle; }
    bool HasFolder() const { return m_exists; }
    machine::ListStep Next(machine::Entry& entry) { return machine::NextEntry(m_handle, entry); }

private:
    bool m_exists = true;
    Handle m_handle;
};

// Calls `take` with every entry; false when the listing broke off.
template <class Take>
bool ForEachEntry(const InputFolder& folder, Take take, bool& hasBegun) {
    Listing listing(folder);
    hasBegun = listing.HasBegun();
    if (!hasBegun) {
        NoteFault();
        return !listing.HasFolder();
    }
    machine::Entry entry;
    machine::ListStep step = machine::ListStep::Entry;
    while ((step = listing.Next(entry)) == machine::ListStep::Entry) take(entry);
    if (step == machine::ListStep::Failed) NoteFault();
    return step == machine::ListStep::End;
}

bool EndsNoCase(kmStringView name, kmStringView suffix) {
    return name.size() >= suffix.size() && EqualNoCase(name.substr(name.size() - suffix.size()), suffix);
}

// Those of processes that ended in the middle of a call.
void RemoveAbandonedFiles(kmStringView path) {
    const InputFolder folder(kmString(path.substr(0, path.rfind(KM_TEXT('\\')) + 1)));
    std::vector<kmString> names;
    bool hasBegun = false;
    const auto take = [&names](const machine::Entry& entry) {
        const kmStringView name = entry.name;
        if (name.starts_with(kTemporaryStart) && name.ends_with(kTemporaryEnd)) names.push_back(entry.name);
    };
    if (!ForEachEntry(folder, take, hasBegun)) return;  // a disk that fails is no place to tidy up
    for (const kmString& name : names) {
        machine::RemoveAbandoned(folder.Handle(), folder.Path(), name, kAbandonedAfter);
    }
}

// A new file under a temporary name, which goes with the object unless it was given another one.
class TemporaryFile {
public:
    TemporaryFile() = default;
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() {
        if (m_handle != kNoHandle) static_cast<void>(machine::CloseWritten(m_handle));
        if (!m_path.empty()) static_cast<void>(machine::Remove(m_path));
    }

    // In the folder of `place`, with what the file `old` has, unless that is empty.
    bool Create(const Path& place, const Path& old) {
        constexpr int kTries = 10;
        bool exists = true;
        for (int i = 0; i < kTries && exists; ++i) {
            exists = false;
            Path path = machine::Beside(place, RandomName());
            m_handle = machine::CreateNew(path, old, exists);
            if (m_handle == kNoHandle) continue;
            m_path.swap(path);
            return true;
        }
        return false;
    }

    // Instead of a new file, a second name of `file`, under which it is still there when it is replaced.
    bool Keep(const Path& file) {
        Path path = machine::Beside(file, RandomName());
        if (!machine::AddName(file, path)) return false;
        m_path.swap(path);
        return true;
    }

    // Everything, onto the disk.
    bool Fill(const void* bytes, std::size_t count) {
        const auto* at = static_cast<const char*>(bytes);
        while (count > 0) {
            std::size_t written = 0;
            if (!machine::Write(m_handle, at, count, written) || written == 0) return false;
            at += written;
            count -= written;
        }
        return machine::Flush(m_handle) && machine::CloseWritten(std::exchange(m_handle, kNoHandle));
    }

    bool MoveOver(const Path& to) {
        if (!machine::MoveOver(m_path, to)) return false;
        m_path.clear();
        return true;
    }

    MoveResult MoveToNew(const Path& to) {
        const MoveResult result = machine::MoveToNew(m_path, to);
        if (result == MoveResult::Done) m_path.clear();
        return result;
    }

private:
    Path m_path;
    Handle m_handle = kNoHandle;
};

StoreResult Refuse(StoreResult result) {
    NoteFault();
    return result;
}

StoreResult Refuse(StoreResult result, FILE_FAULT fault) {
    NoteFault(fault);
    return result;
}

// What a move came to; `failure` stands for every reason but that the name is taken.
StoreResult ResultOf(MoveResult moved, StoreResult failure) {
    if (moved == MoveResult::Done) return StoreResult::Done;
    return moved == MoveResult::Exists ? Refuse(StoreResult::Exists, FILE_FAULT_EXISTS) : Refuse(failure);
}

// Whether a file may be stored at `place`; `old` receives the file that is replaced.
bool MayStore(const Path& place, Path& old) {
    if (place.empty()) {
        NoteFault();
        return false;
    }
    const Kind kind = machine::KindOf(place);
    if (kind == Kind::Nothing) return true;
    if (kind != Kind::File) {
        NoteFault(FILE_FAULT_NO_FILE);
        return false;
    }
    if (!machine::MayReplace(place)) {
        NoteFault();
        // Another process may have removed it meanwhile, and then there is nothing to be replaced.
        return machine::KindOf(place) == Kind::Nothing;
    }
    old = place;
    return true;
}

StoreResult FinishNew(TemporaryFile& file, const Path& place) {
    const StoreResult moved = ResultOf(file.MoveToNew(place), StoreResult::CannotWrite);
    if (moved != StoreResult::Done || machine::FlushFolderOf(place)) return moved;
    NoteFault();
    static_cast<void>(machine::Remove(place));
    return StoreResult::CannotWrite;
}

// In the place of the file `old`, unless that is empty. When it would not last, the old file gets its place
// back.
StoreResult FinishReplacing(TemporaryFile& file, const Path& place, const Path& old) {
    TemporaryFile kept;
    const bool isKept = !old.empty() && kept.Keep(old);
    if (!file.MoveOver(place)) return Refuse(StoreResult::CannotWrite);
    if (machine::FlushFolderOf(place)) return StoreResult::Done;
    NoteFault();
    if (isKept) static_cast<void>(kept.MoveOver(old));
    if (old.empty()) static_cast<void>(machine::Remove(place));
    return StoreResult::CannotWrite;
}

// Gives the entry of that name the spelling of `path`. The old one does no harm, so that failing is no
// matter.
void Respell(const kmChar* path) {
    Path entry;
    const Path given = machine::FindGivenPlace(path);
    if (!machine::FindEntry(path, entry) || entry.empty() || given.empty() || entry == given) return;
    if (machine::MoveToNew(entry, given) == MoveResult::Done)
        static_cast<void>(machine::FlushFolderOf(given));
}

StoreResult StoreNew(const kmChar* path, const void* bytes, std::size_t count) {
    Path entry;
    const Path place = machine::FindGivenPlace(path);
    if (place.empty() || !machine::FindEntry(path, entry)) return Refuse(StoreResult::CannotOpen);
    if (!entry.empty()) return Refuse(StoreResult::Exists, FILE_FAULT_EXISTS);
    TemporaryFile file;
    if (!file.Create(place, {})) return Refuse(StoreResult::CannotOpen);
    return file.Fill(bytes, count) ? FinishNew(file, place) : Refuse(StoreResult::CannotWrite);
}

// A symbolic link gets the new name and its target the new content; the name first, because that can be taken
// back.
StoreResult StoreThroughRenamedLink(TemporaryFile& file, const Path& link, const Path& to,
                                    const Path& place) {
    const StoreResult moved = ResultOf(machine::MoveToNew(link, to), StoreResult::CannotWrite);
    if (moved != StoreResult::Done) return moved;
    const StoreResult stored = FinishReplacing(file, place, place);
    if (stored != StoreResult::Done) static_cast<void>(machine::MoveToNew(to, link));
    return stored;
}

// The new name first: for a moment both exist, and never none.
StoreResult StoreAndRemove(TemporaryFile& file, const Path& from, const Path& to) {
    const StoreResult stored = FinishNew(file, to);
    if (stored != StoreResult::Done) return stored;
    if (!machine::Remove(from)) {
        NoteFault();
        static_cast<void>(machine::Remove(to));
        return StoreResult::CannotWrite;
    }
    static_cast<void>(machine::FlushFolderOf(from));  // both files after a crash, at worst
    return StoreResult::Done;
}

// The entries that a renaming is about.
struct Renaming {
    Path from;
    Path to;
    bool isSameEntry = false;  // `to` names `from`, in some letter case
    StoreResult refusal = StoreResult::Done;
};

Renaming FindRenaming(const kmChar* from, const kmChar* to) {
    Renaming renaming;
    Path existing;
    renaming.to = machine::FindGivenPlace(to);
    if (!machine::FindEntry(from, renaming.from) || !machine::FindEntry(to, existing) ||
        renaming.from.empty() || renaming.to.empty()) {
        renaming.refusal = Refuse(StoreResult::CannotOpen);
        return renaming;
    }
    renaming.isSameEntry = existing == renaming.from;
    if (!existing.empty() && !renaming.isSameEntry)
        renaming.refusal = Refuse(StoreResult::Exists, FILE_FAULT_EXISTS);
    return renaming;
}

}  // namespace

InputFolder::InputFolder(const kmString& path) : m_path(path), m_handle(machine::OpenFolder(path)) {}

InputFolder::~InputFolder() {
    if (m_handle != kNoHandle) machine::CloseFolder(m_handle);
}

bool InputFolder::List(kmStringView suffix, std::vector<kmString>& names, ListingNotes* notes) const {
    names.clear();
    bool hasBegun = false;
    const auto take = [&](const machine::Entry& entry) {
        if (!EndsNoCase(entry.name, suffix)) return;
        const bool isHidden = entry.name.front() == KM_TEXT('.');
        if (!isHidden && entry.kind != Kind::Folder && entry.kind != Kind::Other) {
            names.push_back(entry.name);
        } else if (notes != nullptr) {
            notes->passed.push_back({entry.name, isHidden});
        }
    };
    const bool isComplete = ForEachEntry(*this, take, hasBegun);
    if (notes != nullptr) notes->hasBegun = hasBegun;
    if (machine::kListsInOrder) return isComplete;
    std::sort(names.begin(), names.end(), NameLess);
    if (notes != nullptr) {
        std::sort(notes->passed.begin(), notes->passed.end(),
                  [](const PassedEntry& a, const PassedEntry& b) { return NameLess(a.name, b.name); });
    }
    return isComplete;
}

InputFile::~InputFile() {
    if (m_handle != kNoHandle) machine::CloseRead(m_handle);
}

bool InputFile::Open(const kmChar* path) {
    m_handle = machine::OpenFile(path, m_size);
    if (m_handle == kNoHandle) NoteFault();
    return m_handle != kNoHandle;
}

bool InputFile::Open(const InputFolder& folder, const kmString& name) {
    m_handle = machine::OpenFileIn(folder.Handle(), folder.Path(), name, m_size);
    if (m_handle == kNoHandle) NoteFault();
    return m_handle != kNoHandle;
}

bool InputFile::Read(void* bytes, std::size_t count, std::size_t& got) {
    got = 0;
    while (got < count) {
        std::size_t step = 0;
        if (!machine::Read(m_handle, static_cast<char*>(bytes) + got, count - got, step)) {
            NoteFault();
            return false;
        }
        if (step == 0) return true;
        got += step;
    }
    return true;
}

StoreResult StoreFile(const kmChar* path, const void* bytes, std::size_t count, Storing storing) {
    RemoveAbandonedFiles(path);
    if (storing == Storing::New) return StoreNew(path, bytes, count);
    Path place = machine::FindPlace(path);
    Path old;
    if (!MayStore(place, old)) return StoreResult::CannotOpen;
    TemporaryFile file;
    if (!file.Create(place, old)) return Refuse(StoreResult::CannotOpen);
    if (!file.Fill(bytes, count)) return Refuse(StoreResult::CannotWrite);
    if (storing == Storing::Respell && machine::kNamesIgnoreCase && !old.empty()) {
        // There a replacement takes the spelling that it is given, unless the place is that of a link's
        // target.
        const Path given = machine::FindGivenPlace(path);
        Path entry;
        if (machine::FindEntry(path, entry) && entry == place && !given.empty()) place = given;
    }
    const StoreResult stored = FinishReplacing(file, place, old);
    if (stored == StoreResult::Done && storing == Storing::Respell && !machine::kNamesIgnoreCase)
        Respell(path);
    return stored;
}

StoreResult StoreRenamed(const kmChar* from, const kmChar* to, const void* bytes, std::size_t count) {
    RemoveAbandonedFiles(to);
    const Renaming renaming = FindRenaming(from, to);
    if (renaming.refusal != StoreResult::Done) return renaming.refusal;
    const Path place = machine::FindPlace(from);
    Path old;
    if (!MayStore(place, old) || old.empty()) return StoreResult::CannotOpen;
    TemporaryFile file;
    if (!file.Create(place, old)) return Refuse(StoreResult::CannotOpen);
    if (!file.Fill(bytes, count)) return Refuse(StoreResult::CannotWrite);
    if (renaming.from == renaming.to) return FinishReplacing(file, place, old);
    if (machine::IsLink(renaming.from))
        return StoreThroughRenamedLink(file, renaming.from, renaming.to, place);
    if (renaming.isSameEntry && machine::kNamesIgnoreCase) return FinishReplacing(file, renaming.to, old);
    return StoreAndRemove(file, renaming.from, renaming.to);
}

bool RenameFile(const kmChar* from, const kmChar* to) {
    const Renaming renaming = FindRenaming(from, to);
    if (renaming.refusal != StoreResult::Done) return false;
    if (renaming.from == renaming.to) return true;
    const MoveResult moved = machine::MoveToNew(renaming.from, renaming.to);
    if (ResultOf(moved, StoreResult::CannotWrite) != StoreResult::Done) return false;
    static_cast<void>(machine::FlushFolderOf(renaming.to));  // the old name after a crash, at worst
    return true;
}

bool EntryExists(const kmChar* path) {
    Path entry;
    return !machine::FindEntry(path, entry) || !entry.empty();
}

bool RemoveFile(const kmChar* path) {
    Path entry;
    if (!machine::FindEntry(path, entry) || entry.empty()) {
        NoteFault();
        return false;
    }
    const Kind kind = machine::KindOf(entry);
    if (kind == Kind::Folder || kind == Kind::Other) {
        NoteFault(FILE_FAULT_NO_FILE);
        return false;
    }
    if (!machine::MayRemove(entry) || !machine::Remove(entry)) {
        NoteFault();
        return false;
    }
    static_cast<void>(machine::FlushFolderOf(entry));  // the file is back after a crash, at worst
    return true;
}

bool CreateFolder(const kmChar* path) {
    if (machine::MakeFolder(path)) return true;
    NoteFault();
    return false;
}
