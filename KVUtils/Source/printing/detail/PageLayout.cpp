#include "KVUtils/Source/printing/detail/PageLayout.h"

#include <algorithm>

namespace kv::detail {

namespace {

constexpr int MarginAboveAndBelow = 100;
constexpr int MarginAtSides = 150;
constexpr int FootLines = 3;
constexpr int HeadLines = 2;
/// Lines from the bottom edge up to the rule of the foot note.
constexpr double FootRuleLines = 2.1;

}  // namespace

PageEdges EdgesOf(sv::Size paper, sv::Size offset, int outputHeight) noexcept {
    PageEdges edges;
    edges.top = std::max(MarginAboveAndBelow - offset.Height(), 0);
    edges.bottom = std::min(paper.Height() - offset.Height() - MarginAboveAndBelow, outputHeight - 1);
    edges.left = std::max(MarginAtSides - offset.Width(), 0);
    edges.right = paper.Width() - offset.Width() - MarginAtSides;
    return edges;
}

int BodyBottom(PageEdges const& edges, int lineHeight, bool hasFootNote) noexcept {
    return hasFootNote ? edges.bottom - FootLines * lineHeight : edges.bottom;
}

bool IsPageFull(int y, int lineHeight, int bodyBottom) noexcept { return y + lineHeight > bodyBottom; }

HeadPlaces PlaceHead(int y, int lineHeight) noexcept {
    int const rule = y + HeadLines * lineHeight;
    return {rule, rule + HeadLines * lineHeight};
}

FootPlaces PlaceFoot(PageEdges const& edges, int lineHeight) noexcept {
    int const rule = static_cast<int>(edges.bottom - FootRuleLines * lineHeight);
    return {rule, rule + lineHeight};
}

}  // namespace kv::detail
