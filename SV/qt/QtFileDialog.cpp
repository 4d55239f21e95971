#include "SV/qt/QtFileDialog.h"

#include "SV/core/Application.h"
#include "SV/core/Boxes.h"
#include "SV/core/NativePath.h"
#include "SV/qt/QtText.h"
#include "SV/qt/QtWindow.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <string>

namespace sv::qt {

namespace {

QString FromNative(String const& path) { return QString::fromStdString(NativePath(path)); }

/// Returns none if the name would not convert back to itself.
std::optional<String> ToNative(QString const& path) {
    std::string const name = path.toStdString();
    String kept = FromNativePath(name);
    if (NativePath(kept) != name) return std::nullopt;
    return kept;
}

QStringList NamesOf(std::vector<FileFilter> const& filters) {
    QStringList names;
    // A bracket in a name would be taken for that of the pattern.
    for (FileFilter const& filter : filters)
        names += ToQt(filter.name).replace('(', '[').replace(')', ']') + " (" +
                 ToQt(filter.pattern).replace("*.*", "*") + ')';
    return names;
}

void SetUp(QFileDialog& dialog, FileQuestion const& question) {
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    dialog.setOption(QFileDialog::ShowDirsOnly, question.purpose == FilePurpose::Folder);
    dialog.setAcceptMode(question.purpose == FilePurpose::Save ? QFileDialog::AcceptSave
                                                               : QFileDialog::AcceptOpen);
    switch (question.purpose) {
        case FilePurpose::Open:
            dialog.setFileMode(QFileDialog::ExistingFile);
            break;
        case FilePurpose::Save:
            dialog.setFileMode(QFileDialog::AnyFile);
            break;
        case FilePurpose::Folder:
            dialog.setFileMode(QFileDialog::Directory);
            break;
    }
    if (!question.filters.empty()) dialog.setNameFilters(NamesOf(question.filters));
    if (question.start.IsEmpty()) return;
    QFileInfo const start(FromNative(question.start));
    dialog.setDirectory(start.isDir() ? start.absoluteFilePath() : start.absolutePath());
    if (!start.isDir()) dialog.selectFile(start.fileName());
}

QWidget* Below(Window const* parent) {
    if (QWidget* const active = QApplication::activeWindow()) return active;
    Window const* const window = parent != nullptr ? parent : Application::GetAppWindow();
    return window == nullptr ? nullptr : QtWindow::Of(*window).Widget().window();
}

}  // namespace

std::optional<FileAnswer> ShowFileDialog(Window* parent, FileQuestion const& question) {
    QWidget* const below = Below(parent);
    QFileDialog dialog(below != nullptr && below->isVisible() ? below : nullptr, ToQt(question.title));
    SetUp(dialog, question);
    dialog.setWindowModality(Qt::ApplicationModal);
    for (;;) {
        dialog.show();
        while (dialog.isVisible()) Application::Reschedule();
        if (dialog.result() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
        QString const path = dialog.selectedFiles().first();
        qsizetype const filter = dialog.nameFilters().indexOf(dialog.selectedNameFilter());
        if (std::optional<String> const kept = ToNative(path))
            return FileAnswer{.path = *kept,
                              .filter = static_cast<std::size_t>(std::max<qsizetype>(filter, 0))};
        ErrorBox(
            parent, WB_OK,
            FromQt(path) + "\nThis name has characters that the program cannot write. Please choose another.")
            .Execute();
    }
}

}  // namespace sv::qt
