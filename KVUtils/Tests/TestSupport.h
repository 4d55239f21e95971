// What the tests of the colour code share.
#pragma once

#include "KVUtils/KVUtils.h"
#include "SV/core/Boxes.h"
#include "SV/core/International.h"

#include <gtest/gtest.h>

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <functional>
#include <random>
#include <string>
#include <tuple>
#include <vector>

namespace kv::test {

/// The rows of a table of cases.
template <class... Columns>
using Rows = std::vector<std::tuple<Columns...>>;
using Triple = std::array<double, 3>;

/// Restores the context of the process, the language and the boxes' handler. The gamma table cannot be
/// emptied again; what it holds before the first call is looked at before main.
class ContextTest : public testing::Test {
  protected:
    ~ContextTest() override {
        CMetry::SetCustomLXYZ(weights_);
        CMetry::RGBFilter = displayWeights_;
        CMetry::xyzSumme = xyzSum_;
        CMetry::aDichteFilter = density_;
        CMetry::aPhysicalCondition = physical_;
        CMetry::amPaperWhiteSpec = paper_;
        CMetry::PapierSpektrumDefiniert = hasPaper_;
        CMetry::PapierweissNormfaktor = factors_;
        Language::SetLanguageByCountryCode(1);
        sv::SetBoxHandler({});
    }

  private:
    CMetryFilter weights_ = CMetry::LXYZFilter;
    CMetryFilter displayWeights_ = CMetry::RGBFilter;
    Filter xyzSum_ = CMetry::xyzSumme;
    DichteFilter density_ = CMetry::aDichteFilter;
    PhysicalConditions physical_ = CMetry::aPhysicalCondition;
    Spectrum paper_ = CMetry::amPaperWhiteSpec;
    unsigned char hasPaper_ = CMetry::PapierSpektrumDefiniert;
    std::array<float, 4> factors_ = CMetry::PapierweissNormfaktor;
};

/// Answers every box with its default and keeps the texts. Ends with the fixture.
class BoxTest : public ContextTest {
  protected:
    BoxTest() {
        sv::SetBoxHandler([this](sv::MessBox const& box) {
            seen_.emplace_back(box.GetText().View());
            return box.DefaultAnswer();
        });
    }

    std::vector<std::string> seen_;
};

/// Numbers that are the same on every machine; the seed stands in the test.
class Random {
  public:
    explicit Random(std::uint32_t seed) : engine_(seed) {}
    /// Uniform in [low, high).
    double operator()(double low, double high) {
        return low + (high - low) * (static_cast<double>(engine_()) / 4294967296.0);
    }
    float Float(double low, double high) { return static_cast<float>((*this)(low, high)); }
    Spectrum Reflectances(double low, double high) {
        Spectrum spectrum;
        for (int k = 0; k < SpectralPoints; ++k) spectrum[k] = Float(low, high);
        return spectrum;
    }
    LABVector Lab() { return {Float(0, 100), Float(-100, 100), Float(-100, 100), {}}; }

  private:
    std::mt19937 engine_;
};

/// The number in a cell of a table; "inf" and "nan" are such too. Knows no locale.
inline double Number(std::string const& cell) {
    double number = 0;
    auto const [end, error] = std::from_chars(cell.data(), cell.data() + cell.size(), number);
    EXPECT_TRUE(error == std::errc() && end == cell.data() + cell.size()) << '"' << cell << '"';
    return number;
}

template <class Value>
std::string Text(Value const& value) {
    return std::string(sv::String(value).View());
}

/// A text of numbers with "." as people of the current locale see it.
inline std::string Localised(std::string text) {
    for (char& character : text) {
        if (character == '.') character = sv::International::GetNumDecimalSep();
    }
    return text;
}

inline void ExpectNear(ColorVector const& vector, Triple const& expected, double tolerance) {
    for (int i = 0; i < 3; ++i) EXPECT_NEAR(vector[i], expected[i], tolerance) << "component " << i;
}

inline LABVector Lab(double L, double a, double b) {
    return {static_cast<float>(L), static_cast<float>(a), static_cast<float>(b), {}};
}
inline LChVector LCh(double L, double C, double h) {
    return {static_cast<float>(L), static_cast<float>(C), static_cast<float>(h), {}};
}
inline XYZVector Xyz(double X, double Y, double Z) {
    return {static_cast<float>(X), static_cast<float>(Y), static_cast<float>(Z), {}};
}
/// The same value at every point.
inline Spectrum Flat(float value) { return {value, PhysicalConditions()}; }
inline CMetryFilter Weights(IllumClass const& illuminant, ObserverType observer) {
    return {Lichtart(illuminant), Observer(ObserverClass(observer))};
}

inline MeasuringCondition const SomeCondition(
    IllumClass(IllumType::A), ObserverClass(ObserverType::TenDegrees), DStdClass(DStdType::Spi),
    {ActualFilterClass(ValueFilterType::Polarisation), WBaseClass(StoredWBaseType::PaperWhite)});
inline constexpr char SomeConditionText[] = "[A,10\xB0,SPI,Pol,Pap]";

}  // namespace kv::test
