// QtWindow: the common part of all windows on Qt's side.
#pragma once

#include "SV/qt/QtCanvas.h"
#include "SV/qt/QtLoop.h"
#include "SV/ui/Backend.h"
#include "SV/ui/Window.h"

#include <QObject>
#include <QPointer>
#include <QWidget>
#include <memory>
#include <optional>

namespace sv::qt {

/// Reports the widget's events to the window and applies the window's changes to the widget.
class QtWindow : public QObject, public detail::WindowPeer {
  public:
    /// The widget's parent is that of the parent window, or none for a top-level window.
    QtWindow(Window& window, std::unique_ptr<QWidget> widget);
    ~QtWindow() override;

    /// Returns the peer of an existing window.
    [[nodiscard]] static QtWindow& Of(Window const& window);
    [[nodiscard]] QWidget& Widget() const noexcept { return *widget_; }
    /// The widget that receives all mouse events; null if there is none.
    [[nodiscard]] static QWidget* Captor() noexcept;
    /// Whether the input of the top-level window is blocked, as below a modal dialog.
    [[nodiscard]] static bool IsBlocked(QWidget const& widget);

    detail::Canvas& GetCanvas() override { return canvas_; }
    void SetPosSize(Point position, Size size) override;
    void Show(bool visible) override;
    void Enable(bool enabled) override;
    void SetText(String const& text) override;
    void Invalidate() override;
    void GrabFocus() override;
    void CaptureMouse(bool capture) override;
    void ToTop() override;
    void SetAccessibleName(String const& name) override;

    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    [[nodiscard]] Window& GetWindow() const noexcept { return window_; }
    [[nodiscard]] QtCanvas& GetQtCanvas() noexcept { return canvas_; }
    /// Calls the program, which may destroy the window and this object.
    template <class Handler>
    static void Call(Handler const& handler) noexcept {
        QtLoop::Instance().Call(handler);
    }
    /// Filters the events of the widget; returns true to stop an event.
    virtual bool Handle(QEvent& event);
    /// Applies the font and colours of the window, which change without notification.
    virtual void UpdateLook();

  private:
    Window& window_;
    std::unique_ptr<QWidget> widget_;
    QtCanvas canvas_;
    Point placed_;
    std::optional<Font> font_;
};

/// Whether the event is a press of Return or Enter.
[[nodiscard]] bool IsReturn(QEvent const& event);

/// Each creates a peer, as a child of `parent` or as a top-level window.
[[nodiscard]] std::unique_ptr<QtWindow> MakeArea(Window& window, detail::WindowKind kind, QWidget* parent);
[[nodiscard]] std::unique_ptr<QtWindow> MakeControl(Window& window, detail::WindowKind kind, QWidget* parent);
[[nodiscard]] std::unique_ptr<QtWindow> MakeTable(Window& window, QWidget* parent);
[[nodiscard]] std::unique_ptr<QtWindow> MakeMenuBar(Window& window, QWidget* parent);

}  // namespace sv::qt
