// HeadlessPrinter: a printer without paper. It writes no file, so a job for one fails. Otherwise it records
// the drawing of the last job; a pixel is a tenth of a millimetre.
#pragma once

#include "SV/core/ForeignMacros.h"
#include "SV/headless/RecordingCanvas.h"
#include "SV/ui/Backend.h"

#include <utility>
#include <vector>

namespace sv::headless {

/// The properties of printers that are created later.
struct PrinterTraits {
    Point offset;  // of the printable area, the same on all four sides
    bool takesJobs = true;
    bool recordsFiles = false;  // also takes jobs for files, without writing them
};

/// The state of a job.
enum class JobState : int { None, Running, Ended, Aborted };

struct PrintedPage {
    Size size;
    std::vector<DrawCall> calls;

    /// Draws the page as a picture on white paper.
    [[nodiscard]] Bitmap Pixels() const;
};

struct PrintedJob {
    String printer;
    PrintJob job;
    JobState state = JobState::None;
    std::vector<PrintedPage> pages;
};

class HeadlessPrinter final : public detail::PrinterPeer {
  public:
    HeadlessPrinter(String name, PrinterTraits const& traits) : name_(std::move(name)), traits_(traits) {}

    [[nodiscard]] detail::Canvas& GetCanvas() override { return canvas_; }
    [[nodiscard]] detail::PageGeometry Geometry(PageSetup const& setup) const override;
    [[nodiscard]] unsigned long ColorCount() const override;
    [[nodiscard]] bool StartJob(PrintJob const& job) override;
    bool StartPage() override;
    void EndPage() override;
    [[nodiscard]] bool EndJob() override;
    void AbortJob() override;

  private:
    String name_;
    PrinterTraits traits_;
    RecordingCanvas canvas_{Size()};  // without pixels, since a page has many and few are examined
    Size page_;
};

/// The job that was started last.
[[nodiscard]] PrintedJob const& LastPrintedJob();

}  // namespace sv::headless
