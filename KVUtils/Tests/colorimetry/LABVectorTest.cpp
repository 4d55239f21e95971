#include "KVUtils/Tests/TestSupport.h"

namespace kv::test {

TEST(LABVector, OnesAreWhiteUnderEveryLight) {
    Random random(5);
    for (int type = 0; type < 36; ++type) {
        IllumClass const illuminant(static_cast<IllumType>(type), 55);
        if (Lichtart(illuminant).GetFilter().isDefined() == 0) continue;
        CMetryFilter weights = Weights(illuminant, ObserverType::TenDegrees);
        // Sums in double above and in float below: 36 roundings, a third of them in the root, times 500.
        ExpectNear(LABVector(weights, Flat(1)), {100, 0, 0}, 4e-4);
        ExpectNear(LABVector(weights, Flat(0.2F)), {51.8372, 0, 0}, 4e-4);  // 116 cbrt(0.2) - 16
        Spectrum const spectrum = random.Reflectances(0, 0.1);
        LABVector const direct(weights, spectrum);
        // By way of XYZ t differs by a unit of float; the steepest slope is 7.787 x 500, at t of some 0.01.
        ExpectNear(LABVector(weights, XYZVector(weights, spectrum)), {direct[0], direct[1], direct[2]}, 1e-4);
    }
}

TEST(LABVector, LimitItselfAndNegativeRatiosAreLinear) {
    float point[SpectralPoints] = {1};  // in all three channels, so that t is the sample itself
    Filter const filters[] = {Filter(point), Filter(point), Filter(point)};
    CMetryFilter weights(filters);
    float const limit = 0.008856F, above = std::nextafter(limit, 1.0F);
    // 116 (7.787 t + 16/116) - 16 = 903.292 t; on the other side 116 cbrt(t) - 16, which is 2.4e-4 less
    // there.
    for (auto const& [t, L] : Rows<float, double>{{limit, 903.292 * double{limit}},
                                                  {above, 116 * std::cbrt(double{above}) - 16},
                                                  {0.001F, 0.903292},
                                                  {0, 0},
                                                  {-0.001F, -0.903292}}) {
        EXPECT_NEAR(LABVector(weights, Flat(t))[0], L, 2e-6) << t;
    }
}

TEST(LChVector, HueLiesAboveZeroUpTo360) {
    for (auto const& [a, b, C, h] : Rows<double, double, double, double>{{0, 0, 0, 360},
                                                                         {1e-6, 0, 1e-6, 360},
                                                                         {9.9e-6, -9.9e-6, 1.4e-5, 360},
                                                                         {0, 1.1e-5, 1.1e-5, 90},
                                                                         {10, 0, 10, 360},
                                                                         {10, 1e-4, 10, 0.000573},
                                                                         {10, -1e-4, 10, 359.999427},
                                                                         {3, 4, 5, 53.130102},
                                                                         {-5, -0.0, 5, 180},
                                                                         {0, -2, 2, 270}}) {
        LChVector const lch(Lab(42, a, b));
        ExpectNear(lch, {42, C, h}, 2e-5);  // half a unit of float at 360
        EXPECT_TRUE(lch[2] > 0 && lch[2] <= 360) << lch[2];
    }
}

TEST(LChVector, ComesBackToLab) {
    Random random(7);
    for (int round = 0; round < 5000; ++round) {
        LABVector const lab = random.Lab();
        LABVector const back{LChVector(lab)};
        // Half a unit of hue at 360 is 1.5e-5 degrees, of chroma 140 it is 4e-5.
        for (int i = 0; i < 3; ++i) ASSERT_NEAR(back[i], lab[i], 6e-5) << "seed 7, round " << round;
    }
}

}  // namespace kv::test
