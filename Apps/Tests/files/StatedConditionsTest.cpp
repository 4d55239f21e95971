#include "Apps/files/StatedConditions.h"

#include <gtest/gtest.h>

namespace files {
namespace {

using kv::IllumClass;
using kv::IllumType;
using kv::ObserverClass;
using kv::ObserverType;

TEST(StatedConditions, IlluminantsAndObserversByName) {
    EXPECT_EQ(ToIlluminant("A"), IllumClass(IllumType::A));
    EXPECT_EQ(ToIlluminant("d50"), IllumClass(IllumType::D50));
    EXPECT_EQ(ToIlluminant("D55"), IllumClass(IllumType::Dxx1, 55));
    EXPECT_EQ(ToIlluminant("F11"), IllumClass(IllumType::F11));
    for (std::string_view const word : {"", "F0", "F13", "D39", "D251", "D99999999999", "D", "B", "D5O"}) {
        EXPECT_FALSE(ToIlluminant(word)) << word;
    }
    for (std::string_view const text : {"2", "2 degree", "2deg", "2\xB0", "CIE 1931"}) {
        EXPECT_EQ(ToObserver(text), ObserverClass(ObserverType::TwoDegrees)) << text;
    }
    EXPECT_EQ(ToObserver(" 10 degree"), ObserverClass(ObserverType::TenDegrees));
    EXPECT_EQ(ToObserver("1964"), ObserverClass(ObserverType::TenDegrees));
    EXPECT_FALSE(ToObserver("standard"));
}

TEST(StatedConditions, AMeasuringSourceStatesAllInOneLine) {
    ConditionReader reader;
    reader.Take("MEASUREMENT_SOURCE",
                "Illumination=D50 ObserverAngle=10 WhiteBase=Absolute Filter=No MeasurementCondition=M1");
    EXPECT_EQ(reader.Stated().illuminant, IllumClass(IllumType::D50));
    EXPECT_EQ(reader.Stated().observer, ObserverClass(ObserverType::TenDegrees));
    EXPECT_EQ(reader.Stated().measurementMode, "M1");
    EXPECT_EQ(reader.Stated().filter, "No");
    EXPECT_EQ(reader.Stated().whiteBase, "Absolute");
    EXPECT_TRUE(reader.Notes().empty());
}

TEST(StatedConditions, TheLampIsNotTheIlluminant) {
    ConditionReader reader;
    reader.Take("MEASUREMENT_SOURCE", "A");
    reader.Take("MEASUREMENT_SOURCE", "Illumination=D65 Filter=No");
    EXPECT_FALSE(reader.Stated().illuminant);
}

TEST(StatedConditions, AWeightingFunctionOutranksTheRestInAnyOrder) {
    for (bool const isFirst : {true, false}) {
        ConditionReader reader;
        if (isFirst) reader.Take("WEIGHTING_FUNCTION", "ILLUMINANT, D50, OBSERVER, 2 degree");
        reader.Take("ILLUMINANT", "D65");
        reader.Take("OBSERVER", "2");
        if (!isFirst) reader.Take("WEIGHTING_FUNCTION", "ILLUMINANT, D50, OBSERVER, 2 degree");
        EXPECT_EQ(reader.Stated().illuminant, IllumClass(IllumType::D50));
        EXPECT_EQ(reader.Stated().observer, ObserverClass(ObserverType::TwoDegrees));
        EXPECT_EQ(reader.Notes(),
                  (std::vector<std::string>{"illuminant stated as \"D50\" and as \"D65\", the first taken"}));
    }
}

TEST(StatedConditions, WhatIsNotKnownIsNoted) {
    ConditionReader reader;
    reader.Take("ILLUMINANT", "TL84");
    reader.Take("FILTER", "UV-cut");
    reader.Take("MEASUREMENT_CONDITION", "m2");
    reader.Take("MANUFACTURER", "M0");
    EXPECT_FALSE(reader.Stated().illuminant);
    EXPECT_EQ(reader.Stated().filter, "UV-cut");
    EXPECT_EQ(reader.Stated().measurementMode, "M2");
    EXPECT_EQ(reader.Notes(),
              (std::vector<std::string>{"illuminant stated as \"TL84\", which is not known"}));
}

}  // namespace
}  // namespace files
