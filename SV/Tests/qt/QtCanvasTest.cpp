#include "SV/Tests/qt/PdfFile.h"
#include "SV/Tests/qt/QtFixture.h"
#include "SV/headless/RecordingCanvas.h"
#include "SV/qt/QtBackend.h"
#include "SV/qt/QtCanvas.h"
#include "SV/ui/VirtualDevice.h"

#include <QFile>
#include <QImage>
#include <QSvgRenderer>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdlib>
#include <utility>

namespace sv::qt::tests {
namespace {

constexpr Color Red(0xFFFF, 0, 0);

TEST(QtCanvasTest, AFineScreenShowsTheFinePicture) {
    Bitmap bitmap(Size(2, 2), BitmapPixel(255, 0, 0));
    Bitmap fine(Size(4, 4), BitmapPixel(0, 255, 0));
    fine.Set(3, 3, BitmapPixel(0, 0, 255));
    bitmap.SetFine(fine);
    for (double const ratio : {1.0, 2.0}) {
        QImage image(QSize(6, 6) * ratio, QImage::Format_RGB32);
        image.setDevicePixelRatio(ratio);
        image.fill(Qt::white);
        QPainter painter(&image);
        QtCanvas canvas;
        {
            QtCanvas::Scope const scope(canvas, painter, {6, 6});
            canvas.Image(Rectangle::Of({1, 1}, {2, 2}), bitmap);
        }
        painter.end();
        if (ratio == 1.0) {
            EXPECT_EQ(image.pixelColor(2, 2), QColor(Qt::red));
        } else {
            EXPECT_EQ(image.pixelColor(2, 2), QColor(Qt::green));
            EXPECT_EQ(image.pixelColor(5, 5), QColor(Qt::blue)) << "a pixel for each of the screen";
            EXPECT_EQ(image.pixelColor(6, 6), QColor(Qt::white)) << "no larger than the coarse one";
        }
    }
}

TEST(QtCanvasTest, DrawsThePixelsOfTheHeadlessCanvas) {
    using headless::DrawCall, headless::DrawKind;
    Bitmap picture(Size(3, 3), BitmapPixel(0, 0, 255));
    picture.Set(1, 1, BitmapPixel(0, 0, 0, 0));
    Pen const none(Red, 1, PenStyle::None);
    struct Row {
        char const* what;
        DrawCall call;
    };
    Row const rows[] = {
        {"horizontal", {.kind = DrawKind::Line, .from = {2, 3}, .to = {9, 3}, .pen = Pen(Red)}},
        {"backward", {.kind = DrawKind::Line, .from = {9, 3}, .to = {2, 3}, .pen = Pen(Red)}},
        {"vertical, wide", {.kind = DrawKind::Line, .from = {5, 4}, .to = {5, 9}, .pen = Pen(Red, 3)}},
        {"one pixel", {.kind = DrawKind::Line, .from = {5, 4}, .to = {5, 4}, .pen = Pen(Red)}},
        {"dashes",
         {.kind = DrawKind::Line, .from = {0, 4}, .to = {14, 4}, .pen = Pen(Red, 1, PenStyle::Dash)}},
        {"no pen", {.kind = DrawKind::Line, .from = {0, 4}, .to = {14, 4}, .pen = none}},
        {"rectangle", {.kind = DrawKind::Rect, .from = {2, 3}, .to = {9, 8}, .pen = Pen(Red)}},
        {"outline",
         {.kind = DrawKind::Rect,
          .from = {2, 3},
          .to = {9, 8},
          .pen = Pen(Red),
          .brush = Brush(Red, BrushStyle::None)}},
        {"area", {.kind = DrawKind::Rect, .from = {2, 3}, .to = {9, 8}, .pen = none, .brush = Brush(Red)}},
        {"point", {.kind = DrawKind::Pixel, .from = {4, 4}, .color = Red}},
        {"background", {.kind = DrawKind::Clear, .color = Red}},
        {"picture", {.kind = DrawKind::Image, .from = {13, 13}, .to = {15, 15}, .image = picture}},
    };
    for (Row const& row : rows) {
        QtSurface drawn({15, 15});
        headless::RecordingCanvas expected({15, 15});
        headless::Replay({&row.call, 1}, drawn);
        headless::Replay({&row.call, 1}, expected);
        EXPECT_EQ(drawn.Copy({{-1, 0}, {15, 15}}), expected.Copy({{-1, 0}, {15, 15}})) << row.what;
    }
}

TEST(QtCanvasTest, SmoothsSlantedLines) {
    QtSurface surface({20, 20});
    surface.Line({2, 2}, {17, 9}, Pen(Red));
    Bitmap const picture = surface.Copy({{0, 0}, {19, 19}});
    int between = 0;
    for (int i = 0; i < 400; ++i) {
        int const red = picture.At(i % 20, i / 20).red;
        between += red > 20 && red < 235 ? 1 : 0;
    }
    EXPECT_GT(between, 10);
}

TEST(QtCanvasTest, TextFillsTheBoxThatItMeasures) {
    for (Font const& font :
         {Font(), Font(12), Font(24, FontPitch::Fixed), Font(16, FontPitch::Variable, FontWeight::Bold)}) {
        VirtualDevice device(Size(200, 60));
        device.ChangeFont(font);
        Size const size = device.GetTextSize("Mgl\xF6");
        EXPECT_TRUE(font.GetHeight() == 0 || std::abs(size.Height() - font.GetHeight()) <= 2);
        device.DrawText({20, 10}, "Mgl\xF6");
        int left = 200, top = 60, right = 0, bottom = 0;
        for (int x = 0; x < 200; ++x) {
            for (int y = 0; y < 60; ++y) {
                Point const place(static_cast<std::int16_t>(x), static_cast<std::int16_t>(y));
                if (device.GetPixel(place).GetRed() > 0x8000) continue;
                left = std::min(left, x), right = std::max(right, x);
                top = std::min(top, y), bottom = std::max(bottom, y);
            }
        }
        EXPECT_GE(left, 20);
        EXPECT_GE(top, 10);
        EXPECT_LT(right, 20 + size.Width());
        EXPECT_LT(bottom, 10 + size.Height());
        EXPECT_GT(right - left, size.Width() / 2);
    }
    VirtualDevice device;
    device.ChangeFont(Font(16, FontPitch::Fixed));
    EXPECT_EQ(device.GetTextSize("iiii"), device.GetTextSize("MMMM"));
}

// Draws a line beyond both of its edges.
class Overlong final : public Window {
  public:
    using Window::Window;
    void Paint(Rectangle const& /*area*/) override {
        ChangePen(Pen(Red));
        DrawLine({-20, 5}, {200, 5});
    }
};

// A window with a line, a text and children.
class Drawn final : public Window {
  public:
    Drawn() : Window(nullptr) {
        SetPosSizePixel({}, {120, 80});
        inner.SetPosSizePixel({60, 40}, {50, 30});
        inner.SetText("Innen");
        overlong.SetPosSizePixel({20, 60}, {30, 10});
        inner.Show();
        overlong.Show();
    }
    void Paint(Rectangle const& /*area*/) override {
        ChangePen(Pen(Red));
        DrawLine({5, 5}, {100, 5});
        DrawText({10, 20}, "Wei\xDF");
    }

    FixedText inner{this};
    Overlong overlong{this};
};

/// The first and the last red pixel of a row; the picture is scaled to one pixel per pixel of the window.
std::pair<int, int> RedIn(QImage const& picture, int y) {
    int first = -1, last = -1;
    for (int x = 0; x < picture.width(); ++x) {
        QColor const color = picture.pixelColor(x, y);
        if (color.red() < 128 || color.green() > 128) continue;
        if (first < 0) first = x;
        last = x;
    }
    return {first, last};
}

QByteArray Saved(Window& window, QString const& path) {
    EXPECT_TRUE(SaveAs(window, path.toStdString()));
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

TEST(QtCanvasTest, WindowsAsFiles) {
    QTemporaryDir const directory;
    Drawn window;
    QString const png = directory.filePath("window.png");
    Saved(window, png);
    QImage const picture(png);
    EXPECT_EQ(picture.size(), QSize(120, 80));
    EXPECT_EQ(picture.pixelColor(50, 5), QColor(Qt::red));
    EXPECT_EQ(picture.pixelColor(50, 7), QColor(Qt::white));

    QByteArray const svg = Saved(window, directory.filePath("window.svg"));
    for (char const* const part : {"viewBox=\"0 0 120 80\"", "Weiß", "Innen", "#ff0000"})
        EXPECT_TRUE(svg.contains(part)) << part << '\n' << svg.toStdString();
    EXPECT_FALSE(svg.contains("<image")) << "drawn, and not a picture";
    QImage drawing(120, 80, QImage::Format_RGB32);
    QPainter painter(&drawing);
    QSvgRenderer(svg).render(&painter);
    EXPECT_EQ(RedIn(drawing, 65), std::pair(20, 49)) << "children are clipped";

    QByteArray const pdf = Saved(window, directory.filePath("window.PDF"));
    EXPECT_TRUE(pdf.startsWith("%PDF-"));
    QImage const page = PdfFile(directory.filePath("window.PDF")).Picture();
    auto const [first, last] = RedIn(page, 65 * 254 / 96 + 1);
    EXPECT_NEAR(first, 20 * 254 / 96, 1);
    EXPECT_NEAR(last, 50 * 254 / 96, 1);
    EXPECT_TRUE(pdf.contains("/MediaBox [0 0 90.0")) << "points, of which 72 make 96 pixels";

    EXPECT_FALSE(SaveAs(window, "window.bmp"));
    EXPECT_FALSE(SaveAs(window, directory.filePath("no/such/window.png").toStdString()));
    EXPECT_FALSE(SaveAs(window, directory.filePath("no/such/window.svg").toStdString()));
}

}  // namespace
}  // namespace sv::qt::tests
