// QtCanvas: draws with a QPainter on windows, on pictures in memory and into files.
#pragma once

#include "SV/ui/Canvas.h"

#include <QColor>
#include <QFont>
#include <QImage>
#include <QPainter>

namespace sv::qt {

[[nodiscard]] QColor ToQt(Color color);
/// Returns a font of the system's family. The height is that of a line, not of a letter.
[[nodiscard]] QFont ToQt(Font const& font);
[[nodiscard]] QImage ToQt(Bitmap const& bitmap);

/// Draws while a `Scope` exists; measures at any time.
class QtCanvas : public detail::Canvas {
  public:
    /// Draws with this painter during the lifetime of the object.
    class Scope {
      public:
        Scope(QtCanvas& canvas, QPainter& painter, QSize size);
        Scope(Scope const&) = delete;
        Scope& operator=(Scope const&) = delete;
        ~Scope();

      private:
        QtCanvas& canvas_;
        QPainter* painterBefore_;
        QSize sizeBefore_;
    };

    void Line(Point from, Point to, Pen const& pen) override;
    void Rect(Rectangle const& area, Size rounding, Pen const& pen, Brush const& brush) override;
    void Text(Point topLeft, String const& text, Font const& font) override;
    void Image(Rectangle const& area, Bitmap const& bitmap) override;
    void Pixel(Point place, Color color) override;
    void Clear(Color color) override;
    [[nodiscard]] Bitmap Copy(Rectangle const& area) const override;
    [[nodiscard]] Size TextSize(String const& text, Font const& font) const override;

  protected:
    /// The font that is used for drawing and measuring.
    [[nodiscard]] virtual QFont FontOf(Font const& font) const;

  private:
    QPainter* painter_ = nullptr;
    QSize size_;
};

/// A picture in memory, which can be read back.
class QtSurface final : public QtCanvas {
  public:
    explicit QtSurface(Size size);

    [[nodiscard]] Bitmap Copy(Rectangle const& area) const override;

  private:
    QImage image_;
    QPainter painter_;
    Scope scope_;
};

}  // namespace sv::qt
