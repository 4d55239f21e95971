#include "Apps/ColourDesk/SampleView.h"

#include "Apps/ColourDesk/DeskTexts.h"
#include "Apps/files/SuiteText.h"
#include "KVUtils/Source/data/GString.h"
#include "KVUtils/Source/frame/TextSegment.h"

#include <cmath>

namespace colourdesk {

namespace {

/// From left to right. The first ones have the values of their titles.
enum Column : int {
    Name,
    Colour,
    Lightness,
    RedGreen,
    YellowBlue,
    Chroma,
    Hue,
    Density,
    Difference,
    Judged,
    ColumnCount
};

constexpr unsigned long ColourNameCount = 16;

/// Of title and contents.
constexpr std::array<int, ColumnCount> WidthInLetters = {20, 13, 8, 8, 8, 8, 7, 9, 10, 13};

ColumnTitle TitleOf(int column) noexcept {
    return column == Judged ? ColumnTitle::Verdict : static_cast<ColumnTitle>(column);
}

sv::String Text(float number, int decimals) {
    return std::isnan(number) ? sv::String() : sv::String(kv::GString(number, decimals));
}

sv::String Number(evaluation::SheetRow const& row, int column) {
    switch (column) {
        case Lightness:
        case RedGreen:
        case YellowBlue:
            return Text(row.lab[column - Lightness], 2);
        case Chroma:
            return Text(row.lch[1], 2);
        case Hue:
            return Text(row.lch[2], 1);
        case Density:
            return Text(row.density[row.densityFilter], 2) +
                   (std::string(" ") + evaluation::InkOfFilter(row.densityFilter));
        case Difference:
            return row.judgement ? Text(row.judgement->difference, 2) : sv::String();
        default:
            return {};
    }
}

}  // namespace

SampleView::SampleView(sv::Window* parent) : Table(parent) { Update(); }

void SampleView::ShowSheet(evaluation::ColourSheet const* sheet) {
    sheet_ = sheet;
    Update();
    SetRowCount(sheet == nullptr ? 0 : static_cast<int>(sheet->Rows().size()));
}

void SampleView::Update() {
    kv::TextSegment const names("FarbTexte");
    colourNames_.clear();
    for (unsigned long i = 0; i < ColourNameCount; ++i) colourNames_.push_back(names[i]);
    verdicts_ = {TextOf(Label::Failed), TextOf(Label::Passed)};

    int const letter = GetTextSize("0").Width();
    std::vector<sv::TableColumn> columns;
    for (int column = 0; column < ColumnCount; ++column) {
        bool const isText = column == Name || column == Colour || column == Judged;
        columns.push_back({column == Difference ? sv::String() : TextOf(TitleOf(column)),
                           WidthInLetters[static_cast<std::size_t>(column)] * letter, !isText});
    }
    if (sheet_ != nullptr) {
        evaluation::Tolerances const& tolerances = sheet_->Conditions().tolerances;
        columns[Difference].title = evaluation::TitleOf(tolerances.formula, tolerances.weights);
    }
    // Setting columns discards the widths that the user has chosen.
    if (!std::ranges::equal(columns, GetColumns())) SetColumns(std::move(columns));
    Invalidate();
}

sv::TableCell SampleView::GetCell(int row, int column) const {
    if (sheet_ == nullptr) return {};
    auto const index = static_cast<std::size_t>(row);
    evaluation::SheetRow const& values = sheet_->Rows()[index];
    switch (column) {
        case Name:
            return {files::ToSuite(sheet_->File().samples[index].name), values.swatch,
                    sheet_->Conditions().standard == index || sheet_->Conditions().paper == index};
        case Colour:
            return {colourNames_[static_cast<std::size_t>(values.name)]};
        case Judged:
            return Verdict(values);
        default:
            return {Number(values, column)};
    }
}

sv::TableCell SampleView::Verdict(evaluation::SheetRow const& row) const {
    if (!row.judgement) return {};
    constexpr sv::Color green(0x2A00, 0x9D00, 0x4A00);
    constexpr sv::Color red(0xC800, 0x2000, 0x2000);
    bool const isWithin = row.judgement->isWithin;
    return {verdicts_[isWithin ? 1 : 0], isWithin ? green : red, !isWithin};
}

}  // namespace colourdesk
