// SPDX-License-Identifier: MIT
// A handle to an element of an XML tree, and the operations that read, change and write such trees.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <utility>

#include "platform/Files.h"
#include "text/Ascii.h"
#include "xml/Document.h"
#include "xml/Messages.h"

class LineTable;

// Refers to an element, or to nothing (the empty node). Copies refer to the same element; a tree lives as
// long as any handle to any of its elements. Every operation works on the empty node too: queries answer 0,
// null or the empty node, changes do nothing. Names are compared without regard to ASCII case; a null name
// equals none. Texts that a query returns live as long as the tree. Everything that came from one file, text
// or CreateRoot belongs to one thread at a time and gives its memory back as a whole: what a change replaces
// stays until then.
class XMLNode {
public:
    XMLNode() noexcept = default;

    // Reads a file whose first element must be `firstTag`, looked for inside the declarations at its head; a
    // null or empty `firstTag` takes what there is. The empty node after an error; the message about an error
    // or a warning goes to the message handler, by default to standard output.
    static XMLNode OpenDocument(const kmChar* path, const kmChar* firstTag);

    // The same without the message; `result`, when not null, tells what happened, and `lines` where the
    // pieces of the tree stand.
    static XMLNode ParseDocumentFile(const kmChar* path, const kmChar* firstTag,
                                     XMLParseResult* result = nullptr, LineTable* lines = nullptr);

    // The same for a file that a listing of `folder` names.
    static XMLNode ParseDocumentIn(const InputFolder& folder, const kmString& name, const kmChar* firstTag,
                                   XMLParseResult& result);

    // The same for a text in memory, which is copied.
    static XMLNode ParseDocumentText(const kmChar* text, const kmChar* firstTag,
                                     XMLParseResult* result = nullptr);

    // The text of an error code, constant; "Unknown" for a number that is none.
    static const kmChar* GetErrorText(XMLErrorCode code);

    // A new tree of one element.
    static XMLNode CreateRoot(const kmChar* name, bool isDeclaration);

    bool IsEmpty() const { return !m_document; }
    const kmChar* GetName() const {
        return IsEmpty() ? nullptr : m_element->text;
    }  // null: the node around a file
    bool IsDeclaration() const;

    int CountChildren() const { return IsEmpty() ? 0 : static_cast<int>(m_element->childCount); }
    int CountChildren(const kmChar* name) const;
    XMLNode ChildAt(int index) const;

    // The first child of that name from index *position on (from 0 without `position`). When one is found,
    // *position becomes its index plus 1, so that repeated calls walk all of them.
    XMLNode FindChild(const kmChar* name, int* position = nullptr) const;

    const kmChar* TextAt(int index) const;

    // What the first comment, or other section that stays as it is, holds; null without one.
    const kmChar* FirstRaw() const;

    // The value of the first attribute of that name, walked like FindChild; null also when it has no value.
    const kmChar* FindAttribute(const kmChar* name, int* position = nullptr) const;

    // All attributes in their order, duplicates included, for callers that look at each once. The views end
    // in front of a null unit; a view of null stands for a missing value, or an index out of range.
    int CountAttributes() const { return IsEmpty() ? 0 : static_cast<int>(m_element->attributeCount); }
    kmStringView AttributeNameAt(int index) const {
        if (index < 0 || index >= CountAttributes()) return {};
        return {m_element->attributes[index].name, m_element->attributes[index].nameLength};
    }
    kmStringView AttributeValueAt(int index) const {
        if (index < 0 || index >= CountAttributes()) return {};
        return {m_element->attributes[index].value, m_element->attributes[index].valueLength};
    }

    // The same at once, for as long as the element's attributes do not change.
    std::span<const Attribute> Attributes() const {
        if (IsEmpty()) return {};
        return {m_element->attributes, m_element->attributeCount};
    }

    // How long the values of all attributes of all children are together.
    std::size_t CountUnitsInChildren() const;

    // Texts given to the changes below are copied. A null value means an attribute without a value.
    XMLNode AppendChild(const kmChar* name, bool isDeclaration);
    void AppendAttribute(const kmChar* name, const kmChar* value);

    // Sets the first attribute called `oldName`, and renames it when `newName` is not null. Without such an
    // attribute appends one, called `newName`, or else `oldName`.
    void SetAttribute(const kmChar* value, const kmChar* newName, const kmChar* oldName);

    // The same for the attribute at `index`; out of range it appends, given a `newName`, or does nothing.
    void SetAttributeAt(const kmChar* value, const kmChar* newName, int index);

    void RemoveAttribute(const kmChar* name);

    // Replaces the text at `index`, or appends a text when there are fewer. A null value changes nothing.
    void SetText(const kmChar* value, int index);

    // The node and everything below it as text, null-terminated; with `formatted` one line a tag and a text,
    // indented by tabs. `length`, when not null, receives the number of units. Null and 0 for the empty node.
    std::unique_ptr<kmChar[]> ToText(bool formatted, std::size_t* length = nullptr) const;

    // Whether the formatted text, read again, gives this tree: names can hold what no file can carry. White
    // space around texts and empty texts are no difference.
    bool ReadsBackTheSame() const;

    // Writes the same to a file, as UTF-16 with a byte-order mark and a declaration; `encoding` changes
    // nothing. The file is replaced in one step, see StoreFile: after XML_ERROR_OPEN_FOR_WRITING or
    // XML_ERROR_WRITE an old one is still there, whole. Texts above kLargestFile are not written. The empty
    // node writes nothing and succeeds.
    [[nodiscard]] XMLErrorCode SaveToFile(const kmChar* path, const kmChar* encoding, bool formatted) const;

    // The same, formatted, in the other ways in which files are stored; and into the place of the file
    // `from`, which then is called `to`, see StoreRenamed.
    [[nodiscard]] StoreResult Store(const kmChar* path, Storing storing) const;
    [[nodiscard]] StoreResult StoreInstead(const kmChar* from, const kmChar* to) const;

private:
    XMLNode(DocumentHandle document, Element* element) noexcept
        : m_document(std::move(document)), m_element(element) {}
    XMLNode Handle(Element* element) const;
    static XMLNode FindFirstTag(XMLNode node, const kmChar* firstTag);
    static XMLNode ParseFile(InputFile& file, bool isOpen, const kmChar* firstTag, XMLParseResult& result,
                             LineTable* lines = nullptr);
    static XMLNode ParseOwned(DocumentHandle document, kmChar* text, const kmChar* firstTag,
                              XMLParseResult& result, LineTable* lines = nullptr);

    DocumentHandle m_document;
    Element* m_element = nullptr;  // of the document; of no meaning without one
};
