// PrintTarget: where the pages of a printer go when they are drawn.
#pragma once

#include "SV/ui/PrintJob.h"

#include <memory>
#include <string_view>

namespace sv::qt {

/// What a printer cannot print on along the edges of the paper, in tenths of a millimetre.
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
    /// Whether a job would be taken, as far as can be known beforehand.
    [[nodiscard]] virtual bool TakesJobs() const = 0;
    /// Takes a job over, its pages as a PDF. False when it was refused or got lost.
    [[nodiscard]] virtual bool Deliver(PrintJob const& job, std::string_view pdf) = 0;
};

/// A file for a name that ends in ".pdf", else a queue.
[[nodiscard]] std::unique_ptr<PrintTarget> MakePrintTarget(String const& name);

}  // namespace sv::qt
