// What an archive wants of a PDF and Qt does not write: its author and language, and both descriptions that a
// file carries of itself saying the same. And pages of their exact size, which Qt rounds to whole points.
#pragma once

#include <QSizeF>
#include <QString>
#include <optional>
#include <string>
#include <string_view>

namespace sv::qt {

/// What a document says of itself.
struct PdfDescription {
    QSizeF page;  // points
    QString title;
    QString author;
    QString language;
};

/// The same pages as PDF/A-1b. None when they cannot be read.
[[nodiscard]] std::optional<std::string> FinishPdf(std::string_view pdf, PdfDescription const& description);

}  // namespace sv::qt
