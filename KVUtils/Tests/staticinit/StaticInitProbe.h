// What a static initialiser of another shared object reads from the library before main.
#pragma once

#include "KVUtils/KVUtils.h"

struct StaticInitProbe {
    kv::XYZVector white;
    float gammaSum;
    float xyzSum;
    kv::DStdType density;
    unsigned char hasPaper;
    bool weightsAreStandard;
};

[[nodiscard]] StaticInitProbe const& WhatStaticInitSaw();
