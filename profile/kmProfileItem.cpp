// SPDX-License-Identifier: MIT
// How an item's value and the positions in its simple lists correspond.
#include "kmProfileItem.h"

#include <algorithm>
#include <new>
#include <utility>

#include "document/Format.h"
#include "text/Numbers.h"
#include "text/kmCTString.h"

namespace {

int LastPosition(const std::vector<kmString>& list) { return static_cast<int>(list.size()) - 1; }

int PositionOrLast(const std::vector<kmString>& list, const kmString& value) {
    const auto found = std::find(list.begin(), list.end(), value);
    return found == list.end() ? LastPosition(list) : static_cast<int>(found - list.begin());
}

int BitratePosition(const std::vector<kmString>& candidates, const kmString& value) {
    if (EqualNoCase(TrimView(value, KM_TEXT(' ')), KM_TEXT("Auto")))
        return static_cast<int>(candidates.size() / 2);
    const double wanted = ReadDecimal(value.c_str());
    const auto found = std::find_if(
        candidates.begin(), candidates.end(),
        [wanted](const kmString& candidate) { return ReadDecimal(candidate.c_str()) <= wanted; });
    return found == candidates.end() ? LastPosition(candidates)
                                     : static_cast<int>(found - candidates.begin());
}

}  // namespace

kmProfileItem::List::List(const List& other) : m_inFile(other.InFile()) {
    if (m_inFile.data() == nullptr) {
        m_entries = other.m_entries;
    } else {
        m_state.store(AsInFile, std::memory_order_relaxed);
    }
}

void kmProfileItem::List::Take(List&& other) noexcept {
    m_inFile = std::exchange(other.m_inFile, {});
    m_entries = std::move(other.m_entries);
    m_state.store(other.m_state.load(std::memory_order_relaxed), std::memory_order_relaxed);
    other.m_state.store(IsList, std::memory_order_relaxed);
}

// A list that was asked for shows its new entries to whoever holds a reference.
kmProfileItem::List& kmProfileItem::List::operator=(List&& other) noexcept {
    const bool wasSplit = IsSplit();
    Take(std::move(other));
    try {
        if (wasSplit) Get();
    } catch (const std::bad_alloc&) {
        // Split when it is asked for again.
    }
    return *this;
}

void kmProfileItem::List::Refer(View inFile) {
    m_inFile = inFile;
    m_state.store(AsInFile, std::memory_order_relaxed);
}

bool kmProfileItem::List::IsSameText(const List& other) const {
    const View text = InFile();
    const View others = other.InFile();
    return text.data() != nullptr && others.data() != nullptr && EqualExactly(text, others);
}

void kmProfileItem::List::AddTo(std::vector<View>& views) const {
    if (const View text = InFile(); text.data() != nullptr) {
        ForEachPiece(text, format::kListSeparator, [&views](View piece) { views.push_back(piece); });
    } else {
        views.insert(views.end(), m_entries.begin(), m_entries.end());
    }
}

// One of the threads that ask splits the text, the others wait for it.
void kmProfileItem::List::Split() const {
    int state = AsInFile;
    while (!m_state.compare_exchange_strong(state, Splitting, std::memory_order_acquire)) {
        if (state == IsList) return;
        m_state.wait(Splitting);
        state = AsInFile;
    }
    try {
        SplitText(m_inFile, format::kListSeparator, m_entries);
    } catch (...) {
        m_state.store(AsInFile);
        m_state.notify_all();
        throw;
    }
    m_state.store(IsList, std::memory_order_release);
    m_state.notify_all();
}

kmProfileItem::kmProfileItem() = default;
kmProfileItem::kmProfileItem(const kmProfileItem& other) = default;
kmProfileItem::kmProfileItem(kmProfileItem&& other) noexcept = default;
kmProfileItem::~kmProfileItem() = default;

const kmProfileItem& kmProfileItem::operator=(const kmProfileItem& other) {
    if (this != &other) *this = kmProfileItem(other);
    return *this;
}

const kmProfileItem& kmProfileItem::operator=(kmProfileItem&& other) noexcept {
    if (this == &other) return *this;
    m_id = std::move(other.m_id);
    m_value = std::move(other.m_value);
    m_fileTexts = std::move(other.m_fileTexts);
    m_advPriority = other.m_advPriority;
    m_advName = std::move(other.m_advName);
    m_advGroup = std::move(other.m_advGroup);
    m_advReadOnly = other.m_advReadOnly;
    m_advHasCandidates = other.m_advHasCandidates;
    m_advCandidatesDisplay = std::move(other.m_advCandidatesDisplay);
    m_advCandidatesValue = std::move(other.m_advCandidatesValue);
    m_simplePriority = other.m_simplePriority;
    m_simpleName = std::move(other.m_simpleName);
    m_simpleReadOnly = other.m_simpleReadOnly;
    m_simpleHasCandidates = other.m_simpleHasCandidates;
    m_simpleCandidatesDisplay = std::move(other.m_simpleCandidatesDisplay);
    m_simpleCandidatesValue = std::move(other.m_simpleCandidatesValue);
    return *this;
}

bool kmProfileItem::SetSimpleValue(int index) {
    const std::vector<kmString>& values = m_simpleCandidatesValue.Get();
    if (index < 0 || static_cast<std::size_t>(index) >= values.size()) return false;
    m_value = values[static_cast<std::size_t>(index)];
    return true;
}

int kmProfileItem::GetSimpleItemIndex() const {
    if (m_simpleName.Text().empty()) return -1;
    const std::vector<kmString>& values = m_simpleCandidatesValue.Get();
    if (EqualNoCase(m_id, KM_TEXT("b")) || EqualNoCase(m_id, KM_TEXT("ab")))
        return BitratePosition(values, m_value);
    if (EqualNoCase(m_id, KM_TEXT("pq"))) {
        const std::vector<kmString>& display = m_simpleCandidatesDisplay.Get();
        if (display.size() == values.size()) return PositionOrLast(display, m_value);
    }
    return PositionOrLast(values, m_value);
}
