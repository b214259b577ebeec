// SPDX-License-Identifier: MIT
// One setting of a profile.
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "kmExport.h"
#include "kmTypes.h"

KM_CLASSES_BEGIN

// An encoder option with its value and what the two editing views, the simple and the advanced one, need to
// show it. A value class: owns all its texts and lists. Setters check nothing and touch no other field. The
// lists of one view are meant to have the same length; nothing enforces it. One thread at a time, or several
// that only read. What a load has read is kept as one text that all items of the load and their copies share,
// until a label is set or a list is asked for.
class KM_EXPORT kmProfileItem {
public:
    // An item without ID and value, which no view shows; copies own their texts and lists.
    kmProfileItem();
    kmProfileItem(const kmProfileItem& other);
    kmProfileItem(kmProfileItem&& other) noexcept;
    const kmProfileItem& operator=(const kmProfileItem& other);
    const kmProfileItem& operator=(kmProfileItem&& other) noexcept;
    virtual ~kmProfileItem();

    // Whether both items have the same ID, exactly; no other field is compared.
    bool operator==(const kmProfileItem& other) const { return m_id == other.m_id; }

    // The name of the encoder option without its "-"; the item's element name in a file.
    kmString GetID() const { return m_id; }
    void SetID(const kmString& id) { m_id = id; }

    // The current value as it is written to the file and used for the encoder.
    kmString GetValue() const { return m_value; }
    void SetValue(const kmString& value) { m_value = value; }

    // The advanced view: position, label, section, whether the value is fixed or chosen from the candidates.
    int GetAdvPriority() const { return m_advPriority; }
    void SetAdvPriority(int priority) { m_advPriority = priority; }
    kmString GetAdvName() const { return kmString(m_advName.Text()); }
    void SetAdvName(const kmString& name) { m_advName.Set(name); }
    kmString GetAdvGroup() const { return kmString(m_advGroup.Text()); }
    void SetAdvGroup(const kmString& group) { m_advGroup.Set(group); }
    bool GetAdvReadOnly() const { return m_advReadOnly; }
    void SetAdvReadOnly(bool readOnly) { m_advReadOnly = readOnly; }
    bool GetAdvHasCandidates() const { return m_advHasCandidates; }
    void SetAdvHasCandidates(bool hasCandidates) { m_advHasCandidates = hasCandidates; }

    // The item's own lists: texts shown and values chosen, made of the file's text when they are first asked
    // for. References live as long as the item; to change a list is to change the item.
    std::vector<kmString>& GetAdvCandidatesDisplay() { return m_advCandidatesDisplay.Get(); }
    const std::vector<kmString>& GetAdvCandidatesDisplay() const { return m_advCandidatesDisplay.Get(); }
    std::vector<kmString>& GetAdvCandidatesValue() { return m_advCandidatesValue.Get(); }
    const std::vector<kmString>& GetAdvCandidatesValue() const { return m_advCandidatesValue.Get(); }

    // The simple view, likewise. An item without a simple name is not shown there.
    int GetSimplePriority() const { return m_simplePriority; }
    void SetSimplePriority(int priority) { m_simplePriority = priority; }
    kmString GetSimpleName() const { return kmString(m_simpleName.Text()); }
    void SetSimpleName(const kmString& name) { m_simpleName.Set(name); }
    bool GetSimpleReadOnly() const { return m_simpleReadOnly; }
    void SetSimpleReadOnly(bool readOnly) { m_simpleReadOnly = readOnly; }
    bool GetSimpleHasCandidates() const { return m_simpleHasCandidates; }
    void SetSimpleHasCandidates(bool hasCandidates) { m_simpleHasCandidates = hasCandidates; }

    // The simple view's own lists: the texts shown,
    std::vector<kmString>& GetSimpleCandidatesDisplay() { return m_simpleCandidatesDisplay.Get(); }
    const std::vector<kmString>& GetSimpleCandidatesDisplay() const {
        return m_simpleCandidatesDisplay.Get();
    }
    // and the values chosen.
    std::vector<kmString>& GetSimpleCandidatesValue() { return m_simpleCandidatesValue.Get(); }
    const std::vector<kmString>& GetSimpleCandidatesValue() const { return m_simpleCandidatesValue.Get(); }

    // Makes the simple candidate value at `index` the item's value. False, with nothing changed, when there
    // is none.
    bool SetSimpleValue(int index);

    // The position in the simple lists that stands for the current value; -1 for an item without a simple
    // name. A value that is not among the candidates gives the last position. "b" and "ab" take the first
    // candidate whose number is not above the value's, and the middle one for "Auto"; "pq" looks in the texts
    // shown, if there are as many as values. Option names without regard to ASCII case, candidates exactly.
    int GetSimpleItemIndex() const;

    // Whether a typed value is acceptable for the option `id`. False leaves the reason, for the user, in
    // `message` (nothing for a null or empty `id`); true leaves `message` alone. A null value counts as an
    // empty one.
    static bool Check(kmString& message, const kmChar* id, const kmChar* value);

    // 1: a well-formed time "h:m:s", or a null or empty text; 0: digits and at most two colons otherwise; -1:
    // anything else. `seconds`, which may be null, receives the total for a text that gives 1 or 0 and is not
    // empty.
    static int IsValidTime(const kmChar* time, int* seconds);

private:
    friend class kmProfile;
    friend class kmProfileList;

    using View = std::basic_string_view<kmChar>;

    // A text that was set, or one that the item's file texts hold. Its copy belongs to another item with the
    // same file texts.
    class Label {
    public:
        Label() = default;
        Label(const Label& other) = default;
        Label(Label&& other) noexcept
            : m_inFile(std::exchange(other.m_inFile, {})), m_own(std::move(other.m_own)) {}
        Label& operator=(Label&& other) noexcept {
            m_inFile = std::exchange(other.m_inFile, {});
            m_own = std::move(other.m_own);
            return *this;
        }
        bool operator==(const Label& other) const { return Text() == other.Text(); }

        View Text() const { return m_inFile.data() == nullptr ? View(m_own) : m_inFile; }
        void Set(const kmString& text) {
            m_own = text;
            m_inFile = {};
        }
        void Refer(View inFile) { m_inFile = inFile; }

    private:
        View m_inFile;
        kmString m_own;
    };

    // A list that stays the text of the file until somebody asks for it, and is the list from then on, since
    // whoever asked may hold a reference. Copies as above. Several threads may ask for a constant one.
    class KM_EXPORT List {
    public:
        List() = default;
        List(const List& other);
        List(List&& other) noexcept { Take(std::move(other)); }
        List& operator=(List&& other) noexcept;
        bool operator==(const List& other) const { return Get() == other.Get(); }

        std::vector<kmString>& Get() {
            std::as_const(*this).Get();
            return m_entries;
        }
        const std::vector<kmString>& Get() const {
            if (!IsSplit()) Split();
            return m_entries;
        }
        void Refer(View inFile);

        // Whether both are the same text of files still, without a look at the entries.
        bool IsSameText(const List& other) const;
        // Puts the entries behind `views`, which refer to this list while nobody changes it.
        void AddTo(std::vector<View>& views) const;

    private:
        enum State : int { AsInFile, Splitting, IsList };

        View InFile() const { return IsSplit() ? View() : m_inFile; }  // of null for a list
        bool IsSplit() const { return m_state.load(std::memory_order_acquire) == IsList; }
        void Split() const;
        void Take(List&& other) noexcept;

        View m_inFile;
        mutable std::vector<kmString> m_entries;
        mutable std::atomic<int> m_state = IsList;
    };

    kmString m_id;
    kmString m_value;
    std::shared_ptr<const kmChar[]> m_fileTexts;  // of everything that was read together with this item
    std::int32_t m_advPriority = 0;
    Label m_advName;
    Label m_advGroup;
    bool m_advReadOnly = false;
    bool m_advHasCandidates = false;
    List m_advCandidatesDisplay;
    List m_advCandidatesValue;
    std::int32_t m_simplePriority = 0;
    Label m_simpleName;
    bool m_simpleReadOnly = false;
    bool m_simpleHasCandidates = false;
    List m_simpleCandidatesDisplay;
    List m_simpleCandidatesValue;
};

KM_CLASSES_END
