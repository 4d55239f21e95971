#include "KVUtils/Source/plots/Curve.h"

#include <limits>

namespace kv {

namespace {

constexpr fPoint Zero;
constexpr fPoint Largest(std::numeric_limits<float>::max(), std::numeric_limits<float>::max());

}  // namespace

Curve::Curve(float xStart, float xEnd, float const* y, int count, sv::Color color, DiagramType type)
    : color_(color), type_(type) {
    auto const step = static_cast<float>((double{xEnd} - double{xStart}) / (static_cast<double>(count) - 1));
    for (int i = 0; i < count; ++i) {
        fPoint const point(static_cast<float>(i * double{step} + double{xStart}), y[i]);
        AddPoint(&point, End);
    }
}

Curve::Curve(float const* x, float const* y, int count, sv::Color color, DiagramType type)
    : color_(color), type_(type) {
    for (int i = 0; i < count; ++i) {
        fPoint const point(x[i], y[i]);
        AddPoint(&point, End);
    }
}

Curve::Curve(Curve const& other) : Curve(nullptr, nullptr, 0, other.color_, other.type_) {
    for (unsigned long i = 0; i < other.Count(); ++i) AddPoint(other.At(i), End);
}

Curve& Curve::operator=(Curve const& other) {
    if (this == &other) return *this;
    taken_.insert(other.own_);
    taken_.insert(other.taken_.begin(), other.taken_.end());
    Container::operator=(other);
    color_ = other.color_;
    type_ = other.type_;
    return *this;
}

void Curve::AddPoint(fPoint const* point, unsigned long position) {
    Insert(static_cast<void*>(&own_->emplace_back(*point)), position);
}

float Curve::GetFktVal(float x) const noexcept {
    for (unsigned long i = 0; i < Count(); ++i) {
        if (At(i)->X() == x) return At(i)->Y();
    }
    return std::numeric_limits<float>::quiet_NaN();
}

template <class IsBetter>
fPoint Curve::Best(fPoint best, IsBetter isBetter) const noexcept {
    for (unsigned long i = 0; i < Count(); ++i) {
        if (isBetter(*At(i), best)) best = *At(i);
    }
    return best;
}

fPoint Curve::GetMinXPoint() const noexcept {
    return Best(Largest, [](fPoint const& a, fPoint const& b) { return a.X() < b.X(); });
}

fPoint Curve::GetMaxXPoint() const noexcept {
    return Best(Zero, [](fPoint const& a, fPoint const& b) { return a.X() > b.X(); });
}

fPoint Curve::GetMinYPoint() const noexcept {
    return Best(Largest, [](fPoint const& a, fPoint const& b) { return a.Y() < b.Y(); });
}

fPoint Curve::GetMaxYPoint() const noexcept {
    return Best(Zero, [](fPoint const& a, fPoint const& b) { return a.Y() > b.Y(); });
}

}  // namespace kv
