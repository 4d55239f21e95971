#include "SV/Tests/qt/PdfFile.h"
#include "SV/ui/Printer.h"

#include <QDir>
#include <QTemporaryDir>
#include <cstdlib>

namespace sv::qt::tests {
namespace {

constexpr Color Red(0xFFFF, 0, 0);
constexpr double PointsPerTenth = 72.0 / 254.0;
/// Files have coordinates of at least hundredths of a point.
constexpr double WritingTolerance = 0.02;

class QtPrinterTest : public testing::Test {
  protected:
    [[nodiscard]] String PathOf(char const* name) const { return directory.filePath(name).toStdString(); }

    QTemporaryDir directory;
};

void DrawSample(Printer& printer) {
    printer.ChangeMapMode(MapMode(MapUnit::TenthMillimetre));
    printer.ChangeFont(Font(40));
    printer.DrawText({150, 200}, "Messstreifen");
    printer.DrawText({733, 200}, "Wei\xDF");
    String const number = "IlMW-1,234.56";
    printer.DrawText({1000 - printer.GetTextSize(number).Width(), 250}, number);
    printer.ChangeFillInBrush(Brush(Red));
    printer.ChangePen(Pen(Red, 1, PenStyle::None));
    printer.DrawRect({{301, 503}, {400, 552}});
    printer.ChangePen(Pen());
    printer.DrawLine({150, 1000}, {1900, 1000});
}

TEST_F(QtPrinterTest, PrintsIntoAFile) {
    Printer printer(PathOf("report.pdf"));
    printer.SetDocument({"Bericht \xFC\x62\x65r <A & B>", "Ada", "de"});
    ASSERT_TRUE(printer.StartJob({}));
    ASSERT_TRUE(printer.StartPage());
    DrawSample(printer);
    printer.EndPage();
    ASSERT_TRUE(printer.StartPage());
    printer.DrawText({150, 200}, "zwei");
    ASSERT_TRUE(printer.EndJob());
    EXPECT_EQ(QDir(directory.path()).entryList(QDir::Files), QStringList("report.pdf")) << "and nothing else";

    PdfFile const file(directory.filePath("report.pdf"));
    EXPECT_EQ(file.Info("Title"), "Bericht über <A & B>");
    EXPECT_EQ(file.Info("Author"), "Ada");
    EXPECT_EQ(file.Info("Pages"), "2");
    EXPECT_EQ(file.Info("PDF subtype"), "PDF/A-1b:2005");
    EXPECT_EQ(file.Info("Page size"), "595.276 x 841.89 pts (A4)");
    EXPECT_TRUE(file.Bytes().contains("/Lang (de)"));
    EXPECT_EQ(file.IncompleteFonts(), QStringList());
    EXPECT_EQ(file.Words(), QStringList({"Messstreifen", "Weiß", "IlMW-1,234.56", "zwei"}));
    EXPECT_NEAR(file.LeftOf("Messstreifen"), 150 * PointsPerTenth, WritingTolerance);
    EXPECT_NEAR(file.LeftOf("Weiß"), 733 * PointsPerTenth, WritingTolerance);
    EXPECT_NEAR(file.RightOf("IlMW-1,234.56"), 1000 * PointsPerTenth, PointsPerTenth)
        << "measured, rounded up";

    // Archives require that both descriptions agree.
    QString const metadata = OutputOf("pdfinfo", {"-meta", directory.filePath("report.pdf")});
    for (char const* const part : {"Bericht über &lt;A &amp; B&gt;", ">Ada<", ">de<", "<pdfaid:part>1<"})
        EXPECT_TRUE(metadata.contains(part)) << part << '\n' << metadata.toStdString();

    QImage const picture = file.Picture();
    EXPECT_LE(std::abs(picture.width() - 2100) + std::abs(picture.height() - 2970), 2) << "rounded up";
    auto const isRed = [&](int x, int y) { return picture.pixelColor(x, y) == QColor(Qt::red); };
    EXPECT_TRUE(isRed(301, 503) && isRed(399, 551)) << "both corners";
    EXPECT_FALSE(isRed(300, 503) || isRed(301, 502) || isRed(401, 552)) << "and nothing beyond";
    EXPECT_LT(picture.pixelColor(150, 1000).lightness(), 60) << "a line of a tenth of a millimetre";
    EXPECT_GT(picture.pixelColor(150, 1002).lightness(), 250);
}

TEST_F(QtPrinterTest, PageSizesReachTheFile) {
    struct Row {
        Size paper;
        Orientation orientation;
        char const* size;
    };
    static constexpr Row rows[] = {
        {{2100, 2970}, Orientation::Landscape, "841.89 x 595.276 pts (A4)"},
        {{1000, 500}, Orientation::Portrait, "283.465 x 141.732 pts"},
    };
    for (Row const& row : rows) {
        Printer printer(PathOf("sized.PDF"));
        printer.ChangePaperSize(row.paper);
        printer.ChangeOrientation(row.orientation);
        ASSERT_TRUE(printer.StartJob({}) && printer.StartPage());
        DrawSample(printer);
        ASSERT_TRUE(printer.EndJob());
        PdfFile const file(directory.filePath("sized.PDF"));
        EXPECT_TRUE(file.Info("Page size").startsWith(row.size)) << file.Info("Page size").toStdString();
    }
}

TEST_F(QtPrinterTest, KeepsTheOldFileUntilTheNewOneIsWhole) {
    QString const path = directory.filePath("kept.pdf");
    QFile old(path);
    ASSERT_TRUE(old.open(QIODevice::WriteOnly) && old.write("old") == 3);
    old.close();
    {
        Printer printer(path.toStdString());
        ASSERT_TRUE(printer.StartJob({}) && printer.StartPage());
        DrawSample(printer);
        printer.AbortJob();
        EXPECT_EQ(PdfFile(path).Bytes(), "old");
        ASSERT_TRUE(printer.StartJob({}) && printer.StartPage());
        EXPECT_EQ(PdfFile(path).Bytes(), "old") << "while the job runs";
        ASSERT_TRUE(printer.EndJob());
        EXPECT_EQ(PdfFile(path).Info("Pages"), "1");
    }
    EXPECT_EQ(QDir(directory.path()).entryList(QDir::Files), QStringList("kept.pdf"));

    EXPECT_FALSE(Printer(PathOf("no/such/folder.pdf")).StartJob({}));
    ASSERT_TRUE(QDir(directory.path()).mkdir("folder.pdf"));
    EXPECT_FALSE(Printer(PathOf("folder.pdf")).StartJob({})) << "not a regular file";

    // A failure during the job is reported at its end.
    ASSERT_TRUE(QDir(directory.path()).mkdir("gone"));
    Printer printer(PathOf("gone/late.pdf"));
    ASSERT_TRUE(printer.StartJob({}) && printer.StartPage());
    ASSERT_TRUE(QDir(directory.path()).rmdir("gone"));
    EXPECT_FALSE(printer.EndJob());
    EXPECT_TRUE(printer.HasFailed());
}

}  // namespace
}  // namespace sv::qt::tests
