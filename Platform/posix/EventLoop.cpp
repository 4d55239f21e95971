#include "Platform/EventLoop.h"

#include "Platform/posix/Poller.h"

namespace platform {

bool EventLoop::DispatchOne() { return detail::Poller::Instance().DispatchOne(); }

void EventLoop::Wait(std::chrono::milliseconds limit) { detail::Poller::Instance().Wait(limit); }

void EventLoop::Wake() noexcept { detail::Poller::Instance().Wake(); }

int EventLoop::Descriptor() { return detail::Poller::Instance().Descriptor(); }

}  // namespace platform
