#include "KVUtils/Tests/TestSupport.h"
#include "KVUtils/Tests/data/CaseTable.h"

#include <type_traits>

namespace kv::test {

template <class Selector, class Type>
void ExpectRow(std::array<std::string, 6> const& row) {
    auto const& [selector, text, read, written, parsed, number] = row;
    Selector const value{sv::String(text)};
    EXPECT_EQ(static_cast<int>(static_cast<Type>(value)), Number(read)) << selector << ' ' << text;
    EXPECT_EQ(Text(value), written) << selector << ' ' << text;
    std::optional<Selector> const fromParse = Selector::Parse(text);
    ASSERT_EQ(fromParse.has_value(), !parsed.empty()) << selector << ' ' << text;
    if (!fromParse) return;
    EXPECT_EQ(static_cast<int>(static_cast<Type>(*fromParse)), Number(parsed)) << selector << ' ' << text;
    if constexpr (std::is_same_v<Selector, IllumClass>) {
        EXPECT_EQ(short(*fromParse), Number(number)) << text;
    }
}

template <class Selector, class Type>
void ExpectUnnamed(std::initializer_list<int> values) {
    for (int const value : values) EXPECT_EQ(Text(Selector(static_cast<Type>(value))), "") << value;
}

TEST(Selectors, ReadWriteAndParse) {
    for (auto const& row : CaseTable<6>("colorimetry/selectors.tsv")) {
        if (row[0] == "illuminant") ExpectRow<IllumClass, IllumType>(row);
        if (row[0] == "observer") ExpectRow<ObserverClass, ObserverType>(row);
        if (row[0] == "density") ExpectRow<DStdClass, DStdType>(row);
        if (row[0] == "filter") ExpectRow<ActualFilterClass, ValueFilterType>(row);
        if (row[0] == "white") ExpectRow<WBaseClass, StoredWBaseType>(row);
    }
    ExpectUnnamed<IllumClass, IllumType>({-1, 4, 12, 36, 99, 101});
    ExpectUnnamed<DStdClass, DStdType>({-1, 5, 7, 9});
    ExpectUnnamed<ActualFilterClass, ValueFilterType>({-1, 10});
    ExpectUnnamed<WBaseClass, StoredWBaseType>({-1, 2});
    EXPECT_EQ(Text(ActualFilterClass(ValueFilterType::Unknown)), "???");
    EXPECT_EQ(Text(IllumClass(IllumType::Dxx3, 55)), "D55");
}

TEST(Selectors, DaylightsAreEqualByNumberAndOthersByType) {
    for (auto const& [typeA, numberA, typeB, numberB, equal] :
         Rows<int, short, int, short, bool>{{16, 55, 23, 55, true},
                                            {16, 55, 16, 65, false},
                                            {2, 65, 2, 50, true},
                                            {16, 65, 2, 65, false},
                                            {2, 65, 16, 65, false},
                                            {-1, 1, -1, 2, true}}) {
        IllumClass const a(static_cast<IllumType>(typeA), numberA), b(static_cast<IllumType>(typeB), numberB);
        EXPECT_EQ(a == b, equal) << typeA << ' ' << typeB;
        EXPECT_EQ(a != b, !equal) << typeA << ' ' << typeB;
    }
    ActualFilterClass const unset(ValueFilterType::NotSet);
    EXPECT_EQ(ValueFilterType(unset), ValueFilterType::None);
    EXPECT_NE(unset, ActualFilterClass(ValueFilterType::None));
}

TEST(Selectors, IlluminantTravelsInOneWord) {
    EXPECT_EQ(IllumClass(IllumType::D65, 65).GetCode(), 4259842UL);
    for (auto const& [type, number] : Rows<IllumType, short>{
             {IllumType::D65, 65}, {IllumType::Dxx2, -5}, {IllumType::Custom, 32767}, {IllumType::A, 0}}) {
        IllumClass back(IllumType::C, 1);
        back.SetCode(IllumClass(type, number).GetCode());
        EXPECT_EQ(IllumType(back), type);
        EXPECT_EQ(short(back), number);
    }
    IllumClass unset(IllumType::C);
    unset.SetCode(IllumClass(IllumType::NotSet).GetCode());
    EXPECT_EQ(IllumType(unset), IllumType::NotSet);
}

// One argument converts without being named.
template <class Selector, class Type>
constexpr bool Converts = std::is_convertible_v<Type, Selector>&& std::is_convertible_v<sv::String, Selector>;
static_assert(Converts<IllumClass, IllumType> && Converts<ObserverClass, ObserverType>);
static_assert(Converts<DStdClass, DStdType> && Converts<ActualFilterClass, ValueFilterType>);
static_assert(Converts<WBaseClass, StoredWBaseType>);

class ObserverText : public ContextTest {};

TEST_F(ObserverText, DegreeSignFollowsTheLanguage) {
    for (auto const& [countryCode, sign] : Rows<unsigned short, std::string>{
             {1, "\xB0"}, {49, "\xB0"}, {81, "\xDF"}, {86, "\xA1\x43"}, {12345, "\xB0"}}) {
        Language::SetLanguageByCountryCode(countryCode);
        EXPECT_EQ(Text(ObserverClass(ObserverType::TenDegrees)), "10" + sign);
        EXPECT_EQ(Text(ObserverClass(ObserverType::TwoDegrees)), "2" + sign);
        ExpectUnnamed<ObserverClass, ObserverType>({-1, 2, 3});
    }
}

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
