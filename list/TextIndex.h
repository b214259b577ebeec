// SPDX-License-Identifier: MIT
// The first position of a text among many. Texts come from files, so that they are compared and not hashed:
// no choice of them makes the cost grow with the square.
#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

#include "text/Ascii.h"

class TextIndex {
public:
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    // Refers to the texts, which must outlive it.
    void Assign(const std::vector<kmStringView>& texts) {
        m_texts = &texts;
        m_order.clear();
        if (texts.size() <= kFewTexts) return;
        m_order.resize(texts.size());
        for (std::size_t i = 0; i < m_order.size(); ++i) m_order[i] = i;
        std::sort(m_order.begin(), m_order.end(), [&texts](std::size_t a, std::size_t b) {
            const int order = texts[a].compare(texts[b]);
            return order != 0 ? order < 0 : a < b;
        });
    }

    std::size_t Find(kmStringView text) const {
        const std::vector<kmStringView>& texts = *m_texts;
        if (m_order.empty()) {
            const auto found = std::find_if(texts.begin(), texts.end(),
                                            [text](kmStringView other) { return EqualExactly(other, text); });
            return found == texts.end() ? kNone : static_cast<std::size_t>(found - texts.begin());
        }
        const auto found =
            std::lower_bound(m_order.begin(), m_order.end(), text,
                             [&texts](std::size_t at, kmStringView wanted) { return texts[at] < wanted; });
        return found == m_order.end() || texts[*found] != text ? kNone : *found;
    }

private:
    // So few are found faster by looking at each.
    static constexpr std::size_t kFewTexts = 32;

    const std::vector<kmStringView>* m_texts = nullptr;
    std::vector<std::size_t> m_order;  // positions by text; empty for few
};
