#include "KVUtils/Tests/TestSupport.h"

#include <type_traits>

namespace kv::test {

static_assert(std::is_trivially_copyable_v<MeasuringCondition> && !std::is_polymorphic_v<MeasuringCondition>);
static_assert(std::is_trivially_copyable_v<Spectrum> && !std::is_polymorphic_v<Spectrum>);

static PhysicalConditions Physical(int filter, StoredWBaseType base = StoredWBaseType::Absolute) {
    return {ActualFilterClass(static_cast<ValueFilterType>(filter)), WBaseClass(base)};
}
static MeasuringCondition Condition(IllumType type, short number, int observer, DStdType standard) {
    return {IllumClass(type, number),
            ObserverClass(static_cast<ObserverType>(observer)),
            DStdClass(standard),
            {}};
}

TEST(MeasuringCondition, TextLeavesOutWhatIsNotSet) {
    IllumClass const d55(IllumType::Dxx1, 55);
    ObserverClass const two(ObserverType::TwoDegrees);
    for (auto const& [condition, text] : Rows<MeasuringCondition, char const*>{
             {MeasuringCondition(), "[,Abs]"},
             {SomeCondition, SomeConditionText},
             {MeasuringCondition(d55, two, {}), "[D55,2\xB0,,Abs]"},
             {MeasuringCondition(DStdClass(DStdType::AnsiT), Physical(1)), "[ANSI T,No,Abs]"},
             // set, but without a name: the comma stays
             {Condition(static_cast<IllumType>(50), 65, 2, DStdType::Din), "[,,DIN,,Abs]"}}) {
        EXPECT_EQ(Text(condition), text);
    }
    PhysicalConditions physical = Physical(2, StoredWBaseType::PaperWhite);
    physical.SetActualFilterClass(ActualFilterClass(ValueFilterType::Uv));
    EXPECT_EQ(Text(physical), "[UV,Pap]");
}

TEST(MeasuringCondition, EqualityIsThatOfTextsWithoutTheDensityStandard) {
    EXPECT_EQ(Physical(-1), Physical(10));
    EXPECT_NE(Physical(0), Physical(1));
    EXPECT_NE(Physical(1), Physical(1, StoredWBaseType::PaperWhite));
    MeasuringCondition const base = Condition(IllumType::Dxx1, 55, 0, DStdType::Din);
    for (auto const& [other, equal] : Rows<MeasuringCondition, bool>{
             {Condition(IllumType::Dxx1, 55, 0, DStdType::Spi), true},
             {Condition(IllumType::Dxx4, 55, 0, DStdType::Din), true},
             {Condition(IllumType::Dxx1, 56, 0, DStdType::Din), false},
             {Condition(IllumType::Dxx1, 55, 1, DStdType::Din), false},
             {MeasuringCondition(base.GetIllum(), base.GetObserver(), base.GetDStd(), Physical(2)), false}}) {
        EXPECT_EQ(base == other, equal) << Text(other);
    }
    // Observers without a text are one and the same.
    EXPECT_EQ(Condition(IllumType::A, 65, 2, DStdType::Din), Condition(IllumType::A, 65, -1, DStdType::Din));
}

}  // namespace kv::test
