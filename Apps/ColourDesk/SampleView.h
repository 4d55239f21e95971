// SampleView: the patches of a chart as a table.
#pragma once

#include "Apps/evaluation/ColourSheet.h"
#include "SV/ui/Table.h"

#include <array>
#include <cstddef>
#include <vector>

namespace colourdesk {

class SampleView : public sv::Table {
  public:
    explicit SampleView(sv::Window* parent);

    /// The sheet is not owned, and stays until the next call; null for none. Nothing is selected then.
    void ShowSheet(evaluation::ColourSheet const* sheet);
    /// The sheet has other conditions, or the language has changed.
    void TakeChanges();

    [[nodiscard]] sv::TableCell GetCell(int row, int column) const override;

  private:
    [[nodiscard]] sv::TableCell Verdict(evaluation::SheetRow const& row) const;

    evaluation::ColourSheet const* sheet_ = nullptr;
    std::vector<sv::String> colourNames_;
    std::array<sv::String, 2> verdicts_;  // failed, passed
};

}  // namespace colourdesk
