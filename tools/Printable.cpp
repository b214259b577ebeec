#include "Printable.h"

#include <algorithm>

#include "kmFolders.h"
#include "kmText.h"

namespace {

bool IsControl(kmChar unit) { return unit < 0x20 || (unit >= 0x7F && unit <= 0x9F); }

}  // namespace

std::string Printable(std::string_view text) {
    kmString units = kmTextFromUtf8(text);
    std::replace_if(units.begin(), units.end(), IsControl, KM_TEXT(' '));
    return kmUtf8FromText(units);
}

std::string Quoted(std::string_view text) { return '"' + Printable(text) + '"'; }

std::string QuotedID(const kmString& id) { return Quoted(kmUtf8FromPath(id)); }
