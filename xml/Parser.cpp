// SPDX-License-Identifier: MIT
// The parser walks the text once; what it finds is recorded as pointers into the text. The element that is
// being parsed is `m_open`, and its parent links are the stack. Attributes written as nearly all are get
// their null units at once; everything else stays as it is until the whole text has been read and the place
// of an error or warning has been counted. Then Seal ends every recorded piece by a null unit and decodes its
// entities.
#include "xml/Parser.h"

#include <algorithm>
#include <iterator>

#include "xml/Entities.h"
#include "xml/RawMarkers.h"
#include "xml/Scan.h"

namespace {

enum class TokenKind {
    Word,
    Quoted,
    EndTagOpen,
    DeclarationOpen,
    TagOpen,
    EmptyClose,
    TagClose,
    Equals,
    Raw,
    End
};

// `begin` and `end` delimit a word, or what a quoted string holds between its quotes; for the latter alone
// `hasAmpersand` says whether that holds a "&".
struct Token {
    TokenKind kind;
    const kmChar* begin;
    const kmChar* end;
    bool hasAmpersand;
};

bool HasAmpersand(const kmChar* begin, const kmChar* end) {
    return std::find(begin, end, KM_TEXT('&')) != end;
}

bool StartsWith(const kmChar* at, kmStringView marker) {
    for (const kmChar c : marker) {
        if (*at++ != c) return false;
    }
    return true;
}

// The row of the raw section that opens at the "<" at `at`; -1 when none does.
int FindRawMarker(const kmChar* at) {
    if (at[1] != KM_TEXT('!') && at[1] != KM_TEXT('P') && at[1] != KM_TEXT('S')) return -1;
    for (int row = RAW_CDATA; row <= RAW_COMMENT; ++row) {
        if (StartsWith(at, kRawMarkers[row].open)) return row;
    }
    return -1;
}

class Parser {
public:
    Parser(Document& document, kmChar* text) : m_document(document), m_at(text) {
        m_root = m_open = m_document.AddElement(nullptr, nullptr, 0, false);
    }

    void Run();

    Element* Root() const { return m_root; }
    XMLErrorCode Code() const { return m_code; }
    // Where the parser stopped; for unmatched end tags, where the last of them was noticed.
    const kmChar* Place() const { return m_code == XML_WARNING_UNMATCHED_END_TAG ? m_unmatchedAt : m_at; }

private:
    Token NextToken();
    Token QuoteOrWord();
    Token WordAt(const kmChar* begin);
    bool Fail(XMLErrorCode code);

    bool ParseMarkup();
    bool CloseTextRun(const kmChar* begin, const kmChar* end);
    bool ParseRaw(int row);
    bool EndsOpenElement();
    bool ParseEndTag();
    bool ParseStartTag(bool isDeclaration);
    bool ParseAttributes(Element& element);
    void ParsePlainAttributes(Element& element);
    bool ParseAttribute(Element& element, const Token& name);
    bool ParseValue(Element& element, const Token& name);
    Attribute& AddAttribute(Element& element, const Token& name);
    void EndText();
    // The parser reads through const pointers; the pieces that it records are ended in place later.
    static kmChar* Record(const kmChar* piece) { return const_cast<kmChar*>(piece); }

    Document& m_document;
    const kmChar* m_at;
    Element* m_root;
    Element* m_open;
    XMLErrorCode m_code = XML_ERROR_NONE;
    const kmChar* m_unmatchedAt = nullptr;
};

bool Parser::Fail(XMLErrorCode code) {
    m_code = code;
    return false;
}

Token Parser::WordAt(const kmChar* begin) {
    const kmChar* end = scan::FindWordEnd(begin);
    while (*end == KM_TEXT('/') && end[1] != KM_TEXT('>')) end = scan::FindWordEnd(end + 1);
    m_at = end;
    return {TokenKind::Word, begin, end, false};
}

// A quote that no equal quote follows before the next "<" is an ordinary character of a word.
Token Parser::QuoteOrWord() {
    const kmChar* begin = m_at + 1;
    const kmChar* end = scan::FindQuoteEnd(begin, *m_at);
    const bool hasAmpersand = *end == KM_TEXT('&');
    while (*end == KM_TEXT('&')) end = scan::FindQuoteEnd(end + 1, *m_at);
    if (*end != *m_at) {
        const Token rest = WordAt(begin);
        return {TokenKind::Word, begin - 1, rest.end, false};
    }
    m_at = end + 1;
    return {TokenKind::Quoted, begin, end, hasAmpersand};
}

Token Parser::NextToken() {
    if (*m_at > KM_TEXT('>')) return WordAt(m_at);  // nearly always the start of a name
    while (IsXMLSpace(*m_at)) ++m_at;
    const auto mark = [this](TokenKind kind, int length) {
        m_at += length;
        return Token{kind, m_at, m_at, false};
    };
    switch (*m_at) {
        case 0:
            return mark(TokenKind::End, 0);
        case KM_TEXT('>'):
            return mark(TokenKind::TagClose, 1);
        case KM_TEXT('='):
            return mark(TokenKind::Equals, 1);
        case KM_TEXT('"'):
        case KM_TEXT('\''):
            return QuoteOrWord();
        case KM_TEXT('/'):
            if (m_at[1] == KM_TEXT('>')) return mark(TokenKind::EmptyClose, 2);
            return WordAt(m_at);
        case KM_TEXT('<'):
            if (const int row = FindRawMarker(m_at); row >= 0) {
                return mark(TokenKind::Raw, static_cast<int>(kRawMarkers[row].open.size()));
            }
            if (m_at[1] == KM_TEXT('/')) return mark(TokenKind::EndTagOpen, 2);
            if (m_at[1] == KM_TEXT('?')) return mark(TokenKind::DeclarationOpen, 2);
            return mark(TokenKind::TagOpen, 1);
        default:
            return WordAt(m_at);
    }
}

void Parser::Run() {
    while (ParseMarkup()) {
    }
}

// One text run and the markup that ends it. False at the end of the text and after an error.
bool Parser::ParseMarkup() {
    const kmChar* begin = m_at;
    const kmChar* end = scan::FindMarkup(begin);
    m_at = end;
    if (*end == 0) {
        if (CloseTextRun(begin, end)) EndText();
        return false;
    }
    if (const int row = FindRawMarker(end); row >= 0) {
        m_at += kRawMarkers[row].open.size();
        return CloseTextRun(begin, end) && ParseRaw(row);
    }
    if (end[1] == KM_TEXT('/')) {
        m_at += 2;
        return CloseTextRun(begin, end) && ParseEndTag();
    }
    const bool isDeclaration = end[1] == KM_TEXT('?');
    m_at += isDeclaration ? 2 : 1;
    return CloseTextRun(begin, end) && ParseStartTag(isDeclaration);
}

bool Parser::CloseTextRun(const kmChar* begin, const kmChar* end) {
    while (begin != end && IsXMLSpace(*begin)) ++begin;
    if (begin == end) return true;
    while (IsXMLSpace(end[-1])) --end;
    const kmStringView text(begin, static_cast<std::size_t>(end - begin));
    const bool hasEntities = HasAmpersand(begin, end);
    if (hasEntities && !EntitiesAreKnown(text)) return Fail(XML_ERROR_UNKNOWN_ENTITY);
    m_document.AddContent(*m_open, ContentKind::Text, Record(begin), text.size())->hasEntities = hasEntities;
    return true;
}

// The first `marker` from `at` on, or null when the text ends before one. Not a search in a view: finding the
// end of the text for every section would make a file full of comments slow.
const kmChar* FindMarker(const kmChar* at, kmStringView marker) {
    for (; *at != 0; ++at) {
        if (*at == marker.front() && StartsWith(at, marker)) return at;
    }
    return nullptr;
}

bool Parser::ParseRaw(int row) {
    if (row == RAW_DOCTYPE) {
        const kmChar* first = m_at;
        while (*first != 0 && *first != KM_TEXT('<') && *first != KM_TEXT('>')) ++first;
        if (*first == KM_TEXT('<')) row = RAW_DOCTYPE_SUBSET;
    }
    const kmStringView close = kRawMarkers[row].close;
    const kmChar* end = FindMarker(m_at, close);
    if (end == nullptr) return Fail(XML_ERROR_UNMATCHED_RAW_END);
    Content* raw =
        m_document.AddContent(*m_open, ContentKind::Raw, Record(m_at), static_cast<std::size_t>(end - m_at));
    raw->marker = static_cast<std::uint8_t>(row);
    m_at = end + close.size();
    return true;
}

// Whether a name that stands in front of ">" is read as one word there: not one that ends in "/", which would
// close the tag, nor one that begins with a quote, which looks for its counterpart anew.
bool ReadsAsOneWord(kmStringView name) {
    return name.back() != KM_TEXT('/') && name.front() != KM_TEXT('"') && name.front() != KM_TEXT('\'');
}

// Nearly every end tag repeats the name of the open element to the letter.
bool Parser::EndsOpenElement() {
    if (m_open == m_root) return false;
    const kmStringView name(m_open->text, m_open->length);
    if (!ReadsAsOneWord(name) || !StartsWith(m_at, name) || m_at[name.size()] != KM_TEXT('>')) return false;
    m_at += name.size() + 1;
    m_open = m_open->parent;
    return true;
}

bool Parser::ParseEndTag() {
    if (EndsOpenElement()) return true;
    const Token name = NextToken();
    if (name.kind != TokenKind::Word || NextToken().kind != TokenKind::TagClose) {
        return Fail(XML_ERROR_MISSING_END_TAG_NAME);
    }
    const kmStringView word(name.begin, static_cast<std::size_t>(name.end - name.begin));
    for (; m_open != m_root; m_open = m_open->parent) {
        if (EqualNoCase({m_open->text, m_open->length}, word)) {
            m_open = m_open->parent;
            return true;
        }
        m_code = XML_WARNING_UNMATCHED_END_TAG;
        m_unmatchedAt = m_at;
    }
    return Fail(XML_ERROR_UNMATCHED_END_TAG);
}

bool Parser::ParseStartTag(bool isDeclaration) {
    const Token name = NextToken();
    if (name.kind != TokenKind::Word) return Fail(XML_ERROR_MISSING_START_TAG_NAME);
    Element* element = m_document.AddElement(m_open, Record(name.begin),
                                             static_cast<std::size_t>(name.end - name.begin), isDeclaration);
    const bool parsed = ParseAttributes(*element);
    m_document.EndAttributes(*element);
    return parsed;
}

// Up to the end of the start tag.
bool Parser::ParseAttributes(Element& element) {
    for (;;) {
        ParsePlainAttributes(element);
        if (m_at[0] == KM_TEXT('/') && m_at[1] == KM_TEXT('>')) {  // how most elements end
            m_at += 2;
            return true;
        }
        const Token token = NextToken();
        switch (token.kind) {
            case TokenKind::Word:
                if (!ParseAttribute(element, token)) return false;
                break;
            case TokenKind::TagClose:
                m_open = &element;
                return true;
            case TokenKind::EmptyClose:
                return true;
            case TokenKind::End:
                m_open = &element;
                EndText();
                return false;
            default:
                return Fail(XML_ERROR_UNEXPECTED_TOKEN);
        }
    }
}

// The attributes that stand one space apart, as far as they are written as nearly all are. They are ended at
// once: what this overwrites, the "=" and the quote, has been read and is no line feed, which positions are
// counted by.
void Parser::ParsePlainAttributes(Element& element) {
    while (*m_at == KM_TEXT(' ')) {
        kmChar* name = Record(m_at + 1);
        const PlainAttribute plain = scan::FindPlainAttribute(name);
        if (plain.nameEnd == nullptr) return;
        kmChar* value = Record(plain.nameEnd + 2);
        m_document.AddAttribute(element) = {name, value, static_cast<std::uint32_t>(plain.nameEnd - name),
                                            static_cast<std::uint32_t>(plain.valueEnd - value) & 0x7FFFFFFFu,
                                            false};
        *Record(plain.nameEnd) = 0;
        *Record(plain.valueEnd) = 0;
        m_at = plain.valueEnd + 1;
    }
}

bool Parser::ParseAttribute(Element& element, const Token& name) {
    const kmChar* behindName = m_at;
    const Token next = NextToken();
    if (next.kind != TokenKind::Equals) {
        m_at = behindName;
        Token kept = name;
        const bool endsTag = next.kind == TokenKind::TagClose || next.kind == TokenKind::EmptyClose;
        if (element.isDeclaration && endsTag && kept.end[-1] == KM_TEXT('?')) --kept.end;
        if (kept.begin != kept.end) AddAttribute(element, kept);
        return true;
    }
    return ParseValue(element, name);
}

bool Parser::ParseValue(Element& element, const Token& name) {
    Token value = NextToken();
    bool hasEntities = value.hasAmpersand;
    if (value.kind == TokenKind::Word) {
        if (element.isDeclaration && value.end[-1] == KM_TEXT('?')) --value.end;
        hasEntities = HasAmpersand(value.begin, value.end);
    } else if (value.kind != TokenKind::Quoted) {
        return Fail(XML_ERROR_UNEXPECTED_TOKEN);
    }
    const auto length = static_cast<std::size_t>(value.end - value.begin);
    if (hasEntities && !EntitiesAreKnown({value.begin, length})) return Fail(XML_ERROR_UNKNOWN_ENTITY);
    Attribute& attribute = AddAttribute(element, name);
    attribute.value = Record(value.begin);
    attribute.valueLength = static_cast<std::uint32_t>(length) & 0x7FFFFFFFu;
    attribute.hasEntities = hasEntities;
    return true;
}

// An attribute without a value, for now.
Attribute& Parser::AddAttribute(Element& element, const Token& name) {
    element.hasOpenAttributes = true;
    Attribute& attribute = m_document.AddAttribute(element);
    attribute = {Record(name.begin), nullptr, static_cast<std::uint32_t>(name.end - name.begin), 0, false};
    return attribute;
}

// Declarations have no end tag, so they end with the text like the document itself.
void Parser::EndText() {
    for (; m_open != m_root; m_open = m_open->parent) {
        if (m_open->isDeclaration) continue;
        m_code = XML_WARNING_UNMATCHED_END_TAG;
        m_unmatchedAt = m_at;
    }
}

void SealPiece(kmChar* text, std::uint32_t& length, bool hasEntities) {
    text[length] = 0;
    if (!hasEntities) return;
    text[DecodeEntities(text, length)] = 0;
    length = static_cast<std::uint32_t>(kmStringView(text).size());  // a reference may stand for a null unit
}

void SealElement(Element& element) {
    if (element.text != nullptr) element.text[element.length] = 0;
    if (!element.hasOpenAttributes) return;
    for (std::uint32_t i = 0; i < element.attributeCount; ++i) {
        Attribute& attribute = element.attributes[i];
        attribute.name[attribute.nameLength] = 0;
        if (attribute.value == nullptr) continue;
        std::uint32_t length = attribute.valueLength;
        SealPiece(attribute.value, length, attribute.hasEntities);
        attribute.valueLength = length & 0x7FFFFFFFu;
    }
}

// Ends every piece of the tree below `root` in place.
void Seal(Element& root) {
    Element* parent = &root;
    Content* content = root.first;
    for (;;) {
        if (content == nullptr) {
            if (parent == &root) return;
            content = parent->next;
            parent = parent->parent;
            continue;
        }
        if (content->kind != ContentKind::Element) {
            SealPiece(content->text, content->length, content->hasEntities);
            content = content->next;
            continue;
        }
        parent = static_cast<Element*>(content);
        SealElement(*parent);
        content = parent->first;
    }
}

void CountPosition(const kmChar* text, const kmChar* place, XMLParseResult& result) {
    const kmChar* lineStart = text;
    result.line = 1;
    for (const kmChar* at = text; at != place; ++at) {
        if (*at != KM_TEXT('\n')) continue;
        ++result.line;
        lineStart = at + 1;
    }
    result.column = static_cast<std::int32_t>(place - lineStart) + 1;
}

}  // namespace

Element* ParseContent(Document& document, kmChar* text, XMLParseResult& result) {
    Parser parser(document, text);
    parser.Run();
    result.code = parser.Root()->childCount == 0 ? XML_WARNING_NO_TAG : parser.Code();
    if (result.code != XML_ERROR_NONE) CountPosition(text, parser.Place(), result);
    if (result.code <= XML_WARNING_NO_TAG) Seal(*parser.Root());
    return parser.Root();
}
