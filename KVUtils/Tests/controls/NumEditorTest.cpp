#include "KVUtils/Source/controls/EnterNumber.h"
#include "KVUtils/Source/controls/InputOutputNumEditor.h"
#include "KVUtils/Source/controls/NumEditor.h"
#include "KVUtils/Tests/TestSupport.h"

namespace kv::test {
namespace {

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
