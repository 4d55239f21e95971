#include "SV/qt/PrintTarget.h"

#include "Platform/Files.h"
#include "Platform/PrintQueue.h"
#include "SV/core/NativePath.h"
#include "SV/qt/QtText.h"

#include <QFileInfo>
#include <QString>
#include <string>

namespace sv::qt {

namespace {

constexpr unsigned long TrueColors = 1UL << 24U;
constexpr int HundredthsPerTenth = 10;

class FileTarget final : public PrintTarget {
  public:
    explicit FileTarget(String const& path) : path_(NativePath(path)) {}

    [[nodiscard]] Border BorderOf(PageSetup const& /*setup*/) const override { return {}; }
    [[nodiscard]] unsigned long ColorCount() const override { return TrueColors; }
    [[nodiscard]] bool TakesJobs() const override {
        QFileInfo const file(QString::fromStdString(path_));
        if (file.exists()) return file.isFile() && file.isWritable();
        return QFileInfo(file.absolutePath()).isWritable();
    }
    bool Deliver(PrintJob const& /*job*/, std::string_view pdf) override {
        return platform::ReplaceAtomically(path_, pdf);
    }

  private:
    std::string path_;
};

class QueueTarget final : public PrintTarget {
  public:
    explicit QueueTarget(String const& name) : name_(ToQt(name).toStdString()) {}

    [[nodiscard]] Border BorderOf(PageSetup const& setup) const override {
        auto const upright = platform::MarginsOf(name_, MediaOf(setup));
        auto const tenths = [](int hundredths) {
            return (hundredths + HundredthsPerTenth - 1) / HundredthsPerTenth;
        };
        Border const border{tenths(upright.left), tenths(upright.top), tenths(upright.right),
                            tenths(upright.bottom)};
        if (setup.orientation == Orientation::Portrait) return border;
        // Turned to the left: the right edge of the upright page is on top.
        return {border.top, border.right, border.bottom, border.left};
    }
    [[nodiscard]] unsigned long ColorCount() const override {
        auto const queue = platform::FindPrintQueue(name_);
        return queue && queue->hasColours ? TrueColors : 2;
    }
    [[nodiscard]] bool TakesJobs() const override {
        auto const queue = platform::FindPrintQueue(name_);
        return queue && queue->acceptsJobs;
    }
    bool Deliver(PrintJob const& job, std::string_view pdf) override {
        return platform::SubmitPdf(name_,
                                   {ToQt(job.name).toStdString(), MediaOf(job.setup),
                                    job.setup.orientation == Orientation::Landscape},
                                   pdf);
    }

  private:
    static platform::PrintMedia MediaOf(PageSetup const& setup) {
        return {setup.paper.Width() * HundredthsPerTenth, setup.paper.Height() * HundredthsPerTenth};
    }

    std::string name_;
};

}  // namespace

std::unique_ptr<PrintTarget> MakePrintTarget(String const& name) {
    if (IsPrintFile(name)) return std::make_unique<FileTarget>(name);
    return std::make_unique<QueueTarget>(name);
}

}  // namespace sv::qt
