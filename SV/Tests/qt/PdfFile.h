// A PDF file as the programs of poppler read it.
#pragma once

#include <gtest/gtest.h>

#include <QFile>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QString>
#include <QStringList>

namespace sv::qt::tests {

/// Runs a program, which must succeed, and returns its output.
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
    /// The words in the order of the file.
    [[nodiscard]] QStringList Words() const {
        return OutputOf("pdftotext", {"-raw", path_, "-"})
            .split(QRegularExpression("\\s+"), Qt::SkipEmptyParts);
    }
    /// The left or right edge of a word on its page, in points; -1 if the word is not found.
    [[nodiscard]] double LeftOf(QString const& word) const { return EdgeOf(word, "xMin"); }
    [[nodiscard]] double RightOf(QString const& word) const { return EdgeOf(word, "xMax"); }
    /// The first page with a pixel per tenth of a millimetre.
    [[nodiscard]] QImage Picture() const {
        static_cast<void>(OutputOf("pdftoppm", {"-r", "254", "-png", "-singlefile", path_, path_}));
        return QImage(path_ + ".png");
    }
    /// The fonts that are not embedded as subsets with a map to Unicode.
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
    [[nodiscard]] double EdgeOf(QString const& word, char const* edge) const {
        QRegularExpression const entry(edge + QString("=\"([0-9.]+)\"[^>]*>") +
                                       QRegularExpression::escape(word) + "<");
        auto const match = entry.match(OutputOf("pdftotext", {"-bbox", path_, "-"}));
        return match.hasMatch() ? match.captured(1).toDouble() : -1;
    }

    QString path_;
};

}  // namespace sv::qt::tests
