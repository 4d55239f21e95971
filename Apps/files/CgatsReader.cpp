#include "Apps/files/CgatsReader.h"

#include "Apps/files/Quotes.h"
#include "Apps/files/SampleTable.h"
#include "Apps/files/Text.h"

#include <algorithm>
#include <deque>
#include <optional>
#include <span>
#include <utility>

namespace files {

namespace {

std::string Count(std::size_t count, char const* what) { return std::to_string(count) + " " + what; }

class CgatsReader {
  public:
    CgatsReader(std::string_view text, MeasurementFile& file) : lines_(text), file_(file) {}

    void Read() {
        while (lines_.Next()) {
            std::string_view line = lines_.Text();
            if (!UnwrapLine(line, unwrapped_.emplace_back())) unwrapped_.pop_back();
            TakeLine(line);
            if (section_ != Section::Data || row_.empty()) unwrapped_.clear();
        }
        CheckEnd();
        if (file_.dialect.empty()) file_.dialect = "CGATS";
        NoteCounts();
        table_->Finish(file_, stated_);
        file_.stated = conditions_.Stated();
        for (std::string& note : conditions_.Notes()) file_.notes.push_back(std::move(note));
    }

  private:
    enum class Section : int { Header, Format, Data, After };

    [[nodiscard]] Location Here() const { return {file_.path, lines_.Number()}; }

    void TakeLine(std::string_view line) {
        bool const isClosed = SplitAt(Blanks, line, cells_);
        if (isClosed && cells_.empty()) return;
        std::string_view const first = cells_.empty() ? std::string_view() : WithoutQuotes(cells_.front());
        if (isClosed && TakeSectionMark(first)) return;
        bool const isComment = line.front() == '#';
        if (section_ == Section::Header && !isComment) TakeKeyword(line, first);
        if (section_ == Section::Format && !isComment) TakeFields(isClosed);
        if (section_ == Section::Data) TakeData(line, isClosed);
    }

    /// Handles BEGIN_ and END_ lines; returns false for all others.
    bool TakeSectionMark(std::string_view word) {
        if (word == "BEGIN_DATA_FORMAT") return Begin(word, section_ == Section::Header && names_.empty());
        if (word == "BEGIN_DATA") return Begin(word, section_ == Section::Header && !names_.empty());
        if (word == "END_DATA_FORMAT") return End(word, Section::Format, Section::Header);
        if (word == "END_DATA") return End(word, Section::Data, Section::After);
        return false;
    }

    bool Begin(std::string_view word, bool isInOrder) {
        bool const isFormat = word == "BEGIN_DATA_FORMAT";
        if (section_ == Section::After) {
            NoteFurtherTable();
            return true;
        }
        if (!isInOrder) Fail(Here(), word, Expected());
        RefuseRest(word);
        section_ = isFormat ? Section::Format : Section::Data;
        if (isFormat) formatLine_ = lines_.Number();
        if (!isFormat) table_.emplace(std::move(names_), Dialect::Cgats, Location{file_.path, formatLine_});
        return true;
    }

    bool End(std::string_view word, Section from, Section to) {
        if (section_ == Section::After) return true;
        if (section_ != from) Fail(Here(), word, Expected());
        RefuseRest(word);
        if (from == Section::Format && names_.empty())
            Fail(Here(), "no field names", "some before " + std::string(word));
        if (from == Section::Data) RefuseOpenRow();
        section_ = to;
        return true;
    }

    /// The line that ends this section, for error messages.
    [[nodiscard]] char const* Expected() const {
        if (section_ == Section::Format) return "END_DATA_FORMAT";
        if (section_ == Section::Data) return "END_DATA";
        return names_.empty() ? "BEGIN_DATA_FORMAT" : "BEGIN_DATA";
    }

    void RefuseRest(std::string_view word) const {
        if (cells_.size() > 1)
            Fail(Here(), Excerpt(cells_[1]) + " after " + std::string(word), "the end of the line");
    }

    void NoteFurtherTable() {
        if (hasFurtherTable_) return;
        hasFurtherTable_ = true;
        file_.notes.push_back("a further table from line " + std::to_string(lines_.Number()) +
                              " on is not read");
    }

    void TakeKeyword(std::string_view line, std::string_view keyword) {
        if (keyword.empty()) return;
        // The value is the rest of the line: some writers do not quote it.
        std::string_view const rest = Trimmed(line.substr(line.find(cells_[0]) + cells_[0].size()));
        if (file_.dialect.empty()) {
            file_.dialect = rest.empty() ? ToUtf8(keyword) : "CGATS";
        }
        if (rest.empty()) return;
        bool const isQuoted = cells_.size() > 1 && cells_[1].starts_with('"');
        std::string const value = isQuoted ? Unquoted(cells_[1]) : std::string(WithoutQuotes(rest));
        if (keyword == "NUMBER_OF_FIELDS") statedFields_ = value;
        if (keyword == "NUMBER_OF_SETS") statedSets_ = value;
        if (keyword == "SPECTRAL_NORM") TakeNorm(value);
        conditions_.Take(keyword, value);
    }

    /// The value that stands for a perfect white.
    void TakeNorm(std::string const& value) {
        auto const norm = ToNumber(value);
        if (norm != 1 && norm != 100) Fail(Here(), "SPECTRAL_NORM " + Excerpt(value), "1 or 100");
        stated_ = StatedScale{norm == 1 ? Scale::Fraction : Scale::Percent, "SPECTRAL_NORM"};
    }

    void TakeFields(bool isClosed) {
        RefuseOpenQuote(isClosed);
        for (std::string_view const cell : cells_) names_.push_back(ToUtf8(Unquoted(cell)));
        if (names_.size() > MaxColumns) {
            Fail(Here(), "more than " + Count(MaxColumns, "fields"), "at most that");
        }
    }

    void TakeData(std::string_view line, bool isClosed) {
        if (row_.empty()) rowLine_ = lines_.Number();
        if (row_.empty() && TakeTabbedRow(line)) return;
        RefuseOpenQuote(isClosed);
        std::size_t const width = table_->Width();
        bool const isComment = line.front() == '#' && cells_.size() != width;
        if (isComment) return;
        if (row_.empty() && cells_.size() % width == 0) {
            for (std::size_t at = 0; at < cells_.size(); at += width) {
                table_->AddRow(std::span(cells_).subspan(at, width), Here());
            }
            return;
        }
        TakePartOfRow(width);
    }

    /// A row separated by tabs alone may have blanks in its names and empty cells.
    bool TakeTabbedRow(std::string_view line) {
        if (line.find('\t') == std::string_view::npos || !SplitAt('\t', line, tabbed_)) return false;
        while (tabbed_.size() > table_->Width() && tabbed_.back().empty()) tabbed_.pop_back();
        if (tabbed_.size() == table_->Width()) {
            table_->AddRow(tabbed_, Here());
            return true;
        }
        // If tabs separate most of the row, a blank belongs to a name; as a separator it would shift the
        // values.
        auto const filled =
            static_cast<std::size_t>(std::ranges::count_if(tabbed_, [](auto cell) { return !cell.empty(); }));
        if (filled * 2 > table_->Width() && filled != cells_.size()) RefuseRow(tabbed_.size());
        return false;
    }

    /// Adds a line to a row that spans several lines; a row ends at the end of a line.
    void TakePartOfRow(std::size_t width) {
        if (row_.empty() && cells_.size() > width) RefuseRow(cells_.size());
        if (row_.size() + cells_.size() > width) RefuseOpenRow();
        row_.insert(row_.end(), cells_.begin(), cells_.end());
        if (row_.size() < width) return;
        table_->AddRow(row_, {file_.path, rowLine_});
        row_.clear();
        if (std::exchange(hasWrappedRows_, true)) return;
        file_.notes.push_back("rows over several lines, the first from line " + std::to_string(rowLine_) +
                              " on");
    }

    void RefuseOpenRow() const {
        if (!row_.empty()) RefuseRow(row_.size());
    }

    [[noreturn]] void RefuseRow(std::size_t count) const {
        Fail({file_.path, rowLine_}, "a row of " + Count(count, "values"),
             std::to_string(table_->Width()) + ", one for each field");
    }

    void RefuseOpenQuote(bool isClosed) const {
        if (!isClosed) Fail(Here(), "a quote that is not closed", "its end in the same line");
    }

    /// Refuses a file that stops early: its last number may be incomplete.
    void CheckEnd() const {
        if (section_ != Section::After) Fail(Here(), "the end of the file", Expected());
        if (table_->Rows() == 0) Fail(Here(), "no rows of data", "one at least");
    }

    void NoteCounts() {
        auto const note = [this](char const* keyword, std::optional<std::string> const& stated,
                                 std::size_t count, char const* what) {
            if (!stated || ToNumber(*stated) == static_cast<double>(count)) return;
            file_.notes.push_back(std::string(keyword) + " says " + Excerpt(*stated) + ", the file has " +
                                  Count(count, what));
        };
        note("NUMBER_OF_FIELDS", statedFields_, table_->Width(), "fields");
        note("NUMBER_OF_SETS", statedSets_, table_->Rows(), "rows");
    }

    LineReader lines_;
    MeasurementFile& file_;
    Section section_ = Section::Header;
    Cells cells_;
    Cells tabbed_;
    Cells row_;  // the cells so far of a row that spans several lines
    std::size_t rowLine_ = 0;
    std::deque<std::string> unwrapped_;  // keeps what cells_ and row_ view
    std::vector<std::string> names_;
    std::size_t formatLine_ = 0;
    std::optional<SampleTable> table_;
    ConditionReader conditions_;
    std::optional<StatedScale> stated_;
    std::optional<std::string> statedFields_;
    std::optional<std::string> statedSets_;
    bool hasWrappedRows_ = false;
    bool hasFurtherTable_ = false;
};

}  // namespace

bool IsCgats(std::string_view text) noexcept {
    constexpr std::string_view Mark = "BEGIN_DATA";
    for (auto at = text.find(Mark); at != std::string_view::npos; at = text.find(Mark, at + Mark.size())) {
        auto const before = at == 0 ? std::string_view::npos : text.find_last_not_of(" \t\"", at - 1);
        if (before == std::string_view::npos || text[before] == '\n' || text[before] == '\r') return true;
    }
    return false;
}

void ReadCgats(std::string_view text, MeasurementFile& file) { CgatsReader(text, file).Read(); }

}  // namespace files
