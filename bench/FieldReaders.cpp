// SPDX-License-Identifier: MIT
// Profiles read down to the last field: this library's, and what an application would write without it. Both
// have every text and every list of every setting as a string of its own in the end.
#include <array>
#include <memory>
#include <pugixml.hpp>
#include <string>
#include <string_view>

#include "bench/Readers.h"
#include "kmArgOption.h"
#include "kmProfile.h"

namespace {

// An application's own item: the same fields, in the same types.
struct PlainItem {
    std::array<kmString, 5> texts;  // ID, value, advanced name and group, simple name
    std::array<int, 2> priorities{};
    std::array<bool, 4> flags{};
    std::array<std::vector<kmString>, 4> lists;
};

struct PlainProfile {
    std::array<kmString, 5> header;
    bool isSystem = false;
    std::vector<PlainItem> items;
};

kmString TextOf(std::string_view text) { return {text.begin(), text.end()}; }  // the generator writes ASCII

std::vector<kmString> ListOf(std::string_view text) {
    std::vector<kmString> pieces;
    for (;;) {
        const std::size_t end = std::min(text.find(','), text.size());
        std::string_view piece = text.substr(0, end);
        while (!piece.empty() && piece.front() == ' ') piece.remove_prefix(1);
        while (!piece.empty() && piece.back() == ' ') piece.remove_suffix(1);
        pieces.push_back(TextOf(piece));
        if (end == text.size()) return pieces;
        text.remove_prefix(end + 1);
    }
}

bool FlagOf(std::string_view text) { return text == "yes" || text == "true"; }

enum class Kind { Text, Number, Flag, List };

struct Row {
    const char* name;
    Kind kind;
    std::size_t index;
};

constexpr Row kRows[] = {{"Value", Kind::Text, 1},
                         {"advPriority", Kind::Number, 0},
                         {"advName", Kind::Text, 2},
                         {"advGroup", Kind::Text, 3},
                         {"advReadOnly", Kind::Flag, 0},
                         {"advHasCandidates", Kind::Flag, 1},
                         {"advCandidatesDisplay", Kind::List, 0},
                         {"advCandidatesValue", Kind::List, 1},
                         {"simplePriority", Kind::Number, 1},
                         {"simpleName", Kind::Text, 4},
                         {"simpleReadonly", Kind::Flag, 2},
                         {"simpleHasCandidates", Kind::Flag, 3},
                         {"simpleCandidatesDiaplay", Kind::List, 2},
                         {"simpleCandidatesValue", Kind::List, 3}};

// By name, since files may have the attributes in any order; each is looked for behind the one before.
void FillAttributes(PlainItem& item, const pugi::xml_node& element) {
    pugi::xml_attribute hint;
    for (const Row& row : kRows) {
        const pugi::xml_attribute attribute = element.attribute(row.name, hint);
        if (!attribute) continue;
        const std::string_view value = attribute.value();
        if (row.kind == Kind::Text) item.texts[row.index] = TextOf(value);
        if (row.kind == Kind::Number) item.priorities[row.index] = attribute.as_int();
        if (row.kind == Kind::Flag) item.flags[row.index] = FlagOf(value);
        if (row.kind == Kind::List) item.lists[row.index] = ListOf(value);
    }
}

void Fill(PlainItem& item, const pugi::xml_node& element) {
    item.texts[0] = TextOf(element.name());
    FillAttributes(item, element);
    const kmChar* otherwise =
        item.texts[1].empty() ? kmArgOption::GetOptionDefVal(item.texts[0].c_str()) : nullptr;
    if (otherwise != nullptr) item.texts[1] = otherwise;
}

bool Fill(PlainProfile& profile, const pugi::xml_document& document) {
    const pugi::xml_node main = document.document_element().child("Main");
    if (!main) return false;
    profile.header = {TextOf(main.child("Name").attribute("language").value()),
                      TextOf(main.child("Desc").attribute("language").value()),
                      TextOf(main.child_value("SName")), TextOf(main.child_value("Format")),
                      TextOf(main.child_value("ExtName"))};
    profile.isSystem = std::string_view(main.child_value("IsSysProfile")) == "yes";
    for (const pugi::xml_node& element : document.document_element().child("Parameter").children()) {
        Fill(profile.items.emplace_back(), element);
    }
    return true;
}

void Touch(const kmString& text, Counts& counts) {
    counts.AddAttribute(text.size(), text.empty() ? 0 : text.front());
}

void Touch(const std::vector<kmString>& list, Counts& counts) {
    for (const kmString& text : list) Touch(text, counts);
}

void Touch(const kmProfileItem& item, Counts& counts) {
    ++counts.elements;
    for (const kmString& text :
         {item.GetID(), item.GetValue(), item.GetAdvName(), item.GetAdvGroup(), item.GetSimpleName()})
        Touch(text, counts);
    Touch(item.GetAdvCandidatesDisplay(), counts);
    Touch(item.GetAdvCandidatesValue(), counts);
    Touch(item.GetSimpleCandidatesDisplay(), counts);
    Touch(item.GetSimpleCandidatesValue(), counts);
    counts.checksum += static_cast<std::uint64_t>(item.GetAdvPriority() + item.GetSimplePriority());
    counts.checksum += item.GetAdvReadOnly() + 2u * item.GetAdvHasCandidates() +
                       4u * item.GetSimpleReadOnly() + 8u * item.GetSimpleHasCandidates();
}

void Touch(const PlainItem& item, Counts& counts) {
    ++counts.elements;
    for (const kmString& text : item.texts) Touch(text, counts);
    for (const std::vector<kmString>& list : item.lists) Touch(list, counts);
    counts.checksum += static_cast<std::uint64_t>(item.priorities[0] + item.priorities[1]);
    counts.checksum += item.flags[0] + 2u * item.flags[1] + 4u * item.flags[2] + 8u * item.flags[3];
}

template <class Use>
Counts LoadEach(const ProfileFolder& folder, Use use) {
    Counts counts;
    for (const ProfileFile& file : folder.files) {
        kmProfile profile;
        profile.SetID(file.id);
        if (!profile.Load(file.textFolder)) continue;
        ++counts.files;
        use(profile, counts);
    }
    return counts;
}

Counts LoadProfiles(const ProfileFolder& folder) {
    return LoadEach(folder, [](kmProfile&, Counts&) {});
}

Counts LoadForOptions(const ProfileFolder& folder) {
    return LoadEach(folder, [](kmProfile& profile, Counts& counts) {
        counts.elements += profile.GetAvcString(/*withAudio=*/true).size();
    });
}

Counts LoadForFields(const ProfileFolder& folder) {
    return LoadEach(folder, [](const kmProfile& profile, Counts& counts) {
        for (const kmProfileItem& item : profile.GetProfileItems()) Touch(item, counts);
    });
}

Counts FillByPugixml(const ProfileFolder& folder) {
    Counts counts;
    Utf8File text;
    pugi::xml_document document;
    for (const ProfileFile& file : folder.files) {
        text.Read(file.path);
        if (!document.load_buffer_inplace(text.Data(), text.Size(), pugi::parse_default, pugi::encoding_utf8))
            continue;
        PlainProfile profile;
        if (!Fill(profile, document)) continue;
        ++counts.files;
        for (const PlainItem& item : profile.items) Touch(item, counts);
    }
    return counts;
}

}  // namespace

std::vector<Reader> FieldReaders() {
    return {{kPugixmlFields, "pugixml, SIMD, fields filled", Sight::Fields, FillByPugixml},
            {kProfiles, "this library, kmProfile::Load", Sight::Files, LoadProfiles},
            {kProfileOptions, "this library, Load, GetAvcString", Sight::Files, LoadForOptions},
            {kProfileFields, "this library, Load, every field", Sight::Fields, LoadForFields}};
}
