// SPDX-License-Identifier: MIT
#include "conversion/ChildProcess.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <iterator>
#include <system_error>

#include "Failure.h"
#include "Printable.h"

namespace {

using Clock = std::chrono::steady_clock;

[[noreturn]] void ThrowCannotStart(const std::string& program, int error) {
    const bool isMissing = error == ENOENT && program.find('/') == std::string::npos;
    const std::string reason = isMissing ? "no such program in PATH" : std::generic_category().message(error);
    throw Failure("cannot start " + Quoted(program) + ": " + reason);
}

class File {
public:
    File() = default;
    explicit File(int file) : m_file(file) {}
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    ~File() { Close(); }

    int Get() const { return m_file; }
    void Open(int file) {
        Close();
        m_file = file;
    }
    void Close() {
        if (m_file >= 0) close(m_file);
        m_file = -1;
    }

private:
    int m_file = -1;
};

struct Pipe {
    explicit Pipe(int flags = 0) {
        int files[2];
        if (pipe2(files, O_CLOEXEC | flags) != 0) throw std::system_error(errno, std::generic_category());
        from.Open(files[0]);
        into.Open(files[1]);
    }

    File from;
    File into;
};

// The signals that came, as bytes: reading from a pipe leaves no moment in which one could be missed.
int signalsInto = -1;
int signalsFrom = -1;

void KeepSignal(int signal) {
    const int errorBefore = errno;
    const auto byte = static_cast<char>(signal);
    [[maybe_unused]] const ssize_t written = write(signalsInto, &byte, 1);  // when it is full, enough came
    errno = errorBefore;
}

// The next signal that came, else 0.
int NextSignal() {
    char byte = 0;
    return signalsFrom >= 0 && read(signalsFrom, &byte, 1) == 1 ? byte : 0;
}

// One output of the program, until it ends.
struct Stream {
    File& from;
    const OutputReader& reader;

    void Forward() {
        char bytes[65536];  // what a pipe holds
        const ssize_t got = read(from.Get(), bytes, sizeof bytes);
        if (got > 0) reader({bytes, static_cast<std::size_t>(got)});
        if (got == 0 || (got < 0 && errno != EINTR)) from.Close();
    }
};

// The running program, which does not outlive this object.
class Child {
public:
    explicit Child(pid_t id) : m_id(id) {}
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;
    ~Child() {
        if (m_hasEnded) return;
        Send(SIGKILL);
        waitpid(m_id, &m_status, 0);
    }

    void Send(int signal) const { kill(m_id, signal); }

    bool HasEnded() {
        if (!m_hasEnded) m_hasEnded = waitpid(m_id, &m_status, WNOHANG) == m_id;
        return m_hasEnded;
    }

    ChildEnd End() const {
        if (WIFEXITED(m_status)) return {ChildEnd::Kind::Exited, WEXITSTATUS(m_status)};
        return {ChildEnd::Kind::Died, WTERMSIG(m_status)};
    }

private:
    pid_t m_id;
    int m_status = 0;
    bool m_hasEnded = false;
};

pid_t Start(const std::string& program, const std::vector<std::string>& arguments, const File& output,
            const File& error) {
    std::vector<char*> words = {const_cast<char*>(program.c_str())};
    for (const std::string& argument : arguments) words.push_back(const_cast<char*>(argument.c_str()));
    words.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&actions, output.Get(), STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, error.Get(), STDERR_FILENO);
    pid_t id = 0;
    const int fault = posix_spawnp(&id, program.c_str(), &actions, nullptr, words.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (fault != 0) ThrowCannotStart(program, fault);
    return id;
}

// Waits for output or a signal, but not for long: programs can end with their outputs still held by others.
void ForwardWhatComes(Stream& output, Stream& error, int milliseconds) {
    pollfd files[] = {
        {output.from.Get(), POLLIN, 0}, {error.from.Get(), POLLIN, 0}, {signalsFrom, POLLIN, 0}};
    if (poll(files, std::size(files), milliseconds) <= 0) return;
    if (files[0].revents != 0) output.Forward();
    if (files[1].revents != 0) error.Forward();
}

// The signal that asked this program to stop, else 0. The child gets time to end after the first one.
int WaitForEnd(Child& child, Stream& output, Stream& error) {
    int first = 0;
    Clock::time_point lastMoment = Clock::time_point::max();
    while (!child.HasEnded()) {
        const bool isSilent = output.from.Get() < 0 && error.from.Get() < 0;
        ForwardWhatComes(output, error, isSilent ? 10 : 100);
        const int signal = NextSignal();
        if (signal != 0 && first == 0) {
            first = signal;
            lastMoment = Clock::now() + kPatience;
            child.Send(SIGTERM);
        } else if (signal != 0 || Clock::now() > lastMoment) {
            child.Send(SIGKILL);
        }
    }
    ForwardWhatComes(output, error, 0);
    return first != 0 ? first : NextSignal();  // a terminal sends Ctrl-C to both, and the child may be faster
}

}  // namespace

std::string CauseOfDeath(const ChildEnd& end) { return "signal " + std::to_string(end.code); }

void DeferInterrupts() {
    static const Pipe signals(O_NONBLOCK);
    signalsFrom = signals.from.Get();
    signalsInto = signals.into.Get();
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction action {};
        sigaction(signal, nullptr, &action);
        if (action.sa_handler == SIG_IGN) continue;  // as nohup wants it
        action = {};
        action.sa_handler = KeepSignal;
        action.sa_flags = SA_RESTART;
        sigaction(signal, &action, nullptr);
    }
}

ChildEnd RunChild(const std::string& program, const std::vector<std::string>& arguments,
                  const OutputReader& output, const OutputReader& error) {
    Pipe outputPipe;
    Pipe errorPipe;
    Child child(Start(program, arguments, outputPipe.into, errorPipe.into));
    outputPipe.into.Close();
    errorPipe.into.Close();
    Stream outputStream{outputPipe.from, output};
    Stream errorStream{errorPipe.from, error};
    const int signal = WaitForEnd(child, outputStream, errorStream);
    if (signal != 0) return {ChildEnd::Kind::Interrupted, signal};
    return child.End();
}
