// SPDX-License-Identifier: MIT
// A sheet of settings: label, entry field, and what the setting does or what is wrong with the text.
#pragma once

#include <QTreeWidget>

#include "Settings.h"

class SettingsView : public QTreeWidget {
public:
    SettingsView();

    // Entry fields bear the setting's ID as object name. `nothing` stands in those without a value.
    void Show(const QList<Setting>& settings, const QString& nothing);
};
