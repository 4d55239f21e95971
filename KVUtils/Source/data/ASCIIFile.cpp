#include "KVUtils/Source/data/ASCIIFile.h"

#include "KVUtils/Source/controls/RegisterTopWindow.h"
#include "KVUtils/Source/controls/TextFenster.h"
#include "KVUtils/Source/data/GString.h"
#include "KVUtils/Source/data/detail/DataLine.h"
#include "KVUtils/Source/frame/APPSETTI.h"
#include "KVUtils/Source/frame/Check.h"
#include "SV/core/NativePath.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <system_error>
#include <utility>

namespace kv {

using detail::DataLine;
using detail::LineEnd;

namespace {

constexpr int IntegerWidth = 6;
constexpr int RealWidth = 6;  // plus the decimals
constexpr int OldestVersion = 2;

/// Bytes of a file that are searched for an LF.
constexpr int ProbeLength = 1024;

/// Returns 0 for a file that does not exist.
unsigned long SizeOf(std::filesystem::path const& path) {
    std::error_code error;
    auto const size = std::filesystem::file_size(path, error);
    return error ? 0 : static_cast<unsigned long>(size);
}

LineEnd LineEndOf(std::filesystem::path const& path) {
    std::ifstream probe(path);
    char character = 0;
    for (int i = 0; i < ProbeLength && probe.get(character); ++i) {
        if (character == '\n') return LineEnd::LineFeed;
    }
    return LineEnd::CarriageReturn;
}

/// A pointer that does not own its stream.
template <class Stream>
std::shared_ptr<Stream> Borrowed(Stream* stream) {
    return std::shared_ptr<Stream>(std::shared_ptr<void>(), stream);
}

/// Replaces each control character by "^" and a letter.
std::string Escaped(std::string_view text) {
    std::string escaped;
    for (char const character : text) {
        auto const code = static_cast<uchar>(character);
        bool const isEscaped = code < 0x20 && character != '\t';
        if (isEscaped) escaped += '^';
        escaped += isEscaped ? static_cast<char>(character + '@') : character;
    }
    return escaped;
}

std::string TwoDigits(int value) {
    std::string text(value < 10 ? "0" : "");
    return text += std::to_string(value);
}

}  // namespace

namespace detail {

CurrentLine::CurrentLine(DataLine const& line) : line_(std::make_unique<DataLine>(line)) {}
CurrentLine::CurrentLine(CurrentLine const& other) : CurrentLine(*other.line_) {}
CurrentLine::~CurrentLine() = default;

CurrentLine& CurrentLine::operator=(CurrentLine const& other) {
    *line_ = *other.line_;
    return *this;
}

}  // namespace detail

ASCIIFile::ASCIIFile(sv::String const& name, uchar read, uchar tabs)
    : fileName_(name),
      line_(DataLine(read != 0 ? LineEndOf(sv::FilePath(name)) : LineEnd::LineFeed)),
      tabMode_(tabs != 0) {
    std::filesystem::path const path = sv::FilePath(name);
    if (read == 0) {
        out_ = std::make_shared<std::ofstream>(path);
        return;
    }
    fileSize_ = SizeOf(path);
    auto const mode = line_->End() == LineEnd::LineFeed ? std::ios::in : std::ios::in | std::ios::binary;
    in_ = std::make_shared<std::ifstream>(path, mode);
    NextLine();
}

ASCIIFile::ASCIIFile(std::iostream* stream, uchar read, uchar tabs)
    : line_(DataLine(LineEnd::LineFeed)), tabMode_(tabs != 0) {
    if (read == 0) {
        out_ = Borrowed<std::ostream>(stream);
        return;
    }
    in_ = Borrowed<std::istream>(stream);
    NextLine();
}

void ASCIIFile::PutBOOL(sv::String const& key, uchar value) { PutInt(key, value); }
void ASCIIFile::PutShort(sv::String const& key, short value) { PutInt(key, value); }
void ASCIIFile::PutInt(sv::String const& key, int value) { PutLine(key, std::to_string(value)); }

void ASCIIFile::PutShortArray(sv::String const& key, short const* values, int count) {
    PutArray(key, values, count, [](short value) { return GString(int{value}, IntegerWidth); });
}

void ASCIIFile::PutIntArray(sv::String const& key, int const* values, int count) {
    PutArray(key, values, count, [](int value) { return GString(value, IntegerWidth); });
}

void ASCIIFile::PutReal(sv::String const& key, double value, short decimals) {
    PutLine(key, FormatReal(value, decimals).View());
}

void ASCIIFile::PutRealArray(sv::String const& key, double const* values, int count, short decimals) {
    PutArray(key, values, count, [&](double value) { return FormatReal(value, decimals); });
}

void ASCIIFile::PutString(sv::String const& key, sv::String const& text) {
    PutLine(key, Escaped(text.View()));
}

void ASCIIFile::PutString(sv::String const& key, MyStringList const& list) {
    sv::String joined;
    for (int i = 0; i < static_cast<int>(list.Count()); ++i) {
        if (i > 0) joined += Separator();
        joined += list[i];
    }
    PutString(key, joined);
}

void ASCIIFile::PutDate(sv::String const& key, int year, int month, int day, int hour, int minute,
                        int second) {
    std::string date = TwoDigits(day) + '-' + TwoDigits(month) + '-' + std::to_string(year);
    if (tabMode_) date += '\t';
    PutLine(key, date + ' ' + TwoDigits(hour) + ':' + TwoDigits(minute) + ':' + TwoDigits(second));
}

void ASCIIFile::PutTitel(sv::String const& title) {
    std::string line = "[";
    line += title.View();
    Write(line += "]\n");
}

void ASCIIFile::SetVersion(int version) {
    version_ = version;
    AppName const* const application = AppName::Instance();
    Check::POINTER(application);
    PutTitel("File");
    PutString("Application", application->GetTitel() + ' ' + application->GetVersion());
    PutInt("Version", version);
}

void ASCIIFile::PutLine(sv::String const& key, std::string_view value) {
    std::string line(key.View());
    line += '=';
    if (tabMode_) line += '\t';
    line += value;
    line += '\n';
    Write(line);
}

template <class Value, class Form>
void ASCIIFile::PutArray(sv::String const& key, Value const* values, int count, Form form) {
    std::string line;
    for (int i = 0; i < count; ++i) {
        line += form(values[i]).View();
        line += Separator();
    }
    PutLine(key, line);
}

sv::String ASCIIFile::FormatReal(double value, short decimals) const {
    int const count = decimals == DefaultDecimals ? precision_ : decimals;
    return GString(value, count + RealWidth, count, '.');
}

void ASCIIFile::Write(std::string const& line) {
    if (out_ != nullptr) out_->write(line.data(), static_cast<std::streamsize>(line.size()));
    CheckOutError();
}

void ASCIIFile::CheckOutError() noexcept {
    if (error_ == 0 && out_ != nullptr && out_->fail()) error_ = 1;
}

float ASCIIFile::GetPercentDone() const noexcept {
    if (fileSize_ == 0) return -1;
    return static_cast<float>(static_cast<double>(consumed_) / static_cast<double>(fileSize_));
}

void ASCIIFile::NextLine() {
    if (in_ == nullptr) return;
    consumed_ += static_cast<unsigned long>(line_->Cursor()) + 1;
    line_->Read(*in_);
}

uchar ASCIIFile::Finish(bool isRead) {
    if (isRead) {
        NextLine();
    } else {
        line_->Rewind();
    }
    return isRead ? 1 : 0;
}

bool ASCIIFile::MatchKey(sv::String const& key) {
    DataLine::Text const found = line_->ScanText('=', true);
    return found.isEnded && found.text == key.View();
}

uchar ASCIIFile::GetBOOL(sv::String const& key, uchar& value) {
    bool const hasKey = MatchKey(key);
    int scanned = 0;
    bool const hasValue = line_->ScanInt(scanned);
    value = static_cast<uchar>(scanned);
    return Finish(hasKey && hasValue);
}

uchar ASCIIFile::GetShort(sv::String const& key, short& value) {
    int scanned = value;
    bool const hasKey = MatchKey(key);
    bool const hasValue = line_->ScanInt(scanned);
    value = static_cast<short>(scanned);
    return Finish(hasKey && hasValue);
}

uchar ASCIIFile::GetInt(sv::String const& key, int& value) {
    bool const hasKey = MatchKey(key);
    bool const hasValue = line_->ScanInt(value);
    return Finish(hasKey && hasValue);
}

uchar ASCIIFile::GetReal(sv::String const& key, double& value) {
    bool const hasKey = MatchKey(key);
    bool const hasValue = line_->ScanReal(value);
    return Finish(hasKey && hasValue);
}

template <class Value, class Scan>
uchar ASCIIFile::GetArray(sv::String const& key, Value* values, int count, Scan scan) {
    bool isRead = MatchKey(key);
    for (int i = 0; i < count && isRead; ++i) isRead = scan(values[i]);
    return Finish(isRead);
}

uchar ASCIIFile::GetShortArray(sv::String const& key, short* values, int count) {
    return GetArray(key, values, count, [this](short& value) {
        int scanned = 0;
        if (!line_->ScanInt(scanned)) return false;
        value = static_cast<short>(scanned);
        return true;
    });
}

uchar ASCIIFile::GetIntArray(sv::String const& key, int* values, int count) {
    return GetArray(key, values, count, [this](int& value) { return line_->ScanInt(value); });
}

uchar ASCIIFile::GetRealArray(sv::String const& key, double* values, int count) {
    return GetArray(key, values, count, [this](double& value) { return line_->ScanReal(value); });
}

uchar ASCIIFile::GetString(sv::String const& key, sv::String& text, uchar dropTabs) {
    if (!MatchKey(key)) return Finish(false);
    text = line_->ScanText('\0', dropTabs != 0).text;
    return Finish(true);
}

uchar ASCIIFile::GetString(sv::String const& key, MyStringList& list) {
    sv::String joined;
    if (GetString(key, joined, 0) == 0) return 0;
    if (joined.View().starts_with(Separator())) joined.Erase(0, 1);
    std::size_t const count = joined.GetTokenCount(Separator());
    for (std::size_t i = 0; i < count; ++i) list.Append(joined.GetToken(i, Separator()));
    return 1;
}

uchar ASCIIFile::GetMultilineString(sv::String const& key, sv::String& text) {
    if (GetString(key, text, 0) == 0) return 0;
    while (line_->BeginsWith('\t')) {
        text += '\n';
        text += line_->ScanText('\0', false).text;
        NextLine();
    }
    return 1;
}

uchar ASCIIFile::GetDate(sv::String const& key, int& year, int& month, int& day, int& hour, int& minute,
                         int& second) {
    struct Part {
        int& value;
        char divider;  // may follow the value, any number of times
    };
    bool isRead = MatchKey(key);
    for (Part const& part :
         std::array<Part, 5>{{{day, '-'}, {month, '-'}, {year, ' '}, {hour, ':'}, {minute, ':'}}}) {
        isRead = isRead && line_->ScanInt(part.value);
        line_->SkipDividers(part.divider);
    }
    // Old programs write no seconds.
    if (isRead && !line_->ScanInt(second)) second = 0;
    return Finish(isRead);
}

uchar ASCIIFile::GetTitel(sv::String const& title) {
    if (!line_->Take('[')) return Finish(false);
    DataLine::Text const found = line_->ScanText(']', true);
    return Finish(found.isEnded && found.text == title.View());
}

uchar ASCIIFile::SkipToTitel(sv::String const& title) {
    while (GetTitel(title) == 0) {
        if (in_ == nullptr || in_->eof() || in_->bad()) return 0;
        NextLine();
    }
    return 1;
}

uchar ASCIIFile::SkipLines(int count) {
    for (int i = 0; i < count; ++i) NextLine();
    return 1;
}

uchar ASCIIFile::GetKeyString(sv::String& text) {
    std::string_view const line = line_->ScanText('\0', true).text;
    bool const isFree = !line.empty() && line.front() != '[';
    if (isFree) text = line;
    return Finish(isFree);
}

uchar ASCIIFile::CheckVersion(int highest) {
    sv::String application;
    bool const isRead = GetTitel("File") != 0 && GetString("Application", application, 1) != 0 &&
                        GetInt("Version", version_) != 0;
    return isRead && version_ >= OldestVersion && version_ <= highest ? 1 : 0;
}

void ASCIIFile::MeldungAusgeben(sv::String const& message) { GetTextFenster()->AddLine(message); }

TextFenster* ASCIIFile::GetTextFenster() {
    constexpr int width = 600;
    constexpr int height = 440;
    if (messages_ == nullptr) {
        messages_ = std::make_shared<TextFenster>(RegisterTopWindow::GetActiveTopWindow(), sv::String(),
                                                  width, height);
    }
    return messages_.get();
}

void ASCIIFile::MeldungenZeigen() {
    if (messages_ == nullptr) return;
    messages_->AnzeigenUndWarten(0);
    messages_.reset();
}

}  // namespace kv
