#include "SV/qt/QtLoop.h"

#include "Platform/EventLoop.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QTimer>
#include <utility>

namespace sv::qt {

QtLoop& QtLoop::Instance() {
    static QtLoop& loop = *new QtLoop;
    return loop;
}

void QtLoop::Start() {
    if (int const descriptor = platform::EventLoop::Descriptor(); descriptor >= 0) {
        platform_ = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Read);
        platform_->setEnabled(false);
    }
    std::lock_guard const lock(mutex_);
    isRunning_ = true;
}

void QtLoop::Stop() {
    ShowWaiting(false);
    platform_ = nullptr;
    std::lock_guard const lock(mutex_);
    isRunning_ = false;
}

bool QtLoop::DispatchOne() {
    bool const hadEvent = platform::EventLoop::DispatchOne();
    return ProcessQt(false) || hadEvent;
}

void QtLoop::Wait(std::chrono::milliseconds limit) {
    // An idle handler may have left an event in the platform's queue, which the descriptor does not show.
    if (platform::EventLoop::DispatchOne()) return;
    QTimer timer;
    timer.setSingleShot(true);
    timer.setTimerType(Qt::PreciseTimer);
    if (limit.count() >= 0) timer.start(limit);
    ++waits_;
    if (platform_ != nullptr) platform_->setEnabled(true);
    ProcessQt(true);
    --waits_;
    // A wait inside a handler leaves the descriptor to the outer wait.
    if (platform_ != nullptr) platform_->setEnabled(waits_ > 0);
}

void QtLoop::Wake() noexcept {
    std::lock_guard const lock(mutex_);
    if (isRunning_) QCoreApplication::eventDispatcher()->wakeUp();
}

void QtLoop::ShowWaiting(bool waiting) {
    if (std::exchange(isWaitingShown_, waiting) == waiting) return;
    if (waiting) {
        QApplication::setOverrideCursor(Qt::WaitCursor);
    } else {
        QApplication::restoreOverrideCursor();
    }
}

bool QtLoop::ProcessQt(bool mayWait) {
    ++depth_;
    bool const hadEvent = QCoreApplication::eventDispatcher()->processEvents(
        mayWait ? QEventLoop::WaitForMoreEvents : QEventLoop::AllEvents);
    --depth_;
    // Qt deletes objects itself only if they were released inside one of its own handlers.
    if (depth_ == 0) QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    if (std::exception_ptr const thrown = std::exchange(thrown_, nullptr)) std::rethrow_exception(thrown);
    return hadEvent;
}

}  // namespace sv::qt
