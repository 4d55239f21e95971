// QtCanvas: drawing by a QPainter, on windows, on pictures in memory and into files.
#pragma once

#include "SV/ui/Canvas.h"

#include <QColor>
#include <QFont>
#include <QImage>
#include <QPainter>

namespace sv::qt {

[[nodiscard]] QColor ToQt(Color color);
/// Of the system's own family. A height is that of a line, and not that of a letter.
[[nodiscard]] QFont ToQt(Font const& font);
[[nodiscard]] QImage ToQt(Bitmap const& bitmap);

/// Draws where it was told to by `Begin`, and nowhere before that; it measures at any time.
class QtCanvas : public detail::Canvas {
  public:
    /// Draws with a painter for as long as the object lives.
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
    /// As it is drawn and measured here.
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
