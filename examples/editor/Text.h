// SPDX-License-Identifier: MIT
// Texts between the library and Qt: both are UTF-16, so that every unit comes through.
#pragma once

#include <QString>
#include <string>

#include "kmFolders.h"
#include "kmTypes.h"

inline QString ToQt(const kmString& text) {
    return QString(reinterpret_cast<const QChar*>(text.data()), static_cast<qsizetype>(text.size()));
}

inline kmString FromQt(const QString& text) {
    return kmString(reinterpret_cast<const kmChar*>(text.utf16()), static_cast<std::size_t>(text.size()));
}

// A path of the library in the form that the system has for it.
inline QString PathToQt(const kmString& path) { return QString::fromStdString(kmUtf8FromPath(path)); }
