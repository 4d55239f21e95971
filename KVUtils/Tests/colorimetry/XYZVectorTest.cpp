#include "KVUtils/Tests/TestSupport.h"

namespace kv::test {

class XYZVectorTest : public ContextTest {};

TEST_F(XYZVectorTest, WeightedSumsOverTheSumOfTheYWeights) {
    CMetryFilter weights = Weights(IllumClass(IllumType::F11), ObserverType::TenDegrees);
    Spectrum const spectrum = Random(2).Reflectances(0, 1);
    Triple sums{};
    double sumOfY = 0;
    for (int k = 0; k < SpectralPoints; ++k) {
        sumOfY += weights[1].Weights()[k];
        for (unsigned short i = 0; i < 3; ++i) sums[i] += double{weights[i].Weights()[k]} * spectrum[k];
    }
    for (double& sum : sums) sum *= 100 / sumOfY;
    ExpectNear(XYZVector(weights, spectrum), sums, 2e-4);  // 36 roundings of the sum of weights: 2e-6 of 100
}

TEST_F(XYZVectorTest, ComesBackFromLab) {
    CMetry::SetCMetry(IllumClass(IllumType::D50), ObserverClass(ObserverType::TenDegrees));
    XYZVector const white(Flat(1));
    ExpectNear(XYZVector(Lab(100, 0, 0)), {white[0], white[1], white[2]},
               2e-5);  // the stored 0.00862069 is 1/116
    Random random(1976);
    for (int round = 0; round < 5000; ++round) {
        // A third of them dark, where the function is linear.
        double const most = round % 3 == 0 ? 1.5 : 110;
        XYZVector const xyz(random.Float(0, most), random.Float(0, most), random.Float(0, most), {});
        XYZVector const back{LABVector(xyz)};
        // L*, a*, b* of up to 500 lose 3e-5 in float, which is 6e-8 of a root and thrice that of its cube;
        // below the limit the slope 7.787 and its inverse agree to 5e-5.
        for (int i = 0; i < 3; ++i)
            ASSERT_NEAR(back[i], xyz[i], 2e-5 * xyz[i] + 5e-5) << "seed 1976, " << round;
    }
}

TEST_F(XYZVectorTest, ChromaticityOfGreyIsThatOfWhiteAndOfBlackNone) {
    xyYVector const white(Flat(1));
    ExpectNear(xyYVector(Flat(0.18F)), {white[0], white[1], 18}, 1e-5);
    EXPECT_TRUE(std::isnan(xyYVector(Flat(0))[0]));
}

}  // namespace kv::test
