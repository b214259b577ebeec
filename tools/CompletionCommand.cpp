// SPDX-License-Identifier: MIT
// What makes shells complete commands, options and profiles, made from the commands themselves.
#include <CLI/CLI.hpp>
#include <memory>
#include <string>
#include <vector>

#include "CommandTree.h"
#include "Commands.h"
#include "Console.h"
#include "Failure.h"
#include "Printable.h"

namespace {

using Commands = std::vector<const CLI::App*>;

// Of the options that have them, "--name".
std::string LongNames(const CLI::App& command) {
    std::string names;
    for (const OptionText& option : OptionsOf(command)) {
        if (!option.isPositional) names += (names.empty() ? "" : " ") + option.names.back();
    }
    return names;
}

std::string CommandNames(const Commands& commands, const char* separator, bool withProfileOnly) {
    std::string names;
    for (const CLI::App* command : commands) {
        if (!withProfileOnly || TakesProfile(*command))
            names += (names.empty() ? "" : separator) + command->get_name();
    }
    return names;
}

// For texts within '...'; those of the commands hold neither \ nor line breaks.
std::string InQuotes(const std::string& text, const char* quote) {
    std::string quoted = "'";
    for (const char c : text) quoted += c == '\'' ? quote : std::string(1, c);
    return quoted + '\'';
}

std::string BashCompletion(const CLI::App& app, const Commands& commands) {
    std::string script = R"sh(# bash completion for kmprofile
_kmprofile() {
    local current=${COMP_WORDS[COMP_CWORD]} command= words= quoted= i id
    local -a folder=()
    for ((i = 1; i < COMP_CWORD; ++i)); do
        case ${COMP_WORDS[i]} in
            --folder) folder=(--folder "${COMP_WORDS[++i]}") ;;
            -*) ;;
            *) [[ -n $command ]] || command=${COMP_WORDS[i]} ;;
        esac
    done
    COMPREPLY=()
    if [[ ${COMP_WORDS[COMP_CWORD - 1]} == --folder ]]; then
        compopt -o filenames
        mapfile -t COMPREPLY < <(compgen -d -- "$current")
        return
    fi
    case $command in
)sh";
    script += "        '') words=" + InQuotes(CommandNames(commands, " ", false) + ' ' + LongNames(app), "") +
              " ;;\n";
    for (const CLI::App* command : commands)
        script += "        " + command->get_name() +
                  ") words=" + InQuotes(LongNames(*command) + " --folder", "") + " ;;\n";
    return script + R"sh(    esac
    if [[ -z $command || $current == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current")
        return
    fi
    case $command in
        )sh" +
           CommandNames(commands, "|", true) +
           R"sh()
            quoted=${current%%[!\"\']*}
            current=${current#[\"\']}
            [[ -n $quoted ]] || current=${current//\\/}
            while IFS= read -r id; do
                [[ $id == "$current"* ]] || continue
                if [[ -n $quoted ]]; then COMPREPLY+=("$id"); else COMPREPLY+=("$(printf %q "$id")"); fi
            done < <("${COMP_WORDS[0]}" list --ids "${folder[@]}" 2> /dev/null)
            ;;
        help) mapfile -t COMPREPLY < <(compgen -W ')sh" +
           CommandNames(commands, " ", false) + R"sh(' -- "$current") ;;
    esac
    [[ ${#COMPREPLY[@]} -gt 0 ]] || compopt -o default
}
complete -F _kmprofile kmprofile
)sh";
}

std::string ZshOptions(const CLI::App& command) {
    std::string text;
    for (const OptionText& option : OptionsOf(command)) {
        if (option.isPositional) continue;
        std::string description;
        for (const char c : option.description) {
            if (c == '[' || c == ']' || c == ':') description += '\\';
            description += c;
        }
        const std::string value = option.valueName.empty()    ? ""
                                  : option.valueName == "DIR" ? ":folder:_files -/"
                                                              : ":" + option.valueName + ":";
        text += " \\\n                " +
                InQuotes(option.names.back() + '[' + description + ']' + value, "'\\''");
    }
    return text;
}

std::string ZshCompletion(const CLI::App& app, const Commands& commands) {
    std::string script =
        "#compdef kmprofile\n"
        "_kmprofile_ids() {\n"
        "    local -a ids\n"
        "    ids=(\"${(@f)$(kmprofile list --ids 2> /dev/null)}\")\n"
        "    compadd -a ids\n"
        "}\n"
        "_kmprofile() {\n"
        "    local -a commands\n"
        "    commands=(\n";
    for (const CLI::App* command : commands)
        script +=
            "        " + InQuotes(command->get_name() + ':' + command->get_description(), "'\\''") + '\n';
    script +=
        "    )\n    local curcontext=$curcontext state line\n    _arguments -C" + ZshOptions(app) +
        " \\\n        '1:command:->command' '*::argument:->argument'\n    case $state in\n"
        "        command) _describe command commands ;;\n        argument)\n            case $words[1] in\n";
    for (const CLI::App* command : commands) {
        const std::string rest =
            TakesProfile(*command) ? " '*:profile:_kmprofile_ids'" : " '*:argument:_files'";
        script +=
            "                " + command->get_name() + ") _arguments" + ZshOptions(*command) + rest + " ;;\n";
    }
    return script + "            esac ;;\n    esac\n}\n_kmprofile \"$@\"\n";
}

std::string FishOptions(const CLI::App& command, const std::string& condition) {
    std::string text;
    for (const OptionText& option : OptionsOf(command)) {
        if (option.isPositional) continue;
        text += "complete -c kmprofile" + condition + " -l " + option.names.back().substr(2) +
                (option.valueName.empty() ? "" : " -r") + (option.valueName == "DIR" ? " -F" : "") + " -d " +
                InQuotes(option.description, "\\'") + '\n';
    }
    return text;
}

std::string FishCompletion(const CLI::App& app, const Commands& commands) {
    std::string script = "# fish completion for kmprofile\n" + FishOptions(app, "");
    for (const CLI::App* command : commands) {
        script += "complete -c kmprofile -n __fish_use_subcommand -f -a " + command->get_name() + " -d " +
                  InQuotes(command->get_description(), "\\'") + '\n' +
                  FishOptions(*command, " -n '__fish_seen_subcommand_from " + command->get_name() + "'");
    }
    return script + "complete -c kmprofile -n '__fish_seen_subcommand_from " +
           CommandNames(commands, " ", true) + "' -a '(kmprofile list --ids 2> /dev/null)'\n";
}

struct Shell {
    const char* name;
    std::string (*completion)(const CLI::App& app, const Commands& commands);
};
constexpr Shell kShells[] = {{"bash", BashCompletion}, {"zsh", ZshCompletion}, {"fish", FishCompletion}};

void PrintCompletion(const CLI::App& app, const std::string& name) {
    for (const Shell& shell : kShells) {
        if (name == shell.name) return Print(shell.completion(app, CommandsOf(app)));
    }
    throw UsageFailure("SHELL: " + Quoted(name) + " is neither bash, zsh nor fish");
}

}  // namespace

void AddCompletionCommand(CLI::App& app) {
    auto shell = std::make_shared<std::string>();
    CLI::App* command =
        app.add_subcommand("completion", "Print what makes a shell complete commands and IDs");
    command->add_option("SHELL", *shell, "bash, zsh or fish")->required();
    command->footer(R"(Packages install these files already.

Examples:
  source <(kmprofile completion bash)
  kmprofile completion fish > ~/.config/fish/completions/kmprofile.fish)");
    command->callback([shell, &app] { PrintCompletion(app, *shell); });
}
