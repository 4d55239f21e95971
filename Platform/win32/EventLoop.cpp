#include "Platform/EventLoop.h"

#include <windows.h>

namespace platform {

namespace {

// Created at the first call and never closed: threads may wake the loop while the program exits.
HANDLE WakeUp() noexcept {
    static HANDLE const event = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    return event;
}

}  // namespace

bool EventLoop::DispatchOne() {
    MSG message;
    if (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) == 0) return false;
    TranslateMessage(&message);
    DispatchMessageW(&message);
    return true;
}

void EventLoop::Wait(std::chrono::milliseconds limit) {
    HANDLE const event = WakeUp();
    DWORD const time = limit.count() < 0 ? INFINITE : static_cast<DWORD>(limit.count());
    MsgWaitForMultipleObjectsEx(1, &event, time, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
}

void EventLoop::Wake() noexcept { SetEvent(WakeUp()); }

int EventLoop::Descriptor() { return -1; }

}  // namespace platform
