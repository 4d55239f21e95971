#include "KVUtils/Source/controls/EnterNumber.h"
#include "KVUtils/Source/controls/InputOutputNumEditor.h"
#include "KVUtils/Source/controls/NumEditor.h"
#include "KVUtils/Source/controls/detail/NumberLadder.h"
#include "KVUtils/Source/controls/detail/NumberText.h"
#include "KVUtils/Tests/TestSupport.h"
#include "KVUtils/Tests/data/CaseTable.h"

#include <limits>

namespace kv::test {
namespace {

using namespace detail;

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double MinimalStep = 0.0001F;  // a hair below the rung 0.0001

TEST(NumberLadder, RungsAreTypedNumbers) {
    for (auto const& [index, value] : Rows<int, double>{{0, 1},
                                                        {1, 1.25},
                                                        {13, 9},
                                                        {14, 10},
                                                        {15, 12.5},
                                                        {-1, 0.9},
                                                        {-3, 0.7},
                                                        {-14, 0.1},
                                                        {-15, 0.09},
                                                        {-56, 0.0001},
                                                        {27 * 14 + 10, 6e27},
                                                        {-40 * 14 + 3, 1.75e-40},
                                                        {308 * 14 + 4, Infinity},
                                                        {-330 * 14, 0}}) {
        EXPECT_EQ(LadderValue(index), value) << index;
    }
}

TEST(NumberLadder, OneStep) {
    for (auto const& [value, up, down] : CaseTable<3>("controls/ladder.tsv")) {
        EXPECT_EQ(NextOnLadder(Number(value), StepDirection::Up, MinimalStep), Number(up)) << value;
        EXPECT_EQ(NextOnLadder(Number(value), StepDirection::Down, MinimalStep), Number(down)) << value;
    }
    EXPECT_EQ(NextOnLadder(0, StepDirection::Up, 0), 0);
    EXPECT_EQ(NextOnLadder(5e-324, StepDirection::Down, 0), 0);
    EXPECT_TRUE(std::isnan(NextOnLadder(std::nan(""), StepDirection::Up, MinimalStep)));
}

TEST(NumberLadder, EveryStepGoesTheRightWayAndBack) {
    for (int index = -100; index < 100; ++index) {
        double const rung = LadderValue(index);
        ASSERT_EQ(NextOnLadder(rung, StepDirection::Up, 0), LadderValue(index + 1));
        ASSERT_EQ(NextOnLadder(rung, StepDirection::Down, 0), LadderValue(index - 1));
        ASSERT_EQ(NextOnLadder(std::nextafter(rung, 0), StepDirection::Up, 0), rung);
        ASSERT_EQ(NextOnLadder(std::nextafter(rung, Infinity), StepDirection::Down, 0), rung);
    }
}

TEST(NumberLadder, IntegersAndLimits) {
    EXPECT_EQ(NextInteger(2.7, StepDirection::Up), 3);
    EXPECT_EQ(NextInteger(2.7, StepDirection::Down), 1);
    EXPECT_EQ(NextInteger(-0.5, StepDirection::Down), -1);
    for (auto const& [value, minimum, maximum, clamped] : Rows<double, double, double, double>{
             {90, 0, 100, 90}, {125, 0, 100, 100}, {-0.0001, 0, 100, 0}, {5, 9, 3, 9}})
        EXPECT_EQ(ClampStep(value, minimum, maximum), clamped) << value;
}

using Read = std::optional<double>;
constexpr Read None;

TEST(FieldText, ReadsTheWholeTextOrNothing) {
    auto const number = [](std::string const& cell) { return cell.empty() ? None : Read(Number(cell)); };
    for (auto const& [text, point, comma] : CaseTable<3>("controls/field-texts.tsv")) {
        EXPECT_EQ(ReadNumber(text, '.'), number(point)) << text;
        EXPECT_EQ(ReadNumber(text, ','), number(comma)) << text;
    }
    EXPECT_EQ(ReadNumber(sv::String(Localised("2.5"))), 2.5);
}

TEST(FieldText, WhatAFieldMakesOfIt) {
    // The number read; while it is typed, and when the field is left, in the range of 0 to 100.
    for (auto const& [read, typed, left] : Rows<Read, Read, double>{
             {50, 50, 50}, {0, 0, 0}, {100, 100, 100}, {1000, None, 100}, {-1, None, 0}, {None, None, -7}}) {
        EXPECT_EQ(TypedNumber(read, 0, 100), typed);
        EXPECT_EQ(LeftNumber(read, 0, 100, -7), left);
    }
}

TEST(FieldText, Shown) {
    for (auto const& [value, resolution, text] : Rows<double, int, char const*>{{2.5, 3, "2,5"},
                                                                                {2, 3, "2"},
                                                                                {100, 3, "100"},
                                                                                {0.0004, 3, "0"},
                                                                                {0.0005, 3, "0,001"},
                                                                                {100, 0, "1"},
                                                                                {0, 0, ""},
                                                                                {-1.25, 1, "-1,3"}}) {
        EXPECT_EQ(Text(ShownNumber(value, resolution, ',')), text) << value;
    }
    EXPECT_EQ(Text(ShownNumber(2.5, 3)), Localised("2.5"));
}

struct Listener {
    int calls = 0;
    long Handle(NumEditor* /*sender*/) { return ++calls; }
};

/// Makes the window before the field, and listens to the field.
template <class Editor>
struct Field {
    template <class... Rest>
    explicit Field(Rest... rest) : editor(&parent, sv::Point(20, 30), rest...) {
        editor.ChangeValueChangedHdl(sv::Link::To<&Listener::Handle>(listener));
    }
    [[nodiscard]] sv::Window& Part(std::size_t index) const { return *parent.GetChildren()[index]; }
    void Spin(bool up) const { Part(1).WasSpun(up); }
    void Type(std::string const& text) {
        editor.FocusGained();
        editor.TextHasChanged(Localised(text));
    }

    sv::Window parent{nullptr};
    Listener listener;
    Editor editor;
};

TEST(NumEditor, StandsAsLaidOut) {
    Field<NumEditor> field(6);
    field.editor.setUnit("mm");
    // Six zeros are 42 x 16 pixels.
    EXPECT_EQ(field.editor.GetSizePixel(), sv::Size(52, 26));
    EXPECT_EQ(field.Part(1).GetPosPixel(), sv::Point(72, 30));
    EXPECT_EQ(field.Part(1).GetSizePixel(), sv::Size(15, 26));
    EXPECT_EQ(field.Part(2).GetPosPixel(), sv::Point(90, 30));
    EXPECT_EQ(field.Part(2).GetSizePixel(), sv::Size(14, 16));
    EXPECT_EQ(field.editor.ChangePosPixel({0, 100}), sv::Point(20, 30));
    EXPECT_EQ(field.Part(1).GetPosPixel(), sv::Point(52, 100));
    EXPECT_EQ(field.Part(2).GetPosPixel(), sv::Point(70, 100));

    field.editor.Hide();
    for (sv::Window* const part : field.parent.GetChildren()) EXPECT_FALSE(part->IsVisible());
    field.editor.setUnit("");
    field.Part(2).Hide();
    field.editor.Show();
    EXPECT_TRUE(field.Part(1).IsVisible());
    EXPECT_FALSE(field.Part(2).IsVisible()) << "an empty unit";
    field.editor.Disable();
    EXPECT_FALSE(field.Part(1).IsEnabled());
    EXPECT_TRUE(field.Part(2).IsEnabled());
}

TEST(NumEditor, StepsAreClampedAndTold) {
    Field<NumEditor> field(90.0, 0.0, 100.0, 6);
    field.Spin(true);
    field.Spin(true);
    EXPECT_EQ(field.editor.GetText(), "100");
    EXPECT_EQ(field.listener.calls, 2) << "at the end of the range, too";
    field.editor.setValue(0);
    EXPECT_EQ(field.editor.GetText(), "0");
    field.Spin(false);
    EXPECT_EQ(field.editor.getValue(), 0);
    field.Spin(true);
    EXPECT_EQ(field.editor.getValue(), 0.0001);
    field.editor.SetStopUpDown(1);
    field.Spin(true);
    EXPECT_EQ(field.editor.getValue(), 0.0001);
    field.editor.SetStopUpDown(0);
    field.editor.IntegerMode();
    field.editor.setValue(2.7);
    field.Spin(false);
    EXPECT_EQ(field.editor.getValue(), 1);
    EXPECT_EQ(field.listener.calls, 5) << "none for what the program sets";
}

TEST(NumEditor, TakesOverWhatIsTyped) {
    // Field of 5 in 0 to 100: the text, the value while it is typed and after it was left, and what is shown.
    for (auto const& [text, typed, left, shown, calls] :
         Rows<char const*, double, double, char const*, int>{{"7.25", 7.25, 7.25, "7.25", 2},
                                                             {"1e3", 5, 100, "100", 1},
                                                             {"-1", 5, 0, "0", 1},
                                                             {"abc", 5, 5, "5", 1},
                                                             {"", 0, 0, "0", 2}}) {
        Field<NumEditor> field(5.0, 0.0, 100.0, 6);
        field.Type(text);
        EXPECT_EQ(field.editor.getValue(), typed) << text;
        EXPECT_EQ(field.editor.GetText(), sv::String(Localised(text)));
        field.editor.FocusLost();
        EXPECT_EQ(field.editor.getValue(), left) << text;
        EXPECT_EQ(field.editor.GetText(), sv::String(Localised(shown)));
        EXPECT_EQ(field.listener.calls, calls) << text;
        field.editor.FocusGained();
        field.editor.FocusLost();
        EXPECT_EQ(field.listener.calls, calls) << "left without a change";
    }
}

/// Makes the field lose the focus again, once.
struct LeavesAgain {
    NumEditor* editor;
    int calls = 0;
    long Changed(NumEditor* /*sender*/) {
        if (++calls > 1) return 0;
        editor->FocusGained();
        editor->FocusLost();
        return 0;
    }
};

TEST(NumEditor, CountsAsChangedUntilItsLinkReturns) {
    Field<NumEditor> field(5.0, 0.0, 100.0, 6);
    field.Type("abc");
    LeavesAgain leaves{&field.editor};
    field.editor.ChangeValueChangedHdl(sv::Link::To<&LeavesAgain::Changed>(leaves));
    field.editor.FocusLost();
    EXPECT_EQ(leaves.calls, 2);
    field.editor.FocusGained();
    field.editor.FocusLost();
    EXPECT_EQ(leaves.calls, 2) << "no longer changed";
}

TEST(InputOutputNumEditor, TurnsIntoText) {
    Field<InputOutputNumEditor> field(6);
    field.editor.setUnit("g");
    field.editor.setValue(2.5);
    sv::Window& output = field.Part(3);
    EXPECT_EQ(output.GetSizePixel(), sv::Size(42, 16));
    field.editor.OutputOnly(1);
    EXPECT_EQ(output.GetText(), sv::String(Localised("2.5 g")));
    EXPECT_TRUE(output.IsVisible());
    EXPECT_FALSE(field.Part(0).IsVisible() || field.Part(1).IsVisible() || field.Part(2).IsVisible());
    field.editor.ChangePosPixel({1, 2});
    EXPECT_EQ(output.GetPosPixel(), sv::Point(1, 2));
    field.editor.OutputOnly(0);
    EXPECT_TRUE(field.editor.IsVisible() && !output.IsVisible());
}

TEST(EnterNumber, AnswersWhatItsFieldHolds) {
    EnterNumber dialog(nullptr, "Thickness", 8);
    EXPECT_EQ(RegisterTopWindow::GetActiveTopWindow(), &dialog);
    EXPECT_EQ(dialog.GetSizePixel(), sv::Size(300, 100));
    double value = 42.5;
    dialog.Edit(value, 0, 10);
    EXPECT_EQ(value, 42.5) << "a value outside the range stays";
    EXPECT_EQ(dialog.GetChildren().front()->GetText(), sv::String(Localised("42.5")));
}

}  // namespace
}  // namespace kv::test
