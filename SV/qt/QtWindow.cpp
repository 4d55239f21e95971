#include "SV/qt/QtWindow.h"

#include "SV/qt/QtText.h"

#include <QEvent>
#include <QFocusEvent>
#include <QGuiApplication>
#include <map>
#include <utility>

namespace sv::qt {

namespace {

constexpr char const* ShutOff = "svShutOff";

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
    // Windows in this one that live on belong to their own peers.
    for (Window* const child : window_.GetChildren()) Of(*child).Widget().setParent(nullptr);
    widget_->hide();
    widget_->setParent(nullptr);
    // One of the widget's own handlers may be what this is called from.
    widget_.release()->deleteLater();
}

QtWindow& QtWindow::Of(Window const& window) { return *Peers().at(&window); }

QWidget* QtWindow::Captor() noexcept { return captor == nullptr ? nullptr : captor->widget_.get(); }

bool QtWindow::IsShutOff(QWidget const& widget) { return widget.window()->property(ShutOff).toBool(); }

void QtWindow::SetPosSize(Point position, Size size) {
    widget_->resize(size.Width(), size.Height());
    // A window of its own that was never placed stands where the desktop puts it.
    if (widget_->isWindow() && std::exchange(placed_, position) == position) return;
    widget_->move(position.X(), position.Y());
}

void QtWindow::Show(bool visible) {
    TakeLook();
    widget_->setVisible(visible);
}

void QtWindow::Enable(bool enabled) {
    if (widget_->isWindow()) {
        // Not greyed: it is only shut off, and windows on top of it are not.
        widget_->setProperty(ShutOff, !enabled);
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
    TakeLook();
    widget_->update();
}

void QtWindow::GrabFocus() { widget_->setFocus(Qt::OtherFocusReason); }

// Kept within the program: to take the mouse of the whole screen is not everywhere allowed, and a program
// that stops at a breakpoint would keep it.
void QtWindow::CaptureMouse(bool capture) { captor = capture ? this : nullptr; }

void QtWindow::ToTop() {
    // Without a desktop there is no order of windows, and Qt complains.
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
            TakeLook();
            break;
        case QEvent::FocusIn:
            Call([this] { window_.FocusHasCome(); });
            break;
        case QEvent::FocusOut:
            // A menu of the widget's own keeps the focus in the widget.
            if (static_cast<QFocusEvent&>(event).reason() != Qt::PopupFocusReason)
                Call([this] { window_.FocusHasGone(); });
            break;
        default:
            break;
    }
    return false;
}

void QtWindow::TakeLook() {
    if (std::exchange(font_, window_.GetFont()) != window_.GetFont())
        widget_->setFont(ToQt(window_.GetFont()));
}

}  // namespace sv::qt
