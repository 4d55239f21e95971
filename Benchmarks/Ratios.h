// Ratios: what a benchmark took in units of another one of the same run, since these alone are comparable
// between machines, and between two moments of one machine.
#pragma once

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

namespace bench {

/// Registers "`subject` takes so many times as long as `peer`", by the names of two benchmarks with their
/// arguments, with what a reader takes from it. It is their processor time that counts, or the time that they
/// were told to count. Call it from a file's static initialiser.
struct Ratio {
    Ratio(std::string subject, std::string peer, std::string meaning);
};

/// Registers the processor time of a benchmark over the time that went by, which it has to count.
struct ProcessorShare {
    ProcessorShare(std::string subject, std::string meaning);
};

/// Prints the usual table, then the registered ratios of medians.
class RatioReporter : public benchmark::ConsoleReporter {
  public:
    void ReportRuns(std::vector<Run> const& runs) override;
    void Finalize() override;

  private:
    [[nodiscard]] Run const* Median(std::string const& name) const;

    std::vector<Run> medians_;
};

}  // namespace bench
