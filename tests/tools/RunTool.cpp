// SPDX-License-Identifier: MIT
#include "tests/tools/RunTool.h"

#include <fcntl.h>
#include <pty.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>

namespace {

constexpr int kCannotStart = 127;

void SendTo(const char* file, int stream) {
    if (dup2(open(file, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600), stream) < 0) _exit(kCannotStart);
}

[[noreturn]] void Become(const TemporaryFolder& folder, std::vector<std::string> arguments, Output output) {
    if (chdir(folder.SystemPath().c_str()) != 0) _exit(kCannotStart);
    SendTo("error", STDERR_FILENO);
    if (output == Output::File) SendTo("output", STDOUT_FILENO);
    const rlimit seconds = {10, 10};
    setrlimit(RLIMIT_CPU, &seconds);
    setenv("ASAN_OPTIONS", "abort_on_error=1", 1);
    setenv("UBSAN_OPTIONS", "abort_on_error=1", 1);
    arguments.insert(arguments.begin(), "kmprofile");
    std::vector<char*> words;
    for (std::string& argument : arguments) words.push_back(argument.data());
    words.push_back(nullptr);
    execv(KM_TOOL, words.data());
    _exit(kCannotStart);
}

std::string ReadToEnd(int terminal) {
    std::string text;
    char bytes[4096];
    for (ssize_t got = 0; (got = read(terminal, bytes, sizeof bytes)) > 0;)
        text.append(bytes, static_cast<std::size_t>(got));
    close(terminal);
    return text;
}

}  // namespace

std::ostream& operator<<(std::ostream& stream, const ToolRun& run) {
    return stream << run.given << "\nstatus " << run.status << "\noutput <" << run.output << ">\nerror <"
                  << run.error << '>';
}

ToolRun RunTool(const TemporaryFolder& folder, const std::vector<std::string>& arguments, Output output) {
    ToolRun run;
    for (const std::string& argument : arguments) run.given += (run.given.empty() ? "" : " ") + argument;
    termios asItIs{};
    cfmakeraw(&asItIs);
    int terminal = -1;
    const pid_t child = forkpty(&terminal, nullptr, &asItIs, nullptr);
    if (child == 0) Become(folder, arguments, output);
    if (child < 0) throw std::runtime_error("cannot start the tool");
    run.output = ReadToEnd(terminal);
    int status = 0;
    waitpid(child, &status, 0);
    run.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    if (output == Output::File) run.output = ReadBytes(folder.SystemPath(KM_TEXT("output")));
    run.error = ReadBytes(folder.SystemPath(KM_TEXT("error")));
    return run;
}
