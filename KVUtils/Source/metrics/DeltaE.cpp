#include "KVUtils/Source/metrics/DeltaE.h"

#include "KVUtils/Source/colorimetry/CMetry.h"
#include "KVUtils/Source/colorimetry/LCHmgVector.h"
#include "KVUtils/Source/colorimetry/dLCHVector.h"
#include "KVUtils/Source/colorimetry/detail/Angles.h"

#include <cmath>

namespace kv {

namespace {

double Square(double x) noexcept { return x * x; }

LABVector LabInForce(XYZVector const& xyz) noexcept { return LABVector(CMetry::LXYZFilter, xyz); }

float Distance(ColorVector const& a, ColorVector const& b) noexcept {
    float difference[3];
    LinAlg::VSubV(difference, a.getV(), b.getV(), 3);
    return LinAlg::BetragV(difference, 3);
}

}  // namespace

float DeltaE::CIELAB(LABVector const& sample, LABVector const& standard) noexcept {
    return Distance(sample, standard);
}

float DeltaE::CIELAB(XYZVector const& sample, XYZVector const& standard) noexcept {
    return CIELAB(LabInForce(sample), LabInForce(standard));
}

float DeltaE::CMC(LABVector const& sample, LABVector const& standard, float l, float c) noexcept {
    LChVector const lch(standard);
    double const L = lch[0], C = lch[1], h = lch[2];
    dLCHVector const d(sample, standard);

    double const SL = L > 16 ? 0.040975 * L / (1 + 0.01765 * L) : double{0.511F};
    double const SC = 0.0638 * C / (1 + 0.0131 * C) + 0.638;
    double const C4 = Square(Square(C));
    double const F = std::sqrt(C4 / (C4 + 1900));
    double const T = h >= 164 && h <= 345 ? 0.56 + std::fabs(0.2 * detail::CosDegrees(h + 168))
                                          : 0.36 + std::fabs(0.4 * detail::CosDegrees(h + 35));
    double const SH = SC * (T * F + 1 - F);
    return static_cast<float>(
        std::sqrt(Square(d[2] / SH) + Square(d[1] / (c * SC)) + Square(d[0] / (l * SL))));
}

float DeltaE::CMC(XYZVector const& sample, XYZVector const& standard, float l, float c) noexcept {
    return CMC(LabInForce(sample), LabInForce(standard), l, c);
}

float DeltaE::FMCII(XYZVector const& sample, XYZVector const& standard) noexcept {
    double const X = standard[0], Y = standard[1], Z = standard[2];
    double const X1 = sample[0], Y1 = sample[1], Z1 = sample[2];

    double const K1 =
        0.55669 + 0.049434 * Y - 0.00082575 * Y * Y + 7.9172e-06 * Y * Y * Y - 3.0087e-08 * Y * Y * Y * Y;
    double const K2 =
        0.17548 + 0.027556 * Y - 0.00057262 * Y * Y + 6.3893e-06 * Y * Y * Y - 2.6731e-08 * Y * Y * Y * Y;
    double const P = 0.724 * X + 0.382 * Y - 0.098 * Z;
    double const Q = -0.48 * X + 1.37 * Y + 0.1276 * Z;
    double const S = 0.686 * Z;
    double const dP = 0.724 * X1 + 0.382 * Y1 - 0.098 * Z1 - P;
    double const dQ = -0.48 * X1 + 1.37 * Y1 + 0.1276 * Z1 - Q;
    double const dS = 0.686 * Z1 - S;

    double const P2 = P * P, Q2 = Q * Q, R2 = P2 + Q2;
    if (!(R2 > 0)) return Undefined;
    if (!(Y > 0) && !(Z > 0)) return Undefined;
    double const A2 = 1.73e-05 * R2 / (1 + 2.73 * P2 * Q2 / (P2 * P2 + Q2 * Q2));
    double const B2 = 0.0003098 * (S * S + 0.2015 * Y * Y);
    double const V = P * dP + Q * dQ;
    double const W = Q * dP - P * dQ;
    double const U = V * S / R2 - dS;
    return static_cast<float>(
        std::sqrt(K1 * K1 * (U * U / B2 + W * W / (A2 * R2)) + 0.077841 * K2 * K2 * V * V / (A2 * R2)));
}

float DeltaE::LABmg(XYZVector const& sample, XYZVector const& standard) noexcept {
    auto const mg = [](XYZVector const& xyz) { return LABmgVector(LCHmgVector(LabInForce(xyz))); };
    return Distance(mg(sample), mg(standard));
}

float DeltaE::dE94(XYZVector const& sample, XYZVector const& standard, float kL, float kC,
                   float kH) noexcept {
    LABVector const standardLab = LabInForce(standard);
    dLCHVector const d(LabInForce(sample), standardLab);
    double const C = LChVector(standardLab)[1];

    double const SC = 1 + 0.045 * C;
    double const SH = 1 + 0.015 * C;
    return static_cast<float>(std::sqrt(Square(double{d[1]} / kC / SC) + Square(double{d[2]} / kH / SH) +
                                        Square(double{d[0]} / kL)));
}

float DeltaE::dEKORVEL1(LABVector const& sample, LABVector const& standard) noexcept {
    dLCHVector const d(sample, standard);
    double const wL = d[0] < 0 ? 4 : 1;
    double const wC = d[1] < 0 ? 2 : 1;
    return static_cast<float>(std::sqrt(Square(wC * d[1]) + Square(wL * d[0]) + Square(2.0 * d[2])));
}

float DeltaE::dEKORVEL2(LABVector const& sample, LABVector const& standard) noexcept {
    dLCHVector const d(sample, standard);
    double const wC = d[1] < 0 ? 1.73F : 0.578034699F;
    return static_cast<float>(std::sqrt(Square(wC * d[1]) + Square(d[0]) + Square(d[2])));
}

}  // namespace kv
