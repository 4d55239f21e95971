#include "Apps/suite/ServerPayloads.h"

#include "Apps/files/SuiteText.h"

#include <bit>
#include <cstdint>

namespace suite {

namespace {

void PutText(kv::MyMemoryBlock& block, std::string const& utf8) { block << sv::String(files::ToSuite(utf8)); }

std::string TakeText(kv::MyMemoryBlock& block) {
    sv::String text;
    block >> text;
    return files::FromSuite(text.View());
}

long Unread(kv::MyMemoryBlock& block) {
    return block.Len() - static_cast<long>(block.GetGetPointer() - block.GetDatenZeiger());
}

}  // namespace

std::string Describe(ServerStatus status) {
    switch (status) {
        case ServerStatus::Done:
            return "done";
        case ServerStatus::Refused:
            return "another program has locked the measuring server";
        case ServerStatus::NotHandled:
            return "the measuring server does not support this request";
        case ServerStatus::NotReady:
            return "the instrument is not ready";
        case ServerStatus::WhiteMissing:
            return "calibrate the instrument on white first";
        case ServerStatus::NothingMeasured:
            return "nothing has been measured yet";
        case ServerStatus::EndOfChart:
            return "the chart has no more patches";
        case ServerStatus::Unsupported:
            return "the instrument measures under other conditions";
    }
    return "unknown answer of the measuring server: " + std::to_string(static_cast<int>(status));
}

void PutPatch(kv::MyMemoryBlock& block, MeasuredPatch const& patch) {
    block << patch.number;
    PutText(block, patch.name);
    block << kv::SpectralPoints;
    for (int k = 0; k < kv::SpectralPoints; ++k) {
        block << static_cast<long>(std::bit_cast<std::int32_t>(patch.spectrum[k]));
    }
}

std::optional<MeasuredPatch> TakePatch(kv::MyMemoryBlock& block) {
    constexpr long BytesOfLong = 4;
    MeasuredPatch patch;
    block >> patch.number;
    patch.name = TakeText(block);
    int points = 0;
    block >> points;
    if (points != kv::SpectralPoints || Unread(block) < points * BytesOfLong) return std::nullopt;
    for (int k = 0; k < kv::SpectralPoints; ++k) {
        long bits = 0;
        block >> bits;
        patch.spectrum[k] = std::bit_cast<float>(static_cast<std::int32_t>(bits));
    }
    return patch;
}

void PutConditions(kv::MyMemoryBlock& block, files::StatedConditions const& conditions) {
    block << (conditions.illuminant ? sv::String(*conditions.illuminant) : sv::String());
    PutText(block, !conditions.observer                                   ? ""
                   : *conditions.observer == kv::ObserverType::TenDegrees ? "10"
                                                                          : "2");
    for (auto const* text : {&conditions.measurementMode, &conditions.filter, &conditions.whiteBase}) {
        PutText(block, *text);
    }
}

files::StatedConditions TakeConditions(kv::MyMemoryBlock& block) {
    files::StatedConditions conditions;
    conditions.illuminant = files::ToIlluminant(TakeText(block));
    conditions.observer = files::ToObserver(TakeText(block));
    for (auto* text : {&conditions.measurementMode, &conditions.filter, &conditions.whiteBase}) {
        *text = TakeText(block);
    }
    return conditions;
}

}  // namespace suite
