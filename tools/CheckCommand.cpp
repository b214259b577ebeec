// SPDX-License-Identifier: MIT
#include <CLI/CLI.hpp>
#include <memory>
#include <string>

#include "Commands.h"
#include "Console.h"
#include "Failure.h"
#include "Json.h"
#include "Printable.h"
#include "kmArgOption.h"
#include "kmProfileItem.h"
#include "kmText.h"

namespace {

struct CheckArguments {
    std::string name;
    std::string value;
    bool asJson = false;
};

// The refusal is this command's answer, so it goes to standard output; the exit status says it too.
void Check(const CheckArguments& arguments) {
    if (arguments.name.empty()) throw UsageFailure("the option's name is empty");
    kmString message;
    const kmString name = kmTextFromUtf8(arguments.name);
    if (kmArgOption::GetArgOption(name.c_str()) == nullptr)
        PrintWarning(Quoted(arguments.name) + " is no option of the encoder");
    const bool isGood = kmProfileItem::Check(message, name.c_str(), kmTextFromUtf8(arguments.value).c_str());
    if (arguments.asJson) PrintJson({{"acceptable", isGood}, {"message", JsonText(message)}});
    if (isGood) return;
    if (!arguments.asJson) Print(kmUtf8FromText(message) + '\n');
    throw Failure("");
}

}  // namespace

void AddCheckCommand(CLI::App& app) {
    auto arguments = std::make_shared<CheckArguments>();
    CLI::App* command = app.add_subcommand("check", "Tell whether a value is acceptable for an option");
    command->add_option("NAME", arguments->name, "The option, without its \"-\"")->required();
    command->add_option("VALUE", arguments->value, "The value as a person would type it")->required();
    AddJsonFlag(*command, arguments->asJson);
    command->footer(R"(Prints nothing for an acceptable value, else the reason, with exit status 1.
Options whose values are free accept everything. Write "--" before a value that begins with "-".

Examples:
  kmprofile check s 640x480
  kmprofile check r 30000/1001)");
    command->callback([arguments] { Check(*arguments); });
}
