#include "KVUtils/Source/frame/Thread.h"

#include "Platform/Threads.h"

#include <chrono>
#include <utility>

namespace kv {

namespace {

platform::Priority ToSystem(ThreadPriorityTYPE priority) noexcept {
    switch (priority) {
        case ThreadPriorityTYPE::Low:
            return platform::Priority::Low;
        case ThreadPriorityTYPE::High:
            return platform::Priority::High;
        case ThreadPriorityTYPE::Normal:
            break;
    }
    return platform::Priority::Normal;
}

/// How long the destructor waits for the routine to return before it terminates the thread.
constexpr std::chrono::milliseconds Grace{100};

}  // namespace

namespace detail {

ThreadBase::ThreadBase(ThreadPriorityTYPE priority) noexcept : priority_(priority) {}

unsigned ThreadBase::Run() { return 0; }

ThreadBase::~ThreadBase() {
    if (thread_ == nullptr) return;
    if (!thread_->WaitForEnd(Grace)) KillThread();
    // The routine uses this object, so wait for its end, however long it takes.
    while (!thread_->WaitForEnd(std::chrono::hours(1))) {
    }
}

void ThreadBase::StartThread() {
    auto hasReturned = std::make_shared<std::atomic<bool>>(false);
    thread_ = platform::NativeThread::Start([this, hasReturned] {
        unsigned const exitCode = Run();
        *hasReturned = true;
        return exitCode;
    });
    hasReturned_ = std::move(hasReturned);
    SetPriority(priority_);
}

void ThreadBase::KillThread() noexcept {
    // Terminating a thread within the system's own clean-up may hang the whole process.
    if (thread_ != nullptr && !*hasReturned_) thread_->Kill();
}

void ThreadBase::SetPriority(ThreadPriorityTYPE priority) noexcept {
    if (thread_ != nullptr) thread_->SetPriority(ToSystem(priority));
}

ThreadPriorityTYPE ThreadBase::GetPriority() const noexcept {
    if (thread_ == nullptr) return ThreadPriorityTYPE::Normal;
    switch (thread_->GetPriority()) {
        case platform::Priority::Low:
            return ThreadPriorityTYPE::Low;
        case platform::Priority::High:
            return ThreadPriorityTYPE::High;
        case platform::Priority::Normal:
            break;
    }
    return ThreadPriorityTYPE::Normal;
}

}  // namespace detail

Thread::Thread(ThreadPriorityTYPE priority) noexcept : ThreadBase(priority) {}
Thread::~Thread() = default;

}  // namespace kv
