// SPDX-License-Identifier: MIT
// What the two views show of the selected profiles.
#pragma once

#include <QList>
#include <QString>
#include <functional>

class Selection;

struct Setting {
    QString id, label, section;
    QString value;  // empty also when the profiles differ
    int priority = 0;
    bool isTyped = true;  // anything may be typed, also beside choices
    bool isReadOnly = false;
    QList<std::pair<QString, QString>> choices;          // texts and values
    std::function<QString(const QString& value)> enter;  // gives the message for a value that is refused
};

// In order. They change the selection, which outlives them.
QList<Setting> SettingsOf(Selection& selection, bool isSimple);
