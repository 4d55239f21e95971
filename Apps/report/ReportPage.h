// ReportPage: writing in columns on a report's pages, with heads that come again on each page.
#pragma once

#include "KVUtils/Source/printing/MyPrinter.h"

#include <functional>
#include <span>

namespace report {

/// Tenths of a millimetre from the left edge, to the end that the text stands at.
struct ReportColumn {
    enum class End : int { Left, Right };

    int place;
    End end;
    int width;  // longer texts are cut
};

class ReportPage {
  public:
    explicit ReportPage(kv::MyPrinter& printer) noexcept : printer_(printer) {}

    /// How far it is from the left edge to the right.
    [[nodiscard]] int Width() const;
    /// How far it is from the cursor down to the end of the page.
    [[nodiscard]] int Room() const;
    [[nodiscard]] int LineHeight() const { return printer_.GetTextSize(" ").Height(); }

    /// Begins a new page unless there is so much room.
    void Ensure(int room);
    /// So many units down, with no break of the page.
    void Skip(int distance);

    /// In the font in force, at the cursor's line.
    void Write(ReportColumn const& column, sv::String const& text);
    void Rule();

    /// To the next line, and `head` is written where that one is on a new page.
    void NextLine(std::function<void()> const& head);

  private:
    [[nodiscard]] sv::String Fitting(sv::String const& text, int width) const;

    kv::MyPrinter& printer_;
};

}  // namespace report
