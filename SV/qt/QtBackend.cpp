#include "SV/qt/QtBackend.h"

#include "SV/qt/QtBoxes.h"
#include "SV/qt/QtFileDialog.h"
#include "SV/qt/QtPrinter.h"
#include "SV/qt/QtText.h"
#include "SV/qt/QtWindow.h"

#include <QApplication>
#include <QCursor>
#include <QLibraryInfo>
#include <QMouseEvent>
#include <QScreen>
#include <QTranslator>
#include <utility>

namespace sv::qt {

namespace {

bool IsMouse(QEvent::Type type) noexcept {
    return type == QEvent::MouseButtonPress || type == QEvent::MouseButtonRelease ||
           type == QEvent::MouseButtonDblClick || type == QEvent::MouseMove;
}

bool IsInput(QEvent::Type type) noexcept {
    switch (type) {
        case QEvent::Wheel:
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::Shortcut:
        case QEvent::ShortcutOverride:
        case QEvent::InputMethod:
        case QEvent::ContextMenu:
        case QEvent::Close:
            return true;
        default:
            return IsMouse(type);
    }
}

void Redirect(QMouseEvent const& event, QWidget& widget) {
    QMouseEvent redirected(event.type(), widget.mapFromGlobal(event.globalPosition()), event.globalPosition(),
                           event.button(), event.buttons(), event.modifiers());
    QCoreApplication::sendEvent(&widget, &redirected);
}

/// Sets the platform, which Qt reads when the application is created. Returns its argument.
int& ForScreen(Screen screen, int& argc) {
    if (screen == Screen::None) qputenv("QT_QPA_PLATFORM", "offscreen");
    return argc;
}

/// Blocks input to disabled top-level windows and redirects mouse events to the captor.
class InputFilter final : public QObject {
  public:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (!watched->isWidgetType() || !IsInput(event->type())) return false;
        if (QtWindow::IsBlocked(static_cast<QWidget&>(*watched))) {
            event->setAccepted(event->type() == QEvent::ShortcutOverride);
            return true;
        }
        QWidget* const captor = QtWindow::Captor();
        if (captor == nullptr || captor == watched || !IsMouse(event->type())) return false;
        Redirect(static_cast<QMouseEvent&>(*event), *captor);
        return true;
    }
};

}  // namespace

class QtBackend::Impl final : public detail::Backend {
  public:
    Impl(int& argc, char** argv, Screen screen) : application_(ForScreen(screen, argc), argv) {
        QApplication::setQuitOnLastWindowClosed(false);
        // Windows are laid out from the left in every language.
        QApplication::setLayoutDirection(Qt::LeftToRight);
        application_.installEventFilter(&filter_);
        QtLoop::Instance().Start();
        detail::InstallLoopDriver(&QtLoop::Instance());
        detail::InstallBackend(this);
        boxesBefore_ = SetBoxHandler(&ShowBox);
    }
    Impl(Impl const&) = delete;
    Impl& operator=(Impl const&) = delete;
    ~Impl() override {
        SetBoxHandler(std::move(boxesBefore_));
        detail::InstallBackend(nullptr);
        detail::InstallLoopDriver(nullptr);
        QtLoop::Instance().Stop();
    }

    std::unique_ptr<detail::WindowPeer> MakeWindow(Window& window, detail::WindowKind kind,
                                                   detail::WindowPeer* parent) override {
        QWidget* const below = parent == nullptr ? nullptr : &static_cast<QtWindow*>(parent)->Widget();
        if (auto control = MakeControl(window, kind, below)) return control;
        return MakeArea(window, kind, below);
    }
    std::unique_ptr<detail::PrinterPeer> MakePrinter(String const& name) override {
        return MakeQtPrinter(name);
    }
    std::unique_ptr<detail::Canvas> MakeSurface(Size size) override {
        return std::make_unique<QtSurface>(size);
    }
    void SetLanguage(String const& code) override {
        QApplication::removeTranslator(&translator_);
        if (translator_.load("qtbase_" + ToQt(code), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
            QApplication::installTranslator(&translator_);
    }
    [[nodiscard]] bool HasDisplay() const noexcept override { return true; }
    [[nodiscard]] Size ScreenSize() const override {
        QSize const size = QApplication::primaryScreen()->size();
        return {size.width(), size.height()};
    }
    [[nodiscard]] Point PointerPosition() const override {
        QPoint const place = QCursor::pos();
        return {place.x(), place.y()};
    }
    [[nodiscard]] std::optional<FileAnswer> AskForFile(Window* parent,
                                                       FileQuestion const& question) override {
        return ShowFileDialog(parent, question);
    }

  private:
    QApplication application_;
    InputFilter filter_;
    QTranslator translator_;
    BoxHandler boxesBefore_;
};

QtBackend::QtBackend(int& argc, char** argv, Screen screen)
    : impl_(std::make_unique<Impl>(argc, argv, screen)) {}
QtBackend::~QtBackend() = default;

}  // namespace sv::qt
