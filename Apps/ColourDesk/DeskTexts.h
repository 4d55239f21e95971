// DeskTexts: the texts of ColourDesk by the places where they stand. The numbers are those of the texts in
// their groups of the file colourdeskN.lng.
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
    Measure,
    Limit,
    LimitOfLightness,
    LimitOfChroma,
    LimitOfHue,
    Standard,    // %1 its name
    PaperWhite,  // %1 its name
    None,
    NothingOpen,
    Counts,   // %1 samples, of which %2 are selected
    Verdict,  // %1 of %2 within, the largest difference %3 at %4
    NotJudged,
    Pointer,     // %1 nm: %2 of the sample %3
    NotPlotted,  // %1 that show of %2
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
    Measurements,  // a kind of file
    AllFiles,
    DataFiles,
    Pictures,
    Drawings,
    PlotNotSaved,  // %1 the file
    WrongNames,    // %1 samples that will be read by other names
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
    Sent  // %1 the recipients
};

[[nodiscard]] sv::String TextOf(Label label);
[[nodiscard]] sv::String TextOf(ColumnTitle title);
[[nodiscard]] sv::String TextOf(Question question);

/// The text with these in place of "%1", "%2", ...; an argument's own "%" stays.
[[nodiscard]] sv::String Filled(sv::String const& text, std::initializer_list<sv::String> arguments);

/// In a box over the window.
void ShowError(sv::String const& text);

}  // namespace colourdesk
