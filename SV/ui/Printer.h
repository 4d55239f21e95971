// sv::Printer: pages of paper, or of a PDF file, that are drawn on like a window.
//
// A name that ends in ".pdf", in any case, is the path of a file, which the job replaces when it has ended
// well. Any other name is that of a queue of the system, and an empty one its default. All of it belongs to
// the main thread.
#pragma once

#include "SV/core/Link.h"
#include "SV/ui/OutputDevice.h"
#include "SV/ui/PrintJob.h"

#include <memory>

namespace sv {

namespace detail {
class PrinterPeer;
struct PageGeometry;
}  // namespace detail

class Printer : public OutputDevice {
  public:
    /// A4, upright. Whether there is such a printer turns out when a job starts.
    explicit Printer(String const& name);
    /// A job that runs is aborted, without a call of the link.
    virtual ~Printer();

    [[nodiscard]] String const& GetName() const noexcept { return name_; }

    // The page. Nothing changes while a job runs. Each returns what was there before.
    /// Of the upright paper, in tenths of a millimetre; a side below 1 leaves it alone.
    Size ChangePaperSize(Size size);
    Orientation ChangeOrientation(Orientation orientation);
    [[nodiscard]] PageSetup const& GetPageSetup() const noexcept { return setup_; }
    /// As the page is read.
    [[nodiscard]] Size GetPaperSizePixel() const noexcept;
    /// The border at the left and top that cannot be printed on. The printer's coordinates begin behind it.
    [[nodiscard]] Size GetPageOffsetPixel() const noexcept;
    /// The area that can be printed on, in pixels or in units of the map mode.
    [[nodiscard]] Size GetOutputSizePixel() const noexcept;
    [[nodiscard]] Size GetOutputSize() const noexcept { return PixelToLogic(GetOutputSizePixel()); }
    /// How many colours it tells apart; 2 of a printer that knows black alone.
    [[nodiscard]] unsigned long GetColorCount() const;

    /// What the next job is called and says of itself.
    void SetDocument(PrintDocument const& document) { document_ = document; }
    [[nodiscard]] PrintDocument const& GetDocument() const noexcept { return document_; }

    /// False when there is no such printer, it takes no job, or one runs already. An empty name is that of
    /// the document.
    bool StartJob(String const& name);
    /// What is drawn outside of a page is lost.
    bool StartPage();
    bool EndPage();
    /// Ends the page too. False when no job ran, or it did not arrive; a file of that name is as before then.
    bool EndJob();
    /// Leaves no file behind, and nothing in the queue as far as that can be. What is drawn from here on is
    /// lost.
    void AbortJob();

    // Each returns the link before; the sender is the printer.
    /// A job has started.
    Link ChangeStartPrintHdl(Link const& link) noexcept;
    /// A job has ended or was aborted.
    Link ChangeEndPrintHdl(Link const& link) noexcept;

    /// From the start of a job to its end.
    [[nodiscard]] bool IsPrinting() const noexcept { return isPrinting_; }
    /// While the pages go to the queue, at the end of a job.
    [[nodiscard]] bool IsSpooling() const noexcept { return isSpooling_; }
    /// Whether the last job was aborted or did not arrive.
    [[nodiscard]] bool HasFailed() const noexcept { return hasFailed_; }

  private:
    [[nodiscard]] detail::Canvas& GetCanvas() const override;
    [[nodiscard]] double PixelsPerTenthMillimetre() const noexcept override;
    void TakeSetup(PageSetup const& setup);

    String name_;
    PageSetup setup_;
    PrintDocument document_;
    std::unique_ptr<detail::PrinterPeer> peer_;
    std::unique_ptr<detail::PageGeometry> geometry_;
    Link startPrint_;
    Link endPrint_;
    bool isPrinting_ = false;
    bool isSpooling_ = false;
    bool isPageOpen_ = false;
    bool hasFailed_ = false;
};

}  // namespace sv
