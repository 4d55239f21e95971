#include "Apps/report/ChartReport.h"

#include "Apps/measurements/SuiteText.h"
#include "Apps/report/ReportPage.h"
#include "Apps/report/SpectraPlot.h"
#include "KVUtils/Source/colorimetry/CMetry.h"
#include "KVUtils/Source/data/GString.h"
#include "KVUtils/Source/frame/KVSetting.h"
#include "KVUtils/Source/frame/TextSegment.h"
#include "SV/core/Application.h"

#include <array>
#include <filesystem>

namespace report {

namespace {

using kv::GString;
using measurements::MeasurementFile;
using End = ReportColumn::End;

/// The texts by their places in the group.
enum ReportText : unsigned long {
    Title,
    Source,
    Samples,
    Measurement,
    Illuminant,
    Observer,
    DensityStandard,
    PaperWhite,
    Absolute,
    Standard,
    Tolerance,
    WithinTolerance,
    Mean,
    Maximum,
    Spectra,
    HeadName,
    HeadColour,
    HeadVerdict,
    Pass,
    Fail,
    IsStandard,
    Wavelength,
    Reflectance,
    Of
};

constexpr int Gap = 40;
constexpr int PlotHeight = 640;
constexpr int CurvesInLine = 4;
constexpr int LegendLine = 70;
constexpr ReportColumn LabelColumns[] = {{0, End::Left, 380}, {920, End::Left, 380}};
constexpr ReportColumn ValueColumns[] = {{390, End::Left, 510}, {1310, End::Left, 490}};

// The table's columns.
constexpr int SwatchWidth = 70;
constexpr ReportColumn NameColumn{90, End::Left, 330};
constexpr ReportColumn ColourColumn{435, End::Left, 215};
constexpr std::array<ReportColumn, 5> NumberColumns = {{{770, End::Right, 120},
                                                        {900, End::Right, 130},
                                                        {1030, End::Right, 130},
                                                        {1150, End::Right, 120},
                                                        {1280, End::Right, 130}}};
constexpr std::array<char const*, 5> NumberHeads = {"L*", "a*", "b*", "C*", "h"};
constexpr ReportColumn DensityColumn{1385, End::Right, 95};
constexpr ReportColumn InkColumn{1395, End::Left, 30};
constexpr ReportColumn DifferenceColumn{1580, End::Right, 150};
constexpr ReportColumn VerdictColumn{1610, End::Left, 190};

constexpr sv::Color Quiet(0x6060, 0x6060, 0x6060);
constexpr sv::Color Warning(0xB000, 0x1800, 0x1800);

/// Another colour of letters for a while.
class FontColor {
  public:
    FontColor(sv::OutputDevice& device, sv::Color color) : device_(device), before_(device.GetFont()) {
        sv::Font font = before_;
        font.ChangeColor(color);
        device_.ChangeFont(font);
    }
    FontColor(FontColor const&) = delete;
    FontColor& operator=(FontColor const&) = delete;
    ~FontColor() { device_.ChangeFont(before_); }

  private:
    sv::OutputDevice& device_;
    sv::Font before_;
};

std::string const& NameOf(MeasurementFile const& file) {
    return file.source.empty() ? file.path : file.source;
}

class ChartReport {
  public:
    ChartReport(kv::MyPrinter& printer, MeasurementFile const& file, ReportOptions const& options)
        : printer_(printer),
          page_(printer),
          file_(file),
          options_(options),
          rows_(RowsOf(file, options)),
          summary_(SummaryOf(rows_)) {}

    void Write() {
        WriteTitle();
        WriteConditions();
        WriteSummary();
        WritePlot();
        WriteTable();
    }

  private:
    void WriteTitle();
    void WriteConditions();
    void WriteSummary();
    void WritePlot();
    void WriteLegend();
    void WriteTable();
    void BeginFurtherPage();
    void WriteTableHead();
    void WriteRow(ReportRow const& row);
    void WriteVerdict(ReportRow const& row);
    void WritePair(std::size_t side, sv::String const& label, sv::String const& value);
    [[nodiscard]] sv::String SampleName(std::optional<std::size_t> sample) const;
    [[nodiscard]] sv::String MeasurementOf() const;
    [[nodiscard]] sv::String MeasureOf() const {
        return options_.measure ? sv::String(measurements::ToSuite(options_.measure->name)) : sv::String();
    }

    kv::MyPrinter& printer_;
    ReportPage page_;
    MeasurementFile const& file_;
    ReportOptions const& options_;
    std::vector<ReportRow> rows_;
    std::optional<ReportSummary> summary_;
    kv::TextSegment texts_{"ChartReport"};
};

sv::String ChartReport::SampleName(std::optional<std::size_t> sample) const {
    if (!sample || *sample >= file_.samples.size()) return {};
    return measurements::ToSuite(file_.samples[*sample].name);
}

sv::String FileNameOf(std::string const& path) {
    std::u8string const name =
        std::filesystem::path(std::u8string(path.begin(), path.end())).filename().u8string();
    return measurements::ToSuite(std::string(name.begin(), name.end()));
}

sv::String ChartReport::MeasurementOf() const {
    sv::String text = measurements::ToSuite(file_.stated.measurementMode);
    if (text.IsEmpty()) return measurements::ToSuite(file_.stated.filter);
    if (!file_.stated.filter.empty()) text += ", " + sv::String(measurements::ToSuite(file_.stated.filter));
    return text;
}

void ChartReport::WriteTitle() {
    printer_.Titel();
    printer_.WriteString(texts_[Title], 0);
    page_.Skip(page_.LineHeight());
    printer_.SubTitel();
    printer_.WriteString(FileNameOf(NameOf(file_)), 0);
    page_.Skip(page_.LineHeight() + Gap);
}

void ChartReport::WritePair(std::size_t side, sv::String const& label, sv::String const& value) {
    printer_.Normal();
    {
        FontColor const quiet(printer_, Quiet);
        page_.Write(LabelColumns[side], label);
    }
    page_.Write(ValueColumns[side], value);
}

void ChartReport::WriteConditions() {
    kv::MeasuringCondition condition;
    kv::CMetry::GetMeasuringConditions(condition);
    sv::String const paper = SampleName(options_.paper);
    sv::String const measurement = MeasurementOf();
    auto const line = [this] { page_.Skip(page_.LineHeight() + 4); };
    WritePair(0, texts_[Samples], sv::String(rows_.size()));
    WritePair(1, texts_[Illuminant], sv::String(condition.GetIllum()));
    line();
    WritePair(0, texts_[PaperWhite], paper.IsEmpty() ? texts_[Absolute] : paper);
    WritePair(1, texts_[Observer], sv::String(condition.GetObserver()));
    line();
    if (!measurement.IsEmpty()) WritePair(0, texts_[Measurement], measurement);
    WritePair(1, texts_[DensityStandard], sv::String(condition.GetDStd()));
    line();
    page_.Skip(Gap / 2);
}

void ChartReport::WriteSummary() {
    if (!summary_) return;
    auto const line = [this] { page_.Skip(page_.LineHeight() + 4); };
    WritePair(0, texts_[Standard], SampleName(options_.standard));
    WritePair(1, texts_[Mean], GString(summary_->mean, 2) + " " + MeasureOf());
    line();
    if (options_.tolerance) {
        WritePair(0, texts_[WithinTolerance],
                  sv::String(summary_->within) + " " + texts_[Of] + " " + sv::String(summary_->count) + " (" +
                      texts_[Tolerance] + " " + GString(*options_.tolerance, 2) + ")");
    }
    WritePair(1, texts_[Maximum], GString(summary_->maximum, 2) + " (" + summary_->whereMaximum + ")");
    line();
    page_.Skip(Gap / 2);
}

void ChartReport::WritePlot() {
    if (options_.curves.empty()) return;
    int const legendLines = static_cast<int>(options_.curves.size()) / CurvesInLine + 1;
    page_.Ensure(PlotHeight + Gap + (legendLines + 1) * page_.LineHeight());
    printer_.SubTitel();
    printer_.WriteString(texts_[Spectra], 0);
    page_.Skip(page_.LineHeight());
    sv::Size const size(page_.Width(), PlotHeight);
    DrawSpectra(printer_, sv::Rectangle::Of(printer_.curPos(), size), file_, options_.curves,
                {texts_[Wavelength], texts_[Reflectance]});
    page_.Skip(PlotHeight + Gap / 4);
    WriteLegend();
    page_.Skip(Gap / 2);
}

void ChartReport::WriteLegend() {
    printer_.Normal();
    int const width = page_.Width() / CurvesInLine;
    int place = 0;
    for (std::size_t const curve : options_.curves) {
        if (curve >= file_.samples.size()) continue;
        if (place == CurvesInLine) {
            page_.Skip(page_.LineHeight());
            place = 0;
        }
        sv::Point const start = printer_.curPos() + sv::Point(place * width, page_.LineHeight() / 2);
        sv::Pen const pen = printer_.ChangePen(sv::Pen(CurveColor(file_.samples[curve].spectrum), 5));
        printer_.DrawLine(start, start + sv::Point(LegendLine, 0));
        printer_.ChangePen(pen);
        int const text = place * width + LegendLine + 15;
        page_.Write({text, End::Left, (place + 1) * width - text - 15}, SampleName(curve));
        ++place;
    }
    page_.Skip(page_.LineHeight());
}

void ChartReport::WriteTable() {
    page_.Ensure(6 * page_.LineHeight());
    WriteTableHead();
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        if (i > 0) page_.NextLine([this] { BeginFurtherPage(); });
        WriteRow(rows_[i]);
    }
}

void ChartReport::BeginFurtherPage() {
    // So that the button that gives up is heard.
    sv::Application::Reschedule();
    WriteTableHead();
}

void ChartReport::WriteTableHead() {
    printer_.SubTitel();
    page_.Write(NameColumn, texts_[HeadName]);
    page_.Write(ColourColumn, texts_[HeadColour]);
    for (std::size_t i = 0; i < NumberColumns.size(); ++i) page_.Write(NumberColumns[i], NumberHeads[i]);
    page_.Write(DensityColumn, "D");
    if (summary_) page_.Write(DifferenceColumn, MeasureOf());
    if (summary_ && options_.tolerance) page_.Write(VerdictColumn, texts_[HeadVerdict]);
    page_.Skip(page_.LineHeight() + 4);
    page_.Rule();
    page_.Skip(6);
    printer_.Normal();
}

void ChartReport::WriteRow(ReportRow const& row) {
    printer_.Normal();
    sv::Pen const pen = printer_.ChangePen(sv::Pen(sv::Color(0xB000, 0xB000, 0xB000)));
    sv::Brush const brush = printer_.ChangeFillInBrush(sv::Brush(row.color));
    printer_.DrawRect(
        sv::Rectangle::Of(printer_.curPos() + sv::Point(0, 2), {SwatchWidth, page_.LineHeight() - 4}));
    printer_.ChangeFillInBrush(brush);
    printer_.ChangePen(pen);

    page_.Write(NameColumn, row.name);
    page_.Write(ColourColumn, row.colorName);
    std::array<float, 5> const numbers = {row.lab[0], row.lab[1], row.lab[2], row.lch[1], row.lch[2]};
    for (std::size_t i = 0; i < numbers.size(); ++i)
        page_.Write(NumberColumns[i], GString(numbers[i], i == 4 ? 1 : 2));
    page_.Write(DensityColumn, GString(row.density, 2));
    {
        FontColor const quiet(printer_, Quiet);
        page_.Write(InkColumn, sv::String(row.densityChannel));
    }
    WriteVerdict(row);
}

void ChartReport::WriteVerdict(ReportRow const& row) {
    if (row.difference) page_.Write(DifferenceColumn, GString(*row.difference, 2));
    switch (row.verdict) {
        case Verdict::None:
            return;
        case Verdict::Standard: {
            FontColor const quiet(printer_, Quiet);
            page_.Write(VerdictColumn, texts_[IsStandard]);
            return;
        }
        case Verdict::Within:
            page_.Write(VerdictColumn, texts_[Pass]);
            return;
        case Verdict::Beyond: {
            FontColor const warning(printer_, Warning);
            page_.Write(VerdictColumn, texts_[Fail]);
            return;
        }
    }
}

}  // namespace

bool PrintChartReport(kv::MyPrinter& printer, MeasurementFile const& file, ReportOptions const& options) {
    printer.SetDocument({kv::TextSegment("ChartReport")[Title] + ": " + FileNameOf(NameOf(file)),
                         kv::KVSetting::Instance()->GetBenutzername(), options.language});
    printer.DefHeadLine(1);
    printer.DefFootNote(1);
    if (printer.Start(1) == 0) return false;
    ChartReport(printer, file, options).Write();
    printer.End();
    return !printer.HasFailed();
}

}  // namespace report
