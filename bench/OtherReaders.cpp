// SPDX-License-Identifier: MIT
#include <expat.h>
#include <libxml/parser.h>
#include <libxml/tree.h>
#include <tinyxml2.h>

#include <memory>
#include <pugixml.hpp>

#include "bench/Readers.h"

namespace {

std::uint64_t FirstOf(const char* text) { return static_cast<unsigned char>(*text); }

// Opens, asks for the size, reads and closes: what no reader can do without.
Counts ReadFloor(const ProfileFolder& folder) {
    Counts counts;
    AlignedBuffer buffer;
    for (const ProfileFile& file : folder.files) {
        if (ReadPlainly(file.path, buffer) == file.size) ++counts.files;
    }
    return counts;
}

void CountTree(const pugi::xml_node& node, Counts& counts) {
    ++counts.elements;
    for (const pugi::xml_attribute& attribute : node.attributes()) {
        counts.AddAttribute(FirstOf(attribute.name()), FirstOf(attribute.value()));
    }
    for (const pugi::xml_node& child : node.children()) {
        if (child.type() == pugi::node_element) CountTree(child, counts);
    }
}

void CountDocument(const pugi::xml_document& document, Counts& counts) {
    if (!document.document_element()) return;
    ++counts.files;
    CountTree(document.document_element(), counts);
}

Counts ReadPugixml(const ProfileFolder& folder) {
    Counts counts;
    for (const ProfileFile& file : folder.files) {
        pugi::xml_document document;
        if (document.load_file(file.path.c_str())) CountDocument(document, counts);
    }
    return counts;
}

Counts ReadPugixmlSimd(const ProfileFolder& folder) {
    Counts counts;
    Utf8File text;
    pugi::xml_document document;
    for (const ProfileFile& file : folder.files) {
        text.Read(file.path);
        if (document.load_buffer_inplace(text.Data(), text.Size(), pugi::parse_default,
                                         pugi::encoding_utf8)) {
            CountDocument(document, counts);
        }
    }
    return counts;
}

void CountTree(const tinyxml2::XMLElement& element, Counts& counts) {
    ++counts.elements;
    for (const auto* attribute = element.FirstAttribute(); attribute != nullptr;
         attribute = attribute->Next()) {
        counts.AddAttribute(FirstOf(attribute->Name()), FirstOf(attribute->Value()));
    }
    for (const auto* child = element.FirstChildElement(); child != nullptr;
         child = child->NextSiblingElement()) {
        CountTree(*child, counts);
    }
}

Counts ReadTinyxml2(const ProfileFolder& folder) {
    Counts counts;
    Utf8File text;
    tinyxml2::XMLDocument document;
    for (const ProfileFile& file : folder.files) {
        text.Read(file.path);
        if (document.Parse(text.Data(), text.Size()) != tinyxml2::XML_SUCCESS) continue;
        ++counts.files;
        CountTree(*document.RootElement(), counts);
    }
    return counts;
}

void CountTree(const xmlNode& node, Counts& counts) {
    ++counts.elements;
    for (const xmlAttr* attribute = node.properties; attribute != nullptr; attribute = attribute->next) {
        const xmlNode* value = attribute->children;
        counts.AddAttribute(*attribute->name, value == nullptr ? 0 : *value->content);
    }
    for (const xmlNode* child = node.children; child != nullptr; child = child->next) {
        if (child->type == XML_ELEMENT_NODE) CountTree(*child, counts);
    }
}

Counts ReadLibxml2(const ProfileFolder& folder) {
    Counts counts;
    for (const ProfileFile& file : folder.files) {
        const std::unique_ptr<xmlDoc, void (*)(xmlDocPtr)> document(
            xmlReadFile(file.path.c_str(), nullptr, XML_PARSE_NONET), xmlFreeDoc);
        if (!document) continue;
        ++counts.files;
        CountTree(*xmlDocGetRootElement(document.get()), counts);
    }
    return counts;
}

void XMLCALL CountStart(void* userData, const XML_Char*, const XML_Char** attributes) {
    auto& counts = *static_cast<Counts*>(userData);
    ++counts.elements;
    for (; attributes[0] != nullptr; attributes += 2) {
        counts.AddAttribute(FirstOf(attributes[0]), FirstOf(attributes[1]));
    }
}

Counts ReadExpat(const ProfileFolder& folder) {
    Counts counts;
    AlignedBuffer buffer;
    const std::unique_ptr<XML_ParserStruct, void (*)(XML_Parser)> parser(XML_ParserCreate(nullptr),
                                                                         XML_ParserFree);
    for (const ProfileFile& file : folder.files) {
        const std::size_t size = ReadPlainly(file.path, buffer);
        XML_ParserReset(parser.get(), nullptr);
        XML_SetUserData(parser.get(), &counts);
        XML_SetStartElementHandler(parser.get(), CountStart);
        const XML_Status status =
            XML_Parse(parser.get(), buffer.Data(), static_cast<int>(size), /*isFinal=*/XML_TRUE);
        if (status == XML_STATUS_OK) ++counts.files;
    }
    return counts;
}

}  // namespace

std::vector<Reader> OtherReaders() {
    return {{kFloor, "open, fstat, read, close", Sight::Files, ReadFloor},
            {kPugixmlSimd, "pugixml, own SIMD conversion", Sight::Documents, ReadPugixmlSimd},
            {kPugixml, "pugixml", Sight::Documents, ReadPugixml},
            {"tinyxml2", "tinyxml2, own SIMD conversion", Sight::Documents, ReadTinyxml2},
            {"expat", "expat, no tree", Sight::Documents, ReadExpat},
            {"libxml2", "libxml2", Sight::Documents, ReadLibxml2}};
}
