// Backend: the interface that a window system implements for the toolkit. Geometry, text and state are kept
// in the `sv` objects; their peers mirror them.
#pragma once

#include "SV/core/ForeignMacros.h"
#include "SV/core/Geometry.h"
#include "SV/core/String.h"
#include "SV/ui/Canvas.h"
#include "SV/ui/FileChoice.h"
#include "SV/ui/PrintJob.h"

#include <memory>
#include <optional>
#include <span>

namespace sv {
class Window;
struct TableColumn;
}  // namespace sv

namespace sv::detail {

/// What a window is to the window system, which draws all kinds but the first three itself.
enum class WindowKind : int {
    Area,
    Dialog,
    DrawnButton,  // drawn by the program; has the focus, keys and mnemonic of a button
    Edit,
    SpinButton,
    FixedText,
    PushButton,
    CheckBox,
    ListBox,
    DropDown,
    MenuBar,
    Table  // asks an `sv::Table` for its cells
};

/// The window system's side of one `sv::Window`. It reports events by the window's operations under "For
/// backends".
class WindowPeer {
  public:
    virtual ~WindowPeer() = default;

    /// For drawing while the window is painted, and for measuring at any time.
    [[nodiscard]] virtual Canvas& GetCanvas() = 0;
    /// In pixels, relative to the top left corner of the parent's area or of the screen.
    virtual void SetPosSize(Point position, Size size) = 0;
    virtual void Show(bool visible) = 0;
    virtual void Enable(bool enabled) = 0;
    virtual void SetText(String const& text) = 0;
    /// Requests that the window be painted.
    virtual void Invalidate() = 0;
    virtual void GrabFocus() = 0;
    /// Sends all mouse events to this window, wherever the pointer is.
    virtual void CaptureMouse(bool /*capture*/) {}
    virtual void ToTop() {}
    /// Sets the name that a screen reader announces; empty to announce the text.
    virtual void SetAccessibleName(String const& /*name*/) {}

    // Operations of single kinds of controls; the other kinds ignore them.
    /// The maximum number of characters of an edit; 0 for no limit.
    virtual void SetMaxTextLen(unsigned short /*length*/) {}
    virtual void SetReadOnly(bool /*readOnly*/) {}
    // Of a list, whose selection stays with its entry.
    virtual void InsertEntry(String const& /*entry*/, int /*position*/) {}
    virtual void ClearEntries() {}
    /// Selects the entry and scrolls it into view; -1 clears the selection.
    virtual void SelectEntry(int /*position*/) {}
    virtual void SetChecked(bool /*checked*/) {}
    // Of a table.
    virtual void SetColumns(std::span<TableColumn const> /*columns*/) {}
    /// Clears the selection.
    virtual void SetRowCount(int /*count*/) {}
    /// Selects only these rows and scrolls the first into view.
    virtual void SelectRows(std::span<int const> /*rows*/) {}
    // Of a menu bar. Items are counted from 0 across all menus, separators included.
    virtual void InsertMenu(String const& /*title*/) {}
    /// Appends an item to the last menu; without a text it is a separator.
    virtual void InsertMenuItem(String const& /*text*/, String const& /*shortcut*/) {}
    virtual void EnableMenuItem(int /*item*/, bool /*enabled*/) {}
    virtual void CheckMenuItem(int /*item*/, bool /*checked*/) {}
};

/// The page of a printer as it is set up, in pixels.
struct PageGeometry {
    Size paper;
    Point offset;  // from the corner of the paper to that of the printable area
    Size output;   // of the printable area
    double pixelsPerTenthMillimetre = 1;
};

/// The printer's side of one `sv::Printer`, which starts a job, prints its pages one after the other and ends
/// the job.
class PrinterPeer {
  public:
    virtual ~PrinterPeer() = default;

    /// For drawing while a page is open, and for measuring at any time.
    [[nodiscard]] virtual Canvas& GetCanvas() = 0;
    [[nodiscard]] virtual PageGeometry Geometry(PageSetup const& setup) const = 0;
    /// The number of distinct colours.
    [[nodiscard]] virtual unsigned long ColorCount() const = 0;
    /// Returns false if there is no such printer or it accepts no job; no other call follows then.
    [[nodiscard]] virtual bool StartJob(PrintJob const& job) = 0;
    virtual bool StartPage() = 0;
    virtual void EndPage() = 0;
    /// Returns false if the pages were not delivered.
    [[nodiscard]] virtual bool EndJob() = 0;
    /// Discards what was printed, as far as possible, even while a page is open.
    virtual void AbortJob() = 0;
};

class Backend {
  public:
    virtual ~Backend() = default;

    /// `parent` is null for a top-level window. The window outlives its peer.
    [[nodiscard]] virtual std::unique_ptr<WindowPeer> MakeWindow(Window& window, WindowKind kind,
                                                                 WindowPeer* parent) = 0;
    /// Returns a surface that can be drawn on and read back, initially black.
    [[nodiscard]] virtual std::unique_ptr<Canvas> MakeSurface(Size size) = 0;
    /// `name` is as described at `sv::Printer`.
    [[nodiscard]] virtual std::unique_ptr<PrinterPeer> MakePrinter(String const& name) = 0;
    /// Sets the language of the window system's own texts, see `sv::ChangeLanguage`.
    virtual void SetLanguage(String const& /*code*/) {}
    /// Whether a user can see the windows. If not, nothing waits for input.
    [[nodiscard]] virtual bool HasDisplay() const noexcept = 0;
    [[nodiscard]] virtual Size ScreenSize() const = 0;
    /// The position of the pointer on the screen.
    [[nodiscard]] virtual Point PointerPosition() const = 0;
    /// Asks for a file with a dialog over `parent`, which may be null, and runs the loop until it is
    /// answered; returns none if the user cancels. Does not ask whether to replace a file and adds no
    /// extension. A name that the suite's code page lacks is refused in the dialog.
    [[nodiscard]] virtual std::optional<FileAnswer> AskForFile(Window* parent,
                                                               FileQuestion const& question) = 0;
};

/// The installed backend; without one, the headless backend.
[[nodiscard]] Backend& CurrentBackend() noexcept;
/// Installs a backend, before the first window is created; null restores the headless backend.
void InstallBackend(Backend* backend) noexcept;

}  // namespace sv::detail
