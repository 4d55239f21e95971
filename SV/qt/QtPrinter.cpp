#include "SV/qt/QtPrinter.h"

#include "SV/qt/PdfFinish.h"
#include "SV/qt/PrintTarget.h"
#include "SV/qt/QtCanvas.h"
#include "SV/qt/QtText.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QPageSize>
#include <QPdfWriter>
#include <optional>
#include <utility>

namespace sv::qt {

namespace {

/// A tenth of a millimetre is a whole number of pixels, and the largest sheets fit into 16-bit coordinates.
constexpr int PixelsPerTenth = 2;
constexpr int Resolution = 254 * PixelsPerTenth;
constexpr double PointsPerTenth = 72.0 / 254.0;
/// The line height of the system's font on paper, nine points, in tenths of a millimetre.
constexpr int SystemLineHeight = 37;

/// The smallest possible spacing. Any spacing keeps letters from being joined to ligatures, which text search
/// in a file does not find.
constexpr double LetterSpacing = 1.0 / 64.0;

/// Uses unhinted letter widths, since paper has no pixels to fit letters to.
class PageCanvas final : public QtCanvas {
  protected:
    [[nodiscard]] QFont FontOf(Font const& font) const override {
        Font sized = font;
        if (font.GetHeight() == 0) sized.ChangeSize({font.GetWidth(), SystemLineHeight * PixelsPerTenth});
        QFont made = ToQt(sized);
        made.setHintingPreference(QFont::PreferNoHinting);
        made.setLetterSpacing(QFont::AbsoluteSpacing, LetterSpacing);
        return made;
    }
};

QSizeF PointsOf(Size paper) { return QSizeF(paper.Width(), paper.Height()) * PointsPerTenth; }

QPageSize PageSizeOf(Size paper) {
    QPageSize const known(QSizeF(paper.Width() / 10.0, paper.Height() / 10.0), QPageSize::Millimeter, {},
                          QPageSize::ExactMatch);
    return known.isValid() && known.id() != QPageSize::Custom
               ? known
               : QPageSize(PointsOf(paper), QPageSize::Point, {}, QPageSize::ExactMatch);
}

class QtPrinter final : public detail::PrinterPeer {
  public:
    explicit QtPrinter(std::unique_ptr<PrintTarget> target) : target_(std::move(target)) {}
    QtPrinter(QtPrinter const&) = delete;
    QtPrinter& operator=(QtPrinter const&) = delete;
    ~QtPrinter() override { Drop(); }

    detail::Canvas& GetCanvas() override { return canvas_; }
    [[nodiscard]] detail::PageGeometry Geometry(PageSetup const& setup) const override;
    [[nodiscard]] unsigned long ColorCount() const override { return target_->ColorCount(); }
    bool StartJob(PrintJob const& job) override;
    bool StartPage() override;
    void EndPage() override { scope_.reset(); }
    bool EndJob() override;
    void AbortJob() override { Drop(); }

  private:
    bool Open();
    [[nodiscard]] std::optional<std::string> Close();
    void Drop();

    std::unique_ptr<PrintTarget> target_;
    PageCanvas canvas_;
    PrintJob job_;
    detail::PageGeometry geometry_;
    QBuffer pages_;
    std::unique_ptr<QPdfWriter> writer_;
    QPainter painter_;
    std::optional<QtCanvas::Scope> scope_;
    bool hasPage_ = false;
};

detail::PageGeometry QtPrinter::Geometry(PageSetup const& setup) const {
    auto const pixels = [](Size tenths) {
        return Size(tenths.Width() * PixelsPerTenth, tenths.Height() * PixelsPerTenth);
    };
    Size const paper = PaperAsRead(setup);
    Border const border = target_->BorderOf(setup);
    Size const output(paper.Width() - border.left - border.right,
                      paper.Height() - border.top - border.bottom);
    return {pixels(paper), Point(border.left * PixelsPerTenth, border.top * PixelsPerTenth), pixels(output),
            PixelsPerTenth};
}

bool QtPrinter::StartJob(PrintJob const& job) {
    if (!target_->TakesJobs()) return false;
    job_ = job;
    geometry_ = Geometry(job.setup);
    return Open();
}

bool QtPrinter::Open() {
    pages_.setData({});
    pages_.open(QIODevice::WriteOnly);
    writer_ = std::make_unique<QPdfWriter>(&pages_);
    writer_->setPdfVersion(QPagedPaintDevice::PdfVersion_A1b);
    writer_->setResolution(Resolution);
    writer_->setCreator(QCoreApplication::applicationName());
    writer_->setTitle(ToQt(job_.document.title));
    writer_->setPageMargins({});
    writer_->setPageSize(PageSizeOf(job_.setup.paper));
    bool const lies = job_.setup.orientation == Orientation::Landscape;
    writer_->setPageOrientation(lies ? QPageLayout::Landscape : QPageLayout::Portrait);
    hasPage_ = false;
    if (painter_.begin(writer_.get())) return true;
    Drop();
    return false;
}

bool QtPrinter::StartPage() {
    if (std::exchange(hasPage_, true) && !writer_->newPage()) return false;
    painter_.resetTransform();
    painter_.translate(geometry_.offset.X(), geometry_.offset.Y());
    scope_.emplace(canvas_, painter_, QSize(geometry_.output.Width(), geometry_.output.Height()));
    return true;
}

std::optional<std::string> QtPrinter::Close() {
    scope_.reset();
    bool const isWhole = painter_.end();
    writer_ = nullptr;
    pages_.close();
    if (!isWhole) return std::nullopt;
    PrintDocument const& document = job_.document;
    return FinishPdf({pages_.data().constData(), static_cast<std::size_t>(pages_.data().size())},
                     {PointsOf(PaperAsRead(job_.setup)), ToQt(document.title), ToQt(document.author),
                      ToQt(document.language)});
}

bool QtPrinter::EndJob() {
    auto const pdf = Close();
    pages_.setData({});
    return pdf && target_->Deliver(job_, *pdf);
}

void QtPrinter::Drop() {
    scope_.reset();
    if (painter_.isActive()) painter_.end();
    writer_ = nullptr;
    pages_.close();
    pages_.setData({});
}

}  // namespace

std::unique_ptr<detail::PrinterPeer> MakeQtPrinter(String const& name) {
    return std::make_unique<QtPrinter>(MakePrintTarget(name));
}

}  // namespace sv::qt
