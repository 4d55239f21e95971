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
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>
#include <system_error>
#include <utility>
#include <vector>

namespace files {

namespace {

namespace fs = std::filesystem;

constexpr int FormatVersion = 2;
constexpr std::string_view FirstLine = "[File]";
/// What of a line the format reads.
constexpr std::size_t LongestLine = 1023;
constexpr short LabDecimals = 4;
/// Half a unit in the last place of a float above 2e-7 is more than half of the last decimal;
/// with 16 decimals, numbers as text would show their own rounding.
constexpr short ReflectanceDecimals = 14;

/// The name of a file without its folders.
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
    std::array<double, kv::SpectralPoints> values{};
    for (int i = 0; i < kv::SpectralPoints; ++i) values.at(static_cast<std::size_t>(i)) = sample.spectrum[i];
    out.PutRealArray("Spectrum", values.data(), kv::SpectralPoints, ReflectanceDecimals);
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

[[noreturn]] void FailToWrite(std::string const& path, std::error_code const& error) {
    FailToWrite(path, error ? error.message() : "the system gives no reason");
}

/// The reader would lose the end of such a line, and nobody would notice.
void CheckLineLengths(std::string_view text, std::string const& path) {
    for (LineReader lines(text); lines.Next();) {
        if (lines.Text().size() <= LongestLine) continue;
        FailToWrite(path, "line " + std::to_string(lines.Number()) + " would be longer than " +
                              std::to_string(LongestLine) + " characters: " + Excerpt(lines.Text()));
    }
}

void WriteBytes(fs::path const& file, std::string const& bytes, std::string const& path) {
    errno = 0;
    std::ofstream stream(file, std::ios::binary | std::ios::trunc);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    stream.close();
    if (stream) return;
    std::error_code const reason(errno, std::generic_category());
    std::error_code ignored;
    fs::remove(file, ignored);
    FailToWrite(path, reason);
}

class Reader {
  public:
    Reader(std::string_view text, std::string const& name) : name_(name) {
        // The format knows no line that ends in CR alone once it reads from a stream.
        for (LineReader lines(text); lines.Next();) {
            lines_.push_back(lines.Text());
            if (lines.Text().size() > LongestLine) {
                Fail({name, lines.Number()}, "a line of " + std::to_string(lines.Text().size()) + " bytes",
                     "at most " + std::to_string(LongestLine) + " in a data file");
            }
            stream_ << lines.Text() << '\n';
        }
        in_.emplace(&stream_, kv::uchar{1}, kv::uchar{0});
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
        while (at_ < lines_.size() && Trimmed(lines_[at_]).empty()) ++at_;
        if (at_ < lines_.size()) Refuse("the end of the file behind " + std::to_string(count) + " samples");
        return file;
    }

  private:
    [[nodiscard]] Place Here() const { return {name_, at_ + 1}; }
    [[nodiscard]] std::string_view Line() const {
        return at_ < lines_.size() ? lines_[at_] : std::string_view();
    }
    [[noreturn]] void Refuse(std::string const& expected) const {
        Fail(Here(), at_ < lines_.size() ? Excerpt(Line()) : "the end of the file", expected);
    }

    /// The file goes on by one line whenever it has read something, and only then.
    bool Took(kv::uchar answer) {
        if (answer != 0) ++at_;
        return answer != 0;
    }

    void TakeHead() {
        bool const isTaken = in_->CheckVersion(FormatVersion) != 0;
        constexpr std::size_t headLines = 3;
        at_ = headLines;
        if (isTaken) return;
        at_ = lines_.size() > 1 && lines_[1].starts_with("Application=") ? 2 : 1;
        Refuse(at_ == 1 ? "\"Application=\"" : "\"Version=" + std::to_string(FormatVersion) + '"');
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
        for (std::string& note : conditions.Notes()) file.notes.push_back(std::move(note));
    }

    int TakeCount() {
        constexpr auto most = static_cast<int>(MaxSamples);
        std::size_t const before = at_;
        int count = 0;
        if (Took(in_->GetInt("Samples", count)) && count >= 1 && count <= most) return count;
        at_ = before;
        Refuse("\"Samples=\" with a number from 1 to " + std::to_string(most));
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

    /// Held against the limits as a float, as which a value at the limit was written.
    [[nodiscard]] float Reflectance(double value) const {
        auto const reflectance = static_cast<float>(value);
        if (reflectance < static_cast<float>(LowestReflectance) ||
            reflectance > static_cast<float>(HighestReflectance)) {
            Fail({name_, at_}, "reflectance " + ToText(value),
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

    /// The format would read a lone "-" as 0 and leave further numbers alone.
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
    std::vector<std::string_view> lines_;
    std::size_t at_ = 0;  // the index of the line that the file stands on
    std::stringstream stream_;
    std::optional<kv::ASCIIFile> in_;
};

}  // namespace

bool IsDataFile(std::string_view text) noexcept {
    LineReader lines(text);
    return lines.Next() && lines.Text() == FirstLine;
}

bool SurvivesDataFile(std::string_view text) {
    return text.find('^') == std::string_view::npos && FromSuite(ToSuite(text)) == text;
}

void WriteDataFile(MeasurementFile const& file, std::string const& path) {
    std::string const text = TextOf(file);
    CheckLineLengths(text, path);
    fs::path const target = platform::PathOf(platform::FollowLinks(path));
    std::error_code error;
    fs::file_status const status = fs::status(target, error);
    if (fs::exists(status) && !fs::is_regular_file(status)) FailToWrite(path, "it is no regular file");
    fs::path beside = target;
    beside += ".part";
    WriteBytes(beside, text, path);
    error.clear();
    if (fs::exists(status)) fs::permissions(beside, status.permissions(), error);
    if (!error) fs::rename(beside, target, error);
    if (!error) return;
    std::error_code ignored;
    fs::remove(beside, ignored);
    FailToWrite(path, error);
}

MeasurementFile ReadDataFile(std::string_view bytes, std::string const& name) {
    return Reader(CheckedText(bytes, name), name).Read();
}

}  // namespace files
