// SPDX-License-Identifier: MIT
// XML of one shape as long as wanted. What could cost more than its length: pieces of which there are many,
// sections whose end is looked for, walks that go against the direction of the links.
#include <functional>
#include <memory>
#include <stdexcept>

#include "bench/GrowthCases.h"
#include "text/Ascii.h"
#include "text/Encoding.h"
#include "xml/XMLNode.h"

namespace {

// How a shape is written: not at all, when it cannot be read; without formatting, when the indentation alone
// would grow with the square of its depth.
enum class Writing { None, Plain, Formatted };

// `head`, `piece` as often as fits, `closing` as often, `tail`.
struct Shape {
    std::string_view name;
    std::string_view head, piece, closing, tail;
    Writing writing;
};

constexpr Shape kShapes[] = {
    {"one text", "<r>", "words of one long text ", "", "</r>", Writing::Formatted},
    {"siblings", "<r>", "<i n=\"1\"/>", "", "</r>", Writing::Formatted},
    {"elements and texts", "<r>", "<item/>text", "", "</r>", Writing::Formatted},
    {"nesting", "", "<nest>", "</nest>", "", Writing::Plain},
    {"nested declarations", "", "<?declaration?>", "", "", Writing::Plain},
    {"attributes of one element", "<r", " n=\"value\"", "", "/>", Writing::Formatted},
    {"attributes in other quotes", "<r", " n = 'value'", "", "/>", Writing::Formatted},
    {"attributes without values", "<r", " name", "", "/>", Writing::Formatted},
    {"entities in a text", "<r>", "&amp;&#65;&lt;", "", "</r>", Writing::Formatted},
    {"entities in a value", "<r v=\"", "&quot;&#x41;", "", "\"/>", Writing::Formatted},
    {"comments", "<r>", "<!-- comment -->", "", "</r>", Writing::Formatted},
    {"CDATA sections", "<r>", "<![CDATA[ ]] ]]>", "", "</r>", Writing::Formatted},
    {"elements without end tags", "", "<element>", "", "", Writing::Plain},
    {"end tags out of order", "<r>", "<outer><inner></outer>", "", "</r>", Writing::Formatted},
    {"names in single quotes", "<r>", "<i 'x>", "", "", Writing::Plain},
    {"unfinished comment", "<r><!--", "- -> ", "", "", Writing::None},
    {"unfinished CDATA section", "<r><![CDATA[", "]] > ", "", "", Writing::None},
    {"unfinished document type", "<r/><!DOCTYPE r [", "<!ENTITY e 'v'> ", "", "", Writing::None},
    {"unfinished value", "<r v=\"value", " name", "", "<", Writing::None},
    {"unknown entity at the end", "<r>", "&amp;", "", "&unknown;</r>", Writing::None},
    {"end tag of nobody", "<r>", "<nest>", "", "</nobody></r>", Writing::None},
};

kmString TextOf(const Shape& shape, std::size_t units) {
    const std::size_t ends = shape.head.size() + shape.tail.size();
    const std::size_t count = (units - ends) / (shape.piece.size() + shape.closing.size());
    const kmString piece = TextFromBytes(shape.piece);
    const kmString closing = TextFromBytes(shape.closing);
    kmString text = TextFromBytes(shape.head);
    text.reserve(units);
    for (std::size_t i = 0; i < count; ++i) text += piece;
    for (std::size_t i = 0; i < count; ++i) text += closing;
    return text + TextFromBytes(shape.tail);
}

XMLNode Read(const kmString& text, bool isReadable) {
    XMLNode node = XMLNode::ParseDocumentText(text.c_str(), nullptr);
    if (node.IsEmpty() == isReadable) throw std::runtime_error("a text is not read as it should be");
    return node;
}

GrowthStep ReadingOf(const Shape& shape, std::size_t units) {
    const auto text = std::make_shared<kmString>(TextOf(shape, units));
    return {text->size(), [text, isReadable = shape.writing != Writing::None] { Read(*text, isReadable); }};
}

GrowthStep WritingOf(const Shape& shape, bool formatted, std::size_t units) {
    const kmString text = TextOf(shape, units);
    const XMLNode node = Read(text, /*isReadable=*/true);
    return {text.size(), [node, formatted] {
                if (node.ToText(formatted) == nullptr) throw std::runtime_error("nothing is written");
            }};
}

// Indentation counts as what is written, so the units are those of the result.
GrowthStep IndentedWriting(std::size_t units) {
    XMLNode root = XMLNode::CreateRoot(KM_TEXT("r"), /*isDeclaration=*/false);
    XMLNode node = root;
    for (std::size_t depth = 1; depth * depth < units; ++depth) {
        node = node.AppendChild(KM_TEXT("n"), /*isDeclaration=*/false);
    }
    std::size_t written = 0;
    root.ToText(/*formatted=*/true, &written);
    return {written, [root] { root.ToText(/*formatted=*/true); }};
}

using IndexAt = int (*)(int step, int count);

struct Order {
    const char* name;
    IndexAt indexAt;
};

constexpr Order kOrders[] = {
    {"in order", [](int step, int) { return step; }},
    {"in falling order", [](int step, int count) { return count - 1 - step; }},
    {"from both ends", [](int step, int count) { return step % 2 == 0 ? step / 2 : count - 1 - step / 2; }},
};

// Each time in a tree that nobody has walked yet.
void ReadAndWalk(const kmString& text, IndexAt indexAt) {
    const XMLNode root = Read(text, /*isReadable=*/true);
    const int count = root.CountChildren();
    for (int step = 0; step < count; ++step) {
        const int index = indexAt(step, count);
        if (root.ChildAt(index).IsEmpty() || root.TextAt(index) == nullptr)
            throw std::runtime_error("a walk misses a piece");
    }
}

GrowthStep WalkIn(IndexAt indexAt, std::size_t units) {
    const Shape mixed{"", "<r>", "<item/>text", "", "</r>", Writing::Formatted};
    const auto text = std::make_shared<kmString>(TextOf(mixed, units));
    return {text->size(), [text, indexAt] { ReadAndWalk(*text, indexAt); }};
}

// The tree grows while it is walked backwards, so that whatever the walks remember is never up to date.
void BuildAndLookBack(int count) {
    XMLNode root = XMLNode::CreateRoot(KM_TEXT("r"), /*isDeclaration=*/false);
    for (int i = 0; i < count; ++i) {
        root.AppendChild(KM_TEXT("n"), /*isDeclaration=*/false);
        root.AppendAttribute(KM_TEXT("n"), KM_TEXT("1"));
        root.SetText(KM_TEXT("text"), i);
        if (root.ChildAt(i).IsEmpty() || root.ChildAt(i / 2).IsEmpty() || root.TextAt(i / 2) == nullptr)
            throw std::runtime_error("a walk misses a piece");
    }
}

}  // namespace

std::vector<GrowthCase> TextCases() {
    std::vector<GrowthCase> cases;
    for (const Shape& shape : kShapes) {
        const std::string name(shape.name);
        const auto add = [&cases, &name](const char* what, auto prepare) {
            cases.push_back({name + what, std::move(prepare)});
        };
        add(", read and released", [shape](std::size_t units) { return ReadingOf(shape, units); });
        if (shape.writing == Writing::None) continue;
        const bool formatted = shape.writing == Writing::Formatted;
        add(formatted ? ", written formatted" : ", written",
            [shape, formatted](std::size_t units) { return WritingOf(shape, formatted, units); });
    }
    cases.push_back({"nesting, written formatted, by what is written", IndentedWriting});
    for (const Order& order : kOrders) {
        cases.push_back({std::string("elements and texts, read and walked ") + order.name,
                         [order](std::size_t units) { return WalkIn(order.indexAt, units); }});
    }
    cases.push_back({"a tree built, looking back", [](std::size_t units) {
                         constexpr std::size_t kUnitsAPiece = 20;
                         const int count = static_cast<int>(units / kUnitsAPiece);
                         return GrowthStep{units, [count] { BuildAndLookBack(count); }};
                     }});
    return cases;
}
