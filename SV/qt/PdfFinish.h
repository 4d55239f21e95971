// Completes a PDF of Qt's for archives: adds author and language, makes its two descriptions agree, and sets
// the exact size of the pages, which Qt rounds to whole points.
#pragma once

#include <QSizeF>
#include <QString>
#include <optional>
#include <string>
#include <string_view>

namespace sv::qt {

/// The description of a document.
struct PdfDescription {
    QSizeF page;  // points
    QString title;
    QString author;
    QString language;
};

/// Returns the same pages as PDF/A-1b, or none if they cannot be read.
[[nodiscard]] std::optional<std::string> FinishPdf(std::string_view pdf, PdfDescription const& description);

}  // namespace sv::qt
