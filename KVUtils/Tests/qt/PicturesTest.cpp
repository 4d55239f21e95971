// Windows against pictures of them that are kept beside this file, in "pictures".
//
// After a wanted change, with the environment variable KV_WRITE_PICTURES=1 set, the test writes the pictures
// anew in place of comparing them: look at each before it is kept. One that differs is left in the folder
// for temporary files, under the same name.
#include "KVUtils/Source/controls/KOBitmapButtonBar.h"
#include "KVUtils/Source/controls/NumEditor.h"
#include "KVUtils/Source/controls/TextFenster.h"
#include "KVUtils/Source/dialogs/MyFixedText.h"
#include "KVUtils/Source/dialogs/WaitVisualizer.h"
#include "KVUtils/Source/frame/Text.h"
#include "KVUtils/Source/plots/PlotWindow.h"
#include "SV/Tests/qt/QtFixture.h"

#include <QApplication>
#include <QDir>
#include <QFont>
#include <QPalette>
#include <QStyle>
#include <QStyleFactory>
#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>

namespace kv::test {

namespace {

using namespace sv::qt::tests;

struct Difference {
    double mean = 0;
    double greatest = 0;
};

// What is compared is the mean of squares of this many pixels, channel by channel, 0 to 255: letters may be
// drawn a little bolder, or a fraction of a pixel beside, by another rasteriser, but not be absent.
constexpr int Square = 8;
constexpr Difference OfLetters{1.5, 45};
/// Where thin lines count.
constexpr Difference OfLines{0.6, 14};

std::array<double, 3> MeanOf(QImage const& picture, int left, int top) {
    std::array<double, 3> sum{};
    int count = 0;
    for (int y = top; y < std::min(top + Square, picture.height()); ++y) {
        for (int x = left; x < std::min(left + Square, picture.width()); ++x, ++count) {
            QColor const color = picture.pixelColor(x, y);
            sum[0] += color.red();
            sum[1] += color.green();
            sum[2] += color.blue();
        }
    }
    for (double& channel : sum) channel /= count;
    return sum;
}

/// Of two pictures of one size.
Difference Compare(QImage const& a, QImage const& b) {
    Difference difference;
    int count = 0;
    for (int top = 0; top < a.height(); top += Square) {
        for (int left = 0; left < a.width(); left += Square) {
            std::array<double, 3> const first = MeanOf(a, left, top);
            std::array<double, 3> const second = MeanOf(b, left, top);
            for (std::size_t channel = 0; channel < first.size(); ++channel, ++count) {
                double const distance = std::abs(first[channel] - second[channel]);
                difference.mean += distance;
                difference.greatest = std::max(difference.greatest, distance);
            }
        }
    }
    difference.mean /= count;
    return difference;
}

bool IsWithin(Difference const& difference, Difference const& tolerated) {
    return difference.mean <= tolerated.mean && difference.greatest <= tolerated.greatest;
}

/// As it is kept, or kept from now on.
void ExpectPicture(QImage const& seen, char const* name, Difference const& tolerated) {
    QString const kept = QDir(KV_PICTURES).filePath(name);
    if (qEnvironmentVariableIsSet("KV_WRITE_PICTURES")) {
        ASSERT_TRUE(seen.convertToFormat(QImage::Format_RGB888).save(kept));
        return;
    }
    QImage const expected(kept);
    ASSERT_EQ(seen.size(), expected.size()) << name;
    Difference const difference = Compare(seen, expected);
    if (IsWithin(difference, tolerated)) return;
    QString const beside = QDir::temp().filePath(name);
    (void)seen.save(beside);
    ADD_FAILURE() << name << " differs by " << difference.mean << " and by " << difference.greatest
                  << ", see " << beside.toStdString();
}

// The same letters, style and colours on each desktop.
class Pictures : public QtTest {
  protected:
    Pictures() {
        QApplication::setStyle(QStyleFactory::create("Fusion"));
        QApplication::setPalette(QPalette(QColor(0xEF, 0xEF, 0xEF)));
        SetFont({});
        Text::LoadText(KV_TEXTS "/colourdesk", 49);
    }
    ~Pictures() override {
        Text::FreeResources();
        QApplication::setFont(fontBefore);
        QApplication::setPalette(paletteBefore);
        QApplication::setStyle(QStyleFactory::create(styleBefore));
    }
    /// What makes other pixels of the same letters.
    struct Rasteriser {
        QFont::StyleStrategy strategy = QFont::PreferDefault;
        QFont::HintingPreference hinting = QFont::PreferDefaultHinting;
    };
    static void SetFont(Rasteriser const& rasteriser) {
        QFont font("DejaVu Sans");
        font.setPixelSize(13);
        font.setStyleStrategy(rasteriser.strategy);
        font.setHintingPreference(rasteriser.hinting);
        QApplication::setFont(font);
    }

    QFont const fontBefore = QApplication::font();
    QPalette const paletteBefore = QApplication::palette();
    QString const styleBefore = QApplication::style()->name();
};

/// A column of the standard buttons: as they are, shut off, and under the pointer.
struct ButtonColumn {
    ButtonColumn() {
        window.ChangeSizePixel({150, 150});
        sv::Link const nothing;
        bar.AddButton(nothing, 0x20, 0);
        bar.AddButton(nothing, 0x1, 0)->Disable();
        bar.AddButton(nothing, 0x10, 0)->MouseMove(sv::MouseEvent({5, 5}));
        bar.AddButton(nothing, 0x4, 0);
        bar.SearchButton(0x10)->ReleaseMouse();
    }

    sv::Window window{nullptr};
    KOBitmapButtonBar bar{&window, {15, 10}, {120, 30}, 0, {0, 3}};
};

TEST_F(Pictures, Buttons) { ExpectPicture(PictureOf(ButtonColumn().window), "buttons.png", OfLetters); }

TEST_F(Pictures, ANumberWithItsTextAndUnit) {
    sv::Window window(nullptr);
    window.ChangeSizePixel({240, 44});
    MyFixedText const text(&window, {10, 14}, "~Papierwei\xDF");
    NumEditor number(&window, {100, 8}, 45, 0, 100, 6);
    number.setUnit("mg/m\xB2");
    ExpectPicture(PictureOf(window), "number.png", OfLetters);
}

struct Plot {
    Plot() {
        window.ChangeSizePixel({260, 190});
        plot.ChangeXAxisData(AxisData(400, 700, 100, 4));
        plot.ChangeYAxisData(AxisData(0, 100, 50, 4));
        std::array<float, 7> const reflectance = {8, 10, 14, 40, 72, 85, 88};
        plot.AddCurve(
            Curve(400, 700, reflectance.data(), 7, sv::Color(0xC000, 0x2000, 0x2000), DIAGRAM_LINE));
        plot.SetCursor(550, CURSOR_CROSS, 0);
        plot.SetPosSizePixel({}, {260, 190});
        plot.Show();
    }

    sv::Window window{nullptr};
    PlotWindow plot{&window, AxisText("nm", 0), AxisText("R %", 0)};
};

TEST_F(Pictures, APlotWithItsCursor) { ExpectPicture(PictureOf(Plot().window), "plot.png", OfLines); }

TEST_F(Pictures, TheTextWindow) {
    TextFenster window(nullptr, "Meldungen", 320, 170);
    for (char const* const line : {"12  Farbe 1   45.20", "13  Farbe 2   46.75", "Zeile 14: Zahl erwartet"})
        window.AddLine(line);
    // Each desktop has a font of fixed width of its own.
    QFont fixed("DejaVu Sans Mono");
    fixed.setPixelSize(12);
    WidgetOf(*window.GetChildren().front()).setFont(fixed);
    ExpectPicture(PictureOf(window), "text.png", OfLetters);
}

TEST_F(Pictures, WaitingForWork) {
    AbbruchDialog dialog(nullptr, "Messen", "Feld 12 von 20 wird gemessen.");
    dialog.SetPercent(60);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&WidgetOf(dialog)));
    ExpectPicture(PictureOf(dialog), "waiting.png", OfLetters);
}

TEST_F(Pictures, AnotherRasteriserPasses) {
    QImage const buttons = PictureOf(ButtonColumn().window);
    QImage const plot = PictureOf(Plot().window);
    Rasteriser const others[] = {{QFont::PreferDefault, QFont::PreferNoHinting},
                                 {QFont::PreferDefault, QFont::PreferFullHinting},
                                 {QFont::NoAntialias, QFont::PreferDefaultHinting}};
    double greatest = 0;
    for (Rasteriser const& other : others) {
        SetFont(other);
        Difference const ofButtons = Compare(buttons, PictureOf(ButtonColumn().window));
        EXPECT_TRUE(IsWithin(ofButtons, OfLetters)) << ofButtons.mean << ' ' << ofButtons.greatest;
        greatest = std::max(greatest, ofButtons.greatest);
        if (other.strategy == QFont::NoAntialias) continue;
        Difference const ofPlot = Compare(plot, PictureOf(Plot().window));
        EXPECT_TRUE(IsWithin(ofPlot, OfLines)) << ofPlot.mean << ' ' << ofPlot.greatest;
    }
    EXPECT_GT(greatest, 0) << "they are others";
}

TEST_F(Pictures, WhatIsMissingIsSeen) {
    ButtonColumn buttons;
    QImage before = PictureOf(buttons.window);
    buttons.bar.SearchButton(0x4)->SetText(" ");
    EXPECT_FALSE(IsWithin(Compare(before, PictureOf(buttons.window)), OfLetters)) << "a button's text";
    buttons.bar.SearchButton(0x4)->SetText("~Abbrechen");
    EXPECT_TRUE(IsWithin(Compare(before, PictureOf(buttons.window)), OfLetters));
    buttons.bar.SearchButton(0x20)->ChangeBitmap(sv::Bitmap());
    EXPECT_FALSE(IsWithin(Compare(before, PictureOf(buttons.window)), OfLetters)) << "a button's picture";

    Plot plot;
    before = PictureOf(plot.window);
    plot.plot.SetCursor(550, CURSOR_NONE, 0);
    EXPECT_FALSE(IsWithin(Compare(before, PictureOf(plot.window)), OfLines)) << "the cursor";
    plot.plot.SetCursor(550, CURSOR_CROSS, 0);
    plot.plot.ChangeXAxisText(AxisText("", 0));
    EXPECT_FALSE(IsWithin(Compare(before, PictureOf(plot.window)), OfLines)) << "the unit of an axis";
}

}  // namespace

}  // namespace kv::test
