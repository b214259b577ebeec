// SPDX-License-Identifier: MIT
// Serialises a tree twice with the same code: once into a sink that only counts, then into memory. The first
// time entities are left out, since finding what needs them takes as long as writing; memory is taken for a
// few of them, and a tree with more is counted again. The walk goes along the parent links, so depth costs no
// stack.
#include <cstddef>
#include <cstring>
#include <memory>

#include "platform/Files.h"
#include "xml/Document.h"
#include "xml/Entities.h"
#include "xml/Limits.h"
#include "xml/RawMarkers.h"
#include "xml/SameTree.h"
#include "xml/Scan.h"
#include "xml/XMLNode.h"

namespace {

enum class Entities { NotCounted, Counted };

// Counts the units; those of entities beyond the ones that they stand for only when it is told to.
template <Entities kEntities>
class CountingSink {
public:
    void Put(kmChar) { ++m_length; }
    void Put(kmStringView text) { m_length += text.size(); }
    void PutPiece(kmStringView piece) { m_length += piece.size(); }
    void PutEscaped(kmStringView piece) {
        m_length += piece.size();
        if constexpr (kEntities == Entities::NotCounted) return;
        for (const kmChar c : piece) {
            if (NeedsEntity(c)) m_length += EntityFor(c).size() - 1;
        }
    }
    void Repeat(kmChar, std::size_t count) { m_length += count; }
    std::size_t Length() const { return m_length; }

private:
    std::size_t m_length = 0;
};

// Writes into memory that has room for what is put, for `entityRoom` more units, and for kScanPadding behind
// all of it. Pieces are those of a document, which are followed by as many readable units.
class MemorySink {
public:
    MemorySink(kmChar* memory, std::size_t entityRoom) : m_at(memory), m_entityRoom(entityRoom) {}
    void Put(kmChar c) { *m_at++ = c; }
    void Put(kmStringView text) { m_at += text.copy(m_at, text.size()); }
    void PutPiece(kmStringView piece) {
        scan::Copy(piece.data(), piece.data() + piece.size(), m_at);
        m_at += piece.size();
    }
    void PutEscaped(kmStringView piece) {
        const kmChar* const end = piece.data() + piece.size();
        for (const kmChar* at = piece.data();; ++at) {
            const kmChar* stop = scan::CopyPlain(at, end, m_at);
            m_at += stop - at;
            if (stop == end) return;
            PutEntity(EntityFor(*stop));
            at = stop;
        }
    }
    void Repeat(kmChar c, std::size_t count) {
        while (count-- > 0) Put(c);
    }

    const kmChar* End() const { return m_at; }
    // Whether there was not enough room for the entities; what was written is worth nothing then.
    bool IsFull() const { return m_isFull; }

private:
    void PutEntity(kmStringView entity) {
        m_isFull = m_isFull || entity.size() - 1 > m_entityRoom;
        if (m_isFull) return;
        m_entityRoom -= entity.size() - 1;
        Put(entity);
    }

    kmChar* m_at;
    std::size_t m_entityRoom;
    bool m_isFull = false;
};

bool IsNamed(const Element& element) { return element.text != nullptr && element.length > 0; }

template <class Sink>
class Serializer {
public:
    Serializer(Sink& sink, bool formatted) : m_sink(sink), m_formatted(formatted) {}

    void Write(const Element& root) {
        const Element* parent = &root;
        WriteStart(root);
        const Content* content = root.first;
        for (;;) {
            if (content == nullptr) {
                WriteEnd(*parent);
                if (parent == &root) return;
                content = parent->next;
                parent = parent->parent;
                m_level -= Indents(*parent);
            } else if (content->kind == ContentKind::Element) {
                m_level += Indents(*parent);
                parent = static_cast<const Element*>(content);
                WriteStart(*parent);
                content = parent->first;
            } else {
                WriteLeaf(*content);
                content = content->next;
            }
        }
    }

private:
    // Whether the children of `element` stand one tab deeper than itself.
    static std::size_t Indents(const Element& element) {
        return IsNamed(element) && !element.isDeclaration ? 1 : 0;
    }

    void Tabs(std::size_t count) {
        if (m_formatted) m_sink.Repeat(KM_TEXT('\t'), count);
    }
    void EndLine() {
        if (m_formatted) m_sink.Put(KM_TEXT('\n'));
    }

    void WriteStart(const Element& element) {
        if (!IsNamed(element)) return;
        Tabs(m_level);
        m_sink.Put(KM_TEXT('<'));
        if (element.isDeclaration) m_sink.Put(KM_TEXT('?'));
        m_sink.PutPiece({element.text, element.length});
        WriteAttributes(element);
        if (element.isDeclaration) {
            m_sink.Put(KM_TEXT("?>"));
            EndLine();
        } else if (element.first != nullptr) {
            m_sink.Put(KM_TEXT('>'));
            EndLine();
        }
    }

    // Into a copy of the sink, because a local variable can stay in registers.
    void WriteAttributes(const Element& element) {
        Sink sink = m_sink;
        const Attribute* const end = element.attributes + element.attributeCount;
        for (const Attribute* attribute = element.attributes; attribute != end; ++attribute) {
            if (attribute->nameLength == 0) continue;
            sink.Put(KM_TEXT(' '));
            sink.PutPiece(attribute->Name());
            if (attribute->value == nullptr) continue;
            sink.Put(KM_TEXT('='));
            sink.Put(KM_TEXT('"'));
            sink.PutEscaped(attribute->Value());
            sink.Put(KM_TEXT('"'));
        }
        m_sink = sink;
    }

    void WriteEnd(const Element& element) {
        if (!IsNamed(element) || element.isDeclaration) return;
        if (element.first == nullptr) {
            m_sink.Put(KM_TEXT("/>"));
        } else {
            Tabs(m_level);
            m_sink.Put(KM_TEXT("</"));
            m_sink.PutPiece({element.text, element.length});
            m_sink.Put(KM_TEXT('>'));
        }
        EndLine();
    }

    // Texts and raw sections stand one tab deeper than their holder, whatever the holder is.
    void WriteLeaf(const Content& content) {
        const kmStringView text(content.text, content.length);
        if (content.kind == ContentKind::Text) {
            if (text.empty()) return;
            Tabs(m_level + 1);
            m_sink.PutEscaped(text);
        } else {
            Tabs(m_level + 1);
            m_sink.Put(kRawMarkers[content.marker].open);
            m_sink.PutPiece(text);
            m_sink.Put(kRawMarkers[content.marker].close);
        }
        EndLine();
    }

    Sink& m_sink;
    bool m_formatted;
    std::size_t m_level = 0;
};

struct Text {
    std::unique_ptr<kmChar[]> units;
    std::size_t length = 0;
};

constexpr std::size_t kUnlimited = static_cast<std::size_t>(-1);

template <Entities kEntities>
std::size_t CountUnits(const Element& element, bool formatted) {
    CountingSink<kEntities> counter;
    Serializer(counter, formatted).Write(element);
    return counter.Length();
}

// `prefix`, then the serialised element, then a null unit that the length does not count. Nothing when the
// memory is too small: `length` units for all but entities, and `entityRoom` for these.
Text Write(const Element& element, bool formatted, kmStringView prefix, std::size_t length,
           std::size_t entityRoom) {
    Text text;
    text.units.reset(new kmChar[prefix.size() + length + entityRoom + 1 + kScanPadding]);
    MemorySink sink(text.units.get(), entityRoom);
    sink.Put(prefix);
    Serializer(sink, formatted).Write(element);
    if (sink.IsFull()) return {};
    text.length = static_cast<std::size_t>(sink.End() - text.units.get());
    sink.Put(kmChar{0});
    return text;
}

// The same in memory that is large enough. Nothing when that would be more than `limit` units, which deep
// indentation makes of small trees.
Text Serialize(const Element& element, bool formatted, kmStringView prefix, std::size_t limit = kUnlimited) {
    const std::size_t length = CountUnits<Entities::NotCounted>(element, formatted);
    if (length > limit - prefix.size()) return {};
    constexpr std::size_t kFewEntities = 64;
    Text text = Write(element, formatted, prefix, length, length / 16 + kFewEntities);
    if (text.units == nullptr) {
        const std::size_t wholeLength = CountUnits<Entities::Counted>(element, formatted);
        if (wholeLength > limit - prefix.size()) return {};
        text = Write(element, formatted, prefix, length, wholeLength - length);
    }
    return text.length > limit ? Text() : std::move(text);
}

constexpr kmChar kMark = 0xFEFF;

bool NeedsDeclaration(const XMLNode& node) {
    if (node.IsDeclaration()) return false;
    return (node.GetName() != nullptr && *node.GetName() != 0) || !node.ChildAt(0).IsDeclaration();
}

// What a file of the node holds; nothing for a node without an element, which makes no file, and for too
// much.
Text FileTextOf(const XMLNode& node, const Element& element, bool formatted) {
    kmString prefix(1, kMark);
    if (NeedsDeclaration(node)) prefix += KM_TEXT("<?xml version=\"1.0\" encoding=\"utf-16\"?>\n");
    Text text = Serialize(element, formatted, prefix, kLargestFile / sizeof(kmChar));
    return text.length == prefix.size() ? Text() : std::move(text);
}

XMLErrorCode CodeOf(StoreResult result) {
    switch (result) {
        case StoreResult::Done:
            return XML_ERROR_NONE;
        case StoreResult::CannotWrite:
            return XML_ERROR_WRITE;
        default:
            return XML_ERROR_OPEN_FOR_WRITING;
    }
}

// Calls `store` with the bytes of a file; there are none of what makes no file.
template <class StoreBytes>
StoreResult StoreText(const Text& text, StoreBytes store) {
    if (text.length == 0) return StoreResult::CannotWrite;
    return store(text.units.get(), text.length * sizeof(kmChar));
}

}  // namespace

std::unique_ptr<kmChar[]> XMLNode::ToText(bool formatted, std::size_t* length) const {
    Text text;
    if (!IsEmpty()) text = Serialize(*m_element, formatted, {});
    if (length != nullptr) *length = text.length;
    return std::move(text.units);
}

bool XMLNode::ReadsBackTheSame() const {
    if (IsEmpty()) return true;
    const Text text = FileTextOf(*this, *m_element, /*formatted=*/true);
    if (text.length == 0) return false;
    const XMLNode copy = ParseDocumentText(text.units.get() + 1, GetName());
    return !copy.IsEmpty() && HoldTheSame(*m_element, *copy.m_element);
}

XMLErrorCode XMLNode::SaveToFile(const kmChar* path, const kmChar* /*encoding*/, bool formatted) const {
    if (IsEmpty()) return XML_ERROR_NONE;
    if (path == nullptr) return XML_ERROR_OPEN_FOR_WRITING;
    return CodeOf(
        StoreText(FileTextOf(*this, *m_element, formatted),
                  [path](const kmChar* bytes, std::size_t count) { return StoreFile(path, bytes, count); }));
}

StoreResult XMLNode::Store(const kmChar* path, Storing storing) const {
    if (IsEmpty()) return StoreResult::CannotWrite;
    return StoreText(FileTextOf(*this, *m_element, /*formatted=*/true),
                     [path, storing](const kmChar* bytes, std::size_t count) {
                         return StoreFile(path, bytes, count, storing);
                     });
}

StoreResult XMLNode::StoreInstead(const kmChar* from, const kmChar* to) const {
    if (IsEmpty()) return StoreResult::CannotWrite;
    return StoreText(
        FileTextOf(*this, *m_element, /*formatted=*/true),
        [from, to](const kmChar* bytes, std::size_t count) { return StoreRenamed(from, to, bytes, count); });
}
