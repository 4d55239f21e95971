#include "KVUtils/Tests/TestSupport.h"

#include <limits>

namespace kv::test {
namespace {

constexpr float Huge = std::numeric_limits<float>::max();
constexpr sv::Color Red(65535, 0, 0);

Curve CurveOf(std::vector<fPoint> const& points) {
    Curve curve(nullptr, nullptr, 0, Red, DIAGRAM_LINE);
    for (fPoint const& point : points) curve.AddPoint(&point, sv::Container::End);
    return curve;
}

TEST(fPoint, Arithmetic) {
    EXPECT_EQ(fPoint(sv::Point(-32768, 7)), fPoint(-32768, 7));
    EXPECT_EQ(fPoint(1, 2) + fPoint(3, 5) - fPoint(2, 2), fPoint(2, 5));
    EXPECT_EQ(fPoint(1, 2) * 3 / 2, fPoint(1.5F, 3));
    EXPECT_EQ(fPoint(1, 2) / 0, fPoint(std::numeric_limits<float>::infinity(), 1 / 0.0F));
    EXPECT_EQ(fPoint(1, 2).Distance({4, -2}), 5.0F);
    EXPECT_EQ(fPoint(-3e38F, 0).Distance({0, 0}), 3e38F) << "squares beyond a float";
}

TEST(Curve, EquidistantPoints) {
    float const y[] = {5, 6, 7, 8};
    Curve const curve(400, 401, y, 4, Red, DIAGRAM_CROSSES);
    ASSERT_EQ(curve.Count(), 4U);
    float const third = 1.0F / 3;
    for (int i = 0; i < 4; ++i) EXPECT_EQ(curve.GetPoint(i), fPoint(float(i * double{third} + 400), y[i]));
    EXPECT_EQ(curve.GetCurveColor(), Red);
    EXPECT_EQ(curve.GetCurveType(), DIAGRAM_CROSSES);

    Curve const single(400, 700, y, 1, Red, DIAGRAM_LINE);
    EXPECT_TRUE(std::isnan(single.GetPoint(0).X()));
    EXPECT_EQ(single.GetPoint(0).Y(), 5);
    for (int const count : {0, -1, std::numeric_limits<int>::min()})
        EXPECT_EQ(Curve(400, 700, y, count, Red, DIAGRAM_LINE).Count(), 0U);
}

TEST(Curve, Extremes) {
    struct Row {
        std::vector<fPoint> points;
        fPoint minX, maxX, minY, maxY;
    };
    for (Row const& row : {Row{{}, {Huge, Huge}, {}, {Huge, Huge}, {}},
                           Row{{{1, -3}, {2, -1}}, {1, -3}, {2, -1}, {1, -3}, {0, 0}},
                           Row{{{1, 2}, {2, 5}, {2, 5.5F}, {3, 5.5F}}, {1, 2}, {3, 5.5F}, {1, 2}, {2, 5.5F}},
                           Row{{{-1, 4}, {-1, 3}}, {-1, 4}, {0, 0}, {-1, 3}, {-1, 4}}}) {
        Curve const curve = CurveOf(row.points);
        EXPECT_EQ(curve.GetMinXPoint(), row.minX);
        EXPECT_EQ(curve.GetMaxXPoint(), row.maxX);
        EXPECT_EQ(curve.GetMinYPoint(), row.minY);
        EXPECT_EQ(curve.GetMaxYPoint(), row.maxY);
    }
}

TEST(Curve, ValueIsLookedUpNotInterpolated) {
    Curve const curve = CurveOf({{450, 0.5F}, {451, 0.7F}, {450, 0.9F}});
    EXPECT_EQ(curve.GetFktVal(450), 0.5F);
    EXPECT_EQ(curve.GetFktVal(451), 0.7F);
    EXPECT_TRUE(std::isnan(curve.GetFktVal(450.5F)));
    EXPECT_TRUE(std::isnan(curve.GetFktVal(std::numeric_limits<float>::quiet_NaN())));
}

TEST(Curve, CopiesAreDeepAndAssignmentsAreNot) {
    Curve target = CurveOf({{9, 9}});
    fPoint const& before = target.GetPoint(0);
    {
        Curve source = CurveOf({{1, 1}, {2, 2}});
        Curve copy = source;
        copy.GetPoint(0).Y() = 7;
        EXPECT_EQ(source.GetPoint(0), fPoint(1, 1));
        target = source;
        source = target;  // shared in a circle
        target.GetPoint(1).Y() = 7;
        EXPECT_EQ(source.GetPoint(1), fPoint(2, 7));
        fPoint const first(0, 0);
        source.AddPoint(&first, 0);
        EXPECT_EQ(source.Count(), 3U);
    }
    ASSERT_EQ(target.Count(), 2U);
    EXPECT_EQ(target.GetPoint(0), fPoint(1, 1)) << "outlives the curve that made it";
    EXPECT_EQ(before, fPoint(9, 9));
}

TEST(CurveList, KeepsOrderAndOwnsNothing) {
    Curve a = CurveOf({}), b = CurveOf({}), c = CurveOf({});
    CurveList list;
    list.Insert(&b, sv::Container::End);
    list.Insert(&a, &b);
    EXPECT_EQ(list.First(), &a);
    EXPECT_EQ(list.Next(), &b);
    EXPECT_EQ(list.Next(), nullptr);
    EXPECT_EQ(list.Replace(&c, &b), &b);
    EXPECT_EQ(list.GetPos(&c), 1U);
    EXPECT_EQ(list.Remove(&a), &a);
    EXPECT_EQ(list.GetObject(0), &c);
    EXPECT_EQ(list.GetObject(1), nullptr);
}

}  // namespace
}  // namespace kv::test
