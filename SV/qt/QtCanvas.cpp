#include "SV/qt/QtCanvas.h"

#include "SV/qt/QtText.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPaintDevice>
#include <algorithm>
#include <cmath>
#include <map>
#include <tuple>
#include <utility>

namespace sv::qt {

namespace {

/// The pixels of a dash, and of the gap after it.
constexpr double DashLength = 3.0;

int WidthOf(Pen const& pen) noexcept { return std::max<int>(pen.GetWidth(), 1); }

/// The distance from a pixel's corner to the middle of a line through it. A line of even width has its larger
/// half below and to the right.
double Middle(Pen const& pen) noexcept { return WidthOf(pen) % 2 == 0 ? 1.0 : 0.5; }

QPen PenOf(Pen const& pen) {
    if (pen.GetStyle() == PenStyle::None) return QPen(Qt::NoPen);
    QPen made(qt::ToQt(pen.GetColor()), WidthOf(pen), Qt::SolidLine, Qt::RoundCap, Qt::MiterJoin);
    if (pen.GetStyle() == PenStyle::Dash) {
        made.setCapStyle(Qt::FlatCap);
        made.setDashPattern({DashLength / WidthOf(pen), DashLength / WidthOf(pen)});
    }
    return made;
}

QRect AreaOf(Rectangle const& area) {
    return {QPoint(area.TopLeft().X(), area.TopLeft().Y()),
            QPoint(area.BottomRight().X(), area.BottomRight().Y())};
}

/// Returns the font with the line height nearest to that requested.
QFont WithLineHeight(QFont font, int height) {
    font.setPixelSize(height);
    double const line = QFontMetricsF(font).height();
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(height * height / line))));
    return font;
}

/// Returns the font with letters of this average width; 0 leaves it unchanged.
QFont WithLetterWidth(QFont font, int width) {
    double const natural = QFontMetricsF(font).averageCharWidth();
    if (width != 0 && natural > 0) font.setStretch(static_cast<int>(std::lround(100 * width / natural)));
    return font;
}

Bitmap BitmapOf(QImage const& image) {
    QImage const pixels = image.convertToFormat(QImage::Format_RGBA8888);
    Bitmap bitmap(Size(image.width(), image.height()));
    for (int y = 0; y < pixels.height(); ++y) {
        uchar const* pixel = pixels.constScanLine(y);
        for (int x = 0; x < pixels.width(); ++x, pixel += 4)
            bitmap.Set(x, y, {pixel[0], pixel[1], pixel[2], pixel[3]});
    }
    return bitmap;
}

}  // namespace

QColor ToQt(Color color) { return QColor::fromRgba64(color.GetRed(), color.GetGreen(), color.GetBlue()); }

QFont ToQt(Font const& font) {
    bool const isFixed = font.GetPitch() == FontPitch::Fixed;
    QFont made = isFixed ? QFontDatabase::systemFont(QFontDatabase::FixedFont) : QApplication::font();
    // A light face would be too pale at the size of help and labels.
    if (font.GetWeight() == FontWeight::Bold) made.setWeight(QFont::Bold);
    if (font.GetHeight() == 0) return made;
    static std::map<std::tuple<QString, int, int>, QFont> sized;
    auto const [place, isNew] = sized.try_emplace({made.key(), font.GetWidth(), font.GetHeight()}, made);
    if (isNew) place->second = WithLetterWidth(WithLineHeight(made, font.GetHeight()), font.GetWidth());
    return place->second;
}

QImage ToQt(Bitmap const& bitmap) {
    Size const size = bitmap.GetSizePixel();
    QImage image(size.Width(), size.Height(), QImage::Format_RGBA8888);
    for (int y = 0; y < image.height(); ++y) {
        uchar* out = image.scanLine(y);
        for (int x = 0; x < image.width(); ++x) {
            BitmapPixel const pixel = bitmap.At(x, y);
            for (std::uint8_t const channel : {pixel.red, pixel.green, pixel.blue, pixel.alpha})
                *out++ = channel;
        }
    }
    return image;
}

QtCanvas::Scope::Scope(QtCanvas& canvas, QPainter& painter, QSize size)
    : canvas_(canvas),
      painterBefore_(std::exchange(canvas.painter_, &painter)),
      sizeBefore_(std::exchange(canvas.size_, size)) {
    painter.setRenderHint(QPainter::Antialiasing);
}

QtCanvas::Scope::~Scope() {
    canvas_.painter_ = painterBefore_;
    canvas_.size_ = sizeBefore_;
}

void QtCanvas::Line(Point from, Point to, Pen const& pen) {
    if (painter_ == nullptr || pen.GetStyle() == PenStyle::None) return;
    double const middle = Middle(pen);
    QPointF const start(from.X() + middle, from.Y() + middle);
    QPointF const end(to.X() + middle, to.Y() + middle);
    QPen drawn = PenOf(pen);
    QPointF along;
    if (from.X() == to.X() || from.Y() == to.Y()) {
        // Horizontal and vertical lines cover whole pixels, from the edge of the first to that of the last.
        double const reach = WidthOf(pen) / 2.0;
        bool const isForward = from.X() <= to.X() && from.Y() <= to.Y();
        along = (isForward ? reach : -reach) * (from.X() == to.X() ? QPointF(0, 1) : QPointF(1, 0));
        drawn.setCapStyle(Qt::FlatCap);
    }
    painter_->setPen(drawn);
    painter_->drawLine(start - along, end + along);
}

void QtCanvas::Rect(Rectangle const& area, Size rounding, Pen const& pen, Brush const& brush) {
    if (painter_ == nullptr) return;
    bool const isFilled = brush.GetStyle() != BrushStyle::None;
    if (rounding.Width() <= 0 || rounding.Height() <= 0) {
        if (isFilled) painter_->fillRect(AreaOf(area), ToQt(brush.GetColor()));
        Point const a = area.TopLeft();
        Point const b = area.BottomRight();
        // Four lines, since Qt's own outline is thin at the corners.
        for (auto const& [from, to] : {std::pair(a, Point(b.X(), a.Y())), std::pair(Point(b.X(), a.Y()), b),
                                       std::pair(Point(a.X(), b.Y()), b), std::pair(a, Point(a.X(), b.Y()))})
            Line(from, to, pen);
        return;
    }
    QRectF shape = AreaOf(area);
    if (pen.GetStyle() != PenStyle::None) {
        double const middle = Middle(pen);
        shape.adjust(middle, middle, middle - 1, middle - 1);
    }
    painter_->setPen(PenOf(pen));
    painter_->setBrush(isFilled ? QBrush(ToQt(brush.GetColor())) : QBrush(Qt::NoBrush));
    painter_->drawRoundedRect(shape, rounding.Width() / 2.0, rounding.Height() / 2.0);
}

void QtCanvas::Text(Point topLeft, String const& text, Font const& font) {
    if (painter_ == nullptr) return;
    painter_->setFont(FontOf(font));
    painter_->setPen(ToQt(font.GetColor()));
    painter_->drawText(QPointF(topLeft.X(), topLeft.Y() + QFontMetricsF(painter_->font()).ascent()),
                       ToQt(text));
}

void QtCanvas::Image(Rectangle const& area, Bitmap const& bitmap) {
    if (painter_ == nullptr) return;
    bool const isDense =
        painter_->device()->devicePixelRatioF() > 1 || area.GetSize() != bitmap.GetSizePixel();
    Bitmap const* const fine = isDense ? bitmap.GetFine() : nullptr;
    painter_->setRenderHint(QPainter::SmoothPixmapTransform, fine != nullptr);
    painter_->drawImage(AreaOf(area), ToQt(fine != nullptr ? *fine : bitmap));
}

void QtCanvas::Pixel(Point place, Color color) {
    if (painter_ != nullptr) painter_->fillRect(place.X(), place.Y(), 1, 1, ToQt(color));
}

void QtCanvas::Clear(Color color) {
    if (painter_ != nullptr) painter_->fillRect(QRect(QPoint(), size_), ToQt(color));
}

Bitmap QtCanvas::Copy(Rectangle const& area) const { return Bitmap(area.GetSize(), BitmapPixel(0, 0, 0, 0)); }

QFont QtCanvas::FontOf(Font const& font) const { return ToQt(font); }

Size QtCanvas::TextSize(String const& text, Font const& font) const {
    QFontMetricsF const metrics(FontOf(font));
    return {static_cast<int>(std::ceil(metrics.horizontalAdvance(ToQt(text)))),
            static_cast<int>(std::ceil(metrics.height()))};
}

QtSurface::QtSurface(Size size)
    : image_(std::max<int>(size.Width(), 1), std::max<int>(size.Height(), 1),
             QImage::Format_ARGB32_Premultiplied),
      painter_(&image_),
      scope_(*this, painter_, image_.size()) {
    image_.fill(Qt::black);
}

Bitmap QtSurface::Copy(Rectangle const& area) const { return BitmapOf(image_.copy(AreaOf(area))); }

}  // namespace sv::qt
