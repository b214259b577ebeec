// From a file or a text to a tree: encodings, the required first element, the message.
#include <algorithm>
#include <cstdint>
#include <iterator>
#include <utility>

#include "text/Encoding.h"
#include "platform/Files.h"
#include "platform/Folder.h"
#include "xml/Document.h"
#include "xml/Parser.h"
#include "xml/XMLNode.h"

namespace {

struct FileText {
    Document* document = nullptr;  // owned by whoever asked; null after an error
    kmChar* text = nullptr;        // inside the document
    XMLErrorCode code = XML_ERROR_NONE;
};

unsigned char* BytesOf(Document& document) { return reinterpret_cast<unsigned char*>(document.Text()); }

constexpr unsigned char kUtf8Mark[] = {0xEF, 0xBB, 0xBF};

std::size_t Utf8MarkLength(const unsigned char* bytes, std::size_t count) {
    const bool isMarked =
        count >= std::size(kUtf8Mark) && std::equal(std::begin(kUtf8Mark), std::end(kUtf8Mark), bytes);
    return isMarked ? std::size(kUtf8Mark) : 0;
}

// `file` holds `count` bytes of UTF-8 instead of its text; it is given up for a document with the converted
// text.
FileText ConvertUtf8(Document* file, std::size_t count) {
    const unsigned char* bytes = BytesOf(*file);
    const std::size_t mark = Utf8MarkLength(bytes, count);
    Document* document = Document::Create(count - mark);
    std::size_t length = 0;
    const bool converted = Utf8ToUtf16(bytes + mark, count - mark, document->Text(), length);
    file->Release();
    if (!converted) {
        document->Release();
        return {nullptr, nullptr, XML_ERROR_CONVERSION};
    }
    std::fill(document->Text() + length, document->Text() + (count - mark), kmChar{0});
    return {document, document->Text(), XML_ERROR_NONE};
}

// `isOpen` is what came of opening the file.
FileText LoadText(InputFile& file, bool isOpen) {
    if (!isOpen || file.Size() > Document::kMaxUnits) return {nullptr, nullptr, XML_ERROR_FILE_NOT_FOUND};
    if (file.Size() == 0) return {nullptr, nullptr, XML_ERROR_NO_DATA};
    const auto size = static_cast<std::size_t>(file.Size());
    const std::size_t units = (size + 1) / 2;
    Document* document = Document::Create(units);
    std::size_t count = 0;
    if (!file.Read(document->Text(), size, count)) {
        document->Release();
        return {nullptr, nullptr, XML_ERROR_FILE_NOT_FOUND};
    }
    unsigned char* bytes = BytesOf(*document);
    if (!IsUtf16Text(bytes, count)) return ConvertUtf8(document, count);
    std::fill(bytes + count, bytes + units * sizeof(kmChar), static_cast<unsigned char>(0));
    const std::size_t mark = document->Text()[0] == 0xFEFF ? 1 : 0;
    return {document, document->Text() + mark, XML_ERROR_NONE};
}

}  // namespace

XMLNode XMLNode::OpenDocument(const kmChar* path, const kmChar* firstTag) {
    XMLParseResult result;
    XMLNode node = ParseDocumentFile(path, firstTag, &result);
    if (result.code != XML_ERROR_NONE) ReportXMLError(path, result, firstTag);
    return node;
}

XMLNode XMLNode::OpenDocumentIn(const InputFolder& folder, const kmString& name, const kmChar* firstTag) {
    InputFile file;
    XMLParseResult result;
    XMLNode node = ParseFile(file, folder.OpenFile(name, file), firstTag, result);
    if (result.code != XML_ERROR_NONE) ReportXMLError((folder.Path() + name).c_str(), result, firstTag);
    return node;
}

XMLNode XMLNode::ParseDocumentFile(const kmChar* path, const kmChar* firstTag, XMLParseResult* result) {
    InputFile file;
    XMLParseResult outcome;
    XMLNode node = ParseFile(file, path != nullptr && file.Open(path), firstTag, outcome);
    if (result != nullptr) *result = outcome;
    return node;
}

XMLNode XMLNode::ParseFile(InputFile& file, bool isOpen, const kmChar* firstTag, XMLParseResult& result) {
    const FileText text = LoadText(file, isOpen);
    result.code = text.code;
    if (text.document == nullptr) return {};
    return ParseOwned({text.document, nullptr}, text.text, firstTag, result);
}

XMLNode XMLNode::ParseDocumentText(const kmChar* text, const kmChar* firstTag, XMLParseResult* result) {
    XMLParseResult outcome;
    XMLNode node;
    if (text == nullptr) {
        outcome.code = XML_ERROR_NO_TEXT;
    } else {
        const kmStringView source = text;
        Document* document = Document::Create(source.size());
        std::copy(source.begin(), source.end(), document->Text());
        node = ParseOwned({document, nullptr}, document->Text(), firstTag, outcome);
    }
    if (result != nullptr) *result = outcome;
    return node;
}

// `document` holds the reference; its element is found here.
XMLNode XMLNode::ParseOwned(XMLNode document, kmChar* text, const kmChar* firstTag, XMLParseResult& result) {
    Element* root = ParseContent(*document.m_document, text, result);
    if (result.code > XML_WARNING_NO_TAG) return {};
    const bool holdsOneElement = root->childCount == 1 && root->first == root->last;
    document.m_element = holdsOneElement ? static_cast<Element*>(root->first) : root;
    if (firstTag == nullptr || *firstTag == 0) return document;
    XMLNode found = FindFirstTag(std::move(document), firstTag);
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
