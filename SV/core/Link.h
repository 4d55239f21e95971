// sv::Link: a callback made of an object and one of its member functions, called with the sender.
#pragma once

namespace sv {

class Link {
  public:
    /// An empty link, whose call returns 0.
    constexpr Link() noexcept = default;

    /// Returns a link that calls `(object.*Handler)(sender)`. The object is not owned and must outlive the
    /// link.
    ///     closeButton.clickLink = Link::To<&Panel::CloseHdl>(panel);
    template <auto Handler, class Object>
    [[nodiscard]] static constexpr Link To(Object& object) noexcept {
        return Link(&object, [](void* target, void* sender) -> long {
            return Dispatch(Handler, *static_cast<Object*>(target), sender);
        });
    }

    [[nodiscard]] constexpr bool IsSet() const noexcept { return stub_ != nullptr; }

    /// Calls the handler and returns its result, or 0 if there is none. The sender must be of the type that
    /// the handler takes.
    long Call(void* sender) const { return stub_ == nullptr ? 0 : stub_(object_, sender); }

    friend constexpr bool operator==(Link const&, Link const&) noexcept = default;

  private:
    using Stub = long (*)(void* object, void* sender);

    constexpr Link(void* object, Stub stub) noexcept : object_(object), stub_(stub) {}

    template <class Object, class Owner, class Sender>
    static long Dispatch(long (Owner::*handler)(Sender*), Object& object, void* sender) {
        return (object.*handler)(static_cast<Sender*>(sender));
    }

    void* object_ = nullptr;
    Stub stub_ = nullptr;
};

}  // namespace sv
