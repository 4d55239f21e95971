#include "KVUtils/Source/controls/detail/WindowPlacement.h"
#include "KVUtils/Tests/TestSupport.h"

namespace kv::test {
namespace {

using namespace detail;

TEST(WindowPlacement, Windows) {
    using Reference = std::optional<WindowArea>;
    Reference const none;
    Reference const middle = WindowArea{{100, 50}, {401, 201}};
    Reference const corner = WindowArea{{0, 0}, {50, 50}};
    Reference const right = WindowArea{{700, 500}, {100, 100}};
    sv::Size const small(100, 100);
    sv::Size const big(900, 700);
    for (auto const& [reference, size, flags, placed] :
         Rows<Reference, sv::Size, long, sv::Point>{{middle, small, 1, {250, 100}},
                                                    {corner, small, 1, {0, 0}},  // not beyond the edge
                                                    {none, small, 1, {350, 250}},
                                                    {none, small, 1 | 4, {350, 250}},
                                                    {middle, small, 2, {350, 250}},
                                                    {middle, small, 1 | 2, {350, 250}},
                                                    {middle, small, 1 | 4, {120, 70}},
                                                    {none, small, 4, {-5, 7}},
                                                    {right, small, 4, {700, 500}},
                                                    {none, small, 0, {-5, 7}},
                                                    {middle, big, 1, {-100, -100}},
                                                    {none, big, 2, {-100, -100}}}) {
        EXPECT_EQ(PlaceWindow(reference, {{-5, 7}, size}, {800, 600}, flags), placed)
            << "flags " << flags << ": " << placed.X() << ", " << placed.Y();
    }
}

TEST(WindowPlacement, Balloons) {
    BalloonShape const shape = ShapeBalloon({92, 18});
    EXPECT_EQ(shape.text.position, sv::Point(2, 0));
    EXPECT_EQ(shape.text.size, sv::Size(96, 18));
    EXPECT_EQ(shape.size, sv::Size(100, 20));
    // In a parent of 400 x 300, beside buttons of 50 x 30.
    for (auto const& [button, balloon] :
         Rows<sv::Point, sv::Point>{{{10, 10}, {47, 34}},
                                    {{250, 231}, {287, 255}},  // exactly enough room on both sides
                                    {{251, 232}, {163, 218}},  // one pixel too little
                                    {{-60, -60}, {0, 0}}}) {
        EXPECT_EQ(PlaceBalloon({button, {50, 30}}, {100, 20}, {400, 300}), balloon) << button.X();
    }
    EXPECT_EQ(PlaceBalloon({{0, 0}, {50, 30}}, {100, 40}, {120, 60}), sv::Point(0, 0)) << "no room at all";
}

}  // namespace
}  // namespace kv::test
