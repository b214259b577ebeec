// SPDX-License-Identifier: MIT
#include "lint/Icons.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "lint/Names.h"
#include "text/Numbers.h"

namespace {

constexpr kmStringView kIndexChildren[] = {KM_TEXT("groups"), KM_TEXT("profiles")};
constexpr kmStringView kUserChildren[] = {KM_TEXT("user_pf")};
constexpr kmStringView kSettings[] = {KM_TEXT("SingleFile"), KM_TEXT("width"), KM_TEXT("height"),
                                      KM_TEXT("transclr")};
constexpr kmStringView kEntryAttributes[] = {KM_TEXT("id"), KM_TEXT("image"), KM_TEXT("index")};

bool IsInteger(const kmChar* text) {
    const kmChar* end = nullptr;
    static_cast<void>(ReadInteger(text, 0, &end));
    return end != text && *end == 0;
}

class IconLinter {
public:
    IconLinter(const SourceFile& file, Findings& findings)
        : m_file(file), m_findings(findings), m_elements(file, findings) {}

    void LintEntries(const XMLNode& list, std::map<kmString, TextPlace>& entries) {
        for (int i = 0; i < list.CountChildren(); ++i) LintEntry(list.ChildAt(i), entries);
    }

    IconEntries Lint(bool isUserFile) {
        IconEntries entries;
        entries.areRead = !m_file.root.IsEmpty();
        const auto known = isUserFile ? std::span<const kmStringView>(kUserChildren)
                                      : std::span<const kmStringView>(kIndexChildren);
        m_elements.LintAttributes(m_file.root, {});
        std::map<kmStringView, bool> seen;
        for (int i = 0; i < m_file.root.CountChildren(); ++i) {
            const XMLNode list = m_file.root.ChildAt(i);
            const auto isCalled = [&](kmStringView name) { return EqualNoCase(name, list.GetName()); };
            const auto name = std::find_if(known.begin(), known.end(), isCalled);
            if (name == known.end()) {
                m_elements.AddUnknown(list, known);
            } else if (std::exchange(seen[*name], true)) {
                m_findings.Add(LINT_REPEATED_ELEMENT, m_file.PlaceOf(list), list.GetName());
            } else {
                m_elements.LintAttributes(list, isUserFile ? std::span<const kmStringView>()
                                                           : std::span<const kmStringView>(kSettings));
                LintEntries(list, *name == kIndexChildren[0] ? entries.groups : entries.profiles);
            }
        }
        return entries;
    }

private:
    void LintEntry(const XMLNode& entry, std::map<kmString, TextPlace>& entries) {
        m_elements.LintAttributes(entry, kEntryAttributes);
        const kmChar* id = entry.FindAttribute(KM_TEXT("id"));
        const kmChar* index = entry.FindAttribute(KM_TEXT("index"));
        const kmStringView shownID = id == nullptr ? KM_TEXT("") : id;
        for (const kmStringView name : kEntryAttributes) {
            const kmChar* value = entry.FindAttribute(name.data());
            const bool isID = name == kEntryAttributes[0];
            if (value == nullptr || (isID && *value == 0))
                m_findings.Add(LINT_ICON_ENTRY, m_file.PlaceOf(entry), shownID, {name});
        }
        if (index != nullptr && !IsInteger(index))
            m_findings.Add(LINT_NOT_A_NUMBER, m_file.lines.PlaceOf(index), KM_TEXT("index"), {index});
        if (shownID.empty()) return;
        const TextPlace place = m_file.lines.PlaceOf(id);
        const auto [first, isNew] = entries.try_emplace(id, place);
        if (!isNew) m_findings.Add(LINT_DOUBLED_ICON, place, id, {IntegerText(first->second.line)});
    }

    const SourceFile& m_file;
    Findings& m_findings;
    ElementLinter m_elements;
};

}  // namespace

IconEntries LintIconFile(const kmString& path, bool isUserFile, Findings& findings) {
    const SourceFile file(path, KM_TEXT("items"));
    file.AddFault(findings);
    return IconLinter(file, findings).Lint(isUserFile);
}
