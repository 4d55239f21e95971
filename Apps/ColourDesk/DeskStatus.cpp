#include "Apps/ColourDesk/DeskStatus.h"

#include "Apps/ColourDesk/DeskTexts.h"
#include "Apps/ColourDesk/SpectrumPlot.h"
#include "KVUtils/Source/data/GString.h"

#include <vector>

namespace colourdesk {

namespace {

constexpr char const* Separator = "   \xB7   ";  // a middle dot in the suite's code page

sv::String Count(std::size_t count) { return std::to_string(count); }

sv::String VerdictText(DeskFile const& file) {
    evaluation::SheetVerdict const& verdict = file.GetSheet()->Verdict();
    if (!verdict.whereLargest) return TextOf(Label::NotJudged);
    return Format(TextOf(Label::Verdict),
                  {Count(verdict.within), Count(verdict.judged), kv::GString(verdict.largest, 2),
                   file.SampleName(verdict.whereLargest)});
}

sv::String PointedValue(DeskFile const& file, std::size_t sample, int cursor) {
    kv::Spectrum const& spectrum = file.GetSheet()->File().samples[sample].spectrum;
    return Format(TextOf(Label::Pointer), {std::to_string(static_cast<int>(kv::Wavelength(cursor))),
                                           kv::GString(spectrum[cursor], 4), file.SampleName(sample)});
}

}  // namespace

sv::String StatusText(DeskFile const& file, std::span<int const> selected, std::optional<int> cursor) {
    if (file.GetSheet() == nullptr) return TextOf(Label::NothingOpen);
    std::vector<sv::String> parts = {
        Format(TextOf(Label::Counts), {Count(file.GetSheet()->Rows().size()), Count(selected.size())})};
    if (selected.size() > SpectrumPlot::MaxCurves) {
        parts.push_back(
            Format(TextOf(Label::NotPlotted), {Count(SpectrumPlot::MaxCurves), Count(selected.size())}));
    }
    parts.push_back(VerdictText(file));
    if (cursor && !selected.empty())
        parts.push_back(PointedValue(file, static_cast<std::size_t>(selected.front()), *cursor));
    sv::String text;
    for (sv::String const& part : parts) text += text.IsEmpty() ? part : Separator + part;
    return text;
}

}  // namespace colourdesk
