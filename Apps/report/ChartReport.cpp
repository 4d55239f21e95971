#include "Apps/report/ChartReport.h"

#include "Apps/files/SuiteText.h"
#include "Apps/report/ReportPage.h"
#include "Apps/report/SpectraPlot.h"
#include "Apps/report/SpectrumCurve.h"
#include "KVUtils/Source/data/GString.h"
#include "KVUtils/Source/frame/KVSetting.h"
#include "KVUtils/Source/frame/TextSegment.h"
#include "Platform/Utf8Path.h"
#include "SV/core/Application.h"
#include "SV/core/International.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace report {

namespace {

using evaluation::ColourSheet;
using evaluation::SheetRow;
using files::MeasurementFile;
using kv::GString;
using End = ReportColumn::End;

/// Numbers of the texts in their group.
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

std::string const& NameOf(MeasurementFile const& file) {
    return file.source.empty() ? file.path : file.source;
}

class ChartReport {
  public:
    ChartReport(kv::MyPrinter& printer, ColourSheet const& sheet, ReportOptions const& options)
        : printer_(printer),
          page_(printer),
          sheet_(sheet),
          conditions_(sheet.Conditions()),
          samples_(InRange(options.samples)),
          curves_(InRange(options.curves)),
          verdict_(sheet.VerdictOn(samples_)) {}

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
    void BeginNextPage();
    void WriteTableHead();
    void DrawSwatch(sv::Color color);
    void WriteRow(std::size_t sample);
    void WriteVerdict(std::size_t sample);
    void WritePair(std::size_t side, sv::String const& label, sv::String const& value);
    void EndPairs() { page_.Skip(page_.LineHeight() + 4); }
    [[nodiscard]] std::vector<std::size_t> InRange(std::vector<std::size_t> samples) const;
    [[nodiscard]] sv::String SampleName(std::size_t sample) const;
    [[nodiscard]] sv::String MeasurementText() const;
    [[nodiscard]] sv::String FormulaTitle() const {
        return evaluation::TitleOf(conditions_.tolerances.formula, conditions_.tolerances.weights);
    }
    [[nodiscard]] sv::String LimitsText() const;
    [[nodiscard]] bool HasDifferences() const noexcept { return verdict_.judged > 0; }
    [[nodiscard]] bool IsJudging() const noexcept {
        return HasDifferences() && conditions_.tolerances.HasLimits();
    }

    kv::MyPrinter& printer_;
    ReportPage page_;
    ColourSheet const& sheet_;
    evaluation::SheetConditions const& conditions_;
    std::vector<std::size_t> samples_;
    std::vector<std::size_t> curves_;
    evaluation::SheetVerdict verdict_;
    kv::TextSegment texts_{"ChartReport"};
    kv::TextSegment colourNames_{"FarbTexte"};
};

std::vector<std::size_t> ChartReport::InRange(std::vector<std::size_t> samples) const {
    std::erase_if(samples, [this](std::size_t sample) { return sample >= sheet_.Rows().size(); });
    return samples;
}

sv::String ChartReport::SampleName(std::size_t sample) const {
    return files::ToSuite(sheet_.File().samples[sample].name);
}

sv::String FileNameOf(std::string const& path) {
    return files::ToSuite(platform::Utf8Of(platform::PathOf(path).filename()));
}

sv::String ChartReport::MeasurementText() const {
    files::StatedConditions const& stated = sheet_.File().stated;
    bool const hasBoth = !stated.measurementMode.empty() && !stated.filter.empty();
    return files::ToSuite(stated.measurementMode + (hasBoth ? ", " : "") + stated.filter);
}

/// For example "dE*ab 2.00, dL* 1.00".
sv::String ChartReport::LimitsText() const {
    using evaluation::DifferenceFormula;
    evaluation::Tolerances const& tolerances = conditions_.tolerances;
    std::array<std::pair<sv::String, double>, 4> const limits = {
        {{FormulaTitle(), tolerances.difference},
         {std::string(NameOf(DifferenceFormula::DeltaL)), tolerances.components[0]},
         {std::string(NameOf(DifferenceFormula::DeltaC)), tolerances.components[1]},
         {std::string(NameOf(DifferenceFormula::DeltaH)), tolerances.components[2]}}};
    sv::String text;
    for (auto const& [name, limit] : limits) {
        if (limit == 0) continue;
        if (!text.IsEmpty()) text += ", ";
        text += name + " " + GString(limit, 2);
    }
    return text;
}

void ChartReport::WriteTitle() {
    printer_.Titel();
    printer_.WriteString(texts_[Title], 0);
    page_.Skip(page_.LineHeight());
    printer_.SubTitel();
    printer_.WriteString(FileNameOf(NameOf(sheet_.File())), 0);
    page_.Skip(page_.LineHeight() + Gap);
}

void ChartReport::WritePair(std::size_t side, sv::String const& label, sv::String const& value) {
    printer_.Normal();
    page_.Write(LabelColumns[side], label, Quiet);
    page_.Write(ValueColumns[side], value);
}

void ChartReport::WriteConditions() {
    sv::String const measurement = MeasurementText();
    WritePair(0, texts_[Samples], sv::String(samples_.size()));
    WritePair(1, texts_[Illuminant], sv::String(conditions_.illuminant));
    EndPairs();
    WritePair(0, texts_[PaperWhite], conditions_.paper ? SampleName(*conditions_.paper) : texts_[Absolute]);
    WritePair(1, texts_[Observer], sv::String(conditions_.observer));
    EndPairs();
    if (!measurement.IsEmpty()) WritePair(0, texts_[Measurement], measurement);
    WritePair(1, texts_[DensityStandard], sv::String(conditions_.densityStandard));
    EndPairs();
    page_.Skip(Gap / 2);
}

void ChartReport::WriteSummary() {
    if (!HasDifferences()) return;
    WritePair(0, texts_[Standard], SampleName(*conditions_.standard));
    WritePair(1, texts_[Mean], GString(verdict_.mean, 2) + " " + FormulaTitle());
    EndPairs();
    if (IsJudging()) {
        WritePair(0, texts_[WithinTolerance],
                  sv::String(verdict_.within) + " " + texts_[Of] + " " + sv::String(verdict_.judged));
    }
    if (verdict_.whereLargest) {
        WritePair(1, texts_[Maximum],
                  GString(verdict_.largest, 2) + " (" + SampleName(*verdict_.whereLargest) + ")");
    }
    EndPairs();
    if (IsJudging()) {
        WritePair(0, texts_[Tolerance], LimitsText());
        EndPairs();
    }
    page_.Skip(Gap / 2);
}

void ChartReport::WritePlot() {
    if (curves_.empty()) return;
    int const legendLines = static_cast<int>(curves_.size()) / CurvesInLine + 1;
    page_.Ensure(PlotHeight + Gap + (legendLines + 1) * page_.LineHeight());
    printer_.SubTitel();
    printer_.WriteString(texts_[Spectra], 0);
    page_.Skip(page_.LineHeight());
    sv::Size const size(page_.Width(), PlotHeight);
    DrawSpectra(printer_, sv::Rectangle::Of(printer_.curPos(), size), sheet_.File(), curves_,
                {texts_[Wavelength], texts_[Reflectance]});
    page_.Skip(PlotHeight + Gap / 4);
    WriteLegend();
    page_.Skip(Gap / 2);
}

void ChartReport::WriteLegend() {
    printer_.Normal();
    int const width = page_.Width() / CurvesInLine;
    int place = 0;
    for (std::size_t const curve : curves_) {
        if (place == CurvesInLine) {
            page_.Skip(page_.LineHeight());
            place = 0;
        }
        sv::Point const start = printer_.curPos() + sv::Point(place * width, page_.LineHeight() / 2);
        DrawingState const before(printer_);
        printer_.ChangePen(sv::Pen(CurveColor(sheet_.File().samples[curve].spectrum), 5));
        printer_.DrawLine(start, start + sv::Point(LegendLine, 0));
        int const text = place * width + LegendLine + 15;
        page_.Write({text, End::Left, (place + 1) * width - text - 15}, SampleName(curve));
        ++place;
    }
    page_.Skip(page_.LineHeight());
}

void ChartReport::WriteTable() {
    page_.Ensure(6 * page_.LineHeight());
    WriteTableHead();
    for (std::size_t i = 0; i < samples_.size(); ++i) {
        if (i > 0) page_.NextLine([this] { BeginNextPage(); });
        WriteRow(samples_[i]);
    }
}

void ChartReport::BeginNextPage() {
    // Lets the user press the button that aborts. Other windows keep their own forms of numbers.
    {
        sv::InternationalForms const ofSystem("");
        sv::Application::Reschedule();
    }
    WriteTableHead();
}

void ChartReport::WriteTableHead() {
    printer_.SubTitel();
    page_.Write(NameColumn, texts_[HeadName]);
    page_.Write(ColourColumn, texts_[HeadColour]);
    for (std::size_t i = 0; i < NumberColumns.size(); ++i) page_.Write(NumberColumns[i], NumberHeads[i]);
    page_.Write(DensityColumn, "D");
    if (HasDifferences()) page_.Write(DifferenceColumn, FormulaTitle());
    if (IsJudging()) page_.Write(VerdictColumn, texts_[HeadVerdict]);
    page_.Skip(page_.LineHeight() + 4);
    page_.Rule();
    page_.Skip(6);
    printer_.Normal();
}

void ChartReport::DrawSwatch(sv::Color color) {
    DrawingState const before(printer_);
    printer_.ChangePen(sv::Pen(sv::Color(0xB000, 0xB000, 0xB000)));
    printer_.ChangeFillInBrush(sv::Brush(color));
    printer_.DrawRect(
        sv::Rectangle::Of(printer_.curPos() + sv::Point(0, 2), {SwatchWidth, page_.LineHeight() - 4}));
}

void ChartReport::WriteRow(std::size_t sample) {
    SheetRow const& row = sheet_.Rows()[sample];
    printer_.Normal();
    DrawSwatch(row.swatch);
    page_.Write(NameColumn, SampleName(sample));
    page_.Write(ColourColumn, colourNames_[static_cast<unsigned long>(row.name)]);
    std::array<float, 5> const numbers = {row.lab[0], row.lab[1], row.lab[2], row.lch[1], row.lch[2]};
    for (std::size_t i = 0; i < numbers.size(); ++i)
        page_.Write(NumberColumns[i], GString(numbers[i], i == 4 ? 1 : 2));
    page_.Write(DensityColumn, GString(row.density[row.densityFilter], 2));
    page_.Write(InkColumn, std::string(1, evaluation::InkOfFilter(row.densityFilter)), Quiet);
    WriteVerdict(sample);
}

void ChartReport::WriteVerdict(std::size_t sample) {
    if (!HasDifferences()) return;
    auto const& judgement = sheet_.Rows()[sample].judgement;
    if (!judgement) {
        if (conditions_.standard == sample) page_.Write(VerdictColumn, texts_[IsStandard], Quiet);
        return;
    }
    if (!std::isnan(judgement->difference)) page_.Write(DifferenceColumn, GString(judgement->difference, 2));
    if (!IsJudging()) return;
    page_.Write(VerdictColumn, texts_[judgement->isWithin ? Pass : Fail],
                judgement->isWithin ? sv::Color() : Warning);
}

}  // namespace

std::size_t CountUnprintable(ColourSheet const& sheet, std::vector<std::size_t> const& samples) {
    auto const& all = sheet.File().samples;
    return static_cast<std::size_t>(std::ranges::count_if(samples, [&](std::size_t sample) {
        return sample < all.size() && !files::FitsSuite(all[sample].name);
    }));
}

bool PrintChartReport(kv::MyPrinter& printer, ColourSheet const& sheet, ReportOptions const& options) {
    sv::InternationalForms const forms(options.language);
    printer.SetDocument({kv::TextSegment("ChartReport")[Title] + ": " + FileNameOf(NameOf(sheet.File())),
                         kv::KVSetting::Instance()->GetBenutzername(), options.language});
    printer.DefHeadLine(1);
    printer.DefFootNote(1);
    if (printer.Start(1) == 0) return false;
    ChartReport(printer, sheet, options).Write();
    printer.End();
    return !printer.HasFailed();
}

}  // namespace report
