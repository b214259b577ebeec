// SPDX-License-Identifier: MIT
// The manual page, made from what --help prints.
#include <CLI/CLI.hpp>
#include <sstream>
#include <string>
#include <string_view>

#include "CommandTree.h"
#include "Commands.h"
#include "Console.h"

namespace {

// The formatter must take nothing in the text for a request of its own.
std::string Escaped(std::string_view text) {
    std::string escaped;
    bool atLineStart = true;
    for (const char c : text) {
        if (atLineStart && (c == '.' || c == '\'')) escaped += "\\&";
        if (c == '\\') {
            escaped += "\\e";
        } else if (c == '-') {
            escaped += "\\-";
        } else {
            escaped += c;
        }
        atLineStart = c == '\n';
    }
    return escaped;
}

std::string Joined(const OptionText& option) {
    std::string text;
    for (const std::string& name : option.names)
        text += (text.empty() ? "\\fB" : ", \\fB") + Escaped(name) + "\\fR";
    return option.valueName.empty() ? text : text + " \\fI" + Escaped(option.valueName) + "\\fR";
}

std::string OptionList(const CLI::App& command) {
    std::string text;
    for (const OptionText& option : OptionsOf(command)) {
        if (option.names.back() == "--help") continue;
        text += ".TP\n" + Joined(option) + '\n' + Escaped(option.description) + '\n';
    }
    return text;
}

// As it stands, line by line.
std::string Literal(const std::string& text) {
    return text.empty() ? text : ".PP\n.nf\n" + Escaped(text) + "\n.fi\n";
}

std::string CommandSection(const CLI::App& command) {
    return ".SS " + Escaped(command.get_name()) + "\n.B " + Escaped(UsageOf(command)) + "\n.PP\n" +
           Escaped(command.get_description()) + ".\n" + OptionList(command) + Literal(command.get_footer());
}

std::string ManualPage(const CLI::App& app) {
    std::string page = ".TH KMPROFILE 1 \"\" \"kmprofile " KM_VERSION "\" \"User Commands\"\n";
    page += ".SH NAME\nkmprofile \\- " + Escaped("encoding profiles on the command line") + '\n';
    page += ".SH SYNOPSIS\n.B kmprofile\n[\\fB\\-\\-folder\\fR \\fIDIR\\fR] \\fICOMMAND\\fR ...\n";
    page += ".SH DESCRIPTION\n" + Escaped(app.get_description()) + '\n';
    page += ".SH OPTIONS\n" + OptionList(app);
    page += ".SH COMMANDS\n";
    for (const CLI::App* command : CommandsOf(app)) page += CommandSection(*command);
    return page + ".SH NOTES\n" + Literal(app.get_footer());
}

}  // namespace

void AddManualCommand(CLI::App& app) {
    CLI::App* command = app.add_subcommand("manual", "Print the manual page, for man");
    command->group("");  // for packages, not for people
    command->callback([&app] { Print(ManualPage(app)); });
}
