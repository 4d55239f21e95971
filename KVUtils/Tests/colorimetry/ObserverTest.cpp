#include "KVUtils/Tests/TestSupport.h"

namespace kv::test {

class ObserverTest : public BoxTest {};

TEST_F(ObserverTest, TablesOfTheTwoStandardObservers) {
    // The values at 450 nm, and the sums of the printed columns.
    for (auto const& [type, at450, sums] : Rows<ObserverType, std::array<float, 3>, Triple>{
             {ObserverType::TwoDegrees, {0.33620F, 0.03800F, 1.77211F}, {10.68233, 10.68531, 10.67690}},
             {ObserverType::TenDegrees, {0.37070F, 0.08946F, 1.99480F}, {11.66333, 11.66402, 11.66434}}}) {
        Observer const observer{ObserverClass(type)};
        for (int i = 0; i < 3; ++i) {
            Filter function = observer[i];
            EXPECT_EQ(function.Weights()[7], at450[i]);
            EXPECT_NEAR(function.FilterSumme(), sums[i], 1e-5);  // float additions at 10
            EXPECT_EQ(function.isDefined(), 1);
        }
    }
}

TEST_F(ObserverTest, OthersAreZeroAndUnknownOnesSaySo) {
    for (auto const& [type, boxes] : Rows<int, std::size_t>{{2, 0}, {-1, 1}, {3, 2}}) {
        Observer const observer{ObserverClass(static_cast<ObserverType>(type))};
        EXPECT_EQ(seen_.size(), boxes) << type;
        for (int i = 0; i < 3; ++i) {
            EXPECT_EQ(observer[i].Weights(), Filter().Weights());
            EXPECT_EQ(observer[i].isDefined(), 0);
        }
    }
    EXPECT_EQ(seen_.back(), "Client specific observer angle not supported!\nUse 2 or 10 degree observer!");
}

}  // namespace kv::test
