#include "KVUtils/Tests/TestSupport.h"

#include <type_traits>

namespace kv::test {

/// text; the value it reads as; what that value is written as
using TextRows = Rows<char const*, int, char const*>;

template <class Selector, class Type>
void ExpectTexts(TextRows const& rows, std::initializer_list<int> unnamed) {
    for (auto const& [text, value, written] : rows) {
        Selector const selector{sv::String(text)};
        EXPECT_EQ(static_cast<int>(static_cast<Type>(selector)), value) << text;
        EXPECT_EQ(Text(selector), written) << text;
    }
    for (int const value : unnamed) EXPECT_EQ(Text(Selector(static_cast<Type>(value))), "") << value;
}

TEST(Selectors, ReadTheKeyAndWriteTheName) {
    // F12 is what every other text reads as: a written daylight ("D55"), other case, a blank.
    ExpectTexts<IllumClass, IllumType>({{"A", 0, "A"},
                                        {"C", 1, "C"},
                                        {"D65", 2, "D65"},
                                        {"D50", 3, "D50"},
                                        {"Il1", 8, "Il1"},
                                        {"Il4", 11, "Il4"},
                                        {"Dxx1", 16, "D65"},
                                        {"F1", 24, "F1"},
                                        {"Dxx8", 23, "D65"},
                                        {"F11", 34, "F11"},
                                        {"D55", 35, "F12"},
                                        {"", 35, "F12"},
                                        {"d65", 35, "F12"},
                                        {"D65 ", 35, "F12"},
                                        {"F12", 35, "F12"},
                                        {"Custom", 100, "Custom"}},
                                       {-1, 4, 12, 36, 99, 101});
    ExpectTexts<DStdClass, DStdType>({{"ANSIA", 0, "ANSI A"},
                                      {"ANSIT", 1, "ANSI T"},
                                      {"DIN", 2, "DIN"},
                                      {"DINNB", 3, "DIN NB"},
                                      {"SPI", 4, "SPI"},
                                      {"ANSIM", 6, "ANSI M"},
                                      {"DS1", 8, "DS1"},
                                      {"ANSI T", 2, "DIN"},
                                      {"", 2, "DIN"}},
                                     {-1, 5, 7, 9});
    ExpectTexts<ActualFilterClass, ValueFilterType>({{"No", 1, "No"},
                                                     {"Pol", 2, "Pol"},
                                                     {"D65", 3, "D65"},
                                                     {"Repro", 4, "Repro"},
                                                     {"UV", 5, "UV"},
                                                     {"Cust", 6, "Cust"},
                                                     {"D8i", 7, "D8i"},
                                                     {"D8e", 8, "D8e"},
                                                     {"D8t", 9, "D8t"},
                                                     {"???", 1, "No"}},
                                                    {-1, 10});
    ExpectTexts<WBaseClass, StoredWBaseType>({{"Pap", 0, "Pap"}, {"Abs", 1, "Abs"}, {"", 1, "Abs"}}, {-1, 2});
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

/// What `Parse` makes of a text, as number and day number; -2 for none.
static std::pair<int, int> Parsed(std::optional<IllumClass> const& parsed) {
    return parsed ? std::pair{int(IllumType(*parsed)), int(short(*parsed))} : std::pair{-2, 0};
}

// One argument converts without being named.
template <class Selector, class Type>
constexpr bool Converts = std::is_convertible_v<Type, Selector>&& std::is_convertible_v<sv::String, Selector>;
static_assert(Converts<IllumClass, IllumType> && Converts<ObserverClass, ObserverType>);
static_assert(Converts<DStdClass, DStdType> && Converts<ActualFilterClass, ValueFilterType>);
static_assert(Converts<WBaseClass, StoredWBaseType>);

TEST(Selectors, ParseReportsUnknownText) {
    for (auto const& [text, type, number] : Rows<char const*, int, int>{
             {"D65", 2, 65},      {"d50", 3, 65},   {" f12 ", 35, 65}, {"F-2", 25, 65},  {"il4", 11, 65},
             {"CUSTOM", 100, 65}, {"Dxx3", 18, 65}, {"D55", 16, 55},   {"d 75", 16, 75}, {"D40", 16, 40},
             {"D250", 16, 250},   {"D39", -2, 0},   {"D251", -2, 0},   {"D055", -2, 0},  {"D6 5", -2, 0},
             {"D65x", -2, 0},     {"D", -2, 0},     {"", -2, 0},       {"F13", -2, 0},   {"F1 2", -2, 0},
             {"-A", -2, 0},       {"D99999", -2, 0}}) {
        EXPECT_EQ(Parsed(IllumClass::Parse(text)), std::pair(type, number)) << text;
    }
    for (char const* const text :
         {"2", "2\xB0", "2\xC2\xB0", "2\xA1\x43", "2 deg", "2-DEGREES", "1931", "CIE 1931"})
        EXPECT_EQ(ObserverClass::Parse(text), ObserverType::TwoDegrees) << text;
    for (char const* const text : {"10", " 10 ", "10\xDF", "10 degree", "cie1964"})
        EXPECT_EQ(ObserverClass::Parse(text), ObserverType::TenDegrees) << text;
    for (char const* const text : {"", "1", "20", "100", "2 10", "ten", "CIE"})
        EXPECT_FALSE(ObserverClass::Parse(text)) << text;
    EXPECT_EQ(DStdClass::Parse("ansi t"), DStdType::AnsiT);
    EXPECT_EQ(DStdClass::Parse("DINNB"), DStdType::DinNb);
    EXPECT_EQ(DStdClass::Parse("din"), DStdType::Din);
    EXPECT_EQ(ActualFilterClass::Parse("uv"), ValueFilterType::Uv);
    EXPECT_EQ(ActualFilterClass::Parse("???"), ValueFilterType::Unknown);
    EXPECT_EQ(WBaseClass::Parse("abs"), StoredWBaseType::Absolute);
    EXPECT_FALSE(DStdClass::Parse("ANSI") || ActualFilterClass::Parse("M1") || WBaseClass::Parse(""));
}

class ObserverText : public ContextTest {};

TEST_F(ObserverText, DegreeSignFollowsTheLanguage) {
    for (auto const& [countryCode, sign] : Rows<unsigned short, std::string>{
             {1, "\xB0"}, {49, "\xB0"}, {81, "\xDF"}, {86, "\xA1\x43"}, {12345, "\xB0"}}) {
        Language::SetLanguageByCountryCode(countryCode);
        // The sign is not part of the key: 10 degrees as written reads as 2.
        ExpectTexts<ObserverClass, ObserverType>({{"10", 1, ("10" + sign).c_str()},
                                                  {("10" + sign).c_str(), 0, ("2" + sign).c_str()},
                                                  {"", 0, ("2" + sign).c_str()}},
                                                 {-1, 2, 3});
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
