// SPDX-License-Identifier: MIT
// What processes cost, from their start to their end: their own processor time, which leaves out the turns of
// others.
#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <stdexcept>

#include "bench/Comparison.h"
#include "text/Encoding.h"

extern char** environ;

namespace {

using Command = std::vector<std::string>;

double NanosecondsOf(const timeval& time) {
    return static_cast<double>(time.tv_sec) * 1e9 + static_cast<double>(time.tv_usec) * 1e3;
}

double RunQuietly(const Command& command) {
    std::vector<char*> arguments;
    for (const std::string& argument : command) arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
    pid_t process = 0;
    const int started = posix_spawnp(&process, arguments[0], &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    int status = 0;
    struct rusage usage {};
    if (started != 0 || wait4(process, &status, 0, &usage) != process || status != 0)
        throw std::runtime_error("cannot run " + command.front());
    return NanosecondsOf(usage.ru_utime) + NanosecondsOf(usage.ru_stime);
}

Contender Processes(std::string title, std::vector<Command> commands, std::size_t unitsEach) {
    const auto take = [commands = std::move(commands), unitsEach] {
        double sum = 0;
        for (const Command& command : commands) sum += RunQuietly(command);
        return sum / static_cast<double>(commands.size() * unitsEach);
    };
    return {std::move(title), take, {}};
}

}  // namespace

Comparison Listing(const ProfileFolder& folder, const std::filesystem::path& tool) {
    Command cat{"cat"};
    for (const ProfileFile& file : folder.files) cat.push_back(file.path);
    const Command list{tool.string(), "--folder", folder.root.string(), "list"};
    return {"us a profile",
            {Processes("cat of all files", {cat}, folder.files.size()),
             Processes("kmprofile list", {list}, folder.files.size())},
            {{1, 0, 2}}};
}

Comparison ArgumentsOf(const ProfileFolder& folder, const std::filesystem::path& tool,
                       const std::filesystem::path& emptyProgram) {
    constexpr std::size_t kProcesses = 40;
    std::vector<Command> cat, args, nothing;
    for (std::size_t i = 0; i < std::min(kProcesses, folder.files.size()); ++i) {
        const ProfileFile& file = folder.files[i * (folder.files.size() / kProcesses)];
        cat.push_back({"cat", file.path});
        args.push_back({tool.string(), "--folder", folder.root.string(), "args", BytesFromText(file.id)});
        nothing.push_back({emptyProgram.string()});
    }
    return {"us a process",
            {Processes("cat of one file", cat, 1), Processes("kmprofile args", args, 1),
             Processes("a program that does nothing", nothing, 1)},
            {{1, 0, 2}}};
}
