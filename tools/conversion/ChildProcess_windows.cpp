// SPDX-License-Identifier: MIT
#ifndef NOMINMAX
#define NOMINMAX
#endif
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <algorithm>
#include <csignal>
#include <cstddef>
#include <cstdio>
#include <iterator>
#include <system_error>
#include <utility>

#include "Failure.h"
#include "Printable.h"
#include "conversion/ChildProcess.h"
#include "conversion/CommandLine.h"
#include "kmText.h"

namespace {

using Clock = std::chrono::steady_clock;

constexpr DWORD kPipeSize = 65536;
constexpr DWORD kPause = 20;  // milliseconds between two looks at the outputs, which cannot be waited for

Failure CannotStart(const std::string& program, const std::string& reason) {
    return Failure("cannot start " + Quoted(program) + ": " + reason);
}

class Handle {
public:
    Handle() = default;
    explicit Handle(HANDLE handle) : m_handle(handle) {}
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle() { Close(); }

    HANDLE Get() const { return m_handle; }
    HANDLE* Receive() { return &m_handle; }
    void Close() {
        if (m_handle != nullptr && m_handle != INVALID_HANDLE_VALUE) CloseHandle(m_handle);
        m_handle = nullptr;
    }

private:
    HANDLE m_handle = nullptr;
};

[[noreturn]] void ThrowLastError() {
    throw std::system_error(static_cast<int>(GetLastError()), std::system_category());
}

struct Pipe {
    Pipe() {
        if (CreatePipe(from.Receive(), into.Receive(), nullptr, kPipeSize) == 0) ThrowLastError();
        SetHandleInformation(into.Get(), HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT);
    }

    Handle from;
    Handle into;
};

// Set when this program is asked to stop.
HANDLE stopEvent = nullptr;

// Runs in a thread of its own. After the answer to some of the requests the system ends the program, whether
// or not it has tidied up.
BOOL WINAPI KeepRequest(DWORD request) {
    SetEvent(stopEvent);
    const bool isPatient = request == CTRL_C_EVENT || request == CTRL_BREAK_EVENT;
    if (!isPatient) Sleep(INFINITE);
    return TRUE;
}

bool IsSet(HANDLE event) { return event != nullptr && WaitForSingleObject(event, 0) == WAIT_OBJECT_0; }

std::wstring PathVariable() {
    std::wstring value(GetEnvironmentVariableW(L"PATH", nullptr, 0), L'\0');
    value.resize(GetEnvironmentVariableW(L"PATH", value.data(), static_cast<DWORD>(value.size())));
    return value;
}

// The file of the program. Never looked for in the current folder, where anybody's files may be.
std::wstring FindProgram(const std::string& program) {
    const std::wstring name = kmTextFromUtf8(program);
    const bool hasFolder = name.find_first_of(L"\\/:") != std::wstring::npos;
    const std::wstring folders = hasFolder ? L"." : PathVariable();
    wchar_t found[32768];
    const DWORD length = SearchPathW(folders.c_str(), name.c_str(), L".exe",
                                     static_cast<DWORD>(std::size(found)), found, nullptr);
    if (length == 0 || length >= std::size(found))
        throw CannotStart(program, hasFolder ? "no such program" : "no such program in PATH");
    return {found, length};
}

// A file of commands would take its arguments apart by rules that nobody can quote for.
void RequireProgram(const std::string& program, const std::wstring& file) {
    const std::wstring end = file.substr(file.size() - std::min<std::size_t>(file.size(), 4));
    if (CompareStringOrdinal(end.c_str(), -1, L".exe", -1, TRUE) != CSTR_EQUAL)
        throw CannotStart(program, "it is no .exe file");
}

// Exactly these handles reach the program, and no other that happens to be open.
class Inheritance {
public:
    explicit Inheritance(std::vector<HANDLE> handles) : m_handles(std::move(handles)) {
        SIZE_T size = 0;
        InitializeProcThreadAttributeList(nullptr, 1, 0, &size);
        m_memory.resize(size);
        if (InitializeProcThreadAttributeList(Get(), 1, 0, &size) == 0) ThrowLastError();
        UpdateProcThreadAttribute(Get(), 0, PROC_THREAD_ATTRIBUTE_HANDLE_LIST, m_handles.data(),
                                  m_handles.size() * sizeof(HANDLE), nullptr, nullptr);
    }
    Inheritance(const Inheritance&) = delete;
    Inheritance& operator=(const Inheritance&) = delete;
    ~Inheritance() { DeleteProcThreadAttributeList(Get()); }

    LPPROC_THREAD_ATTRIBUTE_LIST Get() {
        return reinterpret_cast<LPPROC_THREAD_ATTRIBUTE_LIST>(m_memory.data());
    }

private:
    std::vector<HANDLE> m_handles;
    std::vector<std::byte> m_memory;
};

std::wstring CommandLineFor(const std::wstring& file, const std::vector<std::string>& arguments) {
    std::vector<std::wstring> texts;
    for (const std::string& argument : arguments) texts.push_back(kmTextFromUtf8(argument));
    return CommandLineOf(file, texts);
}

HANDLE Start(const std::string& program, const std::vector<std::string>& arguments, const Pipe& output,
             const Pipe& error) {
    const std::wstring file = FindProgram(program);
    RequireProgram(program, file);
    std::wstring line = CommandLineFor(file, arguments);
    SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
    const Handle nothing(CreateFileW(L"NUL", GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited,
                                     OPEN_EXISTING, 0, nullptr));
    Inheritance inheritance({nothing.Get(), output.into.Get(), error.into.Get()});
    STARTUPINFOEXW startup{};
    startup.StartupInfo.cb = sizeof startup;
    startup.StartupInfo.dwFlags = STARTF_USESTDHANDLES;
    startup.StartupInfo.hStdInput = nothing.Get();
    startup.StartupInfo.hStdOutput = output.into.Get();
    startup.StartupInfo.hStdError = error.into.Get();
    startup.lpAttributeList = inheritance.Get();
    PROCESS_INFORMATION process{};
    if (CreateProcessW(file.c_str(), line.data(), nullptr, nullptr, TRUE, EXTENDED_STARTUPINFO_PRESENT,
                       nullptr, nullptr, &startup.StartupInfo, &process) == 0)
        throw CannotStart(program, "Windows error " + std::to_string(GetLastError()));
    CloseHandle(process.hThread);
    return process.hProcess;
}

// What the program has written so far. False when it was nothing.
bool Forward(const Handle& from, const OutputReader& reader) {
    DWORD available = 0;
    if (PeekNamedPipe(from.Get(), nullptr, 0, nullptr, &available, nullptr) == 0 || available == 0)
        return false;
    std::vector<char> bytes(available);
    DWORD got = 0;
    if (ReadFile(from.Get(), bytes.data(), available, &got, nullptr) == 0) return false;
    reader({bytes.data(), got});
    return true;
}

// The running program, which does not outlive this object.
class Child {
public:
    explicit Child(HANDLE process) : m_process(process) {}
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;
    ~Child() {
        Kill();
        WaitForSingleObject(m_process.Get(), INFINITE);
    }

    bool HasEnded(DWORD milliseconds) const {
        return WaitForSingleObject(m_process.Get(), milliseconds) == WAIT_OBJECT_0;
    }
    void Kill() const { TerminateProcess(m_process.Get(), 1); }

    // An exception's number has its highest bit set.
    ChildEnd End() const {
        DWORD status = 0;
        GetExitCodeProcess(m_process.Get(), &status);
        const bool isException = (status & 0xC0000000) == 0xC0000000 && status != 0xFFFFFFFF;
        return {isException ? ChildEnd::Kind::Died : ChildEnd::Kind::Exited, static_cast<int>(status)};
    }

private:
    Handle m_process;
};

}  // namespace

std::string CauseOfDeath(const ChildEnd& end) {
    char number[16];
    std::snprintf(number, sizeof number, "0x%08X", static_cast<unsigned>(end.code));
    return std::string("exception ") + number;
}

void DeferInterrupts() {
    stopEvent = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    SetConsoleCtrlHandler(KeepRequest, TRUE);
}

// The console has passed the request on to the program too, which has its time to end.
ChildEnd RunChild(const std::string& program, const std::vector<std::string>& arguments,
                  const OutputReader& output, const OutputReader& error) {
    Pipe outputPipe;
    Pipe errorPipe;
    const Child child(Start(program, arguments, outputPipe, errorPipe));
    outputPipe.into.Close();
    errorPipe.into.Close();
    Clock::time_point lastMoment = Clock::time_point::max();
    DWORD pause = 0;
    while (!child.HasEnded(pause)) {
        const bool hasOutput = Forward(outputPipe.from, output);
        pause = Forward(errorPipe.from, error) || hasOutput ? 0 : kPause;
        const auto now = Clock::now();
        if (IsSet(stopEvent)) lastMoment = std::min(lastMoment, now + kPatience);
        if (now > lastMoment) child.Kill();
    }
    Forward(outputPipe.from, output);
    Forward(errorPipe.from, error);
    if (IsSet(stopEvent)) return {ChildEnd::Kind::Interrupted, SIGINT};
    return child.End();
}
