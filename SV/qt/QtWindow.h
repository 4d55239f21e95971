// QtWindow: what all windows have in common on Qt's side. The kinds differ by the widget that they stand for.
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

/// Reports what happens to the widget to the window, and passes on to the widget what the window asks for.
class QtWindow : public QObject, public detail::WindowPeer {
  public:
    /// The widget is made with its parent's widget as parent, or none for a window on the screen.
    QtWindow(Window& window, std::unique_ptr<QWidget> widget);
    ~QtWindow() override;

    /// Of a window that is not yet gone.
    [[nodiscard]] static QtWindow& Of(Window const& window);
    [[nodiscard]] QWidget& Widget() const noexcept { return *widget_; }
    /// What gets all events of the mouse; null for none.
    [[nodiscard]] static QWidget* Captor() noexcept;
    /// Whether the window takes no input, as the one below a modal dialog.
    [[nodiscard]] static bool IsShutOff(QWidget const& widget);

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
    void SetMaxTextLen(unsigned short /*length*/) override {}
    void SetReadOnly(bool /*readOnly*/) override {}
    void InsertEntry(String const& /*entry*/, int /*position*/) override {}
    void ClearEntries() override {}
    void SelectEntry(int /*position*/) override {}
    void SetChecked(bool /*checked*/) override {}
    void SetColumns(std::span<TableColumn const> /*columns*/) override {}
    void SetRowCount(int /*count*/) override {}
    void SelectRows(std::span<int const> /*rows*/) override {}
    void InsertMenu(String const& /*title*/) override {}
    void InsertMenuItem(String const& /*text*/, String const& /*shortcut*/) override {}
    void EnableMenuItem(int /*item*/, bool /*enabled*/) override {}
    void CheckMenuItem(int /*item*/, bool /*checked*/) override {}

    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    [[nodiscard]] Window& GetWindow() const noexcept { return window_; }
    [[nodiscard]] QtCanvas& GetQtCanvas() noexcept { return canvas_; }
    /// Calls the program. The window, and this object with it, may be gone afterwards.
    template <class Handler>
    static void Call(Handler const& handler) noexcept {
        QtLoop::Instance().Call(handler);
    }
    /// What happened to the widget, before the widget sees it itself; true keeps it from the widget.
    virtual bool Handle(QEvent& event);
    /// Takes over font and colours of the window, which it may have changed without a word.
    virtual void TakeLook();

  private:
    Window& window_;
    std::unique_ptr<QWidget> widget_;
    QtCanvas canvas_;
    Point placed_;
    std::optional<Font> font_;
};

/// Whether it is the press of Return or Enter.
[[nodiscard]] bool IsReturn(QEvent const& event);

/// A window of the kind, in the parent's or on the screen.
[[nodiscard]] std::unique_ptr<QtWindow> MakeArea(Window& window, detail::WindowKind kind, QWidget* parent);
[[nodiscard]] std::unique_ptr<QtWindow> MakeControl(Window& window, detail::WindowKind kind, QWidget* parent);
[[nodiscard]] std::unique_ptr<QtWindow> MakeTable(Window& window, QWidget* parent);
[[nodiscard]] std::unique_ptr<QtWindow> MakeMenuBar(Window& window, QWidget* parent);

}  // namespace sv::qt
