// MyPrinter: the printer of the suite's reports. Keeps a cursor on the page in tenths of a millimetre, breaks
// pages, and writes a head line and a foot note on each.
//     MyPrinter* const printer = MyPrinter::CreateMyPrinter("report.pdf");
//     if (printer->Start(0) == 0) return;
//     printer->WriteString("a line", 0);
//     printer->WriteLn(1);
//     printer->End();
//
// The user's name in the head line comes from `KVSetting`, which needs `AppConfig`; the program's name in the
// foot note from `AppName`. Writing may continue after an abort; the output is discarded.
#pragma once

#include "KVUtils/Source/frame/KVSingleton.h"
#include "KVUtils/Source/frame/TextSegment.h"
#include "SV/ui/Printer.h"

#include <memory>

namespace kv {

class AbortDialog;
namespace detail {
struct PageEdges;
}

/// The type of head lines and foot notes. Any other value counts as `KV_HF_SPACE`.
enum KVHeaderFooterTYPE : int {
    KV_HF_NONE = 0,  // no space for it
    KV_HF_FULL = 1,
    KV_HF_SPACE = 2  // its space, left empty
};

class MyPrinter : public sv::Printer, public KVSingleton {
  public:
    /// Replaces an earlier one. Load the texts of the group "MyPrinter" first.
    static MyPrinter* CreateMyPrinter(sv::String const& printerName);
    /// Null before `CreateMyPrinter`.
    [[nodiscard]] static MyPrinter* Instance();
    [[nodiscard]] static bool IsInstantiated() noexcept { return instance_ != nullptr; }
    ~MyPrinter() override;

    /// Starts a job and its first page; waits without a limit for the previous job to end. `showAbort` other
    /// than 0 shows the abort dialog while printing. Returns 0, after a box, if the printer refuses the job:
    /// for a file, also if no backend can write it, as without a display.
    unsigned char Start(unsigned char showAbort);
    /// Ends the page with its foot note and begins the next with its head line, in the normal font.
    void NewPage();
    /// Ends page and job.
    void End();

    /// The cursor.
    [[nodiscard]] sv::Point curPos() const noexcept { return cursor_; }
    void setPos(sv::Point position) noexcept { cursor_ = position; }
    /// The right edge, and the bottom of the area for lines in the current font.
    [[nodiscard]] sv::Point maxCurPos() const;

    // Select a font.
    void Titel() { ChangeFont(titleFont_); }
    void SubTitel() { ChangeFont(subtitleFont_); }
    void Normal() { ChangeFont(normalFont_); }

    /// Moves down by this many lines; begins a new page if the line does not fit. 0 lines can break the page
    /// too.
    void WriteLn(int lines);
    /// Writes at the cursor, shifted right by `xOffset`; does not move the cursor.
    void WriteString(sv::String const& text, int xOffset);

    // 1 turns the head line or foot note on; off at first.
    void DefHeadLine(unsigned char on) noexcept { hasHeadLine_ = on; }
    void DefFootNote(unsigned char on) noexcept { hasFootNote_ = on; }
    void SetHeaderType(KVHeaderFooterTYPE type) noexcept { headerType_ = type; }
    void SetFooterType(KVHeaderFooterTYPE type) noexcept { footerType_ = type; }

    /// Writes the user's name, date and time at the cursor, which moves down by four lines. Called by the
    /// page logic; does nothing for header type 0.
    void WriteHeadLine();
    /// Writes the program's name and the page number at the bottom. Called by the page logic; does nothing
    /// for footer type 0.
    void WriteFootNote();

    /// Shows the abort dialog if it exists.
    void ShowDialog();

  protected:
    explicit MyPrinter(sv::String const& printerName);

  private:
    void DruckEkpunkteNeuRechnen();
    void ToTopLeft() noexcept;
    [[nodiscard]] int LineHeight() const { return GetTextSize(" ").Height(); }
    void WriteAtRight(sv::String const& text);
    void DrawRule(int y);
    void PrepareDialog(unsigned char showAbort);
    void ShowForMoment(bool visible);
    long ShowAbbrechen(sv::Printer* sender);
    long HideAbbrechen(sv::Printer* sender);

    TextSegment texts_;
    std::unique_ptr<AbortDialog> abortDialog_;
    sv::Point cursor_;
    std::unique_ptr<detail::PageEdges> edges_;
    unsigned char hasFootNote_ = 0;
    unsigned char hasHeadLine_ = 0;
    KVHeaderFooterTYPE headerType_ = KV_HF_FULL;
    KVHeaderFooterTYPE footerType_ = KV_HF_FULL;
    sv::Font titleFont_;
    sv::Font subtitleFont_;
    sv::Font normalFont_;
    int pageNumber_ = 1;

    static MyPrinter* instance_;
};

}  // namespace kv
