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
    void Assign(std::vector<kmStringView> texts) {
        m_texts = std::move(texts);
        m_order.clear();
        if (m_texts.size() <= kFewTexts) return;
        m_order.resize(m_texts.size());
        for (std::size_t i = 0; i < m_order.size(); ++i) m_order[i] = i;
        std::sort(m_order.begin(), m_order.end(), [this](std::size_t a, std::size_t b) {
            const int order = m_texts[a].compare(m_texts[b]);
            return order != 0 ? order < 0 : a < b;
        });
    }

    std::size_t Find(kmStringView text) const {
        if (m_order.empty()) {
            const auto found = std::find_if(m_texts.begin(), m_texts.end(),
                                            [text](kmStringView other) { return EqualExactly(other, text); });
            return found == m_texts.end() ? kNone : static_cast<std::size_t>(found - m_texts.begin());
        }
        const auto found =
            std::lower_bound(m_order.begin(), m_order.end(), text,
                             [this](std::size_t at, kmStringView wanted) { return m_texts[at] < wanted; });
        return found == m_order.end() || m_texts[*found] != text ? kNone : *found;
    }

private:
    // So few are found faster by looking at each.
    static constexpr std::size_t kFewTexts = 32;

    std::vector<kmStringView> m_texts;
    std::vector<std::size_t> m_order;  // positions by text; empty for few
};
