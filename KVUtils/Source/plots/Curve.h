// Curve: one line of a plot, its points in the order in which they are drawn, with a colour and a style.
#pragma once

#include "KVUtils/Source/plots/fPoint.h"
#include "SV/core/Color.h"
#include "SV/core/Container.h"

#include <deque>
#include <memory>
#include <set>

namespace kv {

/// How a curve is drawn.
enum DiagramType : int {
    DIAGRAM_CROSSES = 0,  // a cross at each point
    DIAGRAM_WIDE = 1,     // a wide pen and nothing else yet
    DIAGRAM_LINE = 2,     // a line from point to point
};

/// The container's entries are `fPoint`s. The curve frees the points that it made, also after they were
/// removed from the container; a point inserted by the container's own operations stays the caller's.
class Curve : public sv::Container {
  public:
    /// `count` points with equidistant X from `xStart` on, in steps of (xEnd - xStart) / (count - 1) rounded
    /// to `float`, so the last X may miss `xEnd` by a rounding; the X of a single point is NaN. A count of 0
    /// or less makes an empty curve, here and below.
    Curve(float xStart, float xEnd, float const* y, int count, sv::Color color, DiagramType type);
    Curve(float const* x, float const* y, int count, sv::Color color, DiagramType type);

    /// Copies the points.
    Curve(Curve const& other);
    /// Shares the points of `other` until points are inserted or removed: callers rely on it; use the copy
    /// constructor for separate points. References to earlier points of this curve stay valid as long as it
    /// exists.
    Curve& operator=(Curve const& other);
    ~Curve() = default;

    /// Inserts a copy of the point at a position, or at the end for `End` and any position past the last.
    void AddPoint(fPoint const* point, unsigned long position);

    /// The point at this index, which must exist.
    [[nodiscard]] fPoint& GetPoint(int index) { return *At(static_cast<unsigned long>(index)); }
    [[nodiscard]] fPoint const& GetPoint(int index) const { return *At(static_cast<unsigned long>(index)); }
    [[nodiscard]] DiagramType GetCurveType() const noexcept { return type_; }
    [[nodiscard]] sv::Color GetCurveColor() const noexcept { return color_; }

    /// The Y of the first point whose X is exactly `x`; NaN when there is none. Never interpolates.
    [[nodiscard]] float GetFktVal(float x) const noexcept;

    /// The whole point with the extreme coordinate, of equal ones the first. Intentional: the maxima start
    /// from (0, 0), the result when no coordinate is above 0; automatic scales rely on it. The minima of an
    /// empty curve are the largest finite `float` in both coordinates.
    [[nodiscard]] fPoint GetMinXPoint() const noexcept;
    [[nodiscard]] fPoint GetMaxXPoint() const noexcept;
    [[nodiscard]] fPoint GetMinYPoint() const noexcept;
    [[nodiscard]] fPoint GetMaxYPoint() const noexcept;

  private:
    using Pool = std::deque<fPoint>;  // never moves a point

    [[nodiscard]] fPoint* At(unsigned long position) const noexcept {
        return static_cast<fPoint*>(GetObject(position));
    }
    template <class IsBetter>
    [[nodiscard]] fPoint Best(fPoint best, IsBetter isBetter) const noexcept;

    std::shared_ptr<Pool> own_ = std::make_shared<Pool>();
    std::set<std::shared_ptr<Pool>> taken_;  // pools shared by assignment
    sv::Color color_;
    DiagramType type_;
};

}  // namespace kv
