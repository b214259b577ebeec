// SPDX-License-Identifier: MIT
#include "tests/faults/MemoryFileSystem.h"

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

#include "platform/FileSystem.h"
#include "tests/faults/FailingAllocations.h"
#include "text/Encoding.h"

using machine::Handle;
using machine::Kind;
using machine::kNoHandle;
using machine::Path;

namespace {

struct Node {
    Kind kind = Kind::File;
    std::string bytes;
    bool isFlushed = true;
};
using NodePointer = std::shared_ptr<Node>;
using Nodes = std::map<Path, NodePointer>;

struct OpenFile {
    NodePointer node;
    std::size_t position = 0;
};

struct Disk {
    Nodes nodes;
    std::map<Handle, OpenFile> open;
    std::map<Handle, std::vector<machine::Entry>> listings;  // what is still to come, last first
    Handle lastHandle = 0;
    std::size_t operations = 0;
    std::size_t planned = 0;
    memory::Fault fault = memory::Fault::Fail;
    std::string hit;
    bool isStopped = false;
};
Disk disk;

#if defined(_WIN32)
Path ToPath(kmStringView text) { return Path(text); }
kmString ToText(const Path& path) { return path; }
#else
Path ToPath(kmStringView text) { return BytesFromText(text); }
kmString ToText(const Path& path) {
    kmString text = TextFromBytes(path);
    std::replace(text.begin(), text.end(), TextFromBytes("\\").front(), KM_TEXT('\\'));
    return text;
}
#endif

// Up to its last separator.
Path FolderOf(const Path& path) { return path.substr(0, path.rfind('\\') + 1); }

Path WithoutEnd(Path path) {
    while (!path.empty() && path.back() == '\\') path.pop_back();
    return path;
}

Nodes::iterator Find(const Path& wanted) {
    const Path path = WithoutEnd(wanted);
    const auto exact = disk.nodes.find(path);
    if (exact != disk.nodes.end()) return exact;
    return std::find_if(disk.nodes.begin(), disk.nodes.end(), [text = ToText(path)](const auto& node) {
        return EqualNoCase(ToText(node.first), text);
    });
}

bool Exists(const Path& path) { return Find(path) != disk.nodes.end(); }

// What the next operation has to do: work, fail, or move one byte.
enum class Order { Work, Fail, Short };

Order Next(const char* name, bool mayThrow = true) {
    if (disk.isStopped) return Order::Fail;
    if (++disk.operations != disk.planned) return Order::Work;
    disk.hit = name;
    if (disk.fault == memory::Fault::Short) return Order::Short;
    if (disk.fault == memory::Fault::Fail) return Order::Fail;
    disk.isStopped = true;
    if (mayThrow) throw memory::ProcessStopped();
    return Order::Fail;
}

// A counted operation; the disk has memory of its own.
struct Step {
    explicit Step(const char* name, bool mayThrow = true) : order(Next(name, mayThrow)) {}
    bool Works() const { return order == Order::Work; }

    const AllocationsAllowed allowed;
    const Order order;
};

Handle Open(const NodePointer& node) {
    disk.open[++disk.lastHandle] = {node};
    return disk.lastHandle;
}

void Rename(Nodes::iterator from, const Path& to) {
    const NodePointer node = from->second;
    disk.nodes.erase(from);
    disk.nodes[to] = node;
}

// Those on the way too.
void MakeFolderAt(kmStringView path) {
    const Path whole = WithoutEnd(ToPath(path)) + Path(1, '\\');
    for (std::size_t at = whole.find('\\'); at != Path::npos; at = whole.find('\\', at + 1))
        disk.nodes.try_emplace(whole.substr(0, at), std::make_shared<Node>(Node{Kind::Folder, {}}));
}

}  // namespace

namespace memory {

void Format() { disk = Disk(); }

void WriteFile(kmStringView path, std::string_view bytes) {
    MakeFolderAt(path.substr(0, path.rfind(KM_TEXT('\\'))));
    disk.nodes[ToPath(path)] = std::make_shared<Node>(Node{Kind::File, std::string(bytes)});
}

std::map<std::string, std::string> Files() {
    std::map<std::string, std::string> files;
    for (const auto& [path, node] : disk.nodes)
        if (node->kind == Kind::File) files[BytesFromText(ToText(path))] = node->bytes;
    return files;
}

void Plan(std::size_t operation, Fault fault) {
    disk.operations = 0;
    disk.planned = operation;
    disk.fault = fault;
    disk.hit.clear();
}

std::string HitOperation() { return disk.hit; }

void Restart() {
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

#if defined(_WIN32)
const bool kNamesIgnoreCase = true;
#else
const bool kNamesIgnoreCase = false;
#endif
const bool kListsInOrder = false;

FILE_FAULT LastFault() { return FILE_FAULT_DEVICE; }

bool FindEntry(const kmChar* path, Path& entry) {
    const Step step("FindEntry");
    entry.clear();
    if (!step.Works()) return false;
    const auto found = Find(ToPath(path));
    if (found != disk.nodes.end()) entry = found->first;
    return true;
}

Path FindPlace(const kmChar* path) {
    const Step step("FindPlace");
    if (!step.Works()) return {};
    const auto found = Find(ToPath(path));
    return found != disk.nodes.end() ? found->first : FindGivenPlace(path);
}

Path FindGivenPlace(const kmChar* path) {
    const AllocationsAllowed allowed;
    const Path wanted = ToPath(path);
    const auto folder = Find(FolderOf(wanted));
    if (folder == disk.nodes.end() || folder->second->kind != Kind::Folder) return {};
    return folder->first + wanted.substr(wanted.rfind('\\'));
}

Path Beside(const Path& file, std::string_view name) {
    return FolderOf(file).append(name.begin(), name.end());
}

Kind KindOf(const Path& path) {
    const AllocationsAllowed allowed;
    return Exists(path) ? Find(path)->second->kind : Kind::Nothing;
}

bool IsLink(const Path& /*entry*/) { return false; }

Handle OpenFile(const kmChar* path, std::uint64_t& size) {
    const Step step("OpenFile");
    if (!step.Works()) return kNoHandle;
    const auto found = Find(ToPath(path));
    if (found == disk.nodes.end() || found->second->kind != Kind::File) return kNoHandle;
    size = found->second->bytes.size();
    return Open(found->second);
}

bool Read(Handle file, void* bytes, std::size_t count, std::size_t& got) {
    const Step step("Read");
    got = 0;
    if (step.order == Order::Fail) return false;
    auto& [node, position] = disk.open.at(file);
    got = node->bytes.copy(static_cast<char*>(bytes), step.order == Order::Short ? 1 : count, position);
    position += got;
    return true;
}

void CloseRead(Handle file) { disk.open.erase(file); }

Handle OpenFolder(const kmString& path) {
    const Step step("OpenFolder");
    return step.Works() && Exists(ToPath(path)) ? ++disk.lastHandle : kNoHandle;
}

Handle OpenFileIn(Handle /*folder*/, const kmString& path, const kmString& name, std::uint64_t& size) {
    return OpenFile((path + name).c_str(), size);
}

void CloseFolder(Handle /*folder*/) {}

Handle BeginListing(Handle folder, const kmString& path, bool& exists) {
    const Step step("BeginListing");
    exists = folder != kNoHandle;
    if (!exists || !step.Works()) return kNoHandle;
    std::vector<Entry>& entries = disk.listings[++disk.lastHandle];
    for (const auto& [entry, node] : disk.nodes) {
        if (entry.empty() || !EqualNoCase(ToText(FolderOf(entry)), path)) continue;
        entries.push_back({ToText(entry.substr(FolderOf(entry).size())), node->kind});
    }
    return disk.lastHandle;
}

ListStep NextEntry(Handle handle, Entry& entry) {
    const Step step("NextEntry");
    if (!step.Works()) return ListStep::Failed;
    std::vector<Entry>& entries = disk.listings.at(handle);
    if (entries.empty()) return ListStep::End;
    entry = entries.back();
    entries.pop_back();
    return ListStep::Entry;
}

void EndListing(Handle listing) { disk.listings.erase(listing); }

Handle CreateNew(const Path& path, const Path& /*old*/, bool& exists) {
    const Step step("CreateNew");
    exists = false;
    if (!step.Works()) return kNoHandle;
    exists = Exists(path);
    if (exists || !Exists(FolderOf(path))) return kNoHandle;
    disk.nodes[path] = std::make_shared<Node>(Node{Kind::File, {}, /*isFlushed=*/false});
    return Open(disk.nodes[path]);
}

bool Write(Handle file, const void* bytes, std::size_t count, std::size_t& written) {
    const Step step("Write");
    written = 0;
    if (step.order == Order::Fail) return false;
    written = step.order == Order::Short ? 1 : count;
    Node& node = *disk.open.at(file).node;
    node.bytes.append(static_cast<const char*>(bytes), written);
    node.isFlushed = false;
    return true;
}

bool Flush(Handle file) {
    if (!Step("Flush").Works()) return false;
    disk.open.at(file).node->isFlushed = true;
    return true;
}

bool CloseWritten(Handle file) {
    const bool works = Step("CloseWritten", /*mayThrow=*/false).Works();
    disk.open.erase(file);
    return works;
}

bool MayReplace(const Path& path) { return Step("MayReplace").Works() && KindOf(path) == Kind::File; }

bool AddName(const Path& file, const Path& name) {
    const Step step("AddName");
    return step.Works() && Exists(file) && disk.nodes.emplace(name, Find(file)->second).second;
}

bool MoveOver(const Path& from, const Path& to) {
    const Step step("MoveOver");
    if (!step.Works() || !Exists(from)) return false;
    const auto source = Find(from);
    const auto replaced = kNamesIgnoreCase ? Find(to) : disk.nodes.find(to);
    if (replaced != disk.nodes.end() && replaced != source) disk.nodes.erase(replaced);
    Rename(source, to);
    return true;
}

MoveResult MoveToNew(const Path& from, const Path& to) {
    const Step step("MoveToNew");
    if (!step.Works() || !Exists(from)) return MoveResult::Failed;
    const auto source = Find(from);
    const auto other = kNamesIgnoreCase ? Find(to) : disk.nodes.find(to);
    if (other != disk.nodes.end() && other != source) return MoveResult::Exists;
    Rename(source, to);
    return MoveResult::Done;
}

bool Remove(const Path& path) {
    return Step("Remove", /*mayThrow=*/false).Works() && disk.nodes.erase(path) == 1;
}

bool MayRemove(const Path& /*path*/) { return Step("MayRemove").Works(); }

void RemoveAbandoned(Handle /*folder*/, const kmString& path, const kmString& name,
                     std::chrono::seconds /*age*/) {
    const Step step("RemoveAbandoned");
    if (step.Works()) disk.nodes.erase(ToPath(path + name));
}

bool FlushFolderOf(const Path& /*file*/) { return Step("FlushFolderOf").Works(); }

bool MakeFolder(const kmChar* path) {
    const Step step("MakeFolder");
    if (step.Works()) MakeFolderAt(path);
    return step.Works();
}

}  // namespace machine
