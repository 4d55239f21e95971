#include "KVUtils/Tests/TestSupport.h"

namespace kv::test {

TEST(Filter, DefinedByContentOrByItsOwner) {
    Filter filter;
    EXPECT_EQ(filter.FilterSumme(), 0.0F);
    filter.Init(1);
    EXPECT_EQ(filter.FilterSumme(), 36.0F);
    EXPECT_EQ(filter.isDefined(), 0);
    filter.Define(1);
    EXPECT_EQ(Filter(filter).isDefined(), 1);
    EXPECT_EQ(Filter(Flat(0)).isDefined(), 1);
    Filter product = Filter().FilterXFilter(Filter(Flat(2)));
    EXPECT_EQ(product.isDefined(), 1);
    EXPECT_EQ(Filter(Flat(0.5F)).FilterXFilter(Filter(Flat(3))) * Flat(0.5F), 27.0F);
}

TEST(Filter, SumIsFormedAnewAfterAWriteThroughAFreshPointerOnly) {
    Filter filter(Flat(1));
    float* const kept = filter;
    kept[0] = 2;
    EXPECT_EQ(filter.FilterSumme(), 37.0F);
    kept[0] = 3;  // not noticed: the sum was formed since the pointer was taken
    EXPECT_EQ(filter.FilterSumme(), 37.0F);
    Filter copy = filter;  // flags included
    EXPECT_EQ(copy.FilterSumme(), 37.0F);
    filter.CalculateSumme();
    EXPECT_EQ(filter.FilterSumme(), 38.0F);
    static_cast<void>(static_cast<float*>(copy));
    EXPECT_EQ(copy.FilterSumme(), 38.0F);
}

TEST(Filter, SumIsRoundedToFloatAfterEachAddition) {
    // Ones after 2^24 are lost one by one; 35 ones before it make it 2^24 + 35, a tie that goes to even.
    Spectrum weights = Flat(1);
    weights[0] = 0x1p24F;
    EXPECT_EQ(Filter(weights).FilterSumme(), 0x1p24F);
    std::swap(weights[0], weights[35]);
    EXPECT_EQ(Filter(weights).FilterSumme(), 0x1p24F + 36);
}

}  // namespace kv::test
