// SPDX-License-Identifier: MIT
// The storage of one XML tree.
//
// A document is one block of memory: its header, the text of the file, and room for the records of the tree;
// when the records need more room, further chunks are chained to it. Names, texts and values stay where the
// file has them: a record points into the text, and when parsing is done each of these pieces is ended in
// place by a null unit, which overwrites a character of markup. What a change adds is copied into the chunks.
// Nothing is freed before the document as a whole, so every pointer stays valid as long as the document, and
// releasing it is a loop over its chunks, however deep the tree. The document is alive while any handle
// refers to any of its records: a record cannot be reached from its children, so it does not matter that a
// parent which nobody holds stays in memory as long as one of its children is held. A later change must keep
// two things: no piece may be ended over a line feed before the position of an error has been counted in the
// text, and kScanPadding readable units must follow every
// piece, copied ones too.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>

#include "text/Ascii.h"

enum class ContentKind : std::uint8_t { Element, Text, Raw };

// One piece of an element's content: a text, a raw section or (as the base of Element) a child element.
struct Content {
    Content* next = nullptr;   // the piece that follows in the same parent
    kmChar* text = nullptr;    // the text, the raw section's content, or the element's name (null: nameless)
    std::uint32_t length = 0;  // of `text`, until it is ended by a null unit
    ContentKind kind = ContentKind::Element;
    std::uint8_t marker = 0;         // of a raw section: its row in kRawMarkers
    bool isDeclaration = false;      // of an element
    bool hasEntities = false;        // of a text, until it is decoded
    bool hasOpenAttributes = false;  // of an element: not all of them are ended yet
};

struct Attribute {
    kmChar* name;
    kmChar* value;  // null: written without "="
    std::uint32_t nameLength;
    std::uint32_t valueLength : 31;
    std::uint32_t hasEntities : 1;  // until the value is decoded

    kmStringView Name() const { return {name, nameLength}; }
    kmStringView Value() const { return {value, valueLength}; }  // of null: none
};

// The first pieces of one kind in an element, as far as anybody has asked for them.
struct PieceTable {
    Content** pieces = nullptr;
    std::uint32_t known = 0;
    std::uint32_t capacity = 0;
};

// Where a walk by index stands, so that the next index is one step away. Walks that keep starting anew get a
// table instead; until then a cursor takes no memory of its own, and most elements are walked once.
struct Cursor {
    static constexpr std::uint32_t kTabled = static_cast<std::uint32_t>(-1);

    union {
        Content* at = nullptr;
        PieceTable* table;  // instead of a place, when `steps` is kTabled
    };
    std::uint32_t index = 0;
    std::uint32_t steps = 0;  // taken so far in all walks
};

struct Element : Content {
    Element* parent = nullptr;
    Content* first = nullptr;
    Content* last = nullptr;
    Attribute* attributes = nullptr;
    std::uint32_t attributeCount = 0;
    std::uint32_t attributeCapacity = 0;
    std::uint32_t childCount = 0;
    std::uint32_t textCount = 0;
    Cursor children;
    Cursor texts;
};

class DocumentHandle;

class Document {
public:
    // The longest text that a document can hold, in units; the lengths in its records have 31 bits.
    static constexpr std::size_t kMaxUnits = 0x7FFFFFFF;

    // A document without records. Text() has room for `units` units, at most kMaxUnits, and is null after
    // them.
    static DocumentHandle Create(std::size_t units);

    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;

    kmChar* Text() { return m_text; }

    void AddReference() { ++m_references; }
    void Release() {
        if (--m_references == 0) Destroy();
    }

    // Records. New content goes to the end of `parent`'s; an element without a parent is a root.
    Element* AddElement(Element* parent, kmChar* name, std::size_t length, bool isDeclaration);
    Content* AddContent(Element& parent, ContentKind kind, kmChar* text, std::size_t length);
    Attribute& AddAttribute(Element& element) {
        if (element.attributeCount == element.attributeCapacity) GrowAttributes(element);
        return element.attributes[element.attributeCount++];
    }
    // Gives back what AddAttribute took in advance, if it is still the last that was taken.
    void EndAttributes(Element& element);

    // Makes room in the table for that many pieces.
    void Grow(PieceTable& table, std::uint32_t capacity);
    PieceTable* AddTable(std::uint32_t capacity);

    // A copy of `text`, ended by a null unit; null for null.
    kmChar* Copy(const kmChar* text);

private:
    struct Chunk {
        Chunk* next;
    };

    Document() = default;
    ~Document() = default;
    void Destroy();
    void* Allocate(std::size_t bytes);
    void AddChunk(std::size_t bytes);
    void GrowAttributes(Element& element);

    void* m_block = nullptr;  // the memory that holds this document
    kmChar* m_text = nullptr;
    char* m_free = nullptr;  // room for records: [m_free, m_end)
    char* m_end = nullptr;
    Chunk* m_chunks = nullptr;
    std::size_t m_reserved = 0;  // bytes for records so far
    std::size_t m_references = 1;
};

// Keeps a document alive; refers to none by itself and after it was moved from.
class DocumentHandle {
public:
    DocumentHandle() noexcept = default;
    DocumentHandle(const DocumentHandle& other) noexcept : m_document(other.m_document) {
        if (m_document != nullptr) m_document->AddReference();
    }
    DocumentHandle(DocumentHandle&& other) noexcept : m_document(std::exchange(other.m_document, nullptr)) {}
    DocumentHandle& operator=(DocumentHandle other) noexcept {
        std::swap(m_document, other.m_document);
        return *this;
    }
    ~DocumentHandle() {
        if (m_document != nullptr) m_document->Release();
    }

    explicit operator bool() const { return m_document != nullptr; }
    Document& operator*() const { return *m_document; }
    Document* operator->() const { return m_document; }

private:
    friend class Document;
    // Takes over the reference that a new document has.
    explicit DocumentHandle(Document* created) noexcept : m_document(created) {}

    Document* m_document = nullptr;
};
