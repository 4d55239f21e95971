// PrintTarget: the destination of a printer's pages.
#pragma once

#include "SV/ui/PrintJob.h"

#include <memory>
#include <string_view>

namespace sv::qt {

/// The margins that cannot be printed on, in tenths of a millimetre.
struct Border {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
};

class PrintTarget {
  public:
    virtual ~PrintTarget() = default;

    [[nodiscard]] virtual Border BorderOf(PageSetup const& setup) const = 0;
    [[nodiscard]] virtual unsigned long ColorCount() const = 0;
    /// Whether a job is expected to be accepted.
    [[nodiscard]] virtual bool TakesJobs() const = 0;
    /// Delivers a job, its pages as a PDF. Returns false if it was refused or lost.
    [[nodiscard]] virtual bool Deliver(PrintJob const& job, std::string_view pdf) = 0;
};

/// Returns a file for a name that ends in ".pdf", otherwise a queue.
[[nodiscard]] std::unique_ptr<PrintTarget> MakePrintTarget(String const& name);

}  // namespace sv::qt
