#include "SV/headless/HeadlessPrinter.h"

namespace sv::headless {

namespace {

constexpr unsigned long TrueColors = 1UL << 24U;

PrintedJob& LastJob() {
    static PrintedJob& job = *new PrintedJob;
    return job;
}

}  // namespace

Bitmap PrintedPage::Pixels() const {
    RecordingCanvas paper(size);
    paper.Clear(ColorOf(ColorName::White));
    Replay(calls, paper);
    return paper.Pixels();
}

detail::PageGeometry HeadlessPrinter::Geometry(PageSetup const& setup) const {
    Size const paper = PaperAsRead(setup);
    Size const output(paper.Width() - 2 * traits_.offset.X(), paper.Height() - 2 * traits_.offset.Y());
    return {paper, traits_.offset, output, 1.0};
}

unsigned long HeadlessPrinter::ColorCount() const { return TrueColors; }

bool HeadlessPrinter::StartJob(PrintJob const& job) {
    if (!traits_.takesJobs || (IsPrintFile(name_) && !traits_.recordsFiles)) return false;
    page_ = Geometry(job.setup).output;
    LastJob() = {name_, job, JobState::Running, {}};
    return true;
}

bool HeadlessPrinter::StartPage() {
    canvas_.Restart(Size());
    return true;
}

void HeadlessPrinter::EndPage() { LastJob().pages.push_back({page_, canvas_.Calls()}); }

bool HeadlessPrinter::EndJob() {
    LastJob().state = JobState::Ended;
    return true;
}

void HeadlessPrinter::AbortJob() { LastJob().state = JobState::Aborted; }

PrintedJob const& LastPrintedJob() { return LastJob(); }

}  // namespace sv::headless
