// sv::Printer: pages of paper or of a PDF file, which are drawn on like a window.
//
// A name that ends in ".pdf", in any case, is the path of a file, which a job replaces when it ends
// successfully. Any other name is that of a queue of the system; an empty name is the default queue. Without
// a backend that writes files, as without a display, a job for a file fails when it is started. Only for the
// main thread.
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
    /// A4, portrait. Whether there is such a printer shows when a job is started.
    explicit Printer(String const& name);
    /// Aborts a running job without calling the link.
    virtual ~Printer();

    [[nodiscard]] String const& GetName() const noexcept { return name_; }

    // The page; fixed while a job is running. Each returns the previous value.
    /// The size in portrait orientation, in tenths of a millimetre. Ignored if a side is less than 1.
    Size ChangePaperSize(Size size);
    Orientation ChangeOrientation(Orientation orientation);
    [[nodiscard]] PageSetup const& GetPageSetup() const noexcept { return setup_; }
    /// The size of the page as it is read.
    [[nodiscard]] Size GetPaperSizePixel() const noexcept;
    /// The width of the left and top margins that cannot be printed on. Coordinates begin after them.
    [[nodiscard]] Size GetPageOffsetPixel() const noexcept;
    /// The printable area, in pixels or in units of the map mode.
    [[nodiscard]] Size GetOutputSizePixel() const noexcept;
    [[nodiscard]] Size GetOutputSize() const noexcept { return PixelToLogic(GetOutputSizePixel()); }
    /// The number of distinct colours; 2 for a printer with black only.
    [[nodiscard]] unsigned long GetColorCount() const;

    /// Sets the properties of the document of the next job.
    void SetDocument(PrintDocument const& document) { document_ = document; }
    [[nodiscard]] PrintDocument const& GetDocument() const noexcept { return document_; }

    /// Starts a job. If `name` is empty, the job has the title of the document. Returns false if there is no
    /// such printer, it accepts no job, or a job is running already.
    bool StartJob(String const& name);
    /// Starts a page. Drawing outside a page is lost.
    bool StartPage();
    bool EndPage();
    /// Ends the open page, if any, and the job. Returns false if no job was running or it was not delivered;
    /// an existing file then is unchanged.
    bool EndJob();
    /// Discards the job: leaves no file, and nothing in the queue as far as possible. Further drawing is
    /// lost.
    void AbortJob();

    // Each returns the previous link; the sender is the printer.
    /// Called when a job has started.
    Link ChangeStartPrintHdl(Link const& link) noexcept;
    /// Called when a job has ended or was aborted.
    Link ChangeEndPrintHdl(Link const& link) noexcept;

    /// Whether a job is running.
    [[nodiscard]] bool IsPrinting() const noexcept { return isPrinting_; }
    /// Whether the pages are being sent to the queue, at the end of a job.
    [[nodiscard]] bool IsSpooling() const noexcept { return isSpooling_; }
    /// Whether the last job was aborted or not delivered.
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
