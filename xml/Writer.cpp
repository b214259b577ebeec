// SPDX-License-Identifier: MIT
// Serialises a tree twice with the same code: once into a sink that only counts, then into memory of exactly
// that size. The walk goes along the parent links, so depth costs no stack.
#include <cstddef>
#include <cstring>
#include <memory>

#include "platform/Files.h"
#include "xml/Document.h"
#include "xml/Entities.h"
#include "xml/Limits.h"
#include "xml/RawMarkers.h"
#include "xml/SameTree.h"
#include "xml/XMLNode.h"

namespace {

class CountingSink {
public:
    void Put(kmChar) { ++m_length; }
    void Put(kmStringView text) { m_length += text.size(); }
    void Repeat(kmChar, std::size_t count) { m_length += count; }
    std::size_t Length() const { return m_length; }

private:
    std::size_t m_length = 0;
};

class MemorySink {
public:
    explicit MemorySink(kmChar* memory) : m_at(memory) {}
    void Put(kmChar c) { *m_at++ = c; }
    void Put(kmStringView text) { m_at += text.copy(m_at, text.size()); }
    void Repeat(kmChar c, std::size_t count) {
        while (count-- > 0) Put(c);
    }

private:
    kmChar* m_at;
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
        m_sink.Put(kmStringView(element.text, element.length));
        for (std::uint32_t i = 0; i < element.attributeCount; ++i) WriteAttribute(element.attributes[i]);
        if (element.isDeclaration) {
            m_sink.Put(KM_TEXT("?>"));
            EndLine();
        } else if (element.first != nullptr) {
            m_sink.Put(KM_TEXT('>'));
            EndLine();
        }
    }

    void WriteAttribute(const Attribute& attribute) {
        if (attribute.nameLength == 0) return;
        m_sink.Put(KM_TEXT(' '));
        m_sink.Put(kmStringView(attribute.name, attribute.nameLength));
        if (attribute.value == nullptr) return;
        m_sink.Put(KM_TEXT("=\""));
        WriteEscaped({attribute.value, attribute.valueLength});
        m_sink.Put(KM_TEXT('"'));
    }

    void WriteEnd(const Element& element) {
        if (!IsNamed(element) || element.isDeclaration) return;
        if (element.first == nullptr) {
            m_sink.Put(KM_TEXT("/>"));
        } else {
            Tabs(m_level);
            m_sink.Put(KM_TEXT("</"));
            m_sink.Put(kmStringView(element.text, element.length));
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
            WriteEscaped(text);
        } else {
            Tabs(m_level + 1);
            m_sink.Put(kRawMarkers[content.marker].open);
            m_sink.Put(text);
            m_sink.Put(kRawMarkers[content.marker].close);
        }
        EndLine();
    }

    void WriteEscaped(kmStringView text) {
        std::size_t from = 0;
        for (std::size_t at = 0; at < text.size(); ++at) {
            const kmStringView entity = EntityFor(text[at]);
            if (entity.empty()) continue;
            m_sink.Put(text.substr(from, at - from));
            m_sink.Put(entity);
            from = at + 1;
        }
        m_sink.Put(text.substr(from));
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

// `prefix`, then the serialised element, then a null unit that the length does not count. Nothing when that
// would be more than `limit` units, which deep indentation makes of small trees.
Text Serialize(const Element& element, bool formatted, kmStringView prefix, std::size_t limit = kUnlimited) {
    CountingSink counter;
    Serializer(counter, formatted).Write(element);
    Text text;
    if (counter.Length() > limit - prefix.size()) return text;
    text.length = prefix.size() + counter.Length();
    text.units.reset(new kmChar[text.length + 1]);
    MemorySink sink(text.units.get());
    sink.Put(prefix);
    Serializer(sink, formatted).Write(element);
    sink.Put(kmChar{0});
    return text;
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
