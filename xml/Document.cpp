// SPDX-License-Identifier: MIT
// One block a document, in this order: the document itself, the text, room for the records. The text begins
// at a cache line. Records are never moved, so that pointers to them stay valid; only the attributes of the
// start tag that is being parsed may still move, until EndAttributes.
#include "xml/Document.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <stdexcept>

#include "xml/Scan.h"

namespace {

// A read into memory that is not aligned to a cache line can take nearly twice as long.
constexpr std::size_t kLine = 64;
constexpr std::size_t kRecordAlignment = alignof(void*);
constexpr std::size_t kPadding = kScanPadding * sizeof(kmChar);  // copied texts are scanned too
constexpr std::size_t kLeastChunk = 2048;
constexpr std::size_t kLargestChunk = std::size_t{256} * 1024;

constexpr std::size_t RoundUp(std::size_t size, std::size_t step) { return (size + step - 1) / step * step; }

// What the records of a typical profile take: a little less than its text.
constexpr std::size_t RecordBytesFor(std::size_t textBytes) {
    return RoundUp(textBytes / 8 * 7 + 512, kLine);
}

}  // namespace

DocumentHandle Document::Create(std::size_t units) {
    if (units > kMaxUnits) throw std::length_error("a text of an XML document is too long");
    const std::size_t header = RoundUp(sizeof(Document), kLine);
    const std::size_t text = RoundUp((units + kScanPadding) * sizeof(kmChar), kLine);
    const std::size_t records = RecordBytesFor(units * sizeof(kmChar));
    void* block = ::operator new(header + text + records + kLine + kPadding);

    const auto address = reinterpret_cast<std::uintptr_t>(block);
    char* start = static_cast<char*>(block) + (RoundUp(address, kLine) - address);
    auto* document = new (start) Document;
    document->m_block = block;
    document->m_text = reinterpret_cast<kmChar*>(start + header);
    document->m_free = start + header + text;
    document->m_end = document->m_free + records;
    document->m_reserved = records;
    std::fill_n(document->m_text + units, kScanPadding, kmChar{0});
    return DocumentHandle(document);
}

void Document::Destroy() {
    while (m_chunks != nullptr) {
        Chunk* chunk = m_chunks;
        m_chunks = chunk->next;
        ::operator delete(chunk);
    }
    ::operator delete(m_block);
}

void Document::AddChunk(std::size_t bytes) {
    const std::size_t room = std::max(bytes, std::clamp(m_reserved / 4, kLeastChunk, kLargestChunk));
    auto* chunk = new (::operator new(sizeof(Chunk) + room + kPadding)) Chunk{m_chunks};
    m_chunks = chunk;
    m_free = reinterpret_cast<char*>(chunk + 1);
    m_end = m_free + room;
    m_reserved += room;
}

void* Document::Allocate(std::size_t bytes) {
    bytes = RoundUp(bytes, kRecordAlignment);
    if (static_cast<std::size_t>(m_end - m_free) < bytes) AddChunk(bytes);
    void* memory = m_free;
    m_free += bytes;
    return memory;
}

namespace {

void Append(Element& parent, Content& content) {
    (parent.last == nullptr ? parent.first : parent.last->next) = &content;
    parent.last = &content;
}

}  // namespace

Element* Document::AddElement(Element* parent, kmChar* name, std::size_t length, bool isDeclaration) {
    auto* element = new (Allocate(sizeof(Element))) Element;
    element->text = name;
    element->length = static_cast<std::uint32_t>(length);
    element->isDeclaration = isDeclaration;
    element->parent = parent;
    if (parent != nullptr) {
        Append(*parent, *element);
        ++parent->childCount;
    }
    return element;
}

Content* Document::AddContent(Element& parent, ContentKind kind, kmChar* text, std::size_t length) {
    auto* content = new (Allocate(sizeof(Content))) Content;
    content->text = text;
    content->length = static_cast<std::uint32_t>(length);
    content->kind = kind;
    Append(parent, *content);
    if (kind == ContentKind::Text) ++parent.textCount;
    return content;
}

// While a start tag is parsed nothing else takes memory, so its attributes grow in place.
void Document::GrowAttributes(Element& element) {
    constexpr std::uint32_t kStep = 16;
    const auto* end = reinterpret_cast<char*>(element.attributes + element.attributeCapacity);
    const bool isLast = element.attributes == nullptr || end == m_free;
    if (isLast && static_cast<std::size_t>(m_end - m_free) >= kStep * sizeof(Attribute)) {
        if (element.attributes == nullptr) element.attributes = reinterpret_cast<Attribute*>(m_free);
        m_free += kStep * sizeof(Attribute);
        element.attributeCapacity += kStep;
        return;
    }
    const std::uint32_t capacity =
        element.attributeCount + std::max<std::uint32_t>(1, element.attributeCount);
    auto* attributes = static_cast<Attribute*>(Allocate(capacity * sizeof(Attribute)));
    if (element.attributeCount > 0) {
        std::memcpy(attributes, element.attributes, element.attributeCount * sizeof(Attribute));
    }
    element.attributes = attributes;
    element.attributeCapacity = capacity;
}

void Document::EndAttributes(Element& element) {
    if (reinterpret_cast<char*>(element.attributes + element.attributeCapacity) != m_free) return;
    element.attributeCapacity = element.attributeCount;
    m_free = reinterpret_cast<char*>(element.attributes + element.attributeCount);
}

void Document::Grow(PieceTable& table, std::uint32_t capacity) {
    auto* pieces = static_cast<Content**>(Allocate(capacity * sizeof(Content*)));
    std::copy_n(table.pieces, table.known, pieces);
    table.pieces = pieces;
    table.capacity = capacity;
}

PieceTable* Document::AddTable(std::uint32_t capacity) {
    auto* table = new (Allocate(sizeof(PieceTable))) PieceTable;
    Grow(*table, capacity);
    return table;
}

kmChar* Document::Copy(const kmChar* text) {
    if (text == nullptr) return nullptr;
    const std::size_t units = kmStringView(text).size() + 1;
    auto* copy = static_cast<kmChar*>(Allocate(units * sizeof(kmChar)));
    std::copy_n(text, units, copy);
    return copy;
}
