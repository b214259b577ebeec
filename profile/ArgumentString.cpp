// SPDX-License-Identifier: MIT
// The options for the encoder's command line. Everything is appended to one text that is large enough from
// the start; options are found by the hash of their names, and what is special about some of them is a bit
// that the compiler puts into a copy of the option table.
#include <algorithm>
#include <cstring>
#include <stdexcept>
#include <utility>

#include "kmProfile.h"
#include "profile/Correction.h"
#include "profile/OptionChoice.h"

namespace {

constexpr std::size_t kLongestName = 12;

static_assert(std::all_of(kOptions.begin(), kOptions.end(),
                          [](const Option& option) { return option.name.size() <= kLongestName; }));

// Puts the pieces one after the other into a text that was made large enough beforehand. That it is, is
// checked all the same.
class Pieces {
public:
    // More than any option needs besides its value: its name in "-", a quotation mark, "K" and spaces, where
    // "pq" also turns one digit into a number; or what "pcodec" becomes.
    static constexpr std::size_t kPerOption = kLongestName + 6 + 10;

    explicit Pieces(kmString& text) : m_at(text.data()), m_end(text.data() + text.size()) {}

    const kmChar* End() const { return m_at; }
    Pieces& Put(kmChar unit) {
        *Take(1) = unit;
        return *this;
    }
    Pieces& Put(kmStringView text) {
        std::memcpy(Take(text.size()), text.data(), text.size() * sizeof(kmChar));
        return *this;
    }
    Pieces& PutLower(kmStringView text) {
        std::transform(text.begin(), text.end(), Take(text.size()), FoldLower);
        return *this;
    }

private:
    kmChar* Take(std::size_t count) {
        if (static_cast<std::size_t>(m_end - m_at) < count) throw std::length_error("an option is too long");
        return std::exchange(m_at, m_at + count);
    }

    kmChar* m_at;
    kmChar* m_end;
};

}  // namespace

void kmProfile::CorrectSettings() {
    const Correction correction =
        FindCorrection([this](const kmChar* id) -> const kmString& { return ValueOf(id); });
    if (correction.id != nullptr) SetItemValue(correction.id, correction.value.c_str());
}

kmString kmProfile::JoinOptions(bool withAudio) const {
    std::size_t length = 0;
    for (const kmProfileItem& item : m_items) length += item.m_value.size() + Pieces::kPerOption;
    kmString options(length, KM_TEXT(' '));
    Pieces pieces(options);
    OptionChooser chooser(withAudio);
    for (const kmProfileItem& item : m_items) {
        const ChosenOption chosen = chooser.Choose(item.m_id, item.m_value);
        if (chosen.choice == OptionChoice::Switch || chosen.choice == OptionChoice::Value)
            PutOption(pieces, chosen);
    }
    options.resize(static_cast<std::size_t>(pieces.End() - options.data()));
    return options;
}

kmString kmProfile::GetAvcString(bool withAudio) {
    CorrectSettings();
    kmString options = JoinOptions(withAudio);
    options += KM_TEXT(' ');
    options += ClosingOption(options, GetType());
    return options;
}
