#include "Apps/ColourDesk/DeskMeasuring.h"

#include "Apps/ColourDesk/DeskTexts.h"
#include "Apps/ColourDesk/FaultTexts.h"
#include "Apps/suite/ChartMeasurement.h"
#include "KVUtils/Source/dialogs/WaitVisualizer.h"

namespace colourdesk {

DeskMeasurement MeasureChart(sv::Window& parent) {
    DeskMeasurement measurement;
    try {
        kv::AbbruchDialog dialog(&parent, TextOf(Question::MeasuringTitle), TextOf(Question::Connecting));
        suite::ServerClient server({.isInterrupted = [&] { return dialog.IsAborted() != 0; }});
        suite::MeasureChart(server, {}, measurement.file, [&](long done, long patches) {
            dialog.ChangeText(
                Format(TextOf(Question::Measuring), {std::to_string(done), std::to_string(patches)}));
            dialog.SetPercent(static_cast<int>(100 * done / patches));
        });
    } catch (suite::ServerError const& error) {
        measurement.fault = FaultText(error.what());
    }
    return measurement;
}

}  // namespace colourdesk
