// Reports through a real queue.
#include "KVUtils/Source/frame/APPSETTI.h"
#include "KVUtils/Source/frame/Text.h"
#include "KVUtils/Source/printing/MyPrinter.h"
#include "KVUtils/Tests/printing/queue/PrintServer.h"
#include "SV/Tests/qt/PdfFile.h"
#include "SV/core/Application.h"
#include "SV/core/Boxes.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace kv::test {
namespace {

using sv::qt::tests::PdfFile;

/// Turns the loop until the condition holds; false when it did not within ten seconds.
template <class Condition>
bool RunUntil(Condition const& condition) {
    for (int turn = 0; turn < 2000; ++turn) {
        if (condition()) return true;
        sv::Application::Reschedule();
        QTest::qSleep(5);
    }
    return condition();
}

class QueueTest : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        if (PrintServer::Program().isEmpty()) return;
        server = new PrintServer;
        ASSERT_TRUE(RunUntil([] { return server->IsReady(); })) << server->Log().toStdString();
    }
    static void TearDownTestSuite() { delete std::exchange(server, nullptr); }

    void SetUp() override {
        if (server == nullptr) GTEST_SKIP() << "no print server here (cupsd)";
        Text::LoadText(KV_TEXTS "/colourdesk", 1);
        sv::SetBoxHandler([this](sv::MessBox const& box) {
            boxes.emplace_back(box.GetText().View());
            return box.DefaultAnswer();
        });
    }
    void TearDown() override {
        if (MyPrinter* const printer = MyPrinter::Instance()) {
            KVSingleton::Remove(printer);
            delete printer;
        }
        Text::FreeResources();
        sv::SetBoxHandler({});
    }

    static MyPrinter& PrinterFor(sv::String const& queue) {
        MyPrinter* const printer = MyPrinter::CreateMyPrinter(queue);
        printer->SetDocument({"Report of the day", "Ada", "en"});
        return *printer;
    }

    static inline PrintServer* server = nullptr;
    std::vector<std::string> boxes;
};

TEST_F(QueueTest, PagesArriveWithTheirPaper) {
    struct Row {
        sv::Size paper;
        sv::Orientation orientation;
        char const* media;
        char const* turned;
        char const* size;
    };
    static constexpr Row rows[] = {
        {{2100, 2970}, sv::Orientation::Portrait, "media=iso_a4_210x297mm", "", "595.276 x 841.89 pts (A4)"},
        {{1480, 2100},
         sv::Orientation::Landscape,
         "media=iso_a5_148x210mm",
         "orientation-requested=4",
         "595.276 x 419.528 pts"},
    };
    for (Row const& row : rows) {
        MyPrinter& printer = PrinterFor("Office");
        printer.ChangePaperSize(row.paper);
        printer.ChangeOrientation(row.orientation);
        int const job = server->JobCount() + 1;
        ASSERT_EQ(printer.Start(0), 1);
        printer.WriteString("first", 0);
        printer.NewPage();
        printer.WriteString("second", 0);
        printer.End();
        EXPECT_FALSE(printer.HasFailed());
        EXPECT_FALSE(printer.IsPrinting() || printer.IsSpooling());
        ASSERT_TRUE(RunUntil([&] { return QFile::exists(server->Pages(job)); }))
            << server->Log().toStdString();
        PdfFile const arrived(server->Pages(job));
        EXPECT_EQ(arrived.Info("Pages"), "2");
        EXPECT_TRUE(arrived.Info("Page size").startsWith(row.size))
            << arrived.Info("Page size").toStdString();
        EXPECT_EQ(arrived.Words(), QStringList({"first", "second"}));
        QString const options = server->OptionsOf(job);
        EXPECT_TRUE(options.startsWith("Report of the day\n")) << options.toStdString();
        EXPECT_TRUE(options.contains(row.media) && options.contains(row.turned)) << options.toStdString();
    }
}

TEST_F(QueueTest, NothingArrivesOfAnAbortedJob) {
    MyPrinter& printer = PrinterFor("Office");
    int const before = server->JobCount();
    bool wasClicked = false;
    QTimer::singleShot(0, [&] {
        for (QWidget* const window : QApplication::topLevelWidgets()) {
            auto* const button = window->findChild<QPushButton*>();
            if (button == nullptr || !window->isVisible()) continue;
            EXPECT_EQ(window->windowTitle(), "Printing");
            QTest::mouseClick(button, Qt::LeftButton);
            wasClicked = true;
            return;  // others of the list may be gone by now
        }
    });
    EXPECT_EQ(printer.Start(1), 1);
    EXPECT_TRUE(wasClicked);
    printer.WriteString("lost", 0);
    printer.End();
    EXPECT_TRUE(printer.HasFailed());

    // The next one does, and is the only one.
    ASSERT_EQ(printer.Start(0), 1);
    printer.WriteString("found", 0);
    printer.End();
    ASSERT_TRUE(RunUntil([&] { return server->JobCount() > before; })) << server->Log().toStdString();
    EXPECT_EQ(server->JobCount(), before + 1);
}

TEST_F(QueueTest, RefusedJobsAreTold) {
    EXPECT_EQ(PrinterFor("NoSuchQueue").Start(0), 0);
    EXPECT_EQ(PrinterFor("Closed").Start(0), 0);
    EXPECT_EQ(boxes,
              std::vector<std::string>(2, "The print job could not be started. Please check the printer."));

    // Closed while the job runs.
    MyPrinter& printer = PrinterFor("Office");
    ASSERT_EQ(printer.Start(0), 1);
    static_cast<void>(sv::qt::tests::OutputOf("/usr/sbin/cupsreject", {"Office"}));
    printer.End();
    EXPECT_TRUE(printer.HasFailed());
    static_cast<void>(sv::qt::tests::OutputOf("/usr/sbin/cupsaccept", {"Office"}));
}

}  // namespace
}  // namespace kv::test
