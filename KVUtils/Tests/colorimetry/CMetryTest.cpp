#include "KVUtils/Tests/TestSupport.h"
#include "KVUtils/Tests/staticinit/StaticInitProbe.h"

namespace kv::test {

class CMetryTest : public BoxTest {};

TEST(CMetryStart, StateStandsBeforeMain) {
    StaticInitProbe const& seen = WhatStaticInitSaw();
    ExpectNear(seen.white, {95.02, 100, 108.81}, 0.02);  // D65, 2 degrees, from these 36 points
    EXPECT_TRUE(seen.weightsAreStandard);
    EXPECT_EQ(seen.gammaSum, 0.0F);
    EXPECT_EQ(seen.xyzSum, 0.0F);
    EXPECT_EQ(seen.density, DStdType::Din);
    EXPECT_EQ(seen.hasPaper, 0);
}

/// The state as text: weights, display, x + y + z, density, physical, paper, gamma.
static std::array<std::string, 7> State() {
    auto const numbers = [](auto const& list) {
        return testing::PrintToString(std::vector(list.begin(), list.end()));
    };
    auto const weights = [&](CMetryFilter const& filter) {
        return numbers(filter[0].Weights()) + numbers(filter[2].Weights()) + Text(filter.GetIllum()) +
               Text(filter.GetObserver());
    };
    std::span const paper(static_cast<float const*>(std::as_const(CMetry::amPaperWhiteSpec)), SpectralPoints);
    return {weights(CMetry::LXYZFilter),
            weights(CMetry::RGBFilter),
            numbers(CMetry::xyzSumme.Weights()),
            Text(CMetry::aDichteFilter.GetDStd()) + numbers(CMetry::aDichteFilter[1].Weights()),
            Text(CMetry::aPhysicalCondition),
            numbers(paper) + numbers(CMetry::PapierweissNormfaktor) +
                std::to_string(CMetry::PapierSpektrumDefiniert),
            numbers(CMetry::GammaTable(0)) + numbers(CMetry::GammaTable(2))};
}

TEST_F(CMetryTest, EachOperationTouchesItsMembersOnly) {
    ObserverClass const two(ObserverType::TwoDegrees), ten(ObserverType::TenDegrees);
    // Members as in State, 1 for those that change. The gamma table is filled with the same figures every
    // time.
    CMetry::SetMeasuringConditions(MeasuringCondition(IllumClass(IllumType::D50), two, {}));
    auto before = State();
    for (auto const& [name, run, changes] : Rows<char const*, std::function<void()>, std::string>{
             {"SetMeasuringConditions", [] { CMetry::SetMeasuringConditions(SomeCondition); }, "1011100"},
             {"SetCMetry", [&] { CMetry::SetCMetry(IllumClass(IllumType::C), two); }, "1010000"},
             {"SetCMetry custom", [&] { CMetry::SetCMetry(IllumClass(IllumType::Custom), ten); }, "1000000"},
             {"SetCustomLXYZ", [] { CMetry::SetCustomLXYZ(CMetryFilter()); }, "1000000"},
             {"SetDensityStandard", [] { CMetry::SetDensityStandard(DStdClass(DStdType::AnsiT)); },
              "0001000"},
             {"EnterWhite", [] { CMetry::EnterWhite(Flat(0.9F)); }, "0000010"},
             {"EnterWhite zero", [] { CMetry::EnterWhite(Flat(0)); }, "0000010"},
             {"nothing set", [] { CMetry::SetMeasuringConditions(MeasuringCondition()); }, "1011100"}}) {
        run();
        auto const after = State();
        for (std::size_t i = 0; i < after.size(); ++i)
            EXPECT_EQ(after[i] != before[i], changes[i] == '1') << name << ", member " << i;
        before = after;
    }
    EXPECT_EQ(seen_.size(), 1U) << "the last has no observer";
    CMetry::RGBFilter = Weights(IllumClass(IllumType::A), ObserverType::TenDegrees);
    CMetry::SetCMetry(IllumClass(IllumType::F11), two);
    EXPECT_EQ(CMetry::RGBFilter[2].Weights(), CMetryFilter()[2].Weights()) << "rebuilt by every call";
}

TEST_F(CMetryTest, CustomIlluminantNeedsItsWeights) {
    CMetry::SetCMetry(IllumClass(IllumType::D50), ObserverClass(ObserverType::TenDegrees));
    EXPECT_NEAR(CMetry::xyzSumme.FilterSumme(), 11.66333 + 11.66402 + 11.66434,
                2e-5);  // 36 additions of float
    CMetry::SetCMetry(IllumClass(IllumType::Custom), ObserverClass(ObserverType::TwoDegrees));
    EXPECT_EQ(CMetry::LXYZFilter[1].FilterSumme(), 0.0F);
    EXPECT_TRUE(std::isnan(XYZVector(Flat(1))[1]));

    CMetry::SetCustomLXYZ(Weights(IllumClass(IllumType::Dxx1, 55), ObserverType::TenDegrees));
    MeasuringCondition inForce;
    CMetry::GetMeasuringConditions(inForce);
    EXPECT_EQ(Text(inForce), "[D55,10\xB0,DIN,,Abs]");
    CMetry::SetMeasuringConditions(SomeCondition);
    CMetry::GetMeasuringConditions(inForce);
    EXPECT_EQ(Text(inForce), SomeConditionText);
}

TEST_F(CMetryTest, GammaTable) {
    CMetry::SetMeasuringConditions(SomeCondition);
    // (entry / 510) to the power 20/9; the figures have six digits.
    for (auto const& [entry, value] :
         Rows<std::size_t, double>{{0, 0}, {1, 9.62005e-07}, {255, 0.214311}, {510, 1}, {511, 1.00436}}) {
        for (int channel = 0; channel < 3; ++channel)
            EXPECT_NEAR(CMetry::GammaTable(channel)[entry], value, value * 5e-6) << entry;
    }
}

TEST_F(CMetryTest, WhiteIsEnteredAndWithdrawn) {
    CMetry::SetDensityStandard(DStdClass(DStdType::DinNb));
    Spectrum paper = Flat(0.8F), cancelling = Flat(0);
    paper[24] = 0.5F;  // 620 nm
    cancelling[0] = 0.25F;
    cancelling[35] = -0.25F;
    CMetry::EnterWhite(paper);
    auto const factors = CMetry::PapierweissNormfaktor;
    EXPECT_EQ(factors[1], 0.5F);
    EXPECT_EQ(factors[3], 0.8F);
    CMetry::SetMeasuringConditions(SomeCondition);
    EXPECT_EQ(CMetry::PapierSpektrumDefiniert, 1);
    EXPECT_EQ(CMetry::PapierweissNormfaktor, factors) << "those of the standard before";
    for (Spectrum const& withdrawal : {Flat(0), cancelling}) {
        CMetry::PapierSpektrumDefiniert = 1;
        CMetry::EnterWhite(withdrawal);
        EXPECT_EQ(CMetry::PapierSpektrumDefiniert, 0);
        EXPECT_EQ(CMetry::amPaperWhiteSpec[24], 0.5F);
        EXPECT_EQ(CMetry::PapierweissNormfaktor, factors);
    }
}

/// Flat but for these points, given by their wavelengths.
static Spectrum With(float value, std::vector<std::pair<int, float>> const& points) {
    Spectrum spectrum = Flat(value);
    for (auto const& [nm, sample] : points) spectrum[(nm - 380) / 10] = sample;
    return spectrum;
}

TEST_F(CMetryTest, GetMaxDensity) {
    float density = -1;
    for (auto const& [what, spectrum, nm, expected] : Rows<char const*, Spectrum, int, double>{
             {"equal samples: nearest to 560", Flat(0.1F), 560, 1},
             {"ones", Flat(1), 560, 0},
             {"above 1", Flat(1.5F), 380, 0},
             {"nothing above 0", With(0, {{500, -0.5F}}), 380, 0},
             {"of two equally near the longer", With(0.5F, {{550, 0.01F}, {570, 0.01F}}), 570, 2},
             {"the nearer, though shorter", With(0.5F, {{540, 0.01F}, {590, 0.01F}}), 540, 2},
             {"the lower end counts", With(0.5F, {{410, 0.01F}}), 410, 2},
             {"the upper end counts", With(0.5F, {{700, 0.01F}}), 700, 2},
             {"and nothing beyond", With(0.1F, {{400, 0.01F}, {710, 0.01F}}), 560, 1}}) {
        EXPECT_EQ(CMetry::GetMaxDensity(spectrum, density, true), nm) << what;  // no white: not relative
        EXPECT_NEAR(density, expected, 1e-6) << what;
    }
    CMetry::EnterWhite(With(0.8F, {{470, 0.1F}, {600, 0}}));
    Spectrum const sample = With(0.4F, {{470, 0.04F}, {600, 0.39F}});
    EXPECT_EQ(CMetry::GetMaxDensity(sample, density, false), 470);
    EXPECT_NEAR(density, 1.39794, 1e-5);
    // Relative: 0.4 at 470 nm, 0.5 elsewhere, and at 600 nm the 0.39 undivided.
    EXPECT_EQ(CMetry::GetMaxDensity(sample, density, true), 600);
    EXPECT_NEAR(density, 0.408935, 1e-5);
    EXPECT_EQ(sample[9], 0.04F);
}

TEST_F(CMetryTest, ToEqualStrength) {
    Random random(1931);
    for (int round = 0; round < 50; ++round) {
        Spectrum const reference = random.Reflectances(0.02, 1);
        Spectrum same = reference;
        CMetry::ToEqualStrength(same, reference);
        // K/S near 0 holds r = 1 - sqrt(2 K/S), so an error of 1e-7 in it can be 1e-6 in r.
        for (int k = 0; k < SpectralPoints; ++k)
            EXPECT_NEAR(same[k], reference[k], 2e-6) << "seed 1931, " << round;
    }
    // r = 0.5 has K/S 0.25 and r = 0.25 has 1.125: scaled by 4.5 the one becomes the other.
    Spectrum weak(0.5F, SomeCondition);
    CMetry::ToEqualStrength(weak, Flat(0.25F));
    EXPECT_NEAR(weak[17], 0.25, 1e-7);
    EXPECT_EQ(Text(static_cast<PhysicalConditions const&>(weak)), "[Pol,Pap]");
    // Bands outside (0, 1] take no part and come out as 1; a reference without any counts as 0.0001, which
    // the other 33 share: K/S = 3.0303e-6 and r = 1 + K/S - sqrt(K/S (K/S + 2)).
    Spectrum odd = With(0.5F, {{380, 0}, {390, 1.2F}, {400, -0.1F}});
    CMetry::ToEqualStrength(odd, Flat(2));
    EXPECT_EQ(odd[0] + odd[1] + odd[2], 3.0F);
    EXPECT_NEAR(odd[17], 0.99754120, 1e-7);
}

}  // namespace kv::test
