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

    /// Shows a sheet, with nothing selected; null for none. The sheet is not owned and must live until the
    /// next call.
    void ShowSheet(evaluation::ColourSheet const* sheet);
    /// Call after the sheet's conditions or the language have changed.
    void Update();

    [[nodiscard]] sv::TableCell GetCell(int row, int column) const override;

  private:
    [[nodiscard]] sv::TableCell Verdict(evaluation::SheetRow const& row) const;

    evaluation::ColourSheet const* sheet_ = nullptr;
    std::vector<sv::String> colourNames_;
    std::array<sv::String, 2> verdicts_;  // failed, passed
};

}  // namespace colourdesk
