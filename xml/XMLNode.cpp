// SPDX-License-Identifier: MIT
// Look-ups walk linked content. A walk by index continues where the last one stood, so that going through all
// children by index costs one pass. Walks in any other order soon get a table of the pieces, which is filled
// as far as it is asked for and grows by doubling: so whatever the order, and whatever is added in between,
// the cost is proportional to the pieces and the questions.
#include "xml/XMLNode.h"

#include <utility>

#include "xml/Document.h"

namespace {

bool IsNamed(const Element& element, kmStringView name) {
    return element.text != nullptr && EqualNoCase({element.text, element.length}, name);
}

Content* FirstOf(const Element& element, ContentKind kind, std::uint32_t& steps) {
    Content* at = element.first;
    for (; at->kind != kind; ++steps) at = at->next;
    return at;
}

// The next of the same kind; there must be one.
Content* NextOf(const Content* piece, std::uint32_t& steps) {
    Content* at = piece->next;
    for (++steps; at->kind != piece->kind; ++steps) at = at->next;
    return at;
}

// The pieces of one kind in an element.
struct Pieces {
    Document& document;
    const Element& element;
    ContentKind kind;
    std::uint32_t count;
    Cursor& cursor;
};

void SwitchToTable(const Pieces& pieces) {
    PieceTable* table = pieces.document.AddTable(pieces.count);
    table->pieces[table->known++] = FirstOf(pieces.element, pieces.kind, pieces.cursor.steps);
    pieces.cursor.table = table;
    pieces.cursor.steps = Cursor::kTabled;
}

Content* LookUp(const Pieces& pieces, std::uint32_t index) {
    PieceTable& table = *pieces.cursor.table;
    if (index >= table.capacity) pieces.document.Grow(table, 2 * pieces.count);
    std::uint32_t steps = 0;
    for (; table.known <= index; ++table.known) {
        table.pieces[table.known] = NextOf(table.pieces[table.known - 1], steps);
    }
    return table.pieces[index];
}

// From where the last walk stood if that is not too far, else from the beginning. Whoever has taken many
// times as many steps as there are pieces does not walk through them in order.
Content* Walk(const Pieces& pieces, std::uint32_t index) {
    constexpr std::uint32_t kAlwaysAllowed = 256;
    constexpr std::uint32_t kAllowedPerPiece = 8;
    Cursor& cursor = pieces.cursor;
    std::uint32_t steps = cursor.steps;
    const bool isAhead = cursor.at != nullptr && cursor.index <= index;
    Content* at = isAhead ? cursor.at : FirstOf(pieces.element, pieces.kind, steps);
    for (std::uint32_t i = isAhead ? cursor.index : 0; i < index; ++i) at = NextOf(at, steps);
    cursor.at = at;
    cursor.index = index;
    cursor.steps = steps;
    if (steps / kAllowedPerPiece > pieces.count + kAlwaysAllowed / kAllowedPerPiece) SwitchToTable(pieces);
    return at;
}

// The piece at `index`, which is below the count.
Content* Seek(const Pieces& pieces, std::uint32_t index) {
    return pieces.cursor.steps == Cursor::kTabled ? LookUp(pieces, index) : Walk(pieces, index);
}

Element* ChildOf(Document& document, Element& element, std::uint32_t index) {
    if (index >= element.childCount) return nullptr;
    return static_cast<Element*>(
        Seek({document, element, ContentKind::Element, element.childCount, element.children}, index));
}

Content* TextOf(Document& document, Element& element, std::uint32_t index) {
    if (index >= element.textCount) return nullptr;
    return Seek({document, element, ContentKind::Text, element.textCount, element.texts}, index);
}

// The index where a walk starts; a negative position counts as the beginning.
std::uint32_t StartOf(const int* position) {
    return position == nullptr || *position < 0 ? 0 : static_cast<std::uint32_t>(*position);
}

// The index of the first attribute of that name from `start` on, or the count when there is none.
std::uint32_t IndexOfAttribute(const Element& element, const kmChar* name, std::uint32_t start = 0) {
    if (name == nullptr) return element.attributeCount;
    const kmStringView wanted = name;
    std::uint32_t index = start;
    for (; index < element.attributeCount; ++index) {
        const Attribute& attribute = element.attributes[index];
        if (EqualNoCase({attribute.name, attribute.nameLength}, wanted)) return index;
    }
    return element.attributeCount;
}

std::uint32_t LengthOf(const kmChar* text) {
    return text == nullptr ? 0 : static_cast<std::uint32_t>(kmStringView(text).size()) & Document::kMaxUnits;
}

void SetName(Document& document, Attribute& attribute, const kmChar* name) {
    attribute.name = document.Copy(name);
    attribute.nameLength = LengthOf(name);
}

void SetValue(Document& document, Attribute& attribute, const kmChar* value) {
    attribute.value = document.Copy(value);
    attribute.valueLength = LengthOf(value) & Document::kMaxUnits;
}

}  // namespace

XMLNode XMLNode::Handle(Element* element) const {
    return element == nullptr ? XMLNode() : XMLNode(m_document, element);
}

const kmChar* XMLNode::GetErrorText(XMLErrorCode code) { return XMLErrorText(code); }

XMLNode XMLNode::CreateRoot(const kmChar* name, bool isDeclaration) {
    DocumentHandle document = Document::Create(0);
    Element* root = document->AddElement(nullptr, document->Copy(name), LengthOf(name), isDeclaration);
    return {std::move(document), root};
}

bool XMLNode::IsDeclaration() const { return !IsEmpty() && m_element->isDeclaration; }

int XMLNode::CountChildren(const kmChar* name) const {
    if (IsEmpty() || name == nullptr) return 0;
    int count = 0;
    for (const Content* content = m_element->first; content != nullptr; content = content->next) {
        if (content->kind == ContentKind::Element && IsNamed(static_cast<const Element&>(*content), name))
            ++count;
    }
    return count;
}

XMLNode XMLNode::ChildAt(int index) const {
    if (IsEmpty() || index < 0) return {};
    return Handle(ChildOf(*m_document, *m_element, static_cast<std::uint32_t>(index)));
}

XMLNode XMLNode::FindChild(const kmChar* name, int* position) const {
    if (IsEmpty() || name == nullptr) return {};
    const kmStringView wanted = name;
    for (std::uint32_t index = StartOf(position); Element* child = ChildOf(*m_document, *m_element, index);
         ++index) {
        if (!IsNamed(*child, wanted)) continue;
        if (position != nullptr) *position = static_cast<int>(index + 1);
        return Handle(child);
    }
    return {};
}

const kmChar* XMLNode::TextAt(int index) const {
    if (IsEmpty() || index < 0) return nullptr;
    const Content* text = TextOf(*m_document, *m_element, static_cast<std::uint32_t>(index));
    return text == nullptr ? nullptr : text->text;
}

const kmChar* XMLNode::FirstRaw() const {
    if (IsEmpty()) return nullptr;
    const Content* content = m_element->first;
    while (content != nullptr && content->kind != ContentKind::Raw) content = content->next;
    return content == nullptr ? nullptr : content->text;
}

const kmChar* XMLNode::FindAttribute(const kmChar* name, int* position) const {
    if (IsEmpty()) return nullptr;
    const std::uint32_t index = IndexOfAttribute(*m_element, name, StartOf(position));
    if (index >= m_element->attributeCount) return nullptr;
    if (position != nullptr) *position = static_cast<int>(index + 1);
    return m_element->attributes[index].value;
}

std::size_t XMLNode::CountUnitsInChildren() const {
    std::size_t units = 0;
    for (const Content* at = IsEmpty() ? nullptr : m_element->first; at != nullptr; at = at->next) {
        if (at->kind != ContentKind::Element) continue;
        const auto& child = static_cast<const Element&>(*at);
        for (std::uint32_t i = 0; i < child.attributeCount; ++i) units += child.attributes[i].valueLength;
    }
    return units;
}

XMLNode XMLNode::AppendChild(const kmChar* name, bool isDeclaration) {
    if (IsEmpty()) return {};
    return Handle(m_document->AddElement(m_element, m_document->Copy(name), LengthOf(name), isDeclaration));
}

void XMLNode::AppendAttribute(const kmChar* name, const kmChar* value) {
    if (IsEmpty() || name == nullptr) return;
    Attribute attribute{};
    SetName(*m_document, attribute, name);
    SetValue(*m_document, attribute, value);
    m_document->AddAttribute(*m_element) = attribute;
}

void XMLNode::SetAttribute(const kmChar* value, const kmChar* newName, const kmChar* oldName) {
    if (IsEmpty()) return;
    const std::uint32_t index = IndexOfAttribute(*m_element, oldName);
    SetAttributeAt(value, index < m_element->attributeCount || newName != nullptr ? newName : oldName,
                   static_cast<int>(index));
}

void XMLNode::SetAttributeAt(const kmChar* value, const kmChar* newName, int index) {
    if (IsEmpty()) return;
    if (index < 0 || index >= CountAttributes()) return AppendAttribute(newName, value);
    Attribute& attribute = m_element->attributes[index];
    SetValue(*m_document, attribute, value);
    if (newName != nullptr) SetName(*m_document, attribute, newName);
}

void XMLNode::RemoveAttribute(const kmChar* name) {
    if (IsEmpty()) return;
    const std::uint32_t index = IndexOfAttribute(*m_element, name);
    if (index >= m_element->attributeCount) return;
    --m_element->attributeCount;
    for (std::uint32_t i = index; i < m_element->attributeCount; ++i) {
        m_element->attributes[i] = m_element->attributes[i + 1];
    }
}

void XMLNode::SetText(const kmChar* value, int index) {
    if (IsEmpty() || value == nullptr) return;
    kmChar* copy = m_document->Copy(value);
    Content* text = index < 0 ? nullptr : TextOf(*m_document, *m_element, static_cast<std::uint32_t>(index));
    if (text == nullptr) {
        m_document->AddContent(*m_element, ContentKind::Text, copy, LengthOf(value));
        return;
    }
    text->text = copy;
    text->length = LengthOf(value);
}
