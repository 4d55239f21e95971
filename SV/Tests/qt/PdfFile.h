// What other programs read out of a PDF file: those of poppler.
#pragma once

#include <gtest/gtest.h>

#include <QFile>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QString>
#include <QStringList>

namespace sv::qt::tests {

/// What the program prints; it has to end well.
[[nodiscard]] inline QString OutputOf(QString const& program, QStringList const& arguments) {
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished() && process.exitStatus() == QProcess::NormalExit &&
                process.exitCode() == 0)
        << program.toStdString() << ' ' << arguments.join(' ').toStdString() << '\n'
        << process.readAllStandardError().toStdString();
    return QString::fromUtf8(process.readAllStandardOutput());
}

class PdfFile {
  public:
    explicit PdfFile(QString path) : path_(std::move(path)) {}

    [[nodiscard]] bool Exists() const { return QFile::exists(path_); }
    [[nodiscard]] QByteArray Bytes() const {
        QFile file(path_);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path_.toStdString();
        return file.readAll();
    }
    /// A value of pdfinfo.
    [[nodiscard]] QString Info(QString const& key) const {
        QRegularExpression const line("^" + QRegularExpression::escape(key) + ": +(.*)$",
                                      QRegularExpression::MultilineOption);
        return line.match(OutputOf("pdfinfo", {path_})).captured(1).trimmed();
    }
    /// The words in the order that they stand in the file.
    [[nodiscard]] QStringList Words() const {
        return OutputOf("pdftotext", {"-raw", path_, "-"})
            .split(QRegularExpression("\\s+"), Qt::SkipEmptyParts);
    }
    /// How far a word begins from the left edge of its page, in points; negative where it is not found.
    [[nodiscard]] double LeftOf(QString const& word) const {
        QRegularExpression const entry("xMin=\"([0-9.]+)\"[^>]*>" + QRegularExpression::escape(word) + "<");
        auto const match = entry.match(OutputOf("pdftotext", {"-bbox", path_, "-"}));
        return match.hasMatch() ? match.captured(1).toDouble() : -1;
    }
    /// The first page, a pixel for each tenth of a millimetre.
    [[nodiscard]] QImage Picture() const {
        static_cast<void>(OutputOf("pdftoppm", {"-r", "254", "-png", "-singlefile", path_, path_}));
        return QImage(path_ + ".png");
    }
    /// Of those that are not in the file, in part and with the characters that their shapes stand for.
    [[nodiscard]] QStringList IncompleteFonts() const {
        static QRegularExpression const complete(" yes +yes +yes ");
        QStringList const lines = OutputOf("pdffonts", {path_}).split('\n', Qt::SkipEmptyParts).mid(2);
        EXPECT_FALSE(lines.isEmpty()) << "no font at all";
        QStringList incomplete;
        for (QString const& line : lines)
            if (!line.contains(complete)) incomplete += line;
        return incomplete;
    }

  private:
    QString path_;
};

}  // namespace sv::qt::tests
