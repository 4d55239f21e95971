// BitsHash: the bits of the library's numbers as one hash an operation, and one over all. Builds by different
// compilers, or at different levels of optimisation, agree when these lines do. Inputs are seeded and hold
// border values; every NaN counts as the same value, since its sign and payload are no part of a result.
//
// Operations that users' programs compile themselves from the headers are called here as such a program
// would.
#include "KVUtils/Source/colorimetry/CMetry.h"
#include "KVUtils/Source/colorimetry/LABVector.h"
#include "KVUtils/Source/colorimetry/LCHmgVector.h"
#include "KVUtils/Source/colorimetry/Spectrum18.h"
#include "KVUtils/Source/colorimetry/XYZVector.h"
#include "KVUtils/Source/colorimetry/dLCHVector.h"
#include "KVUtils/Source/controls/detail/NumberLadder.h"
#include "KVUtils/Source/data/GString.h"
#include "KVUtils/Source/metrics/ColorConverter.h"
#include "KVUtils/Source/metrics/DeltaE.h"
#include "KVUtils/Source/metrics/DensityVector.h"
#include "KVUtils/Source/metrics/FarbstaerkeRechner.h"
#include "KVUtils/Source/metrics/Metamerie.h"
#include "KVUtils/Source/metrics/Phi.h"
#include "KVUtils/Source/metrics/RGBVector.h"
#include "KVUtils/Source/plots/detail/AutoScale.h"
#include "KVUtils/Source/plots/detail/PlotGeometry.h"

#include <bit>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <random>
#include <vector>

namespace {

using namespace kv;

/// FNV-1a.
class Hash {
  public:
    void operator()(std::uint64_t bits) noexcept {
        for (int byte = 0; byte < 8; ++byte) {
            state_ = (state_ ^ (bits & 0xFFU)) * 0x100000001B3U;
            bits >>= 8U;
        }
    }
    void operator()(double value) noexcept {
        (*this)(value != value ? std::uint64_t{1} : std::bit_cast<std::uint64_t>(value));
    }
    void operator()(float value) noexcept { (*this)(double{value}); }
    void operator()(int value) noexcept { (*this)(static_cast<std::uint64_t>(value)); }
    void operator()(ColorVector const& vector) noexcept {
        for (int i = 0; i < 3; ++i) (*this)(vector[i]);
    }
    void operator()(Spectrum const& spectrum) noexcept {
        for (int k = 0; k < SpectralPoints; ++k) (*this)(spectrum[k]);
    }
    void operator()(Filter const& filter) noexcept {
        for (float const weight : filter.Weights()) (*this)(weight);
    }
    void operator()(fPoint const& point) noexcept {
        (*this)(point.X());
        (*this)(point.Y());
    }
    void operator()(AxisData const& axis) noexcept {
        (*this)(axis.GetMinimum());
        (*this)(axis.GetMaximum());
        (*this)(axis.GetStep());
    }
    void operator()(sv::Color color) noexcept {
        for (int const channel : {color.GetRed(), color.GetGreen(), color.GetBlue()}) (*this)(channel);
    }
    void operator()(sv::String const& text) noexcept {
        for (char const c : text.View()) (*this)(int{c});
    }
    template <class Element, std::size_t Count>
    void operator()(std::array<Element, Count> const& list) noexcept {
        for (Element const& element : list) (*this)(element);
    }

    [[nodiscard]] std::uint64_t Value() const noexcept { return state_; }

  private:
    std::uint64_t state_ = 0xCBF29CE484222325U;
};

Hash total;

/// Hashes what `compute(hash)` puts in, and prints the line.
template <class Compute>
void Line(char const* operation, Compute compute) {
    Hash hash;
    compute(hash);
    total(hash.Value());
    std::printf("%016llx  %s\n", static_cast<unsigned long long>(hash.Value()), operation);
}

template <class Element, class Result>
void Each(char const* operation, std::vector<Element> const& inputs, Result result) {
    Line(operation, [&](Hash& hash) {
        for (Element const& input : inputs) hash(result(input));
    });
}

template <class Element, class Result>
void EachPair(char const* operation, std::vector<Element> const& inputs, Result result) {
    Line(operation, [&](Hash& hash) {
        for (std::size_t i = 0; i < inputs.size(); ++i)
            hash(result(inputs[i], inputs[(i * 7 + 3) % inputs.size()]));
    });
}

class Random {
  public:
    double operator()(double low, double high) {
        return low + (high - low) * (static_cast<double>(engine_()) / 4294967296.0);
    }
    float Float(double low, double high) { return static_cast<float>((*this)(low, high)); }

  private:
    std::mt19937 engine_{20121};
};

constexpr float Infinity = std::numeric_limits<float>::infinity();
constexpr float NaN = std::numeric_limits<float>::quiet_NaN();
constexpr std::array<float, 14> Borders = {0,        -0.0F, 0.008856F, 1,     1e-6F, -1e-6F,   0.01F,
                                           0.00001F, 16,    1e-38F,    1e30F, -0.5F, Infinity, NaN};

std::vector<Spectrum> SomeSpectra(Random& random) {
    std::vector<Spectrum> spectra;
    for (int i = 0; i < 1500; ++i) {
        Spectrum spectrum;
        double const high = i % 3 == 0 ? 1.2 : 0.3;
        for (int k = 0; k < SpectralPoints; ++k) spectrum[k] = random.Float(0, high);
        if (i % 10 == 0) spectrum.Init(random.Float(0, 1));
        if (i % 97 == 0)
            spectrum[i % SpectralPoints] = Borders[static_cast<std::size_t>(i / 97) % Borders.size()];
        spectra.push_back(spectrum);
    }
    for (float const value : Borders) spectra.emplace_back(value, PhysicalConditions());
    return spectra;
}

template <class Vector>
std::vector<Vector> SomeVectors(Random& random, double low, double high) {
    std::vector<Vector> vectors;
    for (int i = 0; i < 1500; ++i) {
        Vector vector;
        for (int component = 0; component < 3; ++component) {
            vector[component] = component == 0 ? random.Float(0, 100) : random.Float(low, high);
        }
        if (i % 5 == 0) vector[i % 3] = Borders[static_cast<std::size_t>(i / 5) % Borders.size()];
        vectors.push_back(vector);
    }
    return vectors;
}

std::vector<float> SomeNumbers(Random& random) {
    std::vector<float> numbers(Borders.begin(), Borders.end());
    for (int i = 0; i < 4000; ++i) numbers.push_back(random.Float(-1, 1) * std::ldexp(1.0F, i % 40 - 20));
    return numbers;
}

void Filters() {
    Line("Lichtart", [](Hash& hash) {
        for (int type = -1; type <= 36; ++type)
            hash(Lichtart(IllumClass(static_cast<IllumType>(type))).GetFilter());
        for (short number = -5; number <= 260; ++number)
            hash(Lichtart(IllumClass(IllumType::Dxx1, number)).GetFilter());
    });
    Line("CMetryFilter", [](Hash& hash) {
        for (auto const observer : {ObserverType::TwoDegrees, ObserverType::TenDegrees}) {
            for (short number = 40; number <= 150; ++number) {
                CMetryFilter weights(Lichtart(IllumClass(IllumType::Dxx1, number)), Observer(observer));
                for (unsigned short i = 0; i < 3; ++i) {
                    hash(weights[i]);
                    hash(weights[i].FilterSumme());
                }
            }
        }
    });
    Line("DichteFilter", [](Hash& hash) {
        for (int type = -1; type <= 9; ++type) {
            DichteFilter const filter(static_cast<DStdType>(type));
            for (int channel = 0; channel < 4; ++channel) hash(filter[channel]);
        }
    });
    Line("gamma table", [](Hash& hash) {
        for (float const entry : CMetry::GammaTable(0)) hash(entry);
    });
}

void FromSpectra(std::vector<Spectrum> const& spectra) {
    Each("XYZ(Spectrum)", spectra, [](auto& s) { return XYZVector(s); });
    Each("xyY(Spectrum)", spectra, [](auto& s) { return xyYVector(s); });
    Each("Lab(Spectrum)", spectra, [](auto& s) { return LABVector(s); });
    Each("LCh(Spectrum)", spectra, [](auto& s) { return LChVector(s); });
    Each("Lab(XYZ(Spectrum))", spectra, [](auto& s) { return LABVector(XYZVector(s)); });
    Each("RGB(Spectrum)", spectra, [](auto& s) { return RGBVector(s); });
    Each("SpectrumToColor", spectra, [](auto& s) { return ColorConverter::SpectrumToColor(s); });
    Line("edges of RGB(Spectrum)", [](Hash& hash) {
        // The greys at which a level changes, found to the last bit: 256 levels hide what the sums are.
        for (int level = 1; level < 255; ++level) {
            std::uint32_t low = 0, high = std::bit_cast<std::uint32_t>(1.1F);
            while (low + 1 < high) {
                std::uint32_t const middle = low + (high - low) / 2;
                Spectrum const grey(std::bit_cast<float>(middle), PhysicalConditions());
                (RGBVector(grey)[0] * 2.55 < level ? low : high) = middle;
            }
            hash(std::bit_cast<float>(high));
        }
    });
    Each("density", spectra, [](auto& s) {
        DensityVector const absolute(s, false), relative(s, true);
        return std::array{absolute[0], absolute[1], absolute[2], absolute[3], relative[0], relative[2]};
    });
    Each("GetMaxDensity", spectra, [](auto& s) {
        float density = 0;
        auto const nm = CMetry::GetMaxDensity(s, density, true);
        return std::array{static_cast<float>(nm), density};
    });
    Each("Spectrum18", spectra, [](auto& s) {
        Spectrum18 const pairs(s);
        return Spectrum(pairs);
    });
    Each("float words", spectra, [](auto& s) { return static_cast<int>(Spectrum18(s).GetFloatWord(7)); });
    Each("sum, mean, maximum", spectra, [](auto& s) { return std::array{s.Summe(), s.mean(), s.Maximum()}; });
    EachPair("Spectrum + and /", spectra, [](Spectrum a, auto& b) {
        a + b;
        a / 3.7F;
        return a;
    });
    EachPair("ToEqualStrength", spectra, [](Spectrum a, auto& b) {
        CMetry::ToEqualStrength(a, b);
        return a;
    });
    for (int kind = 0; kind < 3; ++kind) {
        EachPair("KSSpectrum, strength", spectra, [kind](auto& sample, auto& paper) {
            KSSpectrum const ks(sample, paper, static_cast<KSFarbartType>(kind));
            FarbstaerkeRechner const largest(ks, KSMethodeType::Maximum),
                mean(ks, KSMethodeType::WeightedMean);
            return std::array{ks[3], ks[20], ks.mean(), largest.DS(paper), mean.DS(sample)};
        });
    }
    EachPair("Phi", spectra, [](auto& a, auto& b) { return float(Phi(1, a, b)); });
    EachPair("Metamerie", spectra, [](auto& a, auto& b) {
        MetamerieRechner judge(a, IllumClass(IllumType::D65), IllumClass(IllumType::A),
                               ObserverClass(ObserverType::TenDegrees));
        return judge.RechneMetamerie(b).GetIndex();
    });
}

void Scale(CMetryFilter const& weights, Spectrum const& spectrum, double sum, float* scaled) {
    auto const v = weights * spectrum;
    for (int i = 0; i < 3; ++i) scaled[i] = static_cast<float>(v[static_cast<std::size_t>(i)] / sum * 100);
}

/// What a user's program makes of the parts that it compiles itself.
void InUsersPrograms(std::vector<Spectrum> const& spectra) {
    CMetryFilter const weights{Lichtart{IllumType::D50}, Observer{ObserverType::TwoDegrees}};
    double const sum = CMetryFilter(weights)[1].FilterSumme();
    Each("weights * Spectrum", spectra, [&](auto& s) { return weights * s; });
    Each("weights * Spectrum / sum * 100", spectra, [&](auto& s) {
        std::array<float, 3> scaled{};
        Scale(weights, s, sum, scaled.data());
        return scaled;
    });
    Each("100 * (weights * Spectrum) / sum", spectra, [&](auto& s) {
        auto const v = weights * s;
        return std::array{static_cast<float>(100 * double{v[0]} / sum),
                          static_cast<float>(100 * double{v[1]} / sum),
                          static_cast<float>(100 * double{v[2]} / sum)};
    });
    Each("chromaticity of XYZ", spectra, [](auto& s) {
        XYZVector const v(s);
        double const all = double{v[0]} + double{v[1]} + double{v[2]};
        return std::array{static_cast<float>(v[0] / all), static_cast<float>(v[1] / all)};
    });
    DichteFilter const density(DStdType::AnsiT);
    Each("DichteFilter * Spectrum", spectra, [&](auto& s) { return density * s; });
    Each("DichteFilter * Spectrum, rounded, scaled", spectra, [&](auto& s) {
        auto const v = density * s;
        std::array<float, 4> stored{}, scaled{};
        for (std::size_t i = 0; i < 4; ++i) stored[i] = static_cast<float>(v[i]);
        for (std::size_t i = 0; i < 4; ++i) scaled[i] = static_cast<float>(stored[i] / sum * 100);
        return scaled;
    });
    Each("FilterXFilter, sum", spectra, [&](auto& s) {
        Filter own(static_cast<float const*>(s));
        Filter product = own.FilterXFilter(weights[0]);
        return std::array{product.FilterSumme(), product * s, own.FilterSumme()};
    });
}

template <class Element>
void Kernel(char const* operation, std::vector<float> const& numbers) {
    Line(operation, [&](Hash& hash) {
        for (std::size_t at = 0; at + 40 < numbers.size(); at += 13) {
            std::array<Element, 16> a{}, b{}, d{};
            for (std::size_t i = 0; i < 16; ++i) {
                a[i] = static_cast<Element>(numbers[at + i]) / 3;
                b[i] = static_cast<Element>(numbers[at + i + 16]) / 7;
            }
            LinAlg::VAddV(d.data(), a.data(), b.data(), 16);
            LinAlg::VdivV(d.data(), d.data(), b.data(), 3);
            LinAlg::VAddKxV(d.data(), a[1], b.data(), 8);
            LinAlg::KxV(d.data(), b[2], 4);
            LinAlg::KVAddKV(d.data() + 8, a[1], a.data(), b[1], d.data(), 4);
            LinAlg::VSubV(d.data() + 4, a.data(), 4);
            LinAlg::VxV(d.data() + 2, d.data(), b.data(), 2);
            hash(d);
            LinAlg::MxM(d.data(), a.data(), b.data(), 4, 4, 4);
            hash(d);
            LinAlg::MaTxMa(a.data(), 4, 3, d.data());
            LinAlg::MtxV(d.data() + 9, a.data(), b.data(), 4, 3);
            LinAlg::MxV(d.data() + 12, a.data(), b.data(), 4, 4, 4);
            hash(d);
            hash(LinAlg::SumV(a.data(), 16));
            hash(LinAlg::BetragV(b.data(), 16));
            hash(LinAlg::DotProd(a.data(), b.data(), 16));
            unsigned char flag = 0;
            std::array<Element, 4> x{};
            std::array<Element, 4> rhs = {a[3], a[5], b[7], b[11]};
            std::array<Element, 16> matrix = a, normal{};
            std::array<int, 4> rows{}, order{};
            LinAlg::GaussEl(rhs.data(), matrix.data(), x.data(), 4, flag, rows.data(), order.data());
            hash(x);
            hash(int{flag});
            matrix = a;
            std::array<Element, 8> targets{};
            LinAlg::CopyVector(targets.data(), b.data(), 8);
            LinAlg::LeastSquareFit(b.data() + 8, targets.data(), matrix.data(), x.data(), 8, 2, normal.data(),
                                   rhs.data(), rows.data(), order.data(), flag);
            hash(x);
        }
    });
}

void FromVectors(Random& random) {
    auto const labs = SomeVectors<LABVector>(random, -100, 100);
    Each("XYZ(Lab)", labs, [](auto& lab) { return XYZVector(lab); });
    Each("LCh(Lab)", labs, [](auto& lab) { return LChVector(lab); });
    Each("Lab(LCh)", labs, [](auto& lab) { return LABVector(LChVector(lab)); });
    Each("mg(Lab)", labs, [](auto& lab) { return LCHmgVector(lab); });
    Each("mg(rectangular mg)", labs, [](auto& lab) { return LCHmgVector(LABmgVector(LCHmgVector(lab))); });
    Each("LCh(mg)", labs, [](auto& lab) { return LChVector(LCHmgVector(lab)); });
    Each("RGB(Lab)", labs, [](auto& lab) { return RGBVector(lab); });
    Each("FarbNummer", labs, [](auto& lab) { return int{ColorConverter::FarbNummer(lab)}; });
    EachPair("dLCH", labs, [](auto& a, auto& b) { return dLCHVector(a, b); });
    EachPair("dLCHmg", labs, [](auto& a, auto& b) { return dLCHmgVector(a, b); });
    EachPair("DeltaE of Lab", labs, [](auto& a, auto& b) {
        return std::array{DeltaE::CIELAB(a, b), DeltaE::CMC(a, b, 2, 1), DeltaE::dEKORVEL1(a, b),
                          DeltaE::dEKORVEL2(a, b)};
    });

    auto const xyzs = SomeVectors<XYZVector>(random, 0, 100);
    Each("Lab(XYZ)", xyzs, [](auto& xyz) { return LABVector(xyz); });
    Each("LCh(XYZ)", xyzs, [](auto& xyz) { return LChVector(xyz); });
    EachPair("DeltaE of XYZ", xyzs, [](auto& a, auto& b) {
        return std::array{DeltaE::CIELAB(a, b), DeltaE::CMC(a, b, 1, 1), DeltaE::FMCII(a, b),
                          DeltaE::LABmg(a, b), DeltaE::dE94(a, b, 2, 1, 1)};
    });
    EachPair("ColorVector arithmetic", xyzs, [](XYZVector a, auto& b) {
        a *= b;
        a += b;
        a *= 0.7F;
        a -= b;
        a /= b;
        a /= 3.3F;
        return a;
    });
    Each("ColorVector::Length", xyzs, [](auto& xyz) { return xyz.Length(); });
    Each("CMYKToColor", xyzs, [](auto& xyz) {
        std::array const cmyk = {xyz[0], xyz[1], xyz[2], 12.5F};
        return ColorConverter::CMYKToColor(cmyk.data());
    });
}

void Plots(std::vector<float> const& numbers) {
    EachPair("fPoint", numbers, [](float x, float y) {
        fPoint point(x, y);
        point *= 1.7F;
        point += fPoint(y, x);
        return (point - fPoint(0.3F, 0.7F)) / 3.1F;
    });
    EachPair("fPoint::Distance", numbers, [](float x, float y) { return fPoint(x, y).Distance({y, 0.1F}); });
    EachPair("scales and pixels", numbers, [](float a, float b) {
        AxisData const axis(a, b, 0.2F, 4);
        return std::array{float(detail::LogicToPixel(axis, 731, (a + b) / 3)),
                          detail::PixelToLogic(axis, 731, 100), detail::ScaleY(a, b).GetMaximum(),
                          detail::ScaleY(a, b).GetStep()};
    });
    Line("ticks and labels", [&](Hash& hash) {
        for (float const end : numbers) {
            if (!(std::fabs(end) < 1e6F) || !(std::fabs(end) > 1e-3F)) continue;
            AxisData const axis(-std::fabs(end), std::fabs(end), std::fabs(end) / 7, 4);
            for (auto const& tick : detail::Ticks(axis, 640)) hash(int{tick.position});
            for (auto const& label : detail::TickLabels(axis, 640, 3)) {
                hash(label.value);
                hash(label.text);
            }
        }
    });
    Line("automatic scales", [&](Hash& hash) {
        for (std::size_t at = 0; at + 20 < numbers.size(); at += 11) {
            Curve curve(numbers[at], numbers[at + 1], numbers.data() + at, 20, sv::Color(), DIAGRAM_LINE);
            for (auto const type : {AUTOSCALE_MIN, AUTOSCALE_MAX, AUTOSCALE_BOTH}) {
                hash(detail::AutoScaleX(curve, type));
                hash(detail::AutoScaleY(curve, type));
            }
            for (int i = 0; i < 20; ++i) hash(curve.GetPoint(i));
        }
    });
}

void Texts(std::vector<float> const& numbers) {
    for (int decimals = 0; decimals < 7; decimals += 2)
        Each("GString", numbers, [=](float number) { return fString(double{number} / 3, decimals); });
    Each("ladder", numbers, [](float number) {
        return std::array{detail::NextOnLadder(number, detail::StepDirection::Up, 0.01),
                          detail::NextOnLadder(number, detail::StepDirection::Down, 0.01)};
    });
}

}  // namespace

int main() {
    Random random;
    CMetry::SetMeasuringConditions(MeasuringCondition(IllumClass(IllumType::D50),
                                                      ObserverClass(ObserverType::TenDegrees),
                                                      DStdClass(DStdType::AnsiT), PhysicalConditions()));
    CMetry::EnterWhite(Spectrum(0.87F, PhysicalConditions()));
    auto const spectra = SomeSpectra(random);
    auto const numbers = SomeNumbers(random);
    Filters();
    FromSpectra(spectra);
    InUsersPrograms(spectra);
    FromVectors(random);
    Kernel<float>("LinAlg float", numbers);
    Kernel<double>("LinAlg double", numbers);
    Plots(numbers);
    Texts(numbers);
    std::printf("%016llx  total\n", static_cast<unsigned long long>(total.Value()));
}
