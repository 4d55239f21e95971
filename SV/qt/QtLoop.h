// QtLoop: connects the application's event loop to Qt's.
#pragma once

#include "SV/core/detail/LoopDriver.h"

#include <QSocketNotifier>
#include <exception>
#include <memory>
#include <mutex>

namespace sv::qt {

/// One per process, never destroyed. Only `Wake` is thread-safe.
/// NOLINTNEXTLINE(cppcoreguidelines-virtual-class-destructor)
class QtLoop final : public detail::LoopDriver {
  public:
    /// Never destroyed, since threads may call `Wake` while the program exits.
    static QtLoop& Instance();

    /// Called when Qt's application is created and before it is destroyed.
    void Start();
    void Stop();

    bool DispatchOne() override;
    void Wait(std::chrono::milliseconds limit) override;
    void Wake() noexcept override;
    void ShowWaiting(bool waiting) override;

    /// Calls a handler of the program from one of Qt's. Exceptions cannot pass through Qt: the loop rethrows
    /// them afterwards.
    template <class Handler>
    void Call(Handler const& handler) noexcept {
        try {
            handler();
        } catch (...) {
            thrown_ = std::current_exception();
        }
    }

  private:
    bool ProcessQt(bool mayWait);

    std::mutex mutex_;  // guards `isRunning_` while `Wake` uses it
    bool isRunning_ = false;
    bool isWaitingShown_ = false;
    int depth_ = 0;
    int waits_ = 0;
    std::unique_ptr<QSocketNotifier> platform_;
    std::exception_ptr thrown_;
};

}  // namespace sv::qt
