// SPDX-License-Identifier: MIT
// From a file or a text to a tree: encodings, the required first element, the message.
#include <algorithm>
#include <cstdint>
#include <iterator>
#include <utility>

#include "platform/FileFault.h"
#include "platform/Files.h"
#include "text/Encoding.h"
#include "xml/Document.h"
#include "xml/Limits.h"
#include "xml/LineTable.h"
#include "xml/Parser.h"
#include "xml/XMLNode.h"

namespace {

struct FileText {
    DocumentHandle document;  // none after an error
    kmChar* text = nullptr;   // inside the document
    XMLErrorCode code = XML_ERROR_NONE;
};

FileText Failure(XMLErrorCode code) { return {{}, nullptr, code}; }

unsigned char* BytesOf(Document& document) { return reinterpret_cast<unsigned char*>(document.Text()); }

constexpr unsigned char kUtf8Mark[] = {0xEF, 0xBB, 0xBF};

std::size_t Utf8MarkLength(const unsigned char* bytes, std::size_t count) {
    const bool isMarked =
        count >= std::size(kUtf8Mark) && std::equal(std::begin(kUtf8Mark), std::end(kUtf8Mark), bytes);
    return isMarked ? std::size(kUtf8Mark) : 0;
}

// `file` holds `count` bytes of UTF-8 instead of its text.
FileText ConvertUtf8(Document& file, std::size_t count) {
    const unsigned char* bytes = BytesOf(file);
    const std::size_t mark = Utf8MarkLength(bytes, count);
    DocumentHandle document = Document::Create(count - mark);
    kmChar* const text = document->Text();
    std::size_t length = 0;
    if (!Utf8ToUtf16(bytes + mark, count - mark, text, length)) return Failure(XML_ERROR_CONVERSION);
    std::fill(text + length, text + (count - mark), kmChar{0});
    return {std::move(document), text, XML_ERROR_NONE};
}

// `isOpen` is what came of opening the file.
FileText LoadText(InputFile& file, bool isOpen) {
    if (!isOpen) return Failure(XML_ERROR_FILE_NOT_FOUND);
    if (file.Size() > kLargestFile) {
        NoteFault(FILE_FAULT_TOO_LARGE);
        return Failure(XML_ERROR_FILE_NOT_FOUND);
    }
    if (file.Size() == 0) return Failure(XML_ERROR_NO_DATA);
    const auto size = static_cast<std::size_t>(file.Size());
    const std::size_t units = (size + 1) / 2;
    DocumentHandle document = Document::Create(units);
    std::size_t count = 0;
    if (!file.Read(document->Text(), size, count)) return Failure(XML_ERROR_FILE_NOT_FOUND);
    unsigned char* bytes = BytesOf(*document);
    if (!IsUtf16Text(bytes, count)) return ConvertUtf8(*document, count);
    std::fill(bytes + count, bytes + units * sizeof(kmChar), static_cast<unsigned char>(0));
    kmChar* const text = document->Text();
    return {std::move(document), *text == 0xFEFF ? text + 1 : text, XML_ERROR_NONE};
}

}  // namespace

XMLNode XMLNode::OpenDocument(const kmChar* path, const kmChar* firstTag) {
    XMLParseResult result;
    XMLNode node = ParseDocumentFile(path, firstTag, &result);
    if (result.code != XML_ERROR_NONE) ReportXMLError(path, result, firstTag);
    return node;
}

XMLNode XMLNode::ParseDocumentIn(const InputFolder& folder, const kmString& name, const kmChar* firstTag,
                                 XMLParseResult& result) {
    InputFile file;
    return ParseFile(file, file.Open(folder, name), firstTag, result);
}

XMLNode XMLNode::ParseDocumentFile(const kmChar* path, const kmChar* firstTag, XMLParseResult* result,
                                   LineTable* lines) {
    InputFile file;
    XMLParseResult outcome;
    XMLNode node = ParseFile(file, path != nullptr && file.Open(path), firstTag, outcome, lines);
    if (result != nullptr) *result = outcome;
    return node;
}

XMLNode XMLNode::ParseFile(InputFile& file, bool isOpen, const kmChar* firstTag, XMLParseResult& result,
                           LineTable* lines) {
    FileText text = LoadText(file, isOpen);
    result.code = text.code;
    if (!text.document) return {};
    return ParseOwned(std::move(text.document), text.text, firstTag, result, lines);
}

XMLNode XMLNode::ParseDocumentText(const kmChar* text, const kmChar* firstTag, XMLParseResult* result) {
    XMLParseResult outcome;
    XMLNode node;
    if (text == nullptr) {
        outcome.code = XML_ERROR_NO_TEXT;
    } else {
        const kmStringView source = text;
        DocumentHandle document = Document::Create(source.size());
        kmChar* const copy = document->Text();
        std::copy(source.begin(), source.end(), copy);
        node = ParseOwned(std::move(document), copy, firstTag, outcome);
    }
    if (result != nullptr) *result = outcome;
    return node;
}

XMLNode XMLNode::ParseOwned(DocumentHandle document, kmChar* text, const kmChar* firstTag,
                            XMLParseResult& result, LineTable* lines) {
    if (lines != nullptr) lines->Read(text);
    Element* root = ParseContent(*document, text, result);
    if (result.code > XML_WARNING_NO_TAG) return {};
    const bool holdsOneElement = root->childCount == 1 && root->first == root->last;
    XMLNode node(std::move(document), holdsOneElement ? static_cast<Element*>(root->first) : root);
    if (firstTag == nullptr || *firstTag == 0) return node;
    XMLNode found = FindFirstTag(std::move(node), firstTag);
    if (found.IsEmpty()) result = {XML_ERROR_FIRST_TAG_NOT_FOUND, 0, 0};
    return found;
}

// The node itself, or the first of its children of that name; a declaration among them is entered, because
// everything that follows one in a file is its content.
XMLNode XMLNode::FindFirstTag(XMLNode node, const kmChar* firstTag) {
    const auto isWanted = [wanted = kmStringView(firstTag)](const XMLNode& candidate) {
        return candidate.GetName() != nullptr && EqualNoCase(candidate.GetName(), wanted);
    };
    if (isWanted(node)) return node;
    for (int index = 0;; ++index) {
        XMLNode child = node.ChildAt(index);
        if (child.IsEmpty() || isWanted(child)) return child;
        if (!child.IsDeclaration()) continue;
        node = std::move(child);
        index = -1;
    }
}
