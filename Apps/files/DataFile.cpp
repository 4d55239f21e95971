#include "Apps/files/DataFile.h"

#include "Apps/files/Numbers.h"
#include "Apps/files/Reflectance.h"
#include "Apps/files/SampleTable.h"
#include "Apps/files/SuiteText.h"
#include "Apps/files/Text.h"
#include "KVUtils/Source/data/ASCIIFile.h"
#include "Platform/Files.h"
#include "Platform/Utf8Path.h"

#include <array>
#include <cerrno>
#include <charconv>
#include <filesystem>
#include <optional>
#include <sstream>
#include <system_error>
#include <utility>

namespace files {

namespace {

namespace fs = std::filesystem;

constexpr int FormatVersion = 2;
constexpr std::string_view FirstLine = "[File]";
/// The format reads no more of a line.
constexpr std::size_t LongestLine = 1023;
constexpr short LabDecimals = 4;

/// Returns the name of a file without its directories.
std::string NameOf(std::string const& path) { return platform::Utf8Of(platform::PathOf(path).filename()); }

void PutText(kv::ASCIIFile& out, char const* key, std::string_view utf8) {
    out.PutString(key, ToSuite(utf8));
}

void PutConditions(kv::ASCIIFile& out, StatedConditions const& stated) {
    if (stated.illuminant) out.PutString("Illuminant", sv::String(*stated.illuminant));
    if (stated.observer) {
        out.PutString("Observer", *stated.observer == kv::ObserverType::TenDegrees ? "10" : "2");
    }
    if (!stated.measurementMode.empty()) PutText(out, "Mode", stated.measurementMode);
    if (!stated.filter.empty()) PutText(out, "Filter", stated.filter);
    if (!stated.whiteBase.empty()) PutText(out, "WhiteBase", stated.whiteBase);
}

void PutSample(kv::ASCIIFile& out, Sample const& sample) {
    out.PutTitel("Sample");
    PutText(out, "Name", sample.name);
    if (sample.lab) out.PutRealArray("Lab", sample.lab->data(), 3, LabDecimals);
    std::string values;
    for (int i = 0; i < kv::SpectralPoints; ++i) {
        // The fewest digits that read back as the same float; the format has no exponents.
        std::array<char, 64> text{};
        auto const end = std::to_chars(text.data(), text.data() + text.size(), float{sample.spectrum[i]},
                                       std::chars_format::fixed);
        values.append(i > 0 ? " " : "").append(text.data(), end.ptr);
    }
    out.PutString("Spectrum", values);
}

std::string TextOf(MeasurementFile const& file) {
    std::stringstream stream;
    kv::ASCIIFile out(&stream, 0, 0);
    out.SetVersion(FormatVersion);
    out.PutTitel("Measurement");
    PutText(out, "Source", file.source.empty() ? NameOf(file.path) : file.source);
    PutText(out, "Dialect", file.dialect);
    PutConditions(out, file.stated);
    out.PutInt("Samples", static_cast<int>(file.samples.size()));
    for (Sample const& sample : file.samples) PutSample(out, sample);
    return stream.str();
}

[[noreturn]] void FailToWrite(std::string const& path, std::string const& reason) {
    throw WriteError(path + ": cannot be written: " + reason);
}

/// Refuses lines whose end the reader would drop.
void CheckLineLengths(std::string_view text, std::string const& path) {
    for (LineReader lines(text); lines.Next();) {
        if (lines.Text().size() <= LongestLine) continue;
        FailToWrite(path, "line " + std::to_string(lines.Number()) + " would be longer than " +
                              std::to_string(LongestLine) + " characters: " + Excerpt(lines.Text()));
    }
}

class DataFileReader {
  public:
    DataFileReader(std::string_view text, std::string const& name) : name_(name), lines_(text) {
        // From a stream, the format does not read lines that end in CR alone.
        for (LineReader lines(text); lines.Next();) {
            if (lines.Text().size() > LongestLine) {
                Fail({name, lines.Number()}, "a line of " + std::to_string(lines.Text().size()) + " bytes",
                     "at most " + std::to_string(LongestLine) + " in a data file");
            }
            stream_ << lines.Text() << '\n';
        }
        if (!text.ends_with('\n') && !text.ends_with('\r')) {
            Fail({name}, "a last line without its end", "a complete file");
        }
        in_.emplace(&stream_, kv::uchar{1}, kv::uchar{0});
        hasLine_ = lines_.Next();
    }

    MeasurementFile Read() {
        MeasurementFile file;
        file.path = name_;
        file.notes = {"the suite's data file, version " + std::to_string(FormatVersion)};
        TakeHead();
        TakeMeasurement(file);
        auto const count = static_cast<std::size_t>(TakeCount());
        for (std::size_t i = 1; i <= count; ++i) {
            file.samples.push_back(
                TakeSample("sample " + std::to_string(i) + " of " + std::to_string(count)));
        }
        while (hasLine_ && Trimmed(Line()).empty()) Advance();
        if (hasLine_) Refuse("the end of the file after " + std::to_string(count) + " samples");
        return file;
    }

  private:
    [[nodiscard]] Location Here() const { return {name_, lines_.Number() + (hasLine_ ? 0U : 1U)}; }
    [[nodiscard]] std::string_view Line() const { return hasLine_ ? lines_.Text() : std::string_view(); }
    [[noreturn]] void Refuse(std::string const& expected) const {
        Fail(Here(), hasLine_ ? Excerpt(Line()) : "the end of the file", expected);
    }
    void Advance() { hasLine_ = lines_.Next(); }

    /// Keeps in step with the file, which advances by a line exactly if it read something.
    bool Took(kv::uchar answer) {
        if (answer != 0) Advance();
        return answer != 0;
    }

    void TakeHead() {
        bool const isTaken = in_->CheckVersion(FormatVersion) != 0;
        Advance();
        if (!isTaken && !Line().starts_with("Application=")) Refuse("\"Application=\"");
        Advance();
        if (!isTaken) Refuse("\"Version=" + std::to_string(FormatVersion) + '"');
        Advance();
    }

    void TakeMeasurement(MeasurementFile& file) {
        if (!Took(in_->GetTitel("Measurement"))) Refuse("\"[Measurement]\"");
        file.source = TakeText("Source");
        file.dialect = TakeText("Dialect");
        ConditionReader conditions;
        for (char const* const key : {"Illuminant", "Observer", "Mode", "Filter"}) {
            std::string_view const keyword = key == std::string_view("Mode") ? "MeasurementMode" : key;
            if (auto const text = TryText(key)) conditions.Take(keyword, *text);
        }
        file.stated = conditions.Stated();
        file.stated.whiteBase = TryText("WhiteBase").value_or("");
        for (std::string& note : conditions.Notes()) file.warnings.push_back(std::move(note));
    }

    int TakeCount() {
        constexpr auto limit = static_cast<int>(MaxSamples);
        int count = 0;
        if (in_->GetInt("Samples", count) != 0 && count >= 1 && count <= limit) {
            Advance();
            return count;
        }
        Refuse("\"Samples=\" with a number from 1 to " + std::to_string(limit));
    }

    Sample TakeSample(std::string const& which) {
        if (!Took(in_->GetTitel("Sample"))) Refuse("\"[Sample]\" (" + which + ')');
        Sample sample;
        sample.name = TakeText("Name");
        if (Line().starts_with("Lab=")) {
            sample.lab.emplace();
            TakeReals("Lab", *sample.lab);
        }
        std::array<double, kv::SpectralPoints> values{};
        TakeReals("Spectrum", values);
        for (std::size_t i = 0; i < values.size(); ++i) {
            sample.spectrum[static_cast<int>(i)] = Reflectance(values.at(i));
        }
        return sample;
    }

    /// Compares with the limits as a float: a value at the limit was written from a float.
    [[nodiscard]] float Reflectance(double value) const {
        auto const reflectance = static_cast<float>(value);
        if (reflectance < static_cast<float>(LowestReflectance) ||
            reflectance > static_cast<float>(HighestReflectance)) {
            Fail({name_, lines_.Number() - (hasLine_ ? 1U : 0U)}, "reflectance " + ToText(value),
                 ToText(LowestReflectance) + " to " + ToText(HighestReflectance));
        }
        return reflectance;
    }

    std::optional<std::string> TryText(char const* key) {
        sv::String text;
        if (!Took(in_->GetString(key, text, 0))) return std::nullopt;
        return FromSuite(text.View());
    }

    std::string TakeText(char const* key) {
        auto text = TryText(key);
        if (!text) Refuse('"' + std::string(key) + "=\"");
        return *std::move(text);
    }

    template <std::size_t Count>
    void TakeReals(std::string const& key, std::array<double, Count>& values) {
        std::string const expected = '"' + key + "=\" with " + std::to_string(Count) + " numbers";
        if (!Line().starts_with(key + '=')) Refuse(expected);
        CheckNumbers(key, Line().substr(key.size() + 1), Count);
        if (!Took(in_->GetRealArray(key, values.data(), static_cast<int>(Count)))) {
            Refuse(expected + " without exponents");
        }
    }

    /// Checks what the format would accept: a lone "-" as 0, and surplus numbers.
    void CheckNumbers(std::string const& key, std::string_view rest, std::size_t wanted) const {
        std::size_t count = 0;
        for (rest = Trimmed(rest); !rest.empty(); rest = Trimmed(rest)) {
            std::string_view const word = rest.substr(0, rest.find_first_of(" \t"));
            if (!ToNumber(word)) Fail(Here(), Excerpt(word) + " in " + key, "a number");
            rest.remove_prefix(word.size());
            ++count;
        }
        if (count != wanted) {
            Fail(Here(), std::to_string(count) + " numbers in " + key, std::to_string(wanted));
        }
    }

    std::string const& name_;
    LineReader lines_;  // at the next line that the file reads
    bool hasLine_ = false;
    std::stringstream stream_;
    std::optional<kv::ASCIIFile> in_;
};

}  // namespace

bool IsDataFile(std::string_view text) noexcept {
    LineReader lines(text);
    return lines.Next() && lines.Text() == FirstLine;
}

bool IsRepresentable(std::string_view text) {
    return text.find('^') == std::string_view::npos && FromSuite(ToSuite(text)) == text;
}

void WriteDataFile(MeasurementFile const& file, std::string const& path) {
    if (file.samples.size() > MaxSamples)
        FailToWrite(path, "more than " + std::to_string(MaxSamples) + " samples");
    std::string const text = TextOf(file);
    if (text.size() > MaxFileBytes) FailToWrite(path, "more than " + std::to_string(MaxFileBytes) + " bytes");
    CheckLineLengths(text, path);
    std::error_code error;
    fs::file_status const status = fs::status(platform::PathOf(path), error);
    if (fs::exists(status) && !fs::is_regular_file(status)) FailToWrite(path, "not a regular file");
    fs::path const folder = platform::PathOf(path).parent_path();
    if (!folder.empty() && !fs::is_directory(folder, error)) FailToWrite(path, "no such directory");
    errno = 0;
    if (platform::ReplaceAtomically(path, text)) return;
    FailToWrite(path, errno != 0 ? std::generic_category().message(errno) : "unknown reason");
}

MeasurementFile ReadDataFile(std::string_view bytes, std::string const& name) {
    return DataFileReader(CheckedText(bytes, name), name).Read();
}

}  // namespace files
