// The menu bar at the top of a window.
#include "SV/qt/QtText.h"
#include "SV/qt/QtWindow.h"

#include <QAction>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <vector>

namespace sv::qt {

namespace {

class QtMenuBar final : public QtWindow {
  public:
    QtMenuBar(Window& window, QWidget* parent) : QtWindow(window, std::make_unique<QMenuBar>(parent)) {
        // Shown inside the window on every desktop.
        Bar().setNativeMenuBar(false);
    }

    void InsertMenu(String const& title) override { menu_ = Bar().addMenu(ToQtWithMnemonic(title)); }

    void InsertMenuItem(String const& text, String const& shortcut) override {
        if (menu_ == nullptr) return;
        if (text.IsEmpty()) {
            actions_.push_back(menu_->addSeparator());
            return;
        }
        QAction* const action = menu_->addAction(ToQtWithMnemonic(text));
        // The names of keys are the same in every language.
        action->setShortcut(QKeySequence::fromString(ToQt(shortcut), QKeySequence::PortableText));
        auto const place = static_cast<int>(actions_.size());
        connect(action, &QAction::triggered, this, [this, action, place](bool checked) {
            // The program alone changes the check mark.
            if (action->isCheckable()) action->setChecked(!checked);
            Call([this, place] { GetWindow().EntryWasSelected(place); });
        });
        actions_.push_back(action);
    }

    void EnableMenuItem(int item, bool enabled) override { ActionAt(item).setEnabled(enabled); }

    void CheckMenuItem(int item, bool checked) override {
        ActionAt(item).setCheckable(true);
        ActionAt(item).setChecked(checked);
    }

  private:
    [[nodiscard]] QMenuBar& Bar() const { return static_cast<QMenuBar&>(Widget()); }
    [[nodiscard]] QAction& ActionAt(int item) const { return *actions_.at(static_cast<std::size_t>(item)); }

    QMenu* menu_ = nullptr;  // the last one; the bar owns the menus, and each menu its actions
    std::vector<QAction*> actions_;
};

}  // namespace

std::unique_ptr<QtWindow> MakeMenuBar(Window& window, QWidget* parent) {
    return std::make_unique<QtMenuBar>(window, parent);
}

}  // namespace sv::qt
