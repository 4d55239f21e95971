#include "SV/qt/QtBoxes.h"

#include "SV/core/Application.h"
#include "SV/qt/QtText.h"
#include "SV/qt/QtWindow.h"

#include <QApplication>
#include <QMessageBox>

namespace sv::qt {

namespace {

QMessageBox::StandardButtons ButtonsOf(MessBox const& box) {
    if ((box.GetStyle() & WB_YES_NO) != 0) return QMessageBox::Yes | QMessageBox::No;
    if ((box.GetStyle() & WB_OK_CANCEL) != 0) return QMessageBox::Ok | QMessageBox::Cancel;
    return QMessageBox::Ok;
}

QMessageBox::StandardButton ButtonOf(BoxAnswer answer) {
    switch (answer) {
        case BoxAnswer::Yes:
            return QMessageBox::Yes;
        case BoxAnswer::No:
            return QMessageBox::No;
        case BoxAnswer::Cancel:
            return QMessageBox::Cancel;
        case BoxAnswer::Ok:
            break;
    }
    return QMessageBox::Ok;
}

QMessageBox::Icon IconOf(MessBox const& box) {
    if (box.GetKind() == BoxKind::Error) return QMessageBox::Warning;
    return (box.GetStyle() & WB_YES_NO) != 0 ? QMessageBox::Question : QMessageBox::Information;
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
    shown.setDefaultButton(ButtonOf(box.DefaultAnswer()));
    shown.setWindowModality(Qt::ApplicationModal);
    shown.show();
    while (shown.isVisible()) Application::Reschedule();
    for (BoxAnswer const answer : {BoxAnswer::Ok, BoxAnswer::Yes, BoxAnswer::No}) {
        if (shown.standardButton(shown.clickedButton()) == ButtonOf(answer)) return answer;
    }
    return (box.GetStyle() & WB_OK_CANCEL) != 0 ? BoxAnswer::Cancel : box.DefaultAnswer();
}

}  // namespace sv::qt
