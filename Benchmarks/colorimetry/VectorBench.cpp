// From a spectrum to colour: against the bare sums of products, and against Little CMS on the same numbers.
#include "Benchmarks/Ratios.h"
#include "KVUtils/KVUtils.h"

#include <lcms2.h>

#include <array>
#include <random>

namespace {

using kv::CMetry;
using kv::Spectrum;

/// A few dozen spectra, so that neither side works on one line of the cache alone.
std::array<Spectrum, 64> const& Spectra() {
    static std::array<Spectrum, 64> const spectra = [] {
        std::mt19937 random(7);
        std::uniform_real_distribution<float> reflectance(0.02F, 0.95F);
        std::array<Spectrum, 64> made;
        for (Spectrum& spectrum : made) {
            for (int k = 0; k < kv::SpectralPoints; ++k) spectrum[k] = reflectance(random);
        }
        return made;
    }();
    return spectra;
}

template <class Work>
void OverSpectra(benchmark::State& state, Work work) {
    auto const& spectra = Spectra();
    std::size_t i = 0;
    for (auto _ : state) {
        auto result = work(spectra[i]);
        benchmark::DoNotOptimize(result);
        i = (i + 1) % spectra.size();
    }
}

/// The least that a conversion has to do: three sums of 36 products in double.
std::array<double, 3> BareSums(Spectrum const& spectrum) {
    std::array<double, 3> sums{};
    for (int k = 0; k < kv::SpectralPoints; ++k) {
        for (unsigned short i = 0; i < 3; ++i) {
            sums.data()[i] += double{CMetry::LXYZFilter[i].Weights().data()[k]} * double{spectrum[k]};
        }
    }
    return sums;
}

void BM_BareSums(benchmark::State& state) { OverSpectra(state, BareSums); }
BENCHMARK(BM_BareSums);

void BM_XYZVector(benchmark::State& state) {
    OverSpectra(state, [](Spectrum const& s) { return kv::XYZVector(s); });
}
BENCHMARK(BM_XYZVector);

void BM_LABVector(benchmark::State& state) {
    OverSpectra(state, [](Spectrum const& s) { return kv::LABVector(s); });
}
BENCHMARK(BM_LABVector);

void BM_BareSumsAndLittleCmsLab(benchmark::State& state) {
    OverSpectra(state, [](Spectrum const& s) {
        std::array<double, 3> const sums = BareSums(s);
        cmsCIEXYZ const xyz = {sums[0], sums[1], sums[2]};
        cmsCIELab lab;
        cmsXYZ2Lab(cmsD50_XYZ(), &lab, &xyz);
        return lab;
    });
}
BENCHMARK(BM_BareSumsAndLittleCmsLab);

void BM_DensityVector(benchmark::State& state) {
    OverSpectra(state, [](Spectrum const& s) { return kv::DensityVector(s, false); });
}
BENCHMARK(BM_DensityVector);

template <class Work>
void OverPairs(benchmark::State& state, Work work) {
    std::array<kv::LABVector, 64> labs;
    for (std::size_t i = 0; i < labs.size(); ++i) labs[i] = kv::LABVector(Spectra()[i]);
    std::size_t i = 0;
    for (auto _ : state) {
        auto result = work(labs[i], labs[(i + 1) % labs.size()]);
        benchmark::DoNotOptimize(result);
        i = (i + 1) % labs.size();
    }
}

void BM_Cmc(benchmark::State& state) {
    OverPairs(state,
              [](kv::LABVector const& a, kv::LABVector const& b) { return kv::DeltaE::CMC(a, b, 2, 1); });
}
BENCHMARK(BM_Cmc);

void BM_LittleCmsCmc(benchmark::State& state) {
    OverPairs(state, [](kv::LABVector const& a, kv::LABVector const& b) {
        cmsCIELab const standard = {b[0], b[1], b[2]};
        cmsCIELab const sample = {a[0], a[1], a[2]};
        return cmsCMCdeltaE(&standard, &sample, 2, 1);
    });
}
BENCHMARK(BM_LittleCmsCmc);

bench::Ratio const xyz("BM_XYZVector", "BM_BareSums",
                       "what conditions, rounding and division cost over the bare sums");
bench::Ratio const lab("BM_LABVector", "BM_BareSumsAndLittleCmsLab", "a spectrum to Lab, ours over a peer's");
bench::Ratio const density("BM_DensityVector", "BM_BareSums", "four densities over the three bare sums");
bench::Ratio const cmc("BM_Cmc", "BM_LittleCmsCmc", "one CMC difference, ours over a peer's");

}  // namespace
