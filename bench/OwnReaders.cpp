// SPDX-License-Identifier: MIT
#include "bench/Readers.h"
#include "kmManager.h"
#include "xml/XMLNode.h"

namespace {

std::uint64_t FirstOf(kmStringView text) { return text.empty() ? 0 : text.front(); }

void CountTree(const XMLNode& node, Counts& counts) {
    ++counts.elements;
    const int attributes = node.CountAttributes();
    for (int i = 0; i < attributes; ++i) {
        counts.AddAttribute(FirstOf(node.AttributeNameAt(i)), FirstOf(node.AttributeValueAt(i)));
    }
    const int children = node.CountChildren();
    for (int i = 0; i < children; ++i) CountTree(node.ChildAt(i), counts);
}

Counts ReadDocuments(const ProfileFolder& folder) {
    Counts counts;
    for (const ProfileFile& file : folder.files) {
        const XMLNode root = XMLNode::OpenDocument(file.textPath.c_str(), KM_TEXT("Profiles"));
        if (root.IsEmpty()) continue;
        ++counts.files;
        CountTree(root, counts);
    }
    return counts;
}

Counts ReadCatalogue(const ProfileFolder& folder) {
    kmManager& manager = kmManager::GetInstance();
    manager.Load(folder.textRoot);
    Counts counts;
    counts.files = manager.GetProfiles().size();
    return counts;
}

}  // namespace

std::vector<Reader> OwnReaders() {
    return {{kDocuments, "this library, documents", Sight::Documents, ReadDocuments},
            {kCatalogue, "this library, kmManager::Load", Sight::Files, ReadCatalogue}};
}
