// Texts of windows can be read: on a dark desktop, long ones, and by those who do not see them.
#include "KVUtils/Source/controls/KOBitmapButton.h"
#include "KVUtils/Source/controls/NumEditor.h"
#include "KVUtils/Source/dialogs/MyFixedText.h"
#include "KVUtils/Source/frame/TextSegment.h"
#include "KVUtils/Source/plots/PlotWindow.h"
#include "SV/Tests/qt/QtFixture.h"
#include "SV/core/Mnemonic.h"

#include <QAccessible>
#include <QLabel>
#include <QLineEdit>
#include <QPalette>
#include <QStyle>
#include <QStyleOptionFrame>
#include <algorithm>
#include <cmath>

namespace kv::test {

namespace {

using namespace sv::qt::tests;

/// As it is seen: 0 for black, 1 for white.
double Luminance(QColor const& color) {
    auto const linear = [](double channel) {
        return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

/// Of the lightest and the darkest pixel; from 4.5 on a text of ordinary size is legible.
double Contrast(QImage const& picture, QRect area) {
    double darkest = 1;
    double lightest = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            double const luminance = Luminance(picture.pixelColor(x, y));
            darkest = std::min(darkest, luminance);
            lightest = std::max(lightest, luminance);
        }
    }
    return (lightest + 0.05) / (darkest + 0.05);
}

class Legible : public QtTest {
  protected:
    ~Legible() override { QApplication::setPalette(before); }

    QPalette const before = QApplication::palette();
};

TEST_F(Legible, OnALightAndOnADarkDesktop) {
    constexpr double AsText = 4.5;
    for (int const ground : {0xEF, 0x30, 0x10}) {
        QApplication::setPalette(QPalette(QColor(ground, ground, ground)));
        sv::Window window(nullptr);
        window.ChangeSizePixel({300, 330});
        sv::Edit edit(&window);
        sv::FixedText text(&window);
        sv::CheckBox check(&window);
        sv::PushButton push(&window);
        sv::DropDownListBox drop(&window);
        sv::ListBoxControl list(&window);
        KOBitmapButton face(&window, sv::Bitmap(), "MMMM", {}, {}, 0, 0, 0x10);
        KOBitmapButton lit(&window, sv::Bitmap(), "MMMM", {}, {}, 0, 0, 0x10);
        KOBitmapButton off(&window, sv::Bitmap(), "MMMM", {}, {}, 0, 0, 0x10);
        for (sv::Window* const control : window.GetChildren()) control->SetText("MMMM");
        drop.InsertEntry("MMMM");
        drop.SelectEntryPos(0);
        list.InsertEntry("MMMM");
        int y = 5;
        for (sv::Window* const control : window.GetChildren())
            Place(*control, {5, std::exchange(y, y + 34)}, {120, 30});
        PlotWindow plot(&window, AxisText("nm", 0), AxisText("R", 1));
        plot.ChangeXAxisData(AxisData(400, 700, 100, 4));
        plot.ChangeYAxisData(AxisData(0, 1, 0.5F, 4));
        Place(plot, {130, 5}, {165, 140});
        window.Show();
        lit.MouseMove(sv::MouseEvent({5, 5}));
        lit.ReleaseMouse();
        off.Disable();
        QImage const picture = PictureOf(window);
        for (sv::Window* const control : window.GetChildren()) {
            if (control == &plot) continue;
            sv::Point const corner = control->GetPosPixel();
            // Inside the frame; of a list its line; without the box of a check box.
            QRect const inside(corner.X() + 6, corner.Y() + 6, 80, control == &list ? 12 : 18);
            QRect const area = control == &check ? inside.translated(22, 0) : inside;
            EXPECT_GE(Contrast(picture, area), AsText) << corner.Y() / 34 << " on " << ground;
        }
        EXPECT_GE(Contrast(picture, {132, 7, 35, 110}), AsText) << "numbers on " << ground;
    }
}

TEST_F(Legible, ForAScreenReaderToo) {
    KOBitmapButton labelled(&frame, sv::Bitmap(), "~Drucken", {}, {}, 0, 0, 0x10);
    KOBitmapButton picture(&frame, sv::Bitmap(), {}, {}, 0, 0, 0x10);
    labelled.SetBalloonText("Druckt alles");
    picture.SetBalloonText("Schlie\xDFt ~alles");
    MyFixedText text(&frame, {}, "~Papierwei\xDF");
    NumEditor const number(&frame, {}, 5);
    text.Show();
    auto const name = [](sv::Window const& window) {
        return QAccessible::queryAccessibleInterface(&WidgetOf(window))->text(QAccessible::Name);
    };
    EXPECT_EQ(name(labelled), "Drucken");
    EXPECT_EQ(name(picture), QStringView(u"Schließt alles"));
    EXPECT_EQ(name(number), QStringView(u"Papierweiß"));
}

TEST_F(Legible, ATextIsShownWhole) {
    MyFixedText text(&frame, {10, 10}, "x");
    for (char const* const words :
         {"Papierwei\xDF-Normierung", "~Vollt\xF6nigkeit der Sonderfarbe", "W", ""}) {
        text.ChangeText(words);
        EXPECT_GE(WidgetOf(text).width(), WidgetOf(text).sizeHint().width()) << words;
    }
    NumEditor number(&frame, {10, 40}, 8);
    number.setUnit("mg/m\xB2");
    auto& field = static_cast<QLineEdit&>(WidgetOf(number));
    field.setText("00000000");
    QStyleOptionFrame option;
    option.initFrom(&field);
    option.lineWidth = field.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, &field);
    int const room = field.style()->subElementRect(QStyle::SE_LineEditContents, &option, &field).width();
    EXPECT_GE(room, field.fontMetrics().horizontalAdvance(field.text()));
    for (sv::Window const* const part : frame.GetChildren()) {
        auto const* const label = qobject_cast<QLabel*>(&WidgetOf(*part));
        if (label == nullptr) continue;
        EXPECT_GE(label->width(), label->sizeHint().width()) << part->GetText().GetStr();
    }
}

TEST_F(Legible, EachStandardTextFitsItsButtons) {
    // The picture, the smallest gaps and the frame.
    constexpr int Others = 20 + 3 * 2 + 2;
    for (int const language : {1, 49}) {
        Text::LoadText(KV_TEXTS "/colourdesk", language);
        TextSegment const texts("KOBitmapButtonBar");
        for (unsigned long i = 0; i < 24; ++i) {
            // Close, OK, Cancel and Print stand on buttons of the smallest size.
            bool const isSmall = i == 0 || i == 1 || i == 3 || i == 8;
            int const width = frame.GetTextSize(sv::WithoutMnemonic(texts[i])).Width() + Others;
            EXPECT_LE(width, isSmall ? 120 : 195) << texts[i].GetStr();
        }
        Text::FreeResources();
    }
}

}  // namespace

}  // namespace kv::test
