// sv::Window: an area of the screen that is drawn on, takes input, and holds other windows.
//
// A window is made hidden and enabled, and is destroyed before its parent. All of it belongs to the main
// thread.
#pragma once

#include "SV/core/String.h"
#include "SV/ui/Events.h"
#include "SV/ui/OutputDevice.h"

#include <memory>
#include <span>
#include <vector>

namespace sv {

namespace detail {
class ScaledCanvas;
class WindowPeer;
enum class WindowKind : int;
}  // namespace detail

class Window : public OutputDevice {
  public:
    /// The style bits of a window, as the suite's classes give them.
    using Style = unsigned long;

    /// `parent` is null for a window of its own on the screen. The style is kept for whoever asks.
    explicit Window(Window* parent, Style style = 0);
    virtual ~Window();

    /// Draws what the window shows, after its ground was painted. All of it may be drawn: what lies outside
    /// the area is cut off.
    virtual void Paint(Rectangle const& area);
    /// The size has changed.
    virtual void Resize();
    virtual void MouseMove(MouseEvent const& event);
    virtual void MouseButtonDown(MouseEvent const& event);
    virtual void MouseButtonUp(MouseEvent const& event);
    virtual void GetFocus();
    virtual void LoseFocus();

    [[nodiscard]] Window* GetParent() const noexcept { return parent_; }
    /// The windows in this one, in the order they were made.
    [[nodiscard]] std::span<Window* const> GetChildren() const noexcept { return children_; }
    [[nodiscard]] Style GetStyle() const noexcept { return style_; }

    /// From the top left corner of the parent's area or of the screen.
    [[nodiscard]] Point GetPosPixel() const noexcept { return position_; }
    [[nodiscard]] Size GetSizePixel() const noexcept { return size_; }
    /// All of the window in its own pixels.
    [[nodiscard]] Rectangle GetArea() const noexcept { return Rectangle::Of(Point(), size_); }
    void SetPosSizePixel(Point position, Size size);
    /// Each returns what was there before. `Resize` runs when the size has changed.
    virtual Point ChangePosPixel(Point position);
    Size ChangeSizePixel(Size size);

    virtual void Show(bool visible);
    void Show() { Show(true); }
    void Hide() { Show(false); }
    /// Whether it was shown; a window in a hidden one is not to be seen all the same.
    [[nodiscard]] bool IsVisible() const noexcept { return isVisible_; }

    /// Lets the window take input, or shuts it off.
    virtual void Enable(bool enable);
    void Enable() { Enable(true); }
    void Disable() { Enable(false); }
    [[nodiscard]] bool IsEnabled() const noexcept { return isEnabled_; }

    /// The title, or what a control shows.
    void SetText(String const& text);
    [[nodiscard]] String const& GetText() const noexcept { return text_; }

    /// Has the window painted, some time soon.
    void Invalidate();
    void GrabFocus();
    [[nodiscard]] bool HasFocus() const noexcept { return focus_ == this; }
    /// Events of the mouse come to this window, wherever the pointer is.
    void CaptureMouse();
    void ReleaseMouse();
    [[nodiscard]] bool HasCapture() const noexcept { return captor_ == this; }
    void ToTop();

    /// Draws the window with all visible windows in it on another device, a printer's page for example,
    /// stretched into the area, which is in the device's own units. What the window system draws itself,
    /// controls and titles, is left out.
    void PrintOn(OutputDevice& device, Rectangle const& area);

    /// What a screen reader says in place of the text; empty for the text.
    void SetAccessibleName(String const& name);

    // For backends: what has happened on the window system's side.
    void FocusHasCome();
    void FocusHasGone();
    /// A person has changed the text.
    virtual void TextHasChanged(String const& text);
    /// A button was pressed, by the mouse or the keyboard.
    virtual void WasClicked();
    /// A spin button's arrow was pressed once, or repeats.
    virtual void WasSpun(bool up);
    /// A person has selected the entry.
    virtual void EntryWasSelected(unsigned short position);
    /// A person has selected these rows of a table, ascending.
    virtual void RowsWereSelected(std::vector<int> rows);
    /// A person wants the window closed.
    virtual void WasClosed();
    /// A person, or the window system, has moved the window or changed its size.
    void WasPlaced(Point position, Size size);

  protected:
    Window(detail::WindowKind kind, Window* parent, Style style);
    /// The text without telling the window system, which has it.
    void KeepText(String const& text) { text_ = text; }
    [[nodiscard]] detail::WindowPeer& GetPeer() const noexcept { return *peer_; }

  private:
    [[nodiscard]] detail::Canvas& GetCanvas() const override;
    void PaintOn(detail::ScaledCanvas canvas);

    Window* parent_;
    std::vector<Window*> children_;
    Style style_;
    Point position_;
    Size size_;
    bool isVisible_ = false;
    bool isEnabled_ = true;
    String text_;
    std::unique_ptr<detail::WindowPeer> peer_;
    detail::Canvas* elsewhere_ = nullptr;  // while it is drawn on another device

    static Window* focus_;
    static Window* captor_;
};

}  // namespace sv
