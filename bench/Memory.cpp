// SPDX-License-Identifier: MIT
#include "bench/Memory.h"

#include <malloc.h>

#include <algorithm>
#include <memory>
#include <pugixml.hpp>
#include <vector>

#include "xml/XMLNode.h"

namespace {

// Asked of the heap and not counted in replaced allocation functions: those would slow down what is timed.
std::size_t HeapBytes() {
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

// More documents than these tell nothing new.
constexpr std::size_t kMostDocuments = 500;

template <class Document, class Open>
double BytesPerFileByte(const ProfileFolder& folder, Open open) {
    const std::size_t count = std::min(folder.files.size(), kMostDocuments);
    std::vector<Document> documents;
    documents.reserve(count);
    std::uintmax_t fileBytes = 0;
    const std::size_t before = HeapBytes();
    for (std::size_t i = 0; i < count; ++i) {
        documents.push_back(open(folder.files[i]));
        fileBytes += folder.files[i].size;
    }
    return static_cast<double>(HeapBytes() - before) / static_cast<double>(fileBytes);
}

}  // namespace

double LibraryBytesPerFileByte(const ProfileFolder& folder) {
    return BytesPerFileByte<XMLNode>(folder, [](const ProfileFile& file) {
        return XMLNode::OpenDocument(file.textPath.c_str(), KM_TEXT("Profiles"));
    });
}

double PugixmlBytesPerFileByte(const ProfileFolder& folder) {
    return BytesPerFileByte<std::unique_ptr<pugi::xml_document>>(folder, [](const ProfileFile& file) {
        auto document = std::make_unique<pugi::xml_document>();
        document->load_file(file.path.c_str());
        return document;
    });
}
