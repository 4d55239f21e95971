// TextFenster: a window that shows lines of text: messages, a file, or a program's output.
#pragma once

#include "KVUtils/Source/controls/KOBitmapButtonBar.h"
#include "SV/ui/Controls.h"
#include "SV/ui/Dialog.h"

#include <cstdio>

namespace kv {

/// Hidden at first. The close button does not hide it: it only ends the waiting, and the waiting caller
/// decides what to do with the window.
class TextFenster : public sv::ModelessDialog {
  public:
    /// A window of this size in pixels, right of and below the parent, which may be null.
    TextFenster(sv::Window* parent, sv::String const& title, int width, int height);

    /// Adds a button that prints the lines, with a head line and a foot note, on the printer made by
    /// `MyPrinter::CreateMyPrinter`; without one it does nothing.
    void EnablePrinting();

    /// Adds a line at the end and scrolls it into view.
    void AddLine(sv::String const& line);
    [[nodiscard]] unsigned char IsEmpty() const;
    void Clear();
    /// Appends the name to the title, and the lines of the file, splitting those over 1000 characters. Shows
    /// a box if the file can't be opened.
    void DateiAnzeigen(sv::String const& fileName);
    /// Shows the window and waits for the close button in a nested loop. Returns at once without a display,
    /// and if the window is empty and `evenIfEmpty` is 0.
    void AnzeigenUndWarten(unsigned char evenIfEmpty);
    /// Adds the text; each line feed ends a line. The rest after the last line feed is kept for the next
    /// text, which all windows share. Shows the window.
    TextFenster& operator<<(sv::String const& text);
    /// Writes each line with a line feed. Always returns 1.
    unsigned char CopyToFile(std::FILE* file) const;

    /// The standard output window, made hidden; one at a time.
    static void CreateCout();
    static void DeleteCout();
    /// Null when there is none.
    [[nodiscard]] static TextFenster* GetCout() noexcept;

    void Resize() override;
    /// Hides the window, and ends the waiting.
    void WasClosed() override;

  private:
    long SchliessenHdl(KOBitmapButton* sender);
    long PrinterHdl(KOBitmapButton* sender);

    sv::ListBoxControl list_;
    KOBitmapButtonBar buttonBar_;
    unsigned char isClosed_ = 0;

    static sv::String& Pending();
};

}  // namespace kv
