// SPDX-License-Identifier: MIT
// kmprofile-editor [FOLDER]: edits the profiles of a folder, or of the library's default one.
#include <QApplication>

#include "EditorWindow.h"
#include "Text.h"
#include "kmMessages.h"

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    // The window shows the report of each load, which says the same.
    kmSetMessageHandler([](const kmMessage&, void*) {}, nullptr);
    const QString folder = application.arguments().value(1);
    EditorWindow window(folder.isEmpty() ? kmDefaultProfilesFolder() : kmPathFromUtf8(folder.toStdString()));
    window.show();
    return QApplication::exec();
}
