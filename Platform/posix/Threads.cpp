#include "Platform/Threads.h"

#include <cerrno>
#include <condition_variable>
#include <mutex>
#include <pthread.h>
#include <sys/resource.h>
#include <unistd.h>
#include <utility>

namespace platform {

namespace {

/// State shared by the thread and its owner.
struct Shared {
    std::mutex mutex;
    std::condition_variable changed;
    pid_t id = 0;  // of the scheduler; 0 before the thread runs
    bool hasEnded = false;
};

struct Job {
    std::function<unsigned()> routine;
    std::shared_ptr<Shared> shared;
};

/// Reports the thread's start and end to its owner, even if it is cancelled.
class Announcement {
  public:
    explicit Announcement(Shared& shared) : shared_(shared) {
        std::lock_guard const lock(shared_.mutex);
        shared_.id = ::gettid();
        shared_.changed.notify_all();
    }
    Announcement(Announcement const&) = delete;
    Announcement& operator=(Announcement const&) = delete;
    ~Announcement() {
        std::lock_guard const lock(shared_.mutex);
        shared_.hasEnded = true;
        shared_.changed.notify_all();
    }

  private:
    Shared& shared_;
};

void* Run(void* argument) {
    std::unique_ptr<Job> const job(static_cast<Job*>(argument));
    Announcement const announcement(*job->shared);
    job->routine();
    return nullptr;
}

/// One step of priority in "nice" values, of which lower ones have precedence.
constexpr int NiceStep = 5;

}  // namespace

struct NativeThread::State {
    pthread_t handle = 0;
    std::shared_ptr<Shared> shared;
    int normal = 0;  // the nice value at the start
    Priority last = Priority::Normal;
};

NativeThread::NativeThread(std::unique_ptr<State> state) noexcept : state_(std::move(state)) {}

std::unique_ptr<NativeThread> NativeThread::Start(std::function<unsigned()> routine) {
    auto state = std::make_unique<State>();
    state->shared = std::make_shared<Shared>();
    auto job = std::make_unique<Job>(Job{std::move(routine), state->shared});
    state->normal = ::getpriority(PRIO_PROCESS, 0);
    if (::pthread_create(&state->handle, nullptr, Run, job.get()) != 0) return nullptr;
    static_cast<void>(job.release());  // owned by the thread
    std::unique_lock lock(state->shared->mutex);
    state->shared->changed.wait(lock, [&] { return state->shared->id != 0; });
    lock.unlock();
    return std::unique_ptr<NativeThread>(new NativeThread(std::move(state)));
}

NativeThread::~NativeThread() { ::pthread_detach(state_->handle); }

bool NativeThread::SetPriority(Priority priority) noexcept {
    // Holding the lock keeps the thread from ending and its number from being reused.
    std::lock_guard const lock(state_->shared->mutex);
    if (state_->shared->hasEnded) return false;
    int const nice = state_->normal - NiceStep * static_cast<int>(priority);
    if (::setpriority(PRIO_PROCESS, static_cast<id_t>(state_->shared->id), nice) != 0) return false;
    state_->last = priority;
    return true;
}

Priority NativeThread::GetPriority() const noexcept {
    std::lock_guard const lock(state_->shared->mutex);
    if (state_->shared->hasEnded) return state_->last;
    int const nice = ::getpriority(PRIO_PROCESS, static_cast<id_t>(state_->shared->id));
    if (nice == state_->normal) return Priority::Normal;
    return nice > state_->normal ? Priority::Low : Priority::High;
}

bool NativeThread::WaitForEnd(std::chrono::milliseconds limit) {
    std::unique_lock lock(state_->shared->mutex);
    return state_->shared->changed.wait_for(lock, limit, [&] { return state_->shared->hasEnded; });
}

void NativeThread::Kill() noexcept { ::pthread_cancel(state_->handle); }

}  // namespace platform
