// sv::Window: an area of the screen that is drawn on, receives input and contains other windows.
//
// A new window is hidden and enabled. It must be destroyed before its parent. Only for the main thread.
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
    /// The style bits of a window.
    using Style = unsigned long;

    /// `parent` is null for a top-level window.
    explicit Window(Window* parent, Style style = 0);
    virtual ~Window();

    /// Draws the contents, after the background was painted. May draw all of the window; drawing outside the
    /// area is clipped.
    virtual void Paint(Rectangle const& area);
    /// Called when the size has changed.
    virtual void Resize();
    virtual void MouseMove(MouseEvent const& event);
    virtual void MouseButtonDown(MouseEvent const& event);
    virtual void MouseButtonUp(MouseEvent const& event);
    virtual void GetFocus();
    virtual void LoseFocus();

    [[nodiscard]] Window* GetParent() const noexcept { return parent_; }
    /// The child windows in the order of their creation.
    [[nodiscard]] std::span<Window* const> GetChildren() const noexcept { return children_; }
    [[nodiscard]] Style GetStyle() const noexcept { return style_; }

    /// Relative to the top left corner of the parent's area or of the screen.
    [[nodiscard]] Point GetPosPixel() const noexcept { return position_; }
    [[nodiscard]] Size GetSizePixel() const noexcept { return size_; }
    /// The whole window in its own pixels.
    [[nodiscard]] Rectangle GetArea() const noexcept { return Rectangle::Of(Point(), size_); }
    void SetPosSizePixel(Point position, Size size);
    /// Each returns the previous value. `Resize` is called if the size changes.
    virtual Point ChangePosPixel(Point position);
    Size ChangeSizePixel(Size size);

    virtual void Show(bool visible);
    void Show() { Show(true); }
    void Hide() { Show(false); }
    /// Whether the window was shown; true also if its parent is hidden.
    [[nodiscard]] bool IsVisible() const noexcept { return isVisible_; }

    /// Enables or disables input.
    virtual void Enable(bool enable);
    void Enable() { Enable(true); }
    void Disable() { Enable(false); }
    [[nodiscard]] bool IsEnabled() const noexcept { return isEnabled_; }

    /// The title of a window, or the text of a control.
    void SetText(String const& text);
    [[nodiscard]] String const& GetText() const noexcept { return text_; }

    /// Requests that the window be painted.
    void Invalidate();
    void GrabFocus();
    [[nodiscard]] bool HasFocus() const noexcept { return focus_ == this; }
    /// Sends all mouse events to this window, wherever the pointer is.
    void CaptureMouse();
    void ReleaseMouse();
    [[nodiscard]] bool HasCapture() const noexcept { return captor_ == this; }
    void ToTop();

    /// Draws the window and its visible children on another device, for example a printer, scaled to the
    /// area, which is in the units of the device. Controls and titles that the window system draws are left
    /// out.
    void PrintOn(OutputDevice& device, Rectangle const& area);

    /// Sets the name that a screen reader announces; empty to announce the text.
    void SetAccessibleName(String const& name);

    // For backends, which report what has happened.
    void FocusGained();
    void FocusLost();
    /// The user has changed the text.
    virtual void TextHasChanged(String const& text);
    /// A button was activated by the mouse or the keyboard.
    virtual void WasClicked();
    /// An arrow of a spin button was pressed or repeats.
    virtual void WasSpun(bool up);
    /// The user has selected an entry.
    virtual void EntryWasSelected(int position);
    /// The user has selected these rows of a table, in ascending order.
    virtual void RowsWereSelected(std::vector<int> rows);
    /// The user asks to close the window. The main window ends the program by `Application::Quit`; any other
    /// is hidden. Override to object or to ask first. The main window is `Application::GetAppWindow`, or any
    /// top-level window if there is none.
    virtual void WasClosed();
    /// The user or the window system has moved or resized the window.
    void WasPlaced(Point position, Size size);

  protected:
    Window(detail::WindowKind kind, Window* parent, Style style);
    /// Sets the text without passing it to the window system, which has it already.
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
    detail::Canvas* elsewhere_ = nullptr;  // while the window is drawn on another device

    static Window* focus_;
    static Window* captor_;
};

}  // namespace sv
