// Differences against Little CMS, which computes them from doubles throughout and knows nothing of this
// library.
#include "KVUtils/Tests/TestSupport.h"

#include <lcms2.h>

#include <algorithm>

namespace kv::test {

/// Sample and standard, of six kinds in turn: anywhere; close together; standard without chroma; sample
/// without chroma; standard with a hue near the ends of the sectors, 164 and 345; standard with L near 16.
static std::pair<LABVector, LABVector> RandomPair(Random& random, int round) {
    LABVector sample = random.Lab(), standard = random.Lab();
    double const away = (random(0, 1) < 0.5 ? -1 : 1) * random(0.001, 0.5);
    switch (round % 6) {
        case 1:
            for (int i = 0; i < 3; ++i) sample[i] = standard[i] + random.Float(-2, 2);
            break;
        case 2:
            standard[1] = standard[2] = 0;
            break;
        case 3:
            sample[1] = sample[2] = 0;
            break;
        case 4:
            standard = LABVector(LCh(random(0, 100), random(5, 120), (round % 12 == 4 ? 164 : 345) + away));
            break;
        case 5:
            standard[0] = static_cast<float>(16 + away);
            break;
        default:
            break;
    }
    return {sample, standard};
}

/// A colour turned by some degrees and made lighter.
static cmsCIELab Cms(LABVector const& lab, double turn = 0, double lighter = 0) {
    double const c = std::cos(turn * 3.14159265358979 / 180), s = std::sin(turn * 3.14159265358979 / 180);
    return {lab[0] + lighter, lab[1] * c - lab[2] * s, lab[1] * s + lab[2] * c};
}
/// Little CMS takes the standard first.
static double CmsCmc(cmsCIELab const& sample, cmsCIELab const& standard, double l) {
    return cmsCMCdeltaE(&standard, &sample, l, 1);
}

// CIELAB: half a unit of float in each of the three differences and in the result, twice 2^-24 of it.
// CMC: Delta C is stored as a float, and an error e in it moves Delta H squared by 2 dC e. As CMC is at least
// dC / SC, that moves CMC by up to e SC / SH^2. SH is at least 0.36 SC, and that small only with SC
// above 1.2; e is half a unit, up to 7.6e-6 for a dC above 128: 5e-5. Hue in float and the library's pi add
// 2e-5 degrees, which is 2e-7 of CMC, and storing the result adds 6e-8 of it.
TEST(LittleCms, TwentyThousandPairs) {
    Random random(20000);
    std::array<double, 3> most{};
    for (int round = 0; round < 20000; ++round) {
        auto const [sample, standard] = RandomPair(random, round);
        cmsCIELab const a = Cms(sample), b = Cms(standard);
        std::array const expected = {cmsDeltaE(&a, &b), CmsCmc(a, b, 1), CmsCmc(a, b, 2)};
        std::array const seen = {DeltaE::CIELAB(sample, standard), DeltaE::CMC(sample, standard, 1, 1),
                                 DeltaE::CMC(sample, standard, 2, 1)};
        for (std::size_t i = 0; i < seen.size(); ++i) {
            double const deviation = std::fabs(seen[i] - expected[i]);
            ASSERT_LE(deviation, i == 0 ? 1.2e-7 * expected[i] : 5e-5 + 3e-7 * expected[i])
                << "seed 20000, round " << round << ", measure " << i;
            most[i] = std::max(most[i], deviation);
        }
    }
    RecordProperty("largestDeviationsCielabCmc11Cmc21", testing::PrintToString(most));
}

// The formula counts h of exactly 164 and 345 to the sector between them, and L of exactly 16 to the
// constant; Little CMS counts them to the other side. So it is asked a little inside: both colours turned by
// 0.001 degrees, which leaves their difference as it is, or made darker by 0.0001.
TEST(LittleCms, CmcAtTheEndsOfTheRanges) {
    for (auto const& [h, turn] : Rows<double, double>{{164, 0.001}, {345, -0.001}}) {
        int found = 0;
        for (double C = 20; C < 60; C += 0.37) {
            LABVector const standard{LCh(50, C, h)}, sample{LCh(50, C, h + 20)};
            if (LChVector(standard)[2] != static_cast<float>(h)) continue;  // lost in the rounding of a and b
            ++found;
            double const inside = CmsCmc(Cms(sample, turn), Cms(standard, turn), 2);
            double const outside = CmsCmc(Cms(sample, -turn), Cms(standard, -turn), 2);
            // 0.001 degrees are 4e-6 in T; the step between the sectors is 1.6e-3 in T, 2e-3 of the hue
            // difference.
            EXPECT_NEAR(DeltaE::CMC(sample, standard, 2, 1), inside, 2e-4) << h << ' ' << C;
            EXPECT_GT(std::fabs(inside - outside), 2e-3) << "the two sides are told apart";
        }
        EXPECT_GT(found, 5) << h;
    }
    LABVector const standard = Lab(16, 0, 0), sample = Lab(26, 0, 0);
    EXPECT_NEAR(DeltaE::CMC(sample, standard, 1, 1),
                CmsCmc(Cms(sample, 0, -1e-4), Cms(standard, 0, -1e-4), 1), 1e-5);
    // Two colours of L = 0 are equal to Little CMS whatever their chroma; by the formula SC is 0.638 here.
    EXPECT_EQ(CmsCmc({0, 3, 4}, {0, 0, 0}, 1), 0.0);
    EXPECT_NEAR(DeltaE::CMC(Lab(0, 3, 4), Lab(0, 0, 0), 1, 1), 5 / 0.638, 1e-5);
}

}  // namespace kv::test
