#include "KVUtils/Source/frame/Thread.h"

#include <chrono>

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

}  // namespace

Thread::Thread(ThreadPriorityTYPE priority) noexcept : priority_(priority) {}

Thread::~Thread() {
    if (thread_ == nullptr) return;
    thread_->Kill();
    // The routine works on this object, so nothing less than its end will do.
    while (!thread_->WaitForEnd(std::chrono::hours(1))) {
    }
}

void Thread::StartThread() {
    thread_ = platform::NativeThread::Start([this] { return Run(); });
    SetPriority(priority_);
}

void Thread::KillThread() noexcept {
    if (thread_ != nullptr) thread_->Kill();
}

void Thread::SetPriority(ThreadPriorityTYPE priority) noexcept {
    if (thread_ != nullptr) thread_->SetPriority(ToSystem(priority));
}

ThreadPriorityTYPE Thread::GetPriority() const noexcept {
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

}  // namespace kv
