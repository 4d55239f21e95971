// ReportPage: writes in columns on a report's pages, and repeats heads on each page.
#pragma once

#include "KVUtils/Source/printing/MyPrinter.h"

#include <functional>
#include <optional>

namespace report {

/// In tenths of a millimetre. `place` is the distance of the text's left or right end from the left edge.
struct ReportColumn {
    enum class End : int { Left, Right };

    int place;
    End end;
    int width;  // longer texts end with an ellipsis
};

/// Restores the device's font, pen and brush when it is destroyed.
class DrawingState {
  public:
    explicit DrawingState(sv::OutputDevice& device)
        : device_(device), font_(device.GetFont()), pen_(device.GetPen()), brush_(device.GetFillInBrush()) {}
    DrawingState(DrawingState const&) = delete;
    DrawingState& operator=(DrawingState const&) = delete;
    ~DrawingState() {
        device_.ChangeFont(font_);
        device_.ChangePen(pen_);
        device_.ChangeFillInBrush(brush_);
    }

  private:
    sv::OutputDevice& device_;
    sv::Font font_;
    sv::Pen pen_;
    sv::Brush brush_;
};

class ReportPage {
  public:
    explicit ReportPage(kv::MyPrinter& printer) noexcept : printer_(printer) {}

    /// From the left edge to the right.
    [[nodiscard]] int Width() const;
    /// From the cursor down to the end of the page.
    [[nodiscard]] int Room() const;
    [[nodiscard]] int LineHeight() const { return printer_.GetTextSize(" ").Height(); }

    /// Begins a new page if there is less room.
    void Ensure(int room);
    /// Moves the cursor down, without a page break.
    void Skip(int distance);

    /// Writes in the current font on the cursor's line, in `color` if there is one.
    void Write(ReportColumn const& column, sv::String const& text, std::optional<sv::Color> color = {});
    void Rule();

    /// Goes to the next line. Calls `head` if that begins a new page.
    void NextLine(std::function<void()> const& head);

  private:
    [[nodiscard]] sv::String Fitting(sv::String const& text, int width) const;

    kv::MyPrinter& printer_;
};

}  // namespace report
