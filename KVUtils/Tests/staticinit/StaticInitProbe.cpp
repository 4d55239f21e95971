#include "KVUtils/Tests/staticinit/StaticInitProbe.h"

#include <numeric>

namespace {

StaticInitProbe Look() {
    auto const table = kv::CMetry::GammaTable(2);
    kv::CMetryFilter const made(kv::Lichtart(kv::IllumClass(kv::IllumType::D65)),
                                kv::Observer(kv::ObserverClass(kv::ObserverType::TwoDegrees)));
    bool same = true;
    for (unsigned short i = 0; i < 3; ++i)
        same = same && made[i].Weights() == kv::CMetry::LXYZFilter[i].Weights();
    return {kv::XYZVector(kv::Spectrum(1.0F, kv::PhysicalConditions())),
            std::accumulate(table.begin(), table.end(), 0.0F),
            kv::CMetry::xyzSumme.FilterSumme(),
            kv::CMetry::aDichteFilter.GetDStd(),
            kv::CMetry::PapierSpektrumDefiniert,
            same};
}

StaticInitProbe const seen = Look();

}  // namespace

StaticInitProbe const& WhatStaticInitSaw() { return seen; }
