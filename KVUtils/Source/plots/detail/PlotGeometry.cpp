#include "KVUtils/Source/plots/detail/PlotGeometry.h"

#include "KVUtils/Source/data/GString.h"

#include <algorithm>
#include <cmath>

namespace kv::detail {

namespace {

constexpr double Tiny = 1e-9;  // smaller steps and scales count as none
constexpr int MajorHalfLength = 10;
constexpr int MinorHalfLength = 5;
constexpr int LeftMargin = 40;
constexpr int TopMargin = 18;
constexpr int RightMargin = 50;
constexpr int BottomMargin = 20;

constexpr std::int16_t Wrapped(std::int64_t pixel) noexcept { return static_cast<std::int16_t>(pixel); }

float ValuePerPixel(AxisData const& axis, int extent) noexcept {
    double const range = double{axis.GetMaximum()} - double{axis.GetMinimum()};
    return static_cast<float>(range / extent);
}

/// Calls `visit` with every value from `first` to `last`, until the addition no longer changes it, or 100,000
/// times.
template <class Visit>
void Walk(float first, float last, float spacing, Visit visit) {
    constexpr int Most = 100'000;
    float value = first;
    for (int count = 0; value <= last && count < Most; ++count) {
        visit(value);
        float const next = value + spacing;
        if (!(next > value)) return;
        value = next;
    }
}

}  // namespace

std::int16_t LogicToPixel(AxisData const& axis, int extent, float value) noexcept {
    float const scale = ValuePerPixel(axis, extent);
    double pixel = 0;
    if (scale > Tiny) {
        // The remainder is exact, so a pixel of any size wraps.
        pixel = std::fmod(std::trunc((double{value} - double{axis.GetMinimum()}) / scale), 65536.0);
        if (std::isnan(pixel)) pixel = 0;
    }
    return Wrapped(static_cast<std::int64_t>(pixel) + axis.GetPixelOffset());
}

float PixelToLogic(AxisData const& axis, int extent, int position) noexcept {
    float const scale = ValuePerPixel(axis, extent);
    if (!(scale > Tiny) || std::isinf(scale)) return axis.GetMinimum();
    double const pixels = static_cast<double>(position) - axis.GetPixelOffset();
    return static_cast<float>(double{axis.GetMinimum()} + pixels * scale);
}

std::vector<Tick> Ticks(AxisData const& axis, int extent) {
    std::vector<Tick> ticks;
    double const step = axis.GetStep();
    if (!(step >= Tiny)) return ticks;
    std::int64_t const perStep = std::int64_t{std::max(axis.GetSubdivisions(), 0)} + 1;
    auto const spacing = static_cast<float>(step / static_cast<double>(perStep));
    auto const first = static_cast<float>(std::floor(axis.GetMinimum() / step) * step);
    std::int64_t i = 0;
    Walk(first, axis.GetMaximum(), spacing, [&](float value) {
        int const halfLength = i++ % perStep == 0 ? MajorHalfLength : MinorHalfLength;
        ticks.push_back({LogicToPixel(axis, extent, value), Wrapped(halfLength)});
    });
    return ticks;
}

std::vector<TickLabel> TickLabels(AxisData const& axis, int extent, int decimals) {
    std::vector<TickLabel> labels;
    double const step = axis.GetStep();
    if (!(step > Tiny)) return labels;
    auto const first = static_cast<float>(std::ceil(axis.GetMinimum() / step) * step);
    Walk(first, axis.GetMaximum(), axis.GetStep(), [&](float value) {
        labels.push_back({value, GString(value, decimals), LogicToPixel(axis, extent, value)});
    });
    return labels;
}

DiagramArea DiagramWithin(sv::Size window) noexcept {
    return {{LeftMargin, TopMargin},
            {window.Width() - LeftMargin - RightMargin, window.Height() - TopMargin - BottomMargin}};
}

sv::Point XLabelPosition(TickLabel const& label, int textWidth) noexcept {
    return {label.position + LeftMargin - textWidth / 2, 2};
}

sv::Point YLabelPosition(TickLabel const& label, int textWidth) noexcept {
    return {LeftMargin - (textWidth + 8), label.position + BottomMargin - 8};
}

sv::Point XTitlePosition(sv::Size diagram) noexcept { return {diagram.Width() + 48, 15}; }

sv::Point YTitlePosition(sv::Size diagram) noexcept { return {37, diagram.Height() + 23}; }

}  // namespace kv::detail
