#include "SV/qt/QtWindow.h"

#include "SV/qt/QtText.h"

#include <QEvent>
#include <QFocusEvent>
#include <QGuiApplication>
#include <map>
#include <utility>

namespace sv::qt {

namespace {

constexpr char const* BlockedProperty = "svBlocked";

std::map<Window const*, QtWindow*>& Peers() {
    static std::map<Window const*, QtWindow*>& peers = *new std::map<Window const*, QtWindow*>;
    return peers;
}

constinit QtWindow* captor = nullptr;

}  // namespace

QtWindow::QtWindow(Window& window, std::unique_ptr<QWidget> widget)
    : window_(window), widget_(std::move(widget)) {
    Peers()[&window] = this;
    widget_->hide();
    widget_->installEventFilter(this);
}

QtWindow::~QtWindow() {
    Peers().erase(&window_);
    if (captor == this) captor = nullptr;
    widget_->removeEventFilter(this);
    // Children that live on belong to their own peers.
    for (Window* const child : window_.GetChildren()) Of(*child).Widget().setParent(nullptr);
    widget_->hide();
    widget_->setParent(nullptr);
    // A handler of the widget may be on the stack.
    widget_.release()->deleteLater();
}

QtWindow& QtWindow::Of(Window const& window) { return *Peers().at(&window); }

QWidget* QtWindow::Captor() noexcept { return captor == nullptr ? nullptr : captor->widget_.get(); }

bool QtWindow::IsBlocked(QWidget const& widget) {
    return widget.window()->property(BlockedProperty).toBool();
}

void QtWindow::SetPosSize(Point position, Size size) {
    widget_->resize(size.Width(), size.Height());
    // The desktop places a top-level window that the program has not placed.
    if (widget_->isWindow() && std::exchange(placed_, position) == position) return;
    widget_->move(position.X(), position.Y());
}

void QtWindow::Show(bool visible) {
    UpdateLook();
    widget_->setVisible(visible);
}

void QtWindow::Enable(bool enabled) {
    if (widget_->isWindow()) {
        // Only its input is blocked: it is not greyed, and windows above it stay enabled.
        widget_->setProperty(BlockedProperty, !enabled);
    } else {
        widget_->setEnabled(enabled);
    }
    widget_->update();
}

void QtWindow::SetText(String const& text) {
    if (widget_->isWindow()) widget_->setWindowTitle(ToQt(text));
    Invalidate();
}

void QtWindow::Invalidate() {
    UpdateLook();
    widget_->update();
}

void QtWindow::GrabFocus() { widget_->setFocus(Qt::OtherFocusReason); }

// Captures within the program only: capturing the whole screen is not allowed everywhere, and a program that
// stops at a breakpoint would keep the mouse.
void QtWindow::CaptureMouse(bool capture) { captor = capture ? this : nullptr; }

void QtWindow::ToTop() {
    // The offscreen platform has no order of windows, and Qt would warn.
    if (QGuiApplication::platformName() != "offscreen") widget_->raise();
    if (widget_->isWindow()) widget_->activateWindow();
}

void QtWindow::SetAccessibleName(String const& name) { widget_->setAccessibleName(ToQt(name)); }

bool QtWindow::eventFilter(QObject* watched, QEvent* event) {
    return watched == widget_.get() && Handle(*event);
}

bool QtWindow::Handle(QEvent& event) {
    switch (event.type()) {
        case QEvent::Paint:
            UpdateLook();
            break;
        case QEvent::FocusIn:
            Call([this] { window_.FocusGained(); });
            break;
        case QEvent::FocusOut:
            // A context menu of the widget keeps the focus in the widget.
            if (static_cast<QFocusEvent&>(event).reason() != Qt::PopupFocusReason)
                Call([this] { window_.FocusLost(); });
            break;
        default:
            break;
    }
    return false;
}

void QtWindow::UpdateLook() {
    if (std::exchange(font_, window_.GetFont()) != window_.GetFont())
        widget_->setFont(ToQt(window_.GetFont()));
}

}  // namespace sv::qt
