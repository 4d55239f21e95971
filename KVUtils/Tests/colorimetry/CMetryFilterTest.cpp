#include "KVUtils/Tests/TestSupport.h"

namespace kv::test {

TEST(CMetryFilter, IsIlluminantTimesObserverUnscaled) {
    CMetryFilter const made = Weights(IllumClass(IllumType::D65), ObserverType::TwoDegrees);
    for (unsigned short i = 0; i < 3; ++i) EXPECT_EQ(CMetryFilter()[i].Weights(), made[i].Weights());
    CMetryFilter const a = Weights(IllumClass(IllumType::A), ObserverType::TwoDegrees);
    EXPECT_EQ(a[1].Weights()[18], 99.5F);  // 560 nm: 100 times 0.995
    EXPECT_EQ(Text(a.GetIllum()) + Text(a.GetObserver()), "A2\xB0");
}

TEST(CMetryFilter, CallersWeightsAreCustomAndKeepTheirFlags) {
    Filter filters[3];
    float* const late = filters[1];
    EXPECT_EQ(filters[1].FilterSumme(), 0.0F);
    late[7] = 5;  // its sum is stale
    filters[2].Define(1);
    CMetryFilter made(filters);
    EXPECT_EQ(made[1].FilterSumme(), 5.0F);
    EXPECT_EQ(made[1].isDefined(), 0);
    EXPECT_EQ(made[2].isDefined(), 1);
    EXPECT_EQ(IllumType(made.GetIllum()), IllumType::Custom);
    EXPECT_EQ(short(made.GetIllum()), 65);
    EXPECT_EQ(ObserverType(made.GetObserver()), ObserverType::ClientSpecific);
}

TEST(CMetryFilter, CopyTakesTheDefinedFlagsAndAssignmentDoesNot) {
    CMetryFilter source = Weights(IllumClass(IllumType::A), ObserverType::TenDegrees);
    source[0].Define(0);
    float* const kept = source[0];
    float const stale = source[0].FilterSumme();
    kept[20] += 1000;  // not noticed

    CMetryFilter copy(source);
    EXPECT_EQ(copy[0].isDefined(), 0);
    EXPECT_GT(copy[0].FilterSumme(), stale + 900);
    EXPECT_EQ(source[0].FilterSumme(), stale) << "a copy does not touch its source";
    CMetryFilter target;
    target = source;
    EXPECT_EQ(target[0].isDefined(), 1);
    EXPECT_GT(target[0].FilterSumme(), stale + 900);
    EXPECT_GT(source[0].FilterSumme(), stale + 900) << "an assignment makes its source form the sum anew";
    EXPECT_EQ(Text(target.GetIllum()) + Text(target.GetObserver()), "A10\xB0");
}

}  // namespace kv::test
