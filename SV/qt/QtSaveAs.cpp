// Windows as files.
#include "SV/core/NativePath.h"
#include "SV/qt/QtBackend.h"
#include "SV/qt/QtWindow.h"

#include <QFile>
#include <QFileInfo>
#include <QPageSize>
#include <QPdfWriter>
#include <QSvgGenerator>

namespace sv::qt {

namespace {

/// Pixels per inch of scalable graphics.
constexpr int DotsPerInch = 96;
constexpr double PointsPerInch = 72.0;

bool Paint(QWidget& widget, QPaintDevice& device) {
    QPainter painter;
    if (!painter.begin(&device)) return false;
    widget.render(&painter, QPoint(), QRegion(), QWidget::DrawChildren);
    return painter.end();
}

bool SavePng(QWidget& widget, QString const& path) {
    QImage image(widget.size(), QImage::Format_RGB32);
    image.fill(Qt::white);
    return Paint(widget, image) && image.save(path, "PNG");
}

bool SaveSvg(QWidget& widget, QString const& path) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly)) return false;
    QSvgGenerator generator;
    generator.setOutputDevice(&file);
    generator.setResolution(DotsPerInch);
    generator.setSize(widget.size());
    generator.setViewBox(widget.rect());
    return Paint(widget, generator) && file.flush();
}

bool SavePdf(QWidget& widget, QString const& path) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly)) return false;
    QPdfWriter writer(&file);
    writer.setResolution(DotsPerInch);
    writer.setPageMargins({});
    writer.setPageSize(QPageSize(QSizeF(widget.size()) * PointsPerInch / DotsPerInch, QPageSize::Point, {},
                                 QPageSize::ExactMatch));
    return Paint(widget, writer) && file.flush();
}

}  // namespace

bool SaveAs(Window& window, String const& path) {
    QWidget& widget = QtWindow::Of(window).Widget();
    QString const name = QString::fromStdString(NativePath(path));
    QString const ending = QFileInfo(name).suffix().toLower();
    if (ending == "png") return SavePng(widget, name);
    if (ending == "svg") return SaveSvg(widget, name);
    return ending == "pdf" && SavePdf(widget, name);
}

}  // namespace sv::qt
