// Windows that the program draws: areas, dialogs, and buttons with pictures.
#include "SV/qt/QtText.h"
#include "SV/qt/QtWindow.h"
#include "SV/ui/Controls.h"
#include "SV/ui/Styles.h"
#include "SV/ui/detail/ScaledCanvas.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QMoveEvent>
#include <QPaintEngine>
#include <optional>
#include <utility>

namespace sv::qt {

namespace {

using detail::WindowKind;

Point ToPoint(QPoint place) noexcept { return {place.x(), place.y()}; }

MouseEvent ToMouseEvent(QMouseEvent const& event) {
    return MouseEvent(ToPoint(event.position().toPoint()), event.buttons().testFlag(Qt::LeftButton),
                      (event.buttons() & ~Qt::LeftButton) != Qt::NoButton);
}

/// Provides keyboard, focus and a role for screen readers; the program draws the button.
class DrawnButton final : public QAbstractButton {
  public:
    using QAbstractButton::QAbstractButton;

  protected:
    void paintEvent(QPaintEvent* /*event*/) override {}
};

/// Returns the first visible, enabled button of the window with the style bit; null if there is none.
Button* FindDefaultButton(Window const& window) {
    for (Window* const child : window.GetChildren()) {
        if (!child->IsVisible() || !child->IsEnabled()) continue;
        auto* const button = dynamic_cast<Button*>(child);
        if (button != nullptr && (button->GetStyle() & StyleBitDefaultButton) != 0) return button;
        if (Button* const inside = FindDefaultButton(*child)) return inside;
    }
    return nullptr;
}

class QtArea : public QtWindow {
  public:
    QtArea(Window& window, std::unique_ptr<QWidget> widget) : QtWindow(window, std::move(widget)) {
        Widget().setMouseTracking(true);
    }
    detail::Canvas& GetCanvas() override { return clipped_ ? *clipped_ : QtWindow::GetCanvas(); }

  protected:
    bool Handle(QEvent& event) override {
        switch (event.type()) {
            case QEvent::Paint:
                Paint();
                return true;
            case QEvent::MouseMove:
                Report(&Window::MouseMove, ToMouseEvent(static_cast<QMouseEvent&>(event)));
                return true;
            case QEvent::MouseButtonPress:
            case QEvent::MouseButtonDblClick:
                Report(&Window::MouseButtonDown, ToMouseEvent(static_cast<QMouseEvent&>(event)));
                return true;
            case QEvent::MouseButtonRelease:
                Report(&Window::MouseButtonUp, ToMouseEvent(static_cast<QMouseEvent&>(event)));
                return true;
            case QEvent::Leave:
                if (GetWindow().HasCapture()) ReportPointer();
                return false;
            case QEvent::Move:
            case QEvent::Resize:
                ReportPlace();
                return false;
            case QEvent::Close:
                event.ignore();
                Call([this] { GetWindow().WasClosed(); });
                return true;
            default:
                return QtWindow::Handle(event);
        }
    }

  private:
    /// Vector graphics do not clip the drawing of children themselves.
    static bool IsVector(QPainter const& painter) {
        auto const type = painter.paintEngine()->type();
        return type == QPaintEngine::SVG || type == QPaintEngine::Pdf;
    }

    void Paint() {
        QPainter painter(&Widget());
        QtCanvas::Scope const scope(GetQtCanvas(), painter, Widget().size());
        if (IsVector(painter))
            clipped_.emplace(GetQtCanvas(), GetWindow().GetArea(), GetWindow().GetSizePixel());
        Call([&] {
            GetWindow().Erase();
            GetWindow().Paint(GetWindow().GetArea());
        });
        clipped_.reset();
    }

    void Report(void (Window::*handler)(MouseEvent const&), MouseEvent const& event) {
        Call([&] { (GetWindow().*handler)(event); });
    }

    /// Reports to the captor that the pointer has left the program's windows; over these it receives events
    /// anyway.
    void ReportPointer() {
        if (QApplication::widgetAt(QCursor::pos()) != nullptr) return;
        Report(&Window::MouseMove, MouseEvent(ToPoint(Widget().mapFromGlobal(QCursor::pos()))));
    }

    void ReportPlace() {
        if (!Widget().isWindow()) return;
        Size const size(Widget().width(), Widget().height());
        Call([&] { GetWindow().WasPlaced(ToPoint(Widget().pos()), size); });
    }

    std::optional<detail::ScaledCanvas> clipped_;
};

/// Escape closes it, Return activates its default button.
class QtDialog final : public QtArea {
  public:
    using QtArea::QtArea;

  protected:
    bool Handle(QEvent& event) override {
        if (event.type() != QEvent::KeyPress) return QtArea::Handle(event);
        switch (static_cast<QKeyEvent&>(event).key()) {
            case Qt::Key_Escape:
                Call([this] { GetWindow().WasClosed(); });
                return true;
            case Qt::Key_Return:
            case Qt::Key_Enter:
                if (Button* const button = FindDefaultButton(GetWindow())) {
                    // The edit that has the focus accepts its text first.
                    button->GrabFocus();
                    Call([button] { button->WasClicked(); });
                }
                return true;
            default:
                return false;
        }
    }
};

class QtDrawnButton final : public QtArea {
  public:
    QtDrawnButton(Window& window, std::unique_ptr<QAbstractButton> button)
        : QtArea(window, std::move(button)) {
        connect(&Abstract(), &QAbstractButton::clicked, this,
                [this] { Call([this] { GetWindow().WasClicked(); }); });
    }

    void SetText(String const& text) override {
        Abstract().setText(ToQtWithMnemonic(text));
        Invalidate();
    }

  protected:
    bool Handle(QEvent& event) override {
        if (!IsReturn(event)) return QtArea::Handle(event);
        Abstract().click();
        return true;
    }

  private:
    [[nodiscard]] QAbstractButton& Abstract() const { return static_cast<QAbstractButton&>(Widget()); }
};

}  // namespace

std::unique_ptr<QtWindow> MakeArea(Window& window, WindowKind kind, QWidget* parent) {
    if (kind == WindowKind::DrawnButton)
        return std::make_unique<QtDrawnButton>(window, std::make_unique<DrawnButton>(parent));
    if (kind == WindowKind::Dialog)
        return std::make_unique<QtDialog>(window, std::make_unique<QWidget>(parent, Qt::Dialog));
    return std::make_unique<QtArea>(window, std::make_unique<QWidget>(parent));
}

}  // namespace sv::qt
