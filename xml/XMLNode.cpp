// Look-ups walk linked content. A walk by index continues where the last one stood, so that going through all
// children by index costs one pass.
#include "xml/XMLNode.h"

#include <utility>

#include "xml/Document.h"

namespace {

bool IsNamed(const Element& element, kmStringView name) {
    return element.text != nullptr && EqualNoCase({element.text, element.length}, name);
}

// The content of that kind at `index`, from where the last walk stood if that is not too far.
Content* Seek(const Element& element, Cursor& cursor, ContentKind kind, std::uint32_t index) {
    Content* at = element.first;
    std::uint32_t position = 0;
    if (cursor.at != nullptr && cursor.index <= index) {
        at = cursor.at;
        position = cursor.index;
    } else {
        while (at->kind != kind) at = at->next;
    }
    for (; position < index; ++position) {
        do at = at->next;
        while (at->kind != kind);
    }
    cursor = {at, index};
    return at;
}

Element* ChildOf(Element& element, std::uint32_t index) {
    if (index >= element.childCount) return nullptr;
    return static_cast<Element*>(Seek(element, element.children, ContentKind::Element, index));
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
    return Handle(ChildOf(*m_element, static_cast<std::uint32_t>(index)));
}

XMLNode XMLNode::FindChild(const kmChar* name, int* position) const {
    if (IsEmpty() || name == nullptr) return {};
    const kmStringView wanted = name;
    for (std::uint32_t index = StartOf(position); Element* child = ChildOf(*m_element, index); ++index) {
        if (!IsNamed(*child, wanted)) continue;
        if (position != nullptr) *position = static_cast<int>(index + 1);
        return Handle(child);
    }
    return {};
}

const kmChar* XMLNode::TextAt(int index) const {
    if (IsEmpty() || index < 0 || static_cast<std::uint32_t>(index) >= m_element->textCount) return nullptr;
    return Seek(*m_element, m_element->texts, ContentKind::Text, static_cast<std::uint32_t>(index))->text;
}

const kmChar* XMLNode::FindAttribute(const kmChar* name, int* position) const {
    if (IsEmpty()) return nullptr;
    const std::uint32_t index = IndexOfAttribute(*m_element, name, StartOf(position));
    if (index >= m_element->attributeCount) return nullptr;
    if (position != nullptr) *position = static_cast<int>(index + 1);
    return m_element->attributes[index].value;
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
    if (TextAt(index) == nullptr) {
        m_document->AddContent(*m_element, ContentKind::Text, copy, LengthOf(value));
        return;
    }
    Content* text = m_element->texts.at;  // where TextAt has just found it
    text->text = copy;
    text->length = LengthOf(value);
}
