// MyPrinter: the printer of the suite's reports. It keeps a cursor on the page in tenths of a millimetre,
// breaks pages by itself, and puts a head line and a foot note on each.
//     MyPrinter* const printer = MyPrinter::CreateMyPrinter("report.pdf");
//     if (printer->Start(0) == 0) return;
//     printer->WriteString("a line", 0);
//     printer->WriteLn(1);
//     printer->End();
//
// The user's name in the head line is that of `KVSetting`, which needs `AppConfig`; the program's name in the
// foot note that of `AppName`. After an abort the writer may go on: what it writes is lost.
#pragma once

#include "KVUtils/Source/frame/KVSingleton.h"
#include "KVUtils/Source/frame/TextSegment.h"
#include "KVUtils/Source/printing/detail/PageLayout.h"
#include "SV/ui/Printer.h"

#include <memory>

namespace kv {

class AbortDialog;

/// Of head lines and foot notes. A value without a name is as `KV_HF_SPACE`.
enum KVHeaderFooterTYPE : int {
    KV_HF_NONE = 0,  // no space for it
    KV_HF_FULL = 1,
    KV_HF_SPACE = 2  // its space, and nothing in it
};

class MyPrinter : public sv::Printer, public KVSingleton {
  public:
    /// Replaces an older one. The texts of the group "MyPrinter" have to be loaded before.
    static MyPrinter* CreateMyPrinter(sv::String const& printerName);
    /// Null before the creation.
    [[nodiscard]] static MyPrinter* Instance();
    [[nodiscard]] static bool IsInstantiated() noexcept { return instance_ != nullptr; }
    ~MyPrinter() override;

    /// Starts a job and its first page, once the one before has ended: waits for that without a limit.
    /// `showAbort` other than 0 shows the window with the button for a moment. 0, after a box, when the
    /// printer takes no job: for a file, also when no backend can write it, as without a display.
    unsigned char Start(unsigned char showAbort);
    /// Ends the page with its foot note and begins the next with its head line, in the normal font.
    void NewPage();
    /// Ends page and job.
    void End();

    /// The cursor.
    [[nodiscard]] sv::Point curPos() const noexcept { return cursor_; }
    void setPos(sv::Point position) noexcept { cursor_ = position; }
    /// The right edge, and how far down lines may reach in the current font.
    [[nodiscard]] sv::Point maxCurPos() const;

    // Select a font.
    void Titel() { ChangeFont(titleFont_); }
    void SubTitel() { ChangeFont(subtitleFont_); }
    void Normal() { ChangeFont(normalFont_); }

    /// So many lines down, to the next page where the line does not fit there. 0 lines can break the page
    /// too.
    void WriteLn(int lines);
    /// Writes at the cursor, moved to the right by `xOffset`, and leaves the cursor there.
    void WriteString(sv::String const& text, int xOffset);

    // 1 for a head line and a foot note, 0 at first for none.
    void DefHeadLine(unsigned char on) noexcept { hasHeadLine_ = on; }
    void DefFootNote(unsigned char on) noexcept { hasFootNote_ = on; }
    void SetHeaderType(KVHeaderFooterTYPE type) noexcept { headerType_ = type; }
    void SetFooterType(KVHeaderFooterTYPE type) noexcept { footerType_ = type; }

    /// The user's name, date and time at the cursor, which goes down by four lines. Called by the page logic;
    /// a header of type 0 does nothing.
    void WriteHeadLine();
    /// The program's name and the page's number at the bottom. Called by the page logic; a footer of type 0
    /// does nothing.
    void WriteFootNote();

    /// Shows the window with the button, if there is one already.
    void ShowDialog();

  protected:
    explicit MyPrinter(sv::String const& printerName);

  private:
    void DruckEkpunkteNeuRechnen();
    void ToTopLeft() noexcept { cursor_ = {edges_.left, edges_.top}; }
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
    detail::PageEdges edges_;
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
