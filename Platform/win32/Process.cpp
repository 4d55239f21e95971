#include "Platform/Process.h"

#include "Platform/win32/Wide.h"

namespace platform {

namespace {

/// Quotes a word so that the usual parsing of a command line restores it: backslashes are doubled before a
/// quote, and quotes are escaped.
std::wstring Quoted(std::wstring const& word) {
    std::wstring quoted = L"\"";
    std::size_t backslashes = 0;
    for (wchar_t const character : word) {
        if (character == L'"') quoted.append(backslashes + 1, L'\\');
        backslashes = character == L'\\' ? backslashes + 1 : 0;
        quoted += character;
    }
    return quoted.append(backslashes, L'\\') += L'"';
}

}  // namespace

struct Process::State {
    detail::Handle process;
};

Process::Process(std::unique_ptr<State> state) noexcept : state_(std::move(state)) {}

std::unique_ptr<Process> Process::Start(std::string const& program,
                                        std::vector<std::string> const& arguments) {
    std::wstring line = Quoted(detail::Widen(program));
    for (std::string const& argument : arguments) line += L' ' + Quoted(detail::Widen(argument));
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION started = {};
    if (::CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                         &started) == 0) {
        return nullptr;
    }
    detail::Handle const thread(started.hThread);
    auto state = std::make_unique<State>();
    state->process = detail::Handle(started.hProcess);
    return std::unique_ptr<Process>(new Process(std::move(state)));
}

Process::~Process() = default;

long Process::Id() const noexcept { return static_cast<long>(::GetProcessId(state_->process.Get())); }

bool Process::IsRunning() noexcept { return ::WaitForSingleObject(state_->process.Get(), 0) == WAIT_TIMEOUT; }

int Process::Wait() noexcept {
    ::WaitForSingleObject(state_->process.Get(), INFINITE);
    DWORD code = 0;
    ::GetExitCodeProcess(state_->process.Get(), &code);
    return static_cast<int>(code);
}

void Process::Kill() noexcept { ::TerminateProcess(state_->process.Get(), static_cast<UINT>(Killed)); }

unsigned long ProcessNumber() noexcept { return GetCurrentProcessId(); }

}  // namespace platform
