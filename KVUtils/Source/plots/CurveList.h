// CurveList: the curves of a plot in the order of drawing. Like every container of the toolkit it does not
// own its entries: the caller that inserts a curve deletes it.
#pragma once

#include "KVUtils/Source/plots/Curve.h"
#include "SV/core/Container.h"

namespace kv {

/// The toolkit's container with typed entries; operations return what they return there.
class CurveList : public sv::Container {
  public:
    explicit CurveList(unsigned short initialSize = 16, unsigned short growth = 16)
        : Container(1024, initialSize, growth) {}

    void Insert(Curve* curve, unsigned long position) { Container::Insert(curve, position); }
    void Insert(Curve* curve) { Container::Insert(curve); }
    void Insert(Curve* curve, Curve* before) { Container::Insert(curve, static_cast<void*>(before)); }

    Curve* Remove() { return Typed(Container::Remove()); }
    Curve* Remove(unsigned long position) { return Typed(Container::Remove(position)); }
    Curve* Remove(Curve* curve) { return Typed(Container::Remove(static_cast<void*>(curve))); }

    Curve* Replace(Curve* curve) { return Typed(Container::Replace(curve)); }
    Curve* Replace(Curve* curve, unsigned long position) {
        return Typed(Container::Replace(curve, position));
    }
    Curve* Replace(Curve* curve, Curve* old) {
        return Typed(Container::Replace(curve, static_cast<void*>(old)));
    }

    [[nodiscard]] Curve* GetObject(unsigned long position) const noexcept {
        return Typed(Container::GetObject(position));
    }
    [[nodiscard]] Curve* GetCurObject() const noexcept { return Typed(Container::GetCurObject()); }
    [[nodiscard]] unsigned long GetPos(Curve const* curve) const noexcept {
        return Container::GetPos(static_cast<void const*>(curve));
    }

    Curve* Seek(unsigned long position) noexcept { return Typed(Container::Seek(position)); }
    Curve* Seek(void* curve) noexcept { return Typed(Container::Seek(curve)); }
    Curve* First() noexcept { return Typed(Container::First()); }
    Curve* Last() noexcept { return Typed(Container::Last()); }
    Curve* Next() noexcept { return Typed(Container::Next()); }
    Curve* Prev() noexcept { return Typed(Container::Prev()); }

  private:
    [[nodiscard]] static Curve* Typed(void* entry) noexcept { return static_cast<Curve*>(entry); }
};

}  // namespace kv
