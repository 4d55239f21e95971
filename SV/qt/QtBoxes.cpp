#include "SV/qt/QtBoxes.h"

#include "SV/core/Application.h"
#include "SV/qt/QtText.h"
#include "SV/qt/QtWindow.h"

#include <QApplication>
#include <QMessageBox>

namespace sv::qt {

namespace {

bool AsksToSave(MessBox const& box) { return (box.GetStyle() & WB_SAVE_DISCARD_CANCEL) != 0; }

QMessageBox::StandardButtons ButtonsOf(MessBox const& box) {
    if (AsksToSave(box)) return QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel;
    if ((box.GetStyle() & WB_YES_NO) != 0) return QMessageBox::Yes | QMessageBox::No;
    if ((box.GetStyle() & WB_OK_CANCEL) != 0) return QMessageBox::Ok | QMessageBox::Cancel;
    return QMessageBox::Ok;
}

QMessageBox::StandardButton ButtonOf(MessBox const& box, BoxAnswer answer) {
    switch (answer) {
        case BoxAnswer::Yes:
            return AsksToSave(box) ? QMessageBox::Save : QMessageBox::Yes;
        case BoxAnswer::No:
            return AsksToSave(box) ? QMessageBox::Discard : QMessageBox::No;
        case BoxAnswer::Cancel:
            return QMessageBox::Cancel;
        case BoxAnswer::Ok:
            break;
    }
    return QMessageBox::Ok;
}

QMessageBox::Icon IconOf(MessBox const& box) {
    if (box.GetKind() == BoxKind::Error) return QMessageBox::Warning;
    return (box.GetStyle() & (WB_YES_NO | WB_SAVE_DISCARD_CANCEL)) != 0 ? QMessageBox::Question
                                                                        : QMessageBox::Information;
}

QWidget* Below(MessBox const& box) {
    if (QWidget* const active = QApplication::activeWindow()) return active;
    Window const* const window = box.GetParent() != nullptr ? box.GetParent() : Application::GetAppWindow();
    return window == nullptr ? nullptr : QtWindow::Of(*window).Widget().window();
}

}  // namespace

BoxAnswer ShowBox(MessBox const& box) {
    QWidget* const below = Below(box);
    QMessageBox shown(below != nullptr && below->isVisible() ? below : nullptr);
    shown.setIcon(IconOf(box));
    shown.setTextFormat(Qt::PlainText);
    shown.setText(ToQt(box.GetText()));
    shown.setWindowTitle(box.GetTitle().IsEmpty() ? QApplication::applicationDisplayName()
                                                  : ToQt(box.GetTitle()));
    shown.setStandardButtons(ButtonsOf(box));
    shown.setDefaultButton(AsksToSave(box) ? QMessageBox::Save : ButtonOf(box, box.DefaultAnswer()));
    shown.setWindowModality(Qt::ApplicationModal);
    shown.show();
    while (shown.isVisible()) Application::Reschedule();
    for (BoxAnswer const answer : {BoxAnswer::Ok, BoxAnswer::Yes, BoxAnswer::No}) {
        if (shown.standardButton(shown.clickedButton()) == ButtonOf(box, answer)) return answer;
    }
    return (box.GetStyle() & WB_OK_CANCEL) != 0 ? BoxAnswer::Cancel : box.DefaultAnswer();
}

}  // namespace sv::qt
