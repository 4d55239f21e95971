// The controls that Qt draws.
#include "SV/core/Mnemonic.h"
#include "SV/qt/QtText.h"
#include "SV/qt/QtWindow.h"
#include "SV/ui/Styles.h"

#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <algorithm>
#include <span>
#include <utility>
#include <vector>

namespace sv::qt {

namespace {

using detail::WindowKind;

/// Qt's value for no limit.
constexpr int NoLimit = 32767;

/// Counts the notches of a wheel, which reports fractions of a notch.
class WheelNotches {
  public:
    /// Returns the whole notches since the last call; up is positive.
    int Take(QWheelEvent const& event) {
        turned_ += event.angleDelta().y();
        int const notches = turned_ / QWheelEvent::DefaultDeltasPerStep;
        turned_ %= QWheelEvent::DefaultDeltasPerStep;
        return notches;
    }

  private:
    int turned_ = 0;
};

/// A control with a typed widget.
template <class Type>
class QtControl : public QtWindow {
  public:
    QtControl(Window& window, QWidget* parent) : QtWindow(window, std::make_unique<Type>(parent)) {}

  protected:
    [[nodiscard]] Type& Control() const { return static_cast<Type&>(Widget()); }
    /// Reports steps to the window. Each report may destroy this object.
    void Spin(int steps) {
        QPointer<QObject> const self = this;
        for (; steps != 0 && self != nullptr; steps -= steps > 0 ? 1 : -1)
            Call([this, steps] { GetWindow().WasSpun(steps > 0); });
    }
    /// On a background that the program paints, text has the program's colour, and so has the text's own
    /// background.
    void UpdateColors() {
        QPalette palette;
        palette.setColor(QPalette::WindowText, ToQt(GetWindow().GetFont().GetColor()));
        Brush const& background = GetWindow().GetBackgroundBrush();
        bool const hasBackground = background != Brush() && background.GetStyle() != BrushStyle::None;
        if (hasBackground) palette.setColor(QPalette::Window, ToQt(background.GetColor()));
        QColor const quiet = palette.color(QPalette::Disabled, QPalette::Mid);
        palette.setColor(QPalette::Disabled, QPalette::WindowText, quiet);
        if (palette == taken_) return;
        taken_ = palette;
        Control().setAutoFillBackground(hasBackground);
        Control().setPalette(palette);
    }

  private:
    QPalette taken_;
};

class QtEdit final : public QtControl<QLineEdit> {
  public:
    QtEdit(Window& window, QWidget* parent) : QtControl(window, parent) {
        connect(&Control(), &QLineEdit::textEdited, this, [this](QString const& text) { Take(text); });
    }

    void SetText(String const& text) override {
        UpdateLook();
        if (FromQt(Control().text()) != text) Control().setText(ToQt(text));
    }
    void SetMaxTextLen(unsigned short length) override {
        Control().setMaxLength(length == 0 ? NoLimit : length);
    }
    void SetReadOnly(bool readOnly) override { Control().setReadOnly(readOnly); }

  protected:
    bool Handle(QEvent& event) override {
        bool const isWheel = event.type() == QEvent::Wheel;
        // A disabled field also receives wheel events.
        if (isWheel && Control().isEnabled() && !Control().isReadOnly())
            Spin(wheel_.Take(static_cast<QWheelEvent&>(event)));
        if (isWheel) return true;
        if (event.type() != QEvent::KeyPress || Control().isReadOnly()) return QtWindow::Handle(event);
        int const key = static_cast<QKeyEvent&>(event).key();
        if (key != Qt::Key_Up && key != Qt::Key_Down) return false;
        Spin(key == Qt::Key_Up ? 1 : -1);
        return true;
    }

  private:
    /// Replaces at once what the code page lacks.
    void Take(QString const& text) {
        String const kept = FromQt(text);
        if (QString const shown = ToQt(kept); shown != text) {
            int const place = Control().cursorPosition();
            Control().setText(shown);
            Control().setCursorPosition(place);
        }
        Call([this, &kept] { GetWindow().TextHasChanged(kept); });
    }

    WheelNotches wheel_;
};

class QtSpinButton final : public QtControl<QWidget> {
  public:
    QtSpinButton(Window& window, QWidget* parent) : QtControl(window, parent) {
        auto layout = std::make_unique<QVBoxLayout>();
        layout->setContentsMargins(0, 0, 0, 0);
        layout->setSpacing(0);
        for (bool const up : {true, false}) layout->addWidget(MakeArrow(up).release());
        Control().setLayout(layout.release());
    }

  protected:
    bool Handle(QEvent& event) override {
        if (event.type() != QEvent::Wheel) return QtWindow::Handle(event);
        if (Control().isEnabled()) Spin(wheel_.Take(static_cast<QWheelEvent&>(event)));
        return true;
    }

  private:
    [[nodiscard]] std::unique_ptr<QToolButton> MakeArrow(bool up) {
        auto arrow = std::make_unique<QToolButton>();
        arrow->setArrowType(up ? Qt::UpArrow : Qt::DownArrow);
        arrow->setAccessibleName(up ? "+" : "-");
        arrow->setAutoRepeat(true);
        arrow->setFocusPolicy(Qt::NoFocus);
        arrow->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
        connect(arrow.get(), &QToolButton::clicked, this, [this, up] { Spin(up ? 1 : -1); });
        return arrow;
    }

    WheelNotches wheel_;
};

class QtFixedText final : public QtControl<QLabel> {
  public:
    QtFixedText(Window& window, QWidget* parent) : QtControl(window, parent) {
        Control().setTextFormat(Qt::PlainText);
        bool const isRight = (window.GetStyle() & StyleBitRight) != 0;
        Control().setAlignment((isRight ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    }

    void SetText(String const& text) override {
        text_ = text;
        UpdateLook();
    }

  protected:
    void UpdateLook() override {
        QtWindow::UpdateLook();
        UpdateColors();
        UpdateText();
    }

  private:
    /// The mnemonic and the text as an accessible name go to the next control, which may be created later.
    void UpdateText() {
        bool const hasLetter = FindMnemonic(text_) != String::NotFound;
        QWidget* const next = hasLetter ? NextControl() : nullptr;
        if (Control().buddy() != next) Control().setBuddy(next);
        QString const shown = next != nullptr ? ToQtWithMnemonic(text_) : ToQt(WithoutMnemonic(text_));
        if (Control().text() != shown) Control().setText(shown);
    }

    /// Returns the first control after this one that takes the keyboard; null if there is none.
    [[nodiscard]] QWidget* NextControl() const {
        if (GetWindow().GetParent() == nullptr) return nullptr;
        std::span<Window* const> const all = GetWindow().GetParent()->GetChildren();
        auto const isNext = [](Window const* other) {
            return (QtWindow::Of(*other).Widget().focusPolicy() & Qt::TabFocus) != 0;
        };
        auto const next = std::find_if(std::ranges::find(all, &GetWindow()), all.end(), isNext);
        return next == all.end() ? nullptr : &QtWindow::Of(**next).Widget();
    }

    String text_;
};

template <class Type>
class QtButton : public QtControl<Type> {
  public:
    QtButton(Window& window, QWidget* parent) : QtControl<Type>(window, parent) {
        QObject::connect(&this->Control(), &QAbstractButton::clicked, this,
                         [this] { this->Call([this] { this->GetWindow().WasClicked(); }); });
    }

    void SetText(String const& text) override {
        this->UpdateLook();
        this->Control().setText(ToQtWithMnemonic(text));
    }

  protected:
    bool Handle(QEvent& event) override {
        if (!IsReturn(event)) return QtWindow::Handle(event);
        this->Control().click();
        return true;
    }
};

class QtCheckBox final : public QtButton<QCheckBox> {
  public:
    using QtButton::QtButton;

    void SetChecked(bool checked) override { Control().setChecked(checked); }

  protected:
    void UpdateLook() override {
        QtWindow::UpdateLook();
        UpdateColors();
    }
};

class QtListBox final : public QtControl<QListWidget> {
  public:
    QtListBox(Window& window, QWidget* parent) : QtControl(window, parent) {
        Control().setUniformItemSizes(true);
        connect(&Control(), &QListWidget::itemSelectionChanged, this, [this] {
            QList<QListWidgetItem*> const selected = Control().selectedItems();
            if (selected.isEmpty()) return;
            int const place = Control().row(selected.first());
            Call([this, place] { GetWindow().EntryWasSelected(place); });
        });
    }

    void InsertEntry(String const& entry, int position) override {
        QSignalBlocker const quiet(Control());
        UpdateLook();
        Control().insertItem(position, ToQt(entry));
        if (position <= lastSelected_) ++lastSelected_;
    }
    void ClearEntries() override {
        QSignalBlocker const quiet(Control());
        Control().clear();
        lastSelected_ = -1;
    }
    void SelectEntry(int position) override {
        QSignalBlocker const quiet(Control());
        if (position < 0) {
            Control().clearSelection();
            return;
        }
        Control().setCurrentRow(position);
        lastSelected_ = position;
        ScrollTo(position);
    }

  protected:
    bool Handle(QEvent& event) override {
        // A hidden list does not scroll.
        if (event.type() == QEvent::Show) ScrollTo(lastSelected_);
        return QtWindow::Handle(event);
    }

  private:
    void ScrollTo(int row) {
        if (QListWidgetItem* const item = Control().item(row)) Control().scrollToItem(item);
    }

    int lastSelected_ = -1;
};

class QtDropDown final : public QtControl<QComboBox> {
  public:
    QtDropDown(Window& window, QWidget* parent) : QtControl(window, parent) {
        connect(&Control(), &QComboBox::activated, this, [this](int place) {
            if (std::exchange(selected_, place) == place) return;
            Call([this, place] { GetWindow().EntryWasSelected(place); });
        });
    }

    // Without this, Qt selects the first entry.
    void InsertEntry(String const& entry, int position) override {
        UpdateLook();
        Control().insertItem(position, ToQt(entry));
        SelectEntry(position <= selected_ ? selected_ + 1 : selected_);
    }
    void ClearEntries() override {
        Control().clear();
        selected_ = -1;
    }
    void SelectEntry(int position) override {
        selected_ = position;
        Control().setCurrentIndex(position);
    }

  private:
    int selected_ = -1;
};

}  // namespace

bool IsReturn(QEvent const& event) {
    if (event.type() != QEvent::KeyPress) return false;
    int const key = static_cast<QKeyEvent const&>(event).key();
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

std::unique_ptr<QtWindow> MakeControl(Window& window, WindowKind kind, QWidget* parent) {
    switch (kind) {
        case WindowKind::Edit:
            return std::make_unique<QtEdit>(window, parent);
        case WindowKind::SpinButton:
            return std::make_unique<QtSpinButton>(window, parent);
        case WindowKind::FixedText:
            return std::make_unique<QtFixedText>(window, parent);
        case WindowKind::PushButton:
            return std::make_unique<QtButton<QPushButton>>(window, parent);
        case WindowKind::CheckBox:
            return std::make_unique<QtCheckBox>(window, parent);
        case WindowKind::ListBox:
            return std::make_unique<QtListBox>(window, parent);
        case WindowKind::DropDown:
            return std::make_unique<QtDropDown>(window, parent);
        case WindowKind::Table:
            return MakeTable(window, parent);
        case WindowKind::MenuBar:
            return MakeMenuBar(window, parent);
        case WindowKind::Area:
        case WindowKind::Dialog:
        case WindowKind::DrawnButton:
            break;
    }
    return nullptr;
}

}  // namespace sv::qt
