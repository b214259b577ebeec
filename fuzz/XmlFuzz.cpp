// SPDX-License-Identifier: MIT
// The input is a file. Whatever it holds, reading and writing it end well, and a text in memory is read as
// the same text in a file. A tree that ReadsBackTheSame accepts comes back from the disk as it was, and its
// text as the same text again. A profile is renamed, which rewrites its file, exactly when its tree is
// accepted.
#include <algorithm>

#include "fuzz/Law.h"
#include "kmProfile.h"
#include "tests/faults/MemoryFileSystem.h"
#include "tests/support/TreeDump.h"
#include "xml/XMLNode.h"

namespace {

const kmChar* const kPath = KM_TEXT("\\p\\x.pf");
const kmChar* const kRoot = KM_TEXT("Profiles");

// What is left of a tree without white space and empty texts, which files do not keep.
std::string Describe(const XMLNode& node) {
    std::string description;
    for (const char c : Dump(node)) {
        if (c == ' ' || (c >= '\t' && c <= '\r')) continue;
        description += c;
        if (description.ends_with("''") || description.ends_with("()"))
            description.resize(description.size() - 2);
    }
    return description;
}

kmString TextOf(const XMLNode& node, bool formatted) {
    std::size_t length = 0;
    const auto units = node.ToText(formatted, &length);
    Require(kmStringView(units.get()).size() == length, "a text is as long as it is said to be");
    return {units.get(), length};
}

XMLNode SaveAndRead(const XMLNode& node) {
    const kmChar* const path = KM_TEXT("\\p\\copy");
    Require(node.SaveToFile(path, nullptr, /*formatted=*/true) == XML_ERROR_NONE, "a tree is saved");
    return XMLNode::ParseDocumentFile(path, node.GetName());
}

void CheckWriting(const XMLNode& node) {
    const kmString unformatted = TextOf(node, /*formatted=*/false);
    static_cast<void>(TextOf(node, /*formatted=*/true));
    if (!node.ReadsBackTheSame()) return;
    const XMLNode copy = SaveAndRead(node);
    Require(Describe(copy) == Describe(node), "a saved tree comes back as it was");
    Require(copy.ReadsBackTheSame(), "what was accepted once is accepted again");
    const kmString text = TextOf(copy, /*formatted=*/true);
    RequireSame(TextOf(SaveAndRead(copy), /*formatted=*/true), text, "what comes back is written the same");
    const XMLNode other = XMLNode::ParseDocumentText(unformatted.c_str(), node.GetName());
    RequireSame(TextOf(other, /*formatted=*/true), text, "both layouts hold the same");
}

struct Reading {
    XMLParseResult result;
    XMLNode node;
};

void RequireSame(const Reading& a, const Reading& b, const char* law) {
    Require(a.result.code == b.result.code && a.result.line == b.result.line &&
                a.result.column == b.result.column && Dump(a.node) == Dump(b.node),
            law);
}

void CheckReading(std::string_view bytes, const kmChar* firstTag) {
    const kmChar* const utf16Path = KM_TEXT("\\p\\utf16");
    const kmString text(bytes.begin(), bytes.end());
    memory::WriteFile(utf16Path, "\xFF\xFE" + Utf16Bytes(text));
    Reading file;
    Reading utf16;
    Reading inMemory;
    file.node = XMLNode::ParseDocumentFile(kPath, firstTag, &file.result);
    utf16.node = XMLNode::ParseDocumentFile(utf16Path, firstTag, &utf16.result);
    inMemory.node = XMLNode::ParseDocumentText(text.c_str(), firstTag, &inMemory.result);
    RequireSame(utf16, inMemory, "a text and a file in UTF-16 are read the same");
    const bool isAscii = std::all_of(bytes.begin(), bytes.end(), [](char c) { return c > 0; });
    if (isAscii && !bytes.empty())
        RequireSame(file, inMemory, "a text and a file in ASCII are read the same");
    if (!file.node.IsEmpty()) CheckWriting(file.node);
}

void CheckRenaming() {
    kmProfile profile;
    profile.SetID(KM_TEXT("x"));
    if (!profile.Load(KM_TEXT("\\p\\")) || profile.IsSystem()) return;
    const XMLNode root = XMLNode::ParseDocumentFile(kPath, kRoot);
    const XMLNode main = root.FindChild(KM_TEXT("Main"));
    main.FindChild(KM_TEXT("Name")).SetAttribute(KM_TEXT("y"), nullptr, KM_TEXT("language"));
    const auto before = memory::Files();
    if (profile.ReName(KM_TEXT("y")) != PROFILE_ERROR_NONE) {
        Require(!root.ReadsBackTheSame(), "a tree that comes back can be renamed");
        return Require(memory::Files() == before, "a refusal changes no file");
    }
    Require(root.ReadsBackTheSame(), "a tree that does not come back is refused");
    Require(memory::Files().count("\\p\\x.pf") == 0, "a renamed file leaves its old name");
    const XMLNode renamed = XMLNode::ParseDocumentFile(KM_TEXT("\\p\\y.pf"), kRoot);
    Require(Describe(renamed) == Describe(root), "a renamed profile holds what it held");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    memory::Format();
    memory::WriteFile(kPath, bytes);
    CheckReading(bytes, nullptr);
    CheckReading(bytes, kRoot);
    CheckRenaming();
    return 0;
}
