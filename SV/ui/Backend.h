// Backend: what a window system has to offer the toolkit; everything else is the toolkit's own. Geometry,
// text and state live in the `sv` objects, and their peers mirror them.
#pragma once

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

/// What a window is to the window system. All but the first three are controls that it draws itself.
enum class WindowKind : int {
    Area,
    Dialog,
    DrawnButton,  // by the program; focus, keys and a mnemonic as of a button
    Edit,
    SpinButton,
    FixedText,
    PushButton,
    CheckBox,
    ListBox,
    DropDown,
    MenuBar,
    Table  // an `sv::Table`, which is asked for its cells
};

/// The window system's side of one `sv::Window`. What happens on its side it reports by the window's
/// operations under "For backends".
class WindowPeer {
  public:
    virtual ~WindowPeer() = default;

    /// To draw on while the window is painted, and to measure on at any time.
    [[nodiscard]] virtual Canvas& GetCanvas() = 0;
    /// In pixels, from the top left corner of the parent's area or of the screen.
    virtual void SetPosSize(Point position, Size size) = 0;
    virtual void Show(bool visible) = 0;
    virtual void Enable(bool enabled) = 0;
    virtual void SetText(String const& text) = 0;
    /// Has the window painted, some time soon.
    virtual void Invalidate() = 0;
    virtual void GrabFocus() = 0;
    /// Sends all events of the mouse to this window, wherever the pointer is.
    virtual void CaptureMouse(bool capture) = 0;
    virtual void ToTop() = 0;
    /// What a screen reader says in place of the text; empty for the text.
    virtual void SetAccessibleName(String const& name) = 0;

    // Controls. The others ignore these.
    /// Of an edit, in characters; 0 for as many as there are.
    virtual void SetMaxTextLen(unsigned short length) = 0;
    virtual void SetReadOnly(bool readOnly) = 0;
    // Of a list, whose selection stays with its entry.
    virtual void InsertEntry(String const& entry, int position) = 0;
    virtual void ClearEntries() = 0;
    /// Scrolls it into view; -1 selects none.
    virtual void SelectEntry(int position) = 0;
    virtual void SetChecked(bool checked) = 0;
    // Of a table.
    virtual void SetColumns(std::span<TableColumn const> columns) = 0;
    /// Nothing is selected then.
    virtual void SetRowCount(int count) = 0;
    /// These alone; scrolls the first into view.
    virtual void SelectRows(std::span<int const> rows) = 0;
    // Of a menu bar, whose items are counted from 0 through all its menus, lines included.
    virtual void InsertMenu(String const& title) = 0;
    /// At the end of the last menu; without a text it is a line.
    virtual void InsertMenuItem(String const& text, String const& shortcut) = 0;
    virtual void EnableMenuItem(int item, bool enabled) = 0;
    virtual void CheckMenuItem(int item, bool checked) = 0;
};

/// The pages of a printer as they are set up, in its pixels.
struct PageGeometry {
    Size paper;
    Point offset;  // from the paper's corner to that of the area that is printed on
    Size output;   // of that area
    double pixelsPerTenthMillimetre = 1;
};

/// The window system's side of one `sv::Printer`, which calls these in their order: a job, its pages one
/// after the other, and its end.
class PrinterPeer {
  public:
    virtual ~PrinterPeer() = default;

    /// To draw on while a page is open, and to measure on at any time.
    [[nodiscard]] virtual Canvas& GetCanvas() = 0;
    [[nodiscard]] virtual PageGeometry Geometry(PageSetup const& setup) const = 0;
    /// How many colours it tells apart.
    [[nodiscard]] virtual unsigned long ColorCount() const = 0;
    /// False when there is no such printer or it takes no job; then the others are not called.
    [[nodiscard]] virtual bool StartJob(PrintJob const& job) = 0;
    virtual bool StartPage() = 0;
    virtual void EndPage() = 0;
    /// False when the pages did not arrive.
    [[nodiscard]] virtual bool EndJob() = 0;
    /// Takes back what was printed, as far as that can be; in the middle of a page too.
    virtual void AbortJob() = 0;
};

class Backend {
  public:
    virtual ~Backend() = default;

    /// `parent` is null for a window of its own on the screen. The window outlives its peer.
    [[nodiscard]] virtual std::unique_ptr<WindowPeer> MakeWindow(Window& window, WindowKind kind,
                                                                 WindowPeer* parent) = 0;
    /// A surface to draw on and to read back, black at first.
    [[nodiscard]] virtual std::unique_ptr<Canvas> MakeSurface(Size size) = 0;
    /// `name` is what the program calls the printer, see `sv::Printer`.
    [[nodiscard]] virtual std::unique_ptr<PrinterPeer> MakePrinter(String const& name) = 0;
    /// Whether there is somebody to see the windows; without, nothing waits for a person.
    [[nodiscard]] virtual bool HasDisplay() const noexcept = 0;
    [[nodiscard]] virtual Size ScreenSize() const = 0;
    /// Of the pointer on the screen.
    [[nodiscard]] virtual Point PointerPosition() const = 0;
    /// Asks over `parent`, which may be null, and runs the loop meanwhile; none when the person cancels.
    /// Neither asks whether a file may be replaced, nor adds an extension to its name. A name that the
    /// suite's code page cannot hold is refused before the person's eyes.
    [[nodiscard]] virtual std::optional<FileAnswer> AskForFile(Window* parent,
                                                               FileQuestion const& question) = 0;
};

/// The backend in use: the one without a display, unless another is installed.
[[nodiscard]] Backend& CurrentBackend() noexcept;
/// Installs a backend for as long as the program lives, before the first window is made; null for the one
/// without a display.
void InstallBackend(Backend* backend) noexcept;

}  // namespace sv::detail
