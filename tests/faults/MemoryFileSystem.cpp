#include "tests/faults/MemoryFileSystem.h"

#include <algorithm>
#include <memory>
#include <vector>

#include "platform/FileSystem.h"
#include "tests/faults/FailingAllocations.h"
#include "text/Encoding.h"

using machine::Handle;
using machine::Kind;
using machine::kNoHandle;
using machine::Path;

#if defined(_WIN32)
const bool machine::kNamesIgnoreCase = true;
#else
const bool machine::kNamesIgnoreCase = false;
#endif
const bool machine::kListsInOrder = false;

namespace {

constexpr Path::value_type kSeparator = '\\';

struct Node {
    Kind kind = Kind::File;
    std::string bytes;
    bool isFlushed = true;
};
using Nodes = std::map<Path, std::shared_ptr<Node>>;

struct OpenFile {
    std::shared_ptr<Node> node;
    std::size_t position = 0;
};

struct Listing {
    std::vector<std::pair<kmString, Kind>> entries;
    std::size_t next = 0;
};

struct Disk {
    Nodes nodes;
    std::map<Handle, OpenFile> open;
    std::map<Handle, kmString> folders;
    std::map<Handle, Listing> listings;
    Handle lastHandle = 0;
    std::size_t operations = 0;
    std::size_t planned = 0;
    memory::Fault fault = memory::Fault::Fail;
    std::string hit;
    bool isStopped = false;
};

Disk& TheDisk() {
    static Disk disk;
    return disk;
}

#if defined(_WIN32)
Path ToPath(kmStringView text) { return Path(text); }
kmString ToText(const Path& path) { return path; }
#else
Path ToPath(kmStringView text) {
    Path path;
    for (std::size_t start = 0; start <= text.size();) {
        const std::size_t end = std::min(text.find(KM_TEXT('\\'), start), text.size());
        path += BytesFromText(text.substr(start, end - start));
        if (end < text.size()) path += kSeparator;
        start = end + 1;
    }
    return path;
}
kmString ToText(const Path& path) {
    kmString text = TextFromBytes(path);
    std::replace(text.begin(), text.end(), TextFromBytes("\\").front(), KM_TEXT('\\'));
    return text;
}
#endif

Path FolderOf(const Path& path) { return path.substr(0, path.rfind(kSeparator) + 1); }

Path WithoutEnd(Path path) {
    while (!path.empty() && path.back() == kSeparator) path.pop_back();
    return path;
}

bool SameNoCase(const Path& a, const Path& b) { return EqualNoCase(ToText(a), ToText(b)); }

Nodes::iterator Find(const Path& wanted) {
    Nodes& nodes = TheDisk().nodes;
    const Path path = WithoutEnd(wanted);
    const auto exact = nodes.find(path);
    if (exact != nodes.end()) return exact;
    return std::find_if(nodes.begin(), nodes.end(),
                        [&](const auto& node) { return SameNoCase(node.first, path); });
}

// What the next operation has to do: Work, fail, or move one byte.
enum class Order { Work, Fail, Short };

Order Next(const char* name, bool mayThrow = true) {
    Disk& disk = TheDisk();
    if (disk.isStopped) return Order::Fail;
    if (++disk.operations != disk.planned) return Order::Work;
    disk.hit = name;
    if (disk.fault == memory::Fault::Short) return Order::Short;
    if (disk.fault == memory::Fault::Fail) return Order::Fail;
    disk.isStopped = true;
    if (mayThrow) throw memory::ProcessStopped();
    return Order::Fail;
}

bool Works(const char* name) { return Next(name) == Order::Work; }

Handle Open(std::shared_ptr<Node> node) {
    const Handle handle = ++TheDisk().lastHandle;
    TheDisk().open[handle] = {std::move(node)};
    return handle;
}

Handle OpenNode(Nodes::iterator found, std::uint64_t& size) {
    if (found == TheDisk().nodes.end() || found->second->kind != Kind::File) return kNoHandle;
    size = found->second->bytes.size();
    return Open(found->second);
}

}  // namespace

namespace memory {

void Format() { TheDisk() = Disk(); }

void MakeFolderAt(kmStringView path) {
    const Path whole = WithoutEnd(ToPath(path));
    for (std::size_t at = whole.find(kSeparator); at != Path::npos; at = whole.find(kSeparator, at + 1))
        TheDisk().nodes.try_emplace(whole.substr(0, at),
                                    std::make_shared<Node>(Node{Kind::Folder, {}, true}));
    TheDisk().nodes.try_emplace(whole, std::make_shared<Node>(Node{Kind::Folder, {}, true}));
}

void WriteFile(kmStringView path, std::string_view bytes) {
    MakeFolderAt(path.substr(0, path.rfind(KM_TEXT('\\'))));
    TheDisk().nodes[ToPath(path)] = std::make_shared<Node>(Node{Kind::File, std::string(bytes), true});
}

std::map<std::string, std::string> Files() {
    std::map<std::string, std::string> files;
    for (const auto& [path, node] : TheDisk().nodes) {
        if (node->kind == Kind::File) files[BytesFromText(ToText(path))] = node->bytes;
    }
    return files;
}

void Plan(std::size_t operation, Fault fault) {
    Disk& disk = TheDisk();
    disk.operations = 0;
    disk.planned = operation;
    disk.fault = fault;
    disk.hit.clear();
}

std::size_t OperationCount() { return TheDisk().operations; }

std::string HitOperation() { return TheDisk().hit; }

bool IsStopped() { return TheDisk().isStopped; }

void Restart() {
    Disk& disk = TheDisk();
    for (const auto& [path, node] : disk.nodes) {
        if (!node->isFlushed) node->bytes.resize(node->bytes.size() / 2);
        node->isFlushed = true;
    }
    disk.open.clear();
    disk.isStopped = false;
    Plan(0, Fault::Fail);
}

}  // namespace memory

namespace machine {

bool FindEntry(const kmChar* path, Path& entry) {
    const AllocationsAllowed allowed;
    entry.clear();
    if (!Works("FindEntry")) return false;
    const auto found = Find(ToPath(path));
    if (found != TheDisk().nodes.end()) entry = found->first;
    return true;
}

Path FindPlace(const kmChar* path) {
    const AllocationsAllowed allowed;
    if (!Works("FindPlace")) return {};
    const auto found = Find(ToPath(path));
    return found != TheDisk().nodes.end() ? found->first : FindGivenPlace(path);
}

Path FindGivenPlace(const kmChar* path) {
    const AllocationsAllowed allowed;
    const Path wanted = ToPath(path);
    const auto folder = Find(FolderOf(wanted));
    if (folder == TheDisk().nodes.end() || folder->second->kind != Kind::Folder) return {};
    return folder->first + wanted.substr(wanted.rfind(kSeparator));
}

Path Beside(const Path& file, std::string_view name) {
    return FolderOf(file).append(name.begin(), name.end());
}

Kind KindOf(const Path& path) {
    const AllocationsAllowed allowed;
    const auto found = Find(path);
    return found == TheDisk().nodes.end() ? Kind::Nothing : found->second->kind;
}

bool IsLink(const Path& /*entry*/) { return false; }

Handle OpenFile(const kmChar* path, std::uint64_t& size) {
    const AllocationsAllowed allowed;
    return Works("OpenFile") ? OpenNode(Find(ToPath(path)), size) : kNoHandle;
}

bool Read(Handle file, void* bytes, std::size_t count, std::size_t& got) {
    const AllocationsAllowed allowed;
    got = 0;
    const Order order = Next("Read");
    if (order == Order::Fail) return false;
    ::OpenFile& open = TheDisk().open.at(file);
    got = std::min(order == Order::Short ? 1 : count, open.node->bytes.size() - open.position);
    open.node->bytes.copy(static_cast<char*>(bytes), got, open.position);
    open.position += got;
    return true;
}

void CloseRead(Handle file) { TheDisk().open.erase(file); }

Handle OpenFolder(const kmString& path) {
    const AllocationsAllowed allowed;
    if (!Works("OpenFolder") || Find(ToPath(path)) == TheDisk().nodes.end()) return kNoHandle;
    const Handle handle = ++TheDisk().lastHandle;
    TheDisk().folders[handle] = path;
    return handle;
}

Handle OpenFileIn(Handle /*folder*/, const kmString& path, const kmString& name, std::uint64_t& size) {
    return OpenFile((path + name).c_str(), size);
}

void CloseFolder(Handle folder) { TheDisk().folders.erase(folder); }

Handle BeginListing(Handle folder, const kmString& path, bool& exists) {
    const AllocationsAllowed allowed;
    exists = folder != kNoHandle;
    if (!exists || !Works("BeginListing")) return kNoHandle;
    Listing listing;
    const Path whole = WithoutEnd(ToPath(path));
    for (const auto& [entry, node] : TheDisk().nodes) {
        if (!SameNoCase(WithoutEnd(FolderOf(entry)), whole) || SameNoCase(entry, whole)) continue;
        listing.entries.emplace_back(ToText(entry.substr(entry.rfind(kSeparator) + 1)), node->kind);
    }
    const Handle handle = ++TheDisk().lastHandle;
    TheDisk().listings[handle] = listing;
    return handle;
}

ListStep NextEntry(Handle handle, Entry& entry) {
    const AllocationsAllowed allowed;
    if (!Works("NextEntry")) return ListStep::Failed;
    Listing& listing = TheDisk().listings.at(handle);
    if (listing.next == listing.entries.size()) return ListStep::End;
    entry.name = listing.entries[listing.next].first;
    entry.kind = listing.entries[listing.next++].second;
    return ListStep::Entry;
}

void EndListing(Handle listing) { TheDisk().listings.erase(listing); }

Handle CreateNew(const Path& path, const Path& /*old*/, bool& exists) {
    const AllocationsAllowed allowed;
    exists = false;
    if (!Works("CreateNew")) return kNoHandle;
    exists = Find(path) != TheDisk().nodes.end();
    if (exists || Find(FolderOf(path)) == TheDisk().nodes.end()) return kNoHandle;
    const auto node = std::make_shared<Node>();
    node->isFlushed = false;
    TheDisk().nodes[path] = node;
    return Open(node);
}

bool Write(Handle file, const void* bytes, std::size_t count, std::size_t& written) {
    const AllocationsAllowed allowed;
    written = 0;
    const Order order = Next("Write");
    if (order == Order::Fail) return false;
    written = order == Order::Short ? 1 : count;
    Node& node = *TheDisk().open.at(file).node;
    node.bytes.append(static_cast<const char*>(bytes), written);
    node.isFlushed = false;
    return true;
}

bool Flush(Handle file) {
    if (!Works("Flush")) return false;
    TheDisk().open.at(file).node->isFlushed = true;
    return true;
}

bool CloseWritten(Handle file) {
    const bool works = Next("CloseWritten", /*mayThrow=*/false) == Order::Work;
    TheDisk().open.erase(file);
    return works;
}

bool MayReplace(const Path& path) { return Works("MayReplace") && KindOf(path) == Kind::File; }

bool AddName(const Path& file, const Path& name) {
    const AllocationsAllowed allowed;
    const auto found = Find(file);
    if (!Works("AddName") || found == TheDisk().nodes.end()) return false;
    return TheDisk().nodes.emplace(name, found->second).second;
}

bool MoveOver(const Path& from, const Path& to) {
    const AllocationsAllowed allowed;
    Nodes& nodes = TheDisk().nodes;
    const auto found = Find(from);
    if (!Works("MoveOver") || found == nodes.end()) return false;
    const auto node = found->second;
    nodes.erase(found);
    if (kNamesIgnoreCase && Find(to) != nodes.end()) nodes.erase(Find(to));
    nodes[to] = node;
    return true;
}

MoveResult MoveToNew(const Path& from, const Path& to) {
    const AllocationsAllowed allowed;
    Nodes& nodes = TheDisk().nodes;
    const auto found = Find(from);
    if (!Works("MoveToNew") || found == nodes.end()) return MoveResult::Failed;
    const auto other = kNamesIgnoreCase ? Find(to) : nodes.find(to);
    if (other != nodes.end() && other != found) return MoveResult::Exists;
    const auto node = found->second;
    nodes.erase(found);
    nodes[to] = node;
    return MoveResult::Done;
}

bool Remove(const Path& path) {
    const AllocationsAllowed allowed;
    return Next("Remove", /*mayThrow=*/false) == Order::Work && TheDisk().nodes.erase(path) == 1;
}

bool MayRemove(const Path& /*path*/) { return Works("MayRemove"); }

void RemoveAbandoned(Handle /*folder*/, const kmString& path, const kmString& name,
                     std::chrono::seconds /*age*/) {
    const AllocationsAllowed allowed;
    if (Works("RemoveAbandoned")) TheDisk().nodes.erase(ToPath(path + name));
}

bool FlushFolderOf(const Path& /*file*/) { return Works("FlushFolderOf"); }

void MakeFolder(const kmChar* path) {
    const AllocationsAllowed allowed;
    if (Works("MakeFolder")) memory::MakeFolderAt(path);
}

}  // namespace machine
