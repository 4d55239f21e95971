// CMC and the CIELAB difference also stand in LittleCmsTest.cpp, against an independent implementation.
#include "KVUtils/Tests/TestSupport.h"

namespace kv::test {

class DeltaETest : public ContextTest {};

// By hand. CMC 2:1 of the first: standard C = 50, h = 53.130 degrees; SL = 0.040975 x 50 / 1.8825 = 1.088313,
// SC = 3.19 / 1.655 + 0.638 = 2.565492, F = sqrt(6250000 / 6251900) = 0.999848, T = 0.36 + 0.4 |cos 88.130| =
// 0.373052, SH = SC (T F + 1 - F) = 0.957307; dL = 2, dC = 5, dH = 0: sqrt((2 / 2.176627)^2 + (5
// / 2.565492)^2). CIE94 of it, SC = 3.25: sqrt(2^2 + (5 / 3.25)^2). House measures of the second, dL = -2 and
// dC = -5: sqrt(8^2 + 10^2) and sqrt(2^2 + 8.65^2). The third has dH = sqrt(200) alone, SH = 0.957307
// and 1.75.
TEST_F(DeltaETest, HandComputed) {
    LABVector const strong = Lab(50, 30, 40), weak = Lab(50, 5, 5);
    for (auto const& [sample, standard, cielab, cmc, cie94, house1, house2] :
         Rows<LABVector, LABVector, double, double, double, double, double>{
             {Lab(52, 33, 44), strong, 5.385165, 2.154686, 2.523265, 5.385165, 3.514698},
             {Lab(48, 27, 36), strong, 5.385165, 2.154686, 2.523265, 12.806248, 8.878204},
             {Lab(50, 40, 30), strong, 14.142136, 14.772838, 8.081220, 28.284271, 14.142136},
             {Lab(49, 5, 5), weak, 1, 0.459426, 1, 4, 1},
             {Lab(51, 5, 5), weak, 1, 0.459426, 1, 1, 1},
             {weak, weak, 0, 0, 0, 0, 0}}) {
        XYZVector const sampleXyz(sample), standardXyz(standard);
        double const digits = 1e-5;  // of the figures; there and back through XYZ costs as much again
        EXPECT_NEAR(DeltaE::CIELAB(sample, standard), cielab, digits);
        EXPECT_NEAR(DeltaE::CMC(sample, standard, 2, 1), cmc, digits);
        EXPECT_NEAR(DeltaE::dEKORVEL1(sample, standard), house1, digits);
        EXPECT_NEAR(DeltaE::dEKORVEL2(sample, standard), house2, digits);
        EXPECT_NEAR(DeltaE::dE94(sampleXyz, standardXyz, 1, 1, 1), cie94, 10 * digits);
        EXPECT_NEAR(DeltaE::CIELAB(sampleXyz, standardXyz), cielab, 10 * digits);
        EXPECT_NEAR(DeltaE::CMC(sampleXyz, standardXyz, 2, 1), cmc, 10 * digits);
    }
    // The weights divide their own parts: with dL halved, and with dH halved.
    XYZVector const standard(strong);
    EXPECT_NEAR(DeltaE::dE94(XYZVector(Lab(52, 33, 44)), standard, 2, 1, 1), 1.834839, 1e-4);
    EXPECT_NEAR(DeltaE::dE94(XYZVector(Lab(50, 40, 30)), standard, 1, 1, 2), 4.040610, 1e-4);
    EXPECT_NEAR(DeltaE::dE94(XYZVector(Lab(50, 33, 44)), standard, 1, 2, 1), 0.769231, 1e-4);
    EXPECT_EQ(DeltaE::dEKORVEL2(Lab(50, 9, 0), Lab(50, 10, 0)), 1.73F);
    EXPECT_EQ(DeltaE::dEKORVEL2(Lab(50, 11, 0), Lab(50, 10, 0)), 0.578034699F);
}

TEST_F(DeltaETest, EqualColoursAndExchangedArguments) {
    using Pair = std::pair<LABVector, LABVector>;
    using Measure = std::function<float(LABVector const&, LABVector const&)>;
    auto const [a, b] = Pair{Lab(40, 20, 30), Lab(45, -10, 25)};
    auto const xyz = [](auto measure) {
        return [=](LABVector const& s, LABVector const& t) { return measure(XYZVector(s), XYZVector(t)); };
    };
    for (auto const& [name, measure, isSymmetric] : Rows<char const*, Measure, bool>{
             {"CIELAB", [](auto&s, auto&t) { return DeltaE::CIELAB(s, t); }, true},
             {"LABmg", xyz([](auto s, auto t) { return DeltaE::LABmg(s, t); }), true},
             {"CMC", [](auto&s, auto&t) { return DeltaE::CMC(s, t, 2, 1); }, false},
             {"FMCII", xyz([](auto s, auto t) { return DeltaE::FMCII(s, t); }), false},
             {"dE94", xyz([](auto s, auto t) { return DeltaE::dE94(s, t, 1, 1, 1); }), false},
             {"dEKORVEL1", [](auto&s, auto&t) { return DeltaE::dEKORVEL1(s, t); }, false},
             {"dEKORVEL2", [](auto&s, auto&t) { return DeltaE::dEKORVEL2(s, t); }, false}}) {
        EXPECT_EQ(measure(a, b) == measure(b, a), isSymmetric) << name;
        EXPECT_EQ(measure(a, a), 0.0F) << name;
    }
    EXPECT_TRUE(std::isinf(DeltaE::CMC(a, b, 0, 1)));
    float const underD65 = DeltaE::CIELAB(Xyz(20, 20, 20), Xyz(22, 20, 18));
    CMetry::SetCMetry(IllumClass(IllumType::A), ObserverClass(ObserverType::TwoDegrees));
    EXPECT_GT(std::fabs(DeltaE::CIELAB(Xyz(20, 20, 20), Xyz(22, 20, 18)) - underD65), 0.1F)
        << "the weights in force";
}

/// The same measure from its three parts: along the standard's own direction, red-green and yellow-blue.
static double Fmc2(XYZVector const& sample, XYZVector const& standard) {
    auto const cones = [](XYZVector const& xyz) {
        return std::array{0.724 * xyz[0] + 0.382 * xyz[1] - 0.098 * xyz[2],
                          -0.48 * xyz[0] + 1.37 * xyz[1] + 0.1276 * xyz[2], 0.686 * xyz[2]};
    };
    auto const [P, Q, S] = cones(standard);
    auto const [P1, Q1, S1] = cones(sample);
    double const Y = standard[1];
    double const K1 = 0.55669 + Y * (0.049434 + Y * (-0.00082575 + Y * (7.9172e-6 - Y * 3.0087e-8)));
    double const K2 = 0.17548 + Y * (0.027556 + Y * (-0.00057262 + Y * (6.3893e-6 - Y * 2.6731e-8)));
    double const R = std::hypot(P, Q);
    double const a =
        std::sqrt(1.73e-5 * R * R / (1 + 2.73 * P * P * Q * Q / (std::pow(P, 4) + std::pow(Q, 4))));
    double const b = std::sqrt(3.098e-4 * (S * S + 0.2015 * Y * Y));
    double const dL = (P * (P1 - P) + Q * (Q1 - Q)) / (R * a);
    double const redGreen = (Q * (P1 - P) - P * (Q1 - Q)) / (R * a);
    double const yellowBlue = (S * dL * a / R - (S1 - S)) / b;
    return std::hypot(0.279 * K2 * dL, K1 * redGreen, K1 * yellowBlue);  // 0.279 squared is 0.077841
}

TEST_F(DeltaETest, Fmc2AgainstItsParts) {
    Random random(1971);
    for (int round = 0; round < 5000; ++round) {
        XYZVector const standard = Xyz(random(1, 95), random(1, 100), random(1, 108));
        XYZVector const sample = Xyz(random(1, 95), random(1, 100), random(1, 108));
        double const expected = Fmc2(sample, standard);
        ASSERT_NEAR(DeltaE::FMCII(sample, standard), expected, 1e-7 * expected)
            << "seed 1971, round " << round;
    }
    EXPECT_EQ(DeltaE::FMCII(Xyz(1, 1, 1), Xyz(0, 0, 0)), 99999.99F);
    EXPECT_EQ(DeltaE::FMCII(Xyz(1, 0, 0), Xyz(1, 0, 0)), 99999.99F) << "equal, but without Y and Z";
    EXPECT_EQ(DeltaE::FMCII(Xyz(1, 0, 1), Xyz(1, 0, 1)), 0.0F) << "Z alone is enough";
}

TEST_F(DeltaETest, LABmgStandsForCmc) {
    for (double L = 20; L < 95; L += 5) {
        XYZVector const grey{Lab(L, 0, 0)}, lighter{Lab(L + 0.5, 0, 0)}, yellow{Lab(L, 0, 30)},
            stronger{Lab(L, 0, 30.5)};
        // Small differences in L and C, which the scale straightens: half a step of 0.5 is 2 percent of SL
        // at 20.
        EXPECT_NEAR(DeltaE::LABmg(lighter, grey) / DeltaE::CMC(lighter, grey, 1, 1), 1, 0.02) << L;
        EXPECT_NEAR(DeltaE::LABmg(stronger, yellow) / DeltaE::CMC(stronger, yellow, 1, 1), 1, 0.02) << L;
    }
}

TEST(Metamerie, TextNamesTheLights) {
    EXPECT_EQ(Text(Metamerie(1.25F, IllumClass(IllumType::D65), IllumClass(IllumType::Dxx1, 50))),
              Localised(" 1.3 (D65->D50)"));
}

TEST(Metamerie, IndexIsTheDifferenceAfterTheCorrection) {
    Random random(16);
    CMetryFilter d65 = Weights(IllumClass(IllumType::D65), ObserverType::TenDegrees);
    CMetryFilter a = Weights(IllumClass(IllumType::A), ObserverType::TenDegrees);
    for (int round = 0; round < 100; ++round) {
        Spectrum const standard = random.Reflectances(0.02, 1), sample = random.Reflectances(0.02, 1);
        Spectrum darker = standard;
        darker / 2;
        XYZVector const reference(d65, standard), under(d65, sample);
        XYZVector corrected(a, sample);
        for (int i = 0; i < 3; ++i)
            corrected[i] = static_cast<float>(double{corrected[i]} * reference[i] / under[i]);
        float const expected = DeltaE::CIELAB(LABVector(a, corrected), LABVector(a, standard));
        // A few units of float in tristimulus values, each up to 1e-5 in b*.
        MetamerieRechner rechner(standard, d65, a), same(standard, a, a);
        EXPECT_NEAR(rechner.RechneMetamerie(sample).GetIndex(), expected, 1e-4) << "seed 16, round " << round;
        EXPECT_NEAR(rechner.RechneMetamerie(standard).GetIndex(), 0, 1e-4) << "the standard itself";
        EXPECT_NEAR(rechner.RechneMetamerie(darker).GetIndex(), 0, 1e-4) << "the correction takes it out";
        EXPECT_NEAR(same.RechneMetamerie(sample).GetIndex(), 0, 1e-4) << "one light";
    }
}

class MetamerieBoxTest : public BoxTest {};

TEST_F(MetamerieBoxTest, AnInvalidObserverShowsOneBox) {
    MetamerieRechner const unused(Flat(0.5F), IllumClass(IllumType::D65), IllumClass(IllumType::A),
                                  ObserverClass(ObserverType::NotSet));
    EXPECT_EQ(seen_.size(), 1U);
}

TEST(Metamerie, AZeroUnderTheReferenceLightIsNotCorrected) {
    MetamerieRechner rechner(Flat(0.5F), IllumClass(IllumType::D65), IllumClass(IllumType::A),
                             ObserverClass(ObserverType::TenDegrees));
    EXPECT_NEAR(rechner.RechneMetamerie(Flat(0)).GetIndex(), 76.0693, 1e-3);  // L* of 0.5
    Spectrum red = Flat(0);  // Z alone is 0: the 10 degree observer has no z at 600 nm and up
    for (int k = 22; k < SpectralPoints; ++k) red[k] = 0.5F;
    CMetryFilter& test = *rechner.FilterTestlicht();
    float const expected = DeltaE::CIELAB(LABVector(test, red), LABVector(test, Flat(0.5F)));
    EXPECT_NEAR(rechner.RechneMetamerie(red).GetIndex(), expected, 1e-4);
    EXPECT_EQ(IllumType(test.GetIllum()), IllumType::A);
}

}  // namespace kv::test
