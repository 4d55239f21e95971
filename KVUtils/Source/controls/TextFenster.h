// TextFenster: a window that shows lines of text: messages, a file, or what a program would print.
#pragma once

#include "KVUtils/Source/controls/KOBitmapButtonBar.h"
#include "SV/ui/Controls.h"
#include "SV/ui/Dialog.h"

#include <cstdio>

namespace kv {

/// Hidden until it is asked for. It stays when its close button is pressed: that only ends the waiting, and
/// whoever waited decides what becomes of the window.
class TextFenster : public sv::ModelessDialog {
  public:
    /// Of so many pixels; right of and below the parent, which may be null.
    TextFenster(sv::Window* parent, sv::String const& title, int width, int height);

    /// Adds a button that prints the lines, with a head line and a foot note, on the printer that
    /// `MyPrinter::CreateMyPrinter` has made; without one it does nothing.
    void EnablePrinting();

    /// Adds a line at the end and scrolls it into view.
    void AddLine(sv::String const& line);
    [[nodiscard]] unsigned char IsEmpty() const;
    void Clear();
    /// Adds the name to the title, and the lines of the file, those over 1000 characters in pieces. A file
    /// that does not open is told in a box.
    void DateiAnzeigen(sv::String const& fileName);
    /// Shows the window and waits for the close button in a nested loop. Returns at once without a line, if
    /// `evenIfEmpty` is 0, and without a display.
    void AnzeigenUndWarten(unsigned char evenIfEmpty);
    /// Each line feed ends a line. What stands behind the last one waits for the next text, whichever window
    /// that is for. Shows the window.
    TextFenster& operator<<(sv::String const& text);
    /// Writes each line, with a line feed. Always 1.
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
