// SPDX-License-Identifier: MIT
// Both trees are walked together along their parent links, so that depth costs no stack.
#include "xml/SameTree.h"

#include "xml/Document.h"
#include "xml/Scan.h"

namespace {

kmStringView Trimmed(const Content& text) {
    kmStringView view(text.text, text.length);
    while (!view.empty() && IsXMLSpace(view.front())) view.remove_prefix(1);
    while (!view.empty() && IsXMLSpace(view.back())) view.remove_suffix(1);
    return view;
}

bool IsNothing(const Content& content) {
    return content.kind == ContentKind::Text && Trimmed(content).empty();
}

// From `content` on, the first that says something.
const Content* Something(const Content* content) {
    while (content != nullptr && IsNothing(*content)) content = content->next;
    return content;
}

// Attributes without a name are not written.
bool HaveSameAttributes(const Element& a, const Element& b) {
    std::uint32_t other = 0;
    for (std::uint32_t i = 0; i < a.attributeCount; ++i) {
        const Attribute& attribute = a.attributes[i];
        if (attribute.nameLength == 0) continue;
        if (other == b.attributeCount) return false;
        const Attribute& counterpart = b.attributes[other++];
        if ((attribute.value == nullptr) != (counterpart.value == nullptr)) return false;
        if (!EqualExactly({attribute.name, attribute.nameLength}, {counterpart.name, counterpart.nameLength}))
            return false;
        if (attribute.value != nullptr && !EqualExactly({attribute.value, attribute.valueLength},
                                                        {counterpart.value, counterpart.valueLength}))
            return false;
    }
    return other == b.attributeCount;
}

bool AreSamePieces(const Content& a, const Content& b) {
    if (a.kind != b.kind) return false;
    if (a.kind == ContentKind::Text) return EqualExactly(Trimmed(a), Trimmed(b));
    const bool isSameText = EqualExactly({a.text, a.length}, {b.text, b.length});
    if (a.kind == ContentKind::Raw) return isSameText && a.marker == b.marker;
    return isSameText && a.isDeclaration == b.isDeclaration &&
           HaveSameAttributes(static_cast<const Element&>(a), static_cast<const Element&>(b));
}

}  // namespace

bool HoldTheSame(const Element& a, const Element& b) {
    if (!AreSamePieces(a, b)) return false;
    const Element* parent = &a;
    const Element* otherParent = &b;
    const Content* content = Something(a.first);
    const Content* other = Something(b.first);
    for (;;) {
        if ((content == nullptr) != (other == nullptr)) return false;
        if (content == nullptr) {
            if (parent == &a) return true;
            content = Something(parent->next);
            other = Something(otherParent->next);
            parent = parent->parent;
            otherParent = otherParent->parent;
            continue;
        }
        if (!AreSamePieces(*content, *other)) return false;
        if (content->kind == ContentKind::Element) {
            parent = static_cast<const Element*>(content);
            otherParent = static_cast<const Element*>(other);
            content = Something(parent->first);
            other = Something(otherParent->first);
        } else {
            content = Something(content->next);
            other = Something(other->next);
        }
    }
}
