#include "Platform/Threads.h"

#include "Platform/win32/Wide.h"

#include <cstdint>
#include <process.h>

namespace platform {

namespace {

unsigned __stdcall Run(void* argument) {
    std::unique_ptr<std::function<unsigned()>> const routine(
        static_cast<std::function<unsigned()>*>(argument));
    return (*routine)();
}

}  // namespace

struct NativeThread::State {
    detail::Handle thread;
};

NativeThread::NativeThread(std::unique_ptr<State> state) noexcept : state_(std::move(state)) {}

std::unique_ptr<NativeThread> NativeThread::Start(std::function<unsigned()> routine) {
    auto job = std::make_unique<std::function<unsigned()>>(std::move(routine));
    std::uintptr_t const thread = ::_beginthreadex(nullptr, 0, Run, job.get(), 0, nullptr);
    if (thread == 0) return nullptr;
    static_cast<void>(job.release());  // owned by the thread
    auto state = std::make_unique<State>();
    state->thread = detail::Handle(reinterpret_cast<HANDLE>(thread));  // NOLINT(performance-no-int-to-ptr)
    return std::unique_ptr<NativeThread>(new NativeThread(std::move(state)));
}

NativeThread::~NativeThread() = default;

bool NativeThread::SetPriority(Priority priority) noexcept {
    return ::SetThreadPriority(state_->thread.Get(), static_cast<int>(priority)) != 0;
}

Priority NativeThread::GetPriority() const noexcept {
    int const priority = ::GetThreadPriority(state_->thread.Get());
    if (priority == THREAD_PRIORITY_BELOW_NORMAL) return Priority::Low;
    return priority == THREAD_PRIORITY_ABOVE_NORMAL ? Priority::High : Priority::Normal;
}

bool NativeThread::WaitForEnd(std::chrono::milliseconds limit) {
    return ::WaitForSingleObject(state_->thread.Get(), static_cast<DWORD>(limit.count())) == WAIT_OBJECT_0;
}

void NativeThread::Kill() noexcept { ::TerminateThread(state_->thread.Get(), 0); }

}  // namespace platform
