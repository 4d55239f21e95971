// QtLoop: lets the application's event loop take events from Qt and wait in it.
#pragma once

#include "SV/core/detail/LoopDriver.h"

#include <QSocketNotifier>
#include <exception>
#include <memory>
#include <mutex>

namespace sv::qt {

/// One per process, never destroyed. All operations but `Wake` belong to the main thread.
// NOLINTNEXTLINE(cppcoreguidelines-virtual-class-destructor)
class QtLoop final : public detail::LoopDriver {
  public:
    /// Threads may wake it while the program ends.
    static QtLoop& Instance();

    /// From the making of Qt's application to its end.
    void Start();
    void Stop();

    bool DispatchOne() override;
    void Wait(std::chrono::milliseconds limit) override;
    void Wake() noexcept override;
    void ShowWaiting(bool waiting) override;

    /// Calls a handler of the program from one of Qt's, through which no exception may pass: the loop throws
    /// it again when it is back.
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

    std::mutex mutex_;  // guards `isRunning_` against its use by `Wake`
    bool isRunning_ = false;
    bool isWaitingShown_ = false;
    int depth_ = 0;
    int waits_ = 0;
    std::unique_ptr<QSocketNotifier> platform_;
    std::exception_ptr thrown_;
};

}  // namespace sv::qt
