// SPDX-License-Identifier: MIT
// Documents as formatted UTF-16 in memory. Every writer has its documents ready, and what it writes is read
// back once to see that it is the same document.
#include <fcntl.h>
#include <tinyxml2.h>
#include <unistd.h>

#include <memory>
#include <pugixml.hpp>
#include <stdexcept>
#include <vector>

#include "bench/Comparison.h"
#include "bench/Utf8.h"
#include "xml/XMLNode.h"

namespace {

constexpr std::size_t kDocuments = 20;  // as many as the caches hold of every kind

// Collects what a writer gives in pieces, in memory that is used again for the next document.
class TextCollector : public pugi::xml_writer {
public:
    void write(const void* data, std::size_t size) override {
        m_bytes.append(static_cast<const char*>(data), size);
    }
    std::string& Bytes() { return m_bytes; }

private:
    std::string m_bytes;
};

struct Documents {
    std::vector<XMLNode> own;
    std::vector<std::unique_ptr<pugi::xml_document>> pugixml;
    std::vector<std::unique_ptr<tinyxml2::XMLDocument>> tinyxml2;
    std::vector<kmString> texts;  // what the library writes
};

kmString TextOf(const XMLNode& node) {
    std::size_t length = 0;
    const std::unique_ptr<kmChar[]> text = node.ToText(/*formatted=*/true, &length);
    return {text.get(), length};
}

std::shared_ptr<Documents> ReadDocuments(const ProfileFolder& folder) {
    auto documents = std::make_shared<Documents>();
    Utf8File text;
    for (std::size_t i = 0; i < std::min(kDocuments, folder.files.size()); ++i) {
        const ProfileFile& file = folder.files[i];
        documents->own.push_back(XMLNode::OpenDocument(file.textPath.c_str(), KM_TEXT("Profiles")));
        documents->texts.push_back(TextOf(documents->own.back()));
        documents->pugixml.push_back(std::make_unique<pugi::xml_document>());
        documents->pugixml.back()->load_file(file.path.c_str());
        text.Read(file.path);
        documents->tinyxml2.push_back(std::make_unique<tinyxml2::XMLDocument>());
        documents->tinyxml2.back()->Parse(text.Data(), text.Size());
    }
    return documents;
}

// `write` gives the text of the document at an index, as UTF-16 with or without a mark.
template <class Write>
Contender Writer(const char* title, const std::shared_ptr<Documents>& documents, Write write) {
    for (std::size_t i = 0; i < documents->own.size(); ++i) {
        kmString text(write(*documents, i));
        if (text.front() == 0xFEFF) text.erase(0, 1);
        const XMLNode read = XMLNode::ParseDocumentText(text.c_str(), KM_TEXT("Profiles"));
        if (TextOf(read) != documents->texts[i]) throw std::runtime_error(title + std::string(" differs"));
    }
    return Timed(title, documents->own.size(), [documents, write]() mutable {
        for (std::size_t i = 0; i < documents->own.size(); ++i) write(*documents, i);
    });
}

// Writes it, too. The library's files are regular ones, so that its text goes to the device in one piece.
template <class Write>
Contender NullWriter(const char* title, const std::shared_ptr<Documents>& documents, Write write) {
    const std::shared_ptr<const int> device(new int(open("/dev/null", O_WRONLY | O_CLOEXEC)), [](int* file) {
        close(*file);
        delete file;
    });
    return Writer(title, documents, [device, write](Documents& all, std::size_t i) mutable {
        const kmStringView text = write(all, i);
        const std::size_t size = text.size() * sizeof(kmChar);
        if (::write(*device, text.data(), size) != static_cast<ssize_t>(size))
            throw std::runtime_error("the null device takes nothing");
        return text;
    });
}

auto OwnWriter() {
    return [text = std::shared_ptr<kmChar[]>()](Documents& all, std::size_t i) mutable {
        std::size_t length = 0;
        text = all.own[i].ToText(/*formatted=*/true, &length);
        return kmStringView(text.get(), length);
    };
}

auto PugixmlWriter() {
    return [collector = std::make_shared<TextCollector>()](Documents& all, std::size_t i) {
        collector->Bytes().clear();
        all.pugixml[i]->save(*collector, "\t", pugi::format_default, pugi::encoding_utf16_le);
        const std::string& bytes = collector->Bytes();
        return kmStringView(reinterpret_cast<const kmChar*>(bytes.data()), bytes.size() / sizeof(kmChar));
    };
}

auto PugixmlSimdWriter() {
    return [collector = std::make_shared<TextCollector>(), text = std::make_shared<std::vector<kmChar>>()](
               Documents& all, std::size_t i) {
        collector->Bytes().clear();
        all.pugixml[i]->save(*collector, "\t", pugi::format_default, pugi::encoding_utf8);
        const std::string& bytes = collector->Bytes();
        text->resize(std::max(text->size(), bytes.size()));
        return kmStringView(text->data(), WidenUtf8(bytes.data(), bytes.size(), text->data()));
    };
}

auto Tinyxml2Writer() {
    return [printer = std::make_shared<tinyxml2::XMLPrinter>(),
            text = std::make_shared<std::vector<kmChar>>()](Documents& all, std::size_t i) {
        printer->ClearBuffer();
        all.tinyxml2[i]->Print(printer.get());
        const auto size = static_cast<std::size_t>(printer->CStrSize()) - 1;
        text->resize(std::max(text->size(), size));
        return kmStringView(text->data(), WidenUtf8(printer->CStr(), size, text->data()));
    };
}

}  // namespace

Comparison Writers(const ProfileFolder& folder) {
    const std::shared_ptr<Documents> documents = ReadDocuments(folder);
    return {"us a document",
            {Writer("this library, ToText", documents, OwnWriter()),
             Writer("pugixml, UTF-16", documents, PugixmlWriter()),
             Writer("pugixml, own SIMD conversion", documents, PugixmlSimdWriter()),
             Writer("tinyxml2, own SIMD conversion", documents, Tinyxml2Writer()),
             NullWriter("this library, ToText, to the null device", documents, OwnWriter()),
             NullWriter("pugixml, own SIMD conversion, to the null device", documents, PugixmlSimdWriter())},
            {{0, 1, 0.4}, {0, 2, 0.4}, {0, 3, 0.4}, {4, 5, 0.4}}};
}
