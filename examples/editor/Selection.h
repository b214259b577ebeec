// SPDX-License-Identifier: MIT
// The profiles that are being edited, one or several as one.
#pragma once

#include <QObject>
#include <set>
#include <vector>

#include "kmProfile.h"

class Selection : public QObject {
    Q_OBJECT
public:
    // Reads these profiles in place of the ones before, as far as they can be read.
    void Load(const kmString& folder, const std::vector<kmString>& ids);

    // As kmProfileList takes them; valid until the next load.
    const std::vector<kmProfile*>& Profiles() const { return m_pointers; }
    std::vector<kmString> IDs() const;
    bool HasSystem() const;
    // Whether there is anything to save: no value that was changed and changed back.
    bool IsModified() const;
    // Whether the last value entered for some setting was refused.
    bool HasRefused() const { return !m_refused.empty(); }
    // Whether a file is gone, or says something else than when it was read or written here.
    bool IsOutdated() const;

    // Change all profiles. SetValue gives the message to show for a value that is refused.
    QString SetValue(const kmString& id, const kmString& value);
    QString SetChoice(const kmString& id, int index);
    QString Save();  // gives the refusal in words, if any

signals:
    void Replaced();  // all that is shown has to be built anew
    void Edited();    // a value was entered, or the profiles were saved

private:
    std::vector<kmProfile> m_profiles;
    std::vector<kmProfile> m_files;  // as their files are
    std::vector<kmProfile*> m_pointers;
    std::set<kmString> m_refused;  // IDs of settings
};
