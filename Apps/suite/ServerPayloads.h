// ServerPayloads: what the messages to the measuring server carry. Both sides include this header.
//
// Every answer begins with one byte, a ServerStatus; fields follow it only when that is Done. Integers and
// texts have the forms of MyMemoryBlock; a float travels as the `long` of its bits, so that it arrives to the
// last one.
//
//   message                 request                what the answer holds behind its status
//   GET_SW_VERSION          -                      String: version of the server
//   GET_DEVICE_NAME         -                      String: name of the instrument
//   GET_DEVICE_TYPE         -                      short: DeviceType
//   GET_SERIE_NR            -                      String: serial number
//   GET_DISPLAY_STRING      -                      String: what the instrument's display shows
//   IS_APP_READY            -                      byte: 1, the server takes requests
//   IS_READY                -                      byte: 1 when a measurement may begin now, else 0
//   EXEC_WHITE_MEASUREMENT  -                      -
//   NEW_MEASURE_REQUEST     -                      long: patches of the chart; the next one is the first
//   again EXEC_MEASUREMENT        -                      long: number of the patch that was measured, from 1
//   SPECTRUM_REQUEST        -                      MeasuredPatch: the last measurement
//   PARAMETER_REQUEST       -                      StatedConditions: how the instrument measures
//   PARAMETER_DOWNLOAD      StatedConditions       -; Unsupported, and nothing set, when it measures
//   otherwise NOTIFY_MESSUNG          -                      -; from here on the sender is told of
//   MESSUNG_AUSGELOEST NOTIFY_MESSUNG_AUS      -                      - MESSUNG_AUSGELOEST      - long, as
//   EXEC_MEASUREMENT: somebody pressed the trigger
//
// MESSUNG_AUSGELOEST goes the other way too: to every program that wants to be told, with the long; they need
// not answer. Questions (GET_..., IS_...) are answered during a measurement, all else waits for its end.
#pragma once

#include "Apps/files/StatedConditions.h"
#include "KVUtils/Source/colorimetry/Spectrum.h"
#include "KVUtils/Source/messaging/MYMEMBLO.h"

#include <optional>
#include <string>

namespace suite {

/// The name under which programs reach the measuring server, and its number in their lists.
inline constexpr char const* ServerName = "HQMSERV";
inline constexpr int ServerNumber = 0;

/// How the server dealt with a request. The first three are those of every program of the suite.
enum class ServerStatus : int {
    Done = 0,
    Refused = 1,     // another program has locked the server
    NotHandled = 2,  // the server does not know this request
    NotReady = 3,    // the instrument has nothing to measure, or is measuring
    WhiteMissing = 4,
    NothingMeasured = 5,
    EndOfChart = 6,
    Unsupported = 7
};

/// What a person reads: "the instrument wants its white measurement first".
[[nodiscard]] std::string Describe(ServerStatus status);

enum class DeviceType : int { Unknown = 0, Spectrophotometer = 1, Densitometer = 2, ScanningTable = 3 };

/// What an instrument says of itself.
struct DeviceIdentity {
    std::string name;
    std::string serialNumber;
    std::string softwareVersion;
    DeviceType type = DeviceType::Unknown;
};

/// One patch as it was measured.
struct MeasuredPatch {
    long number = 0;        // in the chart, from 1
    std::string name;       // UTF-8; on its way in the suite's code page
    kv::Spectrum spectrum;  // reflectance as a fraction
};

kv::MyMemoryBlock& operator<<(kv::MyMemoryBlock& block, MeasuredPatch const& patch);
/// None when the payload ends too early or has another number of points.
[[nodiscard]] std::optional<MeasuredPatch> TakePatch(kv::MyMemoryBlock& block);

/// Five texts: illuminant, observer, measurement mode, filter, white base. An empty one says nothing.
kv::MyMemoryBlock& operator<<(kv::MyMemoryBlock& block, files::StatedConditions const& conditions);
/// An illuminant or observer that is not understood counts as not stated.
[[nodiscard]] files::StatedConditions TakeConditions(kv::MyMemoryBlock& block);

}  // namespace suite
