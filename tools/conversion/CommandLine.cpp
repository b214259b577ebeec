// SPDX-License-Identifier: MIT
#include "conversion/CommandLine.h"

#include <cstddef>

namespace {

// Backslashes stand for themselves unless a quotation mark comes after them: then two stand for one. Quoted
// whatever it holds, because some runtimes look for files where they see a "*" outside of quotation marks.
void AppendQuoted(kmString& line, const kmString& argument) {
    line += KM_TEXT('"');
    std::size_t backslashes = 0;
    for (const kmChar unit : argument) {
        if (unit == KM_TEXT('"')) line.append(backslashes + 1, KM_TEXT('\\'));
        backslashes = unit == KM_TEXT('\\') ? backslashes + 1 : 0;
        line += unit;
    }
    line.append(backslashes, KM_TEXT('\\'));
    line += KM_TEXT('"');
}

}  // namespace

kmString CommandLineOf(const kmString& program, const std::vector<kmString>& arguments) {
    kmString line =
        KM_TEXT('"') + program + KM_TEXT('"');  // in the name backslashes always stand for themselves
    for (const kmString& argument : arguments) {
        line += KM_TEXT(' ');
        AppendQuoted(line, argument);
    }
    return line;
}
