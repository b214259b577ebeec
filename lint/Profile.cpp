// SPDX-License-Identifier: MIT
#include "lint/Profile.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "catalogue/GroupOrder.h"
#include "document/Format.h"
#include "document/HeaderFields.h"
#include "document/ItemFields.h"
#include "kmNearest.h"
#include "lint/Names.h"
#include "text/kmCTString.h"

namespace {

constexpr kmStringView kRootChildren[] = {format::kMain, format::kGroup, format::kParameter};
constexpr kmStringView kGroupChildren[] = {format::kGroupName};
constexpr kmStringView kLanguageOnly[] = {format::kLanguage};

template <class Row, std::size_t kCount>
constexpr auto NamesOf(const Row (&rows)[kCount]) {
    std::array<kmStringView, kCount> names;
    for (std::size_t i = 0; i < kCount; ++i) names[i] = rows[i].name;
    return names;
}
constexpr auto kHeaderNames = NamesOf(kHeaderFields);
constexpr auto kItemNames = NamesOf(kItemFields);

// What a header without the field is to get.
kmString ExampleOf(const HeaderFieldRow& row) {
    const kmString name(row.name);
    if (row.carrier == HeaderCarrier::Attribute) return KM_TEXT("<") + name + KM_TEXT(" language=\"...\"/>");
    return KM_TEXT("<") + name + KM_TEXT(">...</") + name + KM_TEXT(">");
}

}  // namespace

ProfileFacts ProfileLinter::Lint() {
    m_file.AddFault(m_findings);
    if (m_file.root.IsEmpty()) return m_facts;
    LintRoot();
    m_facts.isProfile = !m_main.IsEmpty();
    if (m_main.IsEmpty()) {
        m_findings.Add(LINT_NO_HEADER, m_file.PlaceOf(m_file.root), {});
        return m_facts;
    }
    LintMain();
    LintGroups();
    LintParameter();
    return m_facts;
}

void ProfileLinter::LintRoot() {
    const XMLNode& root = m_file.root;
    m_elements.LintAttributes(root, {});
    m_elements.LintComments(root);
    m_elements.LintText(root, format::kParameter);
    XMLNode* const places[] = {&m_main, &m_group, &m_parameter};
    for (int i = 0; i < root.CountChildren(); ++i) {
        const XMLNode child = root.ChildAt(i);
        const auto isCalled = [&](kmStringView name) { return EqualNoCase(name, child.GetName()); };
        const auto found = std::find_if(std::begin(kRootChildren), std::end(kRootChildren), isCalled);
        if (found == std::end(kRootChildren)) {
            m_elements.AddUnknown(child, kRootChildren);
            continue;
        }
        XMLNode& place = *places[found - std::begin(kRootChildren)];
        if (!place.IsEmpty()) m_findings.Add(LINT_REPEATED_ELEMENT, m_file.PlaceOf(child), child.GetName());
        if (place.IsEmpty()) place = child;
    }
}

void ProfileLinter::LintMain() {
    m_elements.LintAttributes(m_main, {});
    m_elements.LintComments(m_main);
    m_elements.LintText(m_main, format::kParameter);
    std::array<bool, std::size(kHeaderFields)> seen{};
    for (int i = 0; i < m_main.CountChildren(); ++i) {
        const XMLNode child = m_main.ChildAt(i);
        const auto isCalled = [&](kmStringView name) { return EqualNoCase(name, child.GetName()); };
        const auto row = static_cast<std::size_t>(
            std::find_if(kHeaderNames.begin(), kHeaderNames.end(), isCalled) - kHeaderNames.begin());
        if (row == seen.size()) {
            m_elements.AddUnknown(child, kHeaderNames);
        } else if (seen[row]) {
            m_findings.Add(LINT_REPEATED_ELEMENT, m_file.PlaceOf(child), child.GetName());
        } else {
            seen[row] = true;
            LintHeaderField(child, row);
        }
    }
    for (std::size_t row = 0; row < seen.size(); ++row) {
        if (seen[row] || kHeaderFields[row].saved == HeaderSaving::Nothing) continue;
        m_findings.Add(LINT_MISSING_HEADER_FIELD, m_file.PlaceOf(m_main), kHeaderFields[row].name,
                       {ExampleOf(kHeaderFields[row])});
    }
}

void ProfileLinter::LintHeaderField(const XMLNode& child, std::size_t row) {
    const HeaderFieldRow& field = kHeaderFields[row];
    const bool isAttribute = field.carrier == HeaderCarrier::Attribute;
    m_elements.LintAttributes(
        child, isAttribute ? std::span<const kmStringView>(kLanguageOnly) : std::span<const kmStringView>());
    m_elements.LintChildren(child);
    m_elements.LintComments(child);
    if (isAttribute) m_elements.LintText(child, format::kLanguage);
    const kmChar* text = isAttribute ? child.FindAttribute(format::kLanguage) : child.TextAt(0);
    if (field.saved == HeaderSaving::Nothing) return LintMark(child);
    if (text == nullptr)
        m_findings.Add(LINT_MISSING_HEADER_FIELD, m_file.PlaceOf(child), field.name, {ExampleOf(field)});
}

void ProfileLinter::LintMark(const XMLNode& mark) {
    const kmChar* text = mark.TextAt(0);
    if (text == nullptr) return;
    m_facts.isSystem = format::IsYes(text);
    m_facts.markPlace = m_file.PlaceOf(mark);
    if (!m_facts.isSystem && !EqualNoCase(text, KM_TEXT("no")))
        m_findings.Add(LINT_SYSTEM_MARK, m_file.lines.PlaceOf(text), mark.GetName(), {text});
}

void ProfileLinter::LintGroups() {
    if (m_group.IsEmpty()) return;
    const TextPlace place = m_file.PlaceOf(m_group);
    if (!m_facts.isSystem) return m_findings.Add(LINT_DROPPED_GROUPS, place, {});
    m_elements.LintAttributes(m_group, {});
    m_elements.LintComments(m_group);
    m_elements.LintText(m_group, format::kGroupName);
    for (int i = 0; i < m_group.CountChildren(); ++i) {
        const XMLNode entry = m_group.ChildAt(i);
        if (EqualNoCase(entry.GetName(), format::kGroupName)) {
            LintGroupName(entry);
        } else {
            m_elements.AddUnknown(entry, kGroupChildren);
        }
    }
    if (m_facts.groups.empty()) m_findings.Add(LINT_NO_GROUP, place, {});
}

void ProfileLinter::LintGroupName(const XMLNode& entry) {
    m_elements.LintAttributes(entry, kLanguageOnly);
    m_elements.LintChildren(entry);
    m_elements.LintComments(entry);
    m_elements.LintText(entry, format::kLanguage);
    const kmChar* name = entry.FindAttribute(format::kLanguage);
    if (name == nullptr) return;
    const TextPlace place = m_file.lines.PlaceOf(name);
    m_facts.groups.push_back({name, place});
    const auto isName = [name](kmStringView known) { return known == name; };
    if (std::any_of(std::begin(kGroupOrder), std::end(kGroupOrder), isName)) return;
    if (kmStringView(name) == kOtherGroup || m_findings.IsFull()) return;
    m_findings.Add(LINT_GROUP_OUTSIDE_ORDER, place, name, {},
                   kmFindNearest(TrimLeftView(name, KM_TEXT('^')), kGroupOrder));
}

void ProfileLinter::LintParameter() {
    if (m_parameter.CountChildren() == 0) {
        const XMLNode& place = m_parameter.IsEmpty() ? m_file.root : m_parameter;
        m_findings.Add(LINT_NO_SETTINGS, m_file.PlaceOf(place), {});
    }
    m_elements.LintAttributes(m_parameter, {});
    m_elements.LintComments(m_parameter);
    m_elements.LintText(m_parameter, kItemNames[0]);
    SettingsLinter settings(m_file, m_findings);
    for (int i = 0; i < m_parameter.CountChildren(); ++i) {
        const XMLNode item = m_parameter.ChildAt(i);
        m_elements.LintAttributes(item, kItemNames);
        m_elements.LintChildren(item);
        m_elements.LintComments(item);
        m_elements.LintText(item, kItemNames[0]);
        settings.Take(item);
    }
    settings.Finish();
}
