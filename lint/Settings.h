// SPDX-License-Identifier: MIT
// The settings of one profile, taken in their order.
#pragma once

#include <array>
#include <cstddef>
#include <iterator>
#include <map>
#include <vector>

#include "document/ItemFields.h"
#include "lint/Findings.h"
#include "lint/SourceFile.h"
#include "options/OptionTraits.h"

class SettingsLinter {
public:
    SettingsLinter(const SourceFile& file, Findings& findings) : m_file(file), m_findings(findings) {}

    void Take(const XMLNode& element);

    // To be called once, after the last.
    void Finish();

private:
    struct Setting {
        kmStringView id;
        TextPlace place;
        const Option* option = nullptr;                           // null: none of that name
        std::array<kmStringView, std::size(kItemFields)> fields;  // as written; of null: missing
        kmStringView value;                                       // with the default, without spaces
    };
    // One of those that decide whether a codec allows another.
    struct CodecSetting {
        kmString value;
        TextPlace place;
        bool exists = false;
    };

    Setting Read(const XMLNode& element) const;
    TextPlace PlaceOfField(const Setting& setting, std::size_t field) const;
    void LintName(const Setting& setting);
    void LintFields(const Setting& setting);
    void LintView(const Setting& setting, std::size_t hasCandidates);
    void LintValue(const Setting& setting);
    void LintTypedValue(const Setting& setting, TextPlace place);
    void LintOrder(const Setting& setting);
    void Remember(const Setting& setting);

    const SourceFile& m_file;
    Findings& m_findings;
    std::map<kmString, TextPlace> m_known;  // by the ID in lower case
    std::map<kmString, CodecSetting> m_codecSettings;
    std::vector<std::pair<kmString, TextPlace>> m_beforeTarget;
    bool m_hasTarget = false;
};
