// DeskTexts: the texts of ColourDesk. Values are the texts' numbers in their group of colourdeskN.lng.
#pragma once

#include "SV/core/String.h"

#include <initializer_list>

namespace colourdesk {

/// Group "ColourDesk".
enum class Label : unsigned long {
    Illuminant,
    Observer,
    Density,
    Language,
    TwoDegrees,
    TenDegrees,
    Formula,
    Limit,
    LimitOfLightness,
    LimitOfChroma,
    LimitOfHue,
    Standard,    // %1 its name
    PaperWhite,  // %1 its name
    None,
    NothingOpen,
    Counts,   // %1 samples, %2 selected
    Verdict,  // %1 of %2 passed, the largest difference %3 at %4
    NotJudged,
    Pointer,     // %1 nm: reflectance %2 of sample %3
    NotPlotted,  // %1 plotted of %2
    Messages,
    Passed,
    Failed,
    Wavelength,
    Reflectance,
    UseAsStandard,
    UseAsPaper
};

/// Group "ColourDeskColumns".
enum class ColumnTitle : unsigned long {
    Sample,
    Colour,
    Lightness,
    RedGreen,
    YellowBlue,
    Chroma,
    Hue,
    Density,
    Verdict
};

/// Group "ColourDeskQuestions".
enum class Question : unsigned long {
    MeasuringTitle,
    Measuring,  // %1 of %2
    Connecting,
    SaveFirst,
    MeasurementStopped,  // after %1 patches, and %2 why
    OpenTitle,
    SaveTitle,
    SavePlotTitle,
    Measurements,  // as a file type
    AllFiles,
    DataFiles,
    Pictures,
    Drawings,
    PlotNotSaved,  // %1 the file
    ChangedNames,  // %1 samples whose names a data file cannot hold
    ReportTitle,
    Reports,
    ReportNotWritten,  // %1 the file
    NoMail,
    MailTitle,
    Recipients,
    MailSubject,  // %1 the chart
    MailText,     // %1 the chart
    Sending,
    NotSent,
    Sent,             // %1 the recipients
    UnprintableNames  // %1 samples
};

[[nodiscard]] sv::String TextOf(Label label);
[[nodiscard]] sv::String TextOf(ColumnTitle title);
[[nodiscard]] sv::String TextOf(Question question);

/// Replaces "%1", "%2", ... by the arguments; a "%" in an argument is kept.
[[nodiscard]] sv::String Format(sv::String const& text, std::initializer_list<sv::String> arguments);

/// Shows an error box over the window.
void ShowError(sv::String const& text);

}  // namespace colourdesk
