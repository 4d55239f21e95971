#include "KVUtils/Tests/TestSupport.h"

namespace kv::test {

class PhiTest : public ContextTest {};

TEST_F(PhiTest, MurrayDaviesThroughEveryFilter) {
    CMetry::EnterWhite(Flat(0.8F));
    for (auto const& [tone, solid, area] :
         Rows<float, float, double>{{0.8F, 0.2F, 0},
                                    {0.5F, 0.2F, 0.5},
                                    {0.2F, 0.2F, 1},
                                    {0.1F, 0.2F, 7.0 / 6},
                                    {0.9F, 0.2F, -1.0 / 6},
                                    {0.5F, 0.8F, 0},     // solid equal to the white
                                    {0.5F, 0.9F, 0}}) {  // and lighter than it
        for (int filter = 0; filter < 4; ++filter)
            EXPECT_NEAR(Phi(filter, Flat(tone), Flat(solid)), area, 1e-6)
                << tone << ' ' << solid << ' ' << filter;
    }
}

TEST_F(PhiTest, WhiteIsThatOfTheLastEntry) {
    CMetry::SetDensityStandard(DStdClass(DStdType::DinNb));
    Spectrum paper = Flat(0.8F);
    paper[24] = 0.6F;  // 620 nm, red
    CMetry::EnterWhite(paper);
    CMetry::EnterWhite(Flat(0));  // withdrawn, and the factors still hold
    EXPECT_NEAR(Phi(1, Flat(0.4F), Flat(0.2F)), 0.5, 1e-6);
    EXPECT_NEAR(Phi(2, Flat(0.4F), Flat(0.2F)), 2.0 / 3, 1e-6);
    CMetry::SetDensityStandard(DStdClass(DStdType::AnsiM));  // an empty red filter against the old white
    EXPECT_EQ(Phi(1, Flat(0.4F), Flat(0.2F)), 1.0F);
}

}  // namespace kv::test
