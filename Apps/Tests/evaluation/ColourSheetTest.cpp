#include "Apps/evaluation/ColourSheet.h"
#include "KVUtils/Source/colorimetry/CMetry.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace evaluation::test {

namespace {

kv::Spectrum Grey(float reflectance) { return {reflectance, kv::PhysicalConditions()}; }

/// Greys of these reflectances.
ColourSheet SheetOf(std::initializer_list<float> reflectances) {
    files::MeasurementFile file;
    for (float const reflectance : reflectances) {
        file.samples.push_back({std::to_string(file.samples.size() + 1), Grey(reflectance), std::nullopt});
    }
    return ColourSheet(std::move(file));
}

}  // namespace

TEST(ColourSheetTest, JudgesByTheFormulaAndByEachComponent) {
    kv::Spectrum const standard = Grey(0.5F);
    kv::Spectrum const darker = Grey(0.45F);
    double const distance = -Judge(darker, standard, {}).components[0];  // greys differ in L* alone
    ASSERT_GT(distance, 2);
    ASSERT_LT(distance, 5);
    struct Row {
        char const* what;
        DifferenceFormula formula;
        double difference;
        std::array<double, 3> components;
        bool isWithin;
    };
    for (Row const& row : {
             Row{"a limit belongs to what it allows", DifferenceFormula::Cielab, distance, {}, true},
             Row{"beyond the limit", DifferenceFormula::Cielab, distance - 0.01, {}, false},
             Row{"a limit of 0 is none", DifferenceFormula::Cielab, 0, {}, true},
             Row{"a component counts without its sign",
                 DifferenceFormula::Cielab,
                 5,
                 {distance - 0.01, 0, 0},
                 false},
             Row{"components that are kept", DifferenceFormula::Cielab, 5, {distance, 0.01, 0.01}, true},
             Row{"a formula with a sign counts without it",
                 DifferenceFormula::DeltaL,
                 distance - 0.01,
                 {},
                 false},
         }) {
        Tolerances tolerances;
        tolerances.formula = row.formula;
        tolerances.difference = row.difference;
        tolerances.components = row.components;
        EXPECT_EQ(Judge(darker, standard, tolerances).isWithin, row.isWithin) << row.what;
    }
}

TEST(ColourSheetTest, ADifferenceWithoutAValueIsNeverWithin) {
    Tolerances tolerances;
    tolerances.formula = DifferenceFormula::Fmc2;
    tolerances.difference = 1e9;
    Judgement const judgement = Judge(Grey(0.5F), Grey(0), tolerances);
    EXPECT_TRUE(std::isnan(judgement.difference));
    EXPECT_FALSE(judgement.isWithin);
}

TEST(ColourSheetTest, CountsAllButTheStandardItself) {
    ColourSheet sheet = SheetOf({0.5F, 0.5F, 0.1F, 0.49F});
    EXPECT_EQ(sheet.Verdict().judged, 0U);
    SheetConditions conditions = sheet.Conditions();
    conditions.standard = 0;
    sheet.Change(conditions);
    EXPECT_FALSE(sheet.Rows()[0].judgement);
    EXPECT_EQ(sheet.Verdict().judged, 3U);
    EXPECT_EQ(sheet.Verdict().within, 2U);
    EXPECT_EQ(sheet.Verdict().whereLargest, 2U);
    conditions.standard = 4;
    sheet.Change(conditions);
    EXPECT_FALSE(sheet.Conditions().standard) << "an index past the last sample is none";
}

TEST(ColourSheetTest, DensitiesAreRelativeToThePaper) {
    ColourSheet sheet = SheetOf({0.8F, 0.08F});
    EXPECT_NEAR(sheet.Rows()[1].density[0], -std::log10(0.08), 1e-4);
    SheetConditions conditions = sheet.Conditions();
    conditions.paper = 0;
    sheet.Change(conditions);
    EXPECT_NEAR(sheet.Rows()[1].density[0], 1, 1e-4);
    conditions.paper.reset();
    sheet.Change(conditions);
    EXPECT_NEAR(sheet.Rows()[1].density[0], -std::log10(0.08), 1e-4) << "the paper is withdrawn again";
}

TEST(ColourSheetTest, BeginsWithTheConditionsThatTheFileStates) {
    files::MeasurementFile file;
    file.samples.push_back({"1", Grey(0.5F), std::nullopt});
    file.stated.illuminant = kv::IllumClass(kv::IllumType::A);
    ColourSheet const sheet(std::move(file));
    EXPECT_TRUE(sheet.Conditions().illuminant == kv::IllumType::A);
    EXPECT_TRUE(sheet.Conditions().observer == kv::ObserverType::TwoDegrees);
}

}  // namespace evaluation::test
