// ServerPayloads: the contents of messages to the measuring server. Both sides include this header.
//
// Every answer begins with one byte, a ServerStatus; fields follow only if it is Done. Integers and texts
// have the forms of MyMemoryBlock. A float is sent as the `long` of its bits, which keeps it exact.
//
// clang-format off
//   message                 request           fields of the answer
//   GET_SW_VERSION          -                 String: version of the server
//   GET_DEVICE_NAME         -                 String: name of the instrument
//   GET_DEVICE_TYPE         -                 short: DeviceType
//   GET_SERIE_NR            -                 String: serial number
//   GET_DISPLAY_STRING      -                 String: text of the instrument's display
//   IS_APP_READY            -                 byte: 1, the server takes requests
//   IS_READY                -                 byte: 1 if a measurement can begin now, else 0
//   EXEC_WHITE_MEASUREMENT  -                 -
//   NEW_MEASURE_REQUEST     -                 long: patches of the chart; the first one is measured next
//   EXEC_MEASUREMENT        -                 long: number of the measured patch, from 1
//   SPECTRUM_REQUEST        -                 MeasuredPatch: the last measurement
//   PARAMETER_REQUEST       -                 StatedConditions: how the instrument measures
//   PARAMETER_DOWNLOAD      StatedConditions  -; Unsupported, with nothing changed, if it measures otherwise
//   NOTIFY_MESSUNG          -                 -; the sender receives MESSUNG_AUSGELOEST until the next row
//   NOTIFY_MESSUNG_AUS      -                 -
//   MESSUNG_AUSGELOEST      -                 long: as EXEC_MEASUREMENT; the instrument's trigger was pressed
// clang-format on
//
// The server sends MESSUNG_AUSGELOEST, with the same long, to every program that has sent NOTIFY_MESSUNG;
// they need not answer. GET_... and IS_... are answered during a measurement, other requests after it.
#pragma once

#include "Apps/files/StatedConditions.h"
#include "KVUtils/Source/colorimetry/Spectrum.h"
#include "KVUtils/Source/messaging/MYMEMBLO.h"

#include <optional>
#include <string>

namespace suite {

/// The measuring server's name, and its number in the list of programs.
inline constexpr char const* ServerName = "HQMSERV";
inline constexpr int ServerNumber = 0;

/// The result of a request. The first three are common to all programs of the suite.
enum class ServerStatus : int {
    Done = 0,
    Refused = 1,     // the server is locked by another program
    NotHandled = 2,  // unknown request
    NotReady = 3,    // nothing to measure, or a measurement is running
    WhiteMissing = 4,
    NothingMeasured = 5,
    EndOfChart = 6,
    Unsupported = 7
};

/// Describes the status to the user, e.g. "calibrate the instrument on white first".
[[nodiscard]] std::string Describe(ServerStatus status);

enum class DeviceType : int { Unknown = 0, Spectrophotometer = 1, Densitometer = 2, ScanningTable = 3 };

/// Identifies an instrument.
struct DeviceIdentity {
    std::string name;
    std::string serialNumber;
    std::string softwareVersion;
    DeviceType type = DeviceType::Unknown;
};

/// One measured patch.
struct MeasuredPatch {
    long number = 0;        // in the chart, from 1
    std::string name;       // UTF-8; in messages in the suite's code page
    kv::Spectrum spectrum;  // reflectance as a fraction
};

void PutPatch(kv::MyMemoryBlock& block, MeasuredPatch const& patch);
/// Empty when the payload ends too early or has another number of points.
[[nodiscard]] std::optional<MeasuredPatch> TakePatch(kv::MyMemoryBlock& block);

/// Writes five texts: illuminant, observer, measurement mode, filter, white base. What is not stated is
/// empty.
void PutConditions(kv::MyMemoryBlock& block, files::StatedConditions const& conditions);
/// An unknown illuminant or observer counts as not stated.
[[nodiscard]] files::StatedConditions TakeConditions(kv::MyMemoryBlock& block);

}  // namespace suite
