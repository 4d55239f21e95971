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

/// Removes a comment, which begins at "#" outside quotes.
std::string_view WithoutComment(std::string_view line) {
    bool isQuoted = false;
    for (std::size_t at = 0; at < line.size(); ++at) {
        if (line[at] == '"') isQuoted = !isQuoted;
        if (line[at] == '#' && !isQuoted) return line.substr(0, at);
    }
    return line;
}

bool Contains(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

class CgatsReader {
  public:
    CgatsReader(std::string_view text, ReadOptions const& options, MeasurementFile& file)
        : lines_(text), options_(options), file_(file) {}

    void Read() {
        while (lines_.Next()) {
            std::string_view line = lines_.Text();
            if (!UnwrapLine(line, unwrapped_.emplace_back())) unwrapped_.pop_back();
            TakeLine(WithoutComment(line));
            if (section_ != Section::Data || row_.empty()) unwrapped_.clear();
        }
        CheckEnd();
        if (file_.dialect.empty()) file_.dialect = "CGATS";
        ReportTables();
        table_->Finish(file_, stated_, options_.scale);
        file_.stated = conditions_.Stated();
        for (std::string& note : conditions_.Notes()) file_.warnings.push_back(std::move(note));
    }

  private:
    enum class Section : int { Header, Format, Data, Skipped, After };

    [[nodiscard]] Location Here() const { return {file_.path, lines_.Number()}; }

    void TakeLine(std::string_view line) {
        bool const isClosed = SplitAt(Blanks, line, cells_);
        if (isClosed && cells_.empty()) return;
        std::string_view const first = cells_.empty() ? std::string_view() : WithoutQuotes(cells_.front());
        if (isClosed && TakeSectionMark(first)) return;
        if (section_ == Section::Header) TakeKeyword(line, first);
        if (section_ == Section::Format) TakeFields(isClosed);
        if (section_ == Section::Data) TakeData(line, isClosed);
    }

    /// Handles BEGIN_ and END_ lines; returns false for all others.
    bool TakeSectionMark(std::string_view word) {
        if (section_ == Section::After) {
            if (word == "BEGIN_DATA") ++tables_;
            return true;
        }
        if (word == "BEGIN_DATA_FORMAT") return BeginFormat(word);
        if (word == "BEGIN_DATA") return BeginData(word);
        if (word == "END_DATA_FORMAT") return EndFormat(word);
        if (word == "END_DATA") return EndData(word);
        return false;
    }

    bool BeginFormat(std::string_view word) {
        Require(section_ == Section::Header && names_.empty(), word);
        section_ = Section::Format;
        formatLine_ = lines_.Number();
        return true;
    }

    bool EndFormat(std::string_view word) {
        Require(section_ == Section::Format, word);
        if (names_.empty()) Fail(Here(), "no field names", "some before " + std::string(word));
        section_ = Section::Header;
        return true;
    }

    bool BeginData(std::string_view word) {
        // A further table may leave out its format.
        Require(section_ == Section::Header && (!names_.empty() || tables_ > 0), word);
        ++tables_;
        Location const format{file_.path, formatLine_};
        if (options_.table == 0 ? !HasSpectralNames(names_) : options_.table != tables_) {
            section_ = Section::Skipped;
            if (tables_ == 1) skipped_ = {names_, formatLine_};
            return true;
        }
        if (emission_) Fail({file_.path, emission_->line}, emission_->text, "a measurement of reflectance");
        section_ = Section::Data;
        takenTable_ = tables_;
        table_.emplace(std::move(names_), Dialect::Cgats, format);
        return true;
    }

    bool EndData(std::string_view word) {
        Require(section_ == Section::Data || section_ == Section::Skipped, word);
        if (section_ == Section::Data) {
            RefuseOpenRow();
            section_ = Section::After;
            return true;
        }
        section_ = Section::Header;
        names_.clear();
        statedSets_.reset();
        statedFields_.reset();
        emission_.reset();
        return true;
    }

    void Require(bool isInOrder, std::string_view word) const {
        if (!isInOrder) Fail(Here(), word, Expected());
        if (cells_.size() > 1) {
            Fail(Here(), Excerpt(cells_[1]) + " after " + std::string(word), "the end of the line");
        }
    }

    /// The line that ends this section, for error messages.
    [[nodiscard]] char const* Expected() const {
        if (section_ == Section::Format) return "END_DATA_FORMAT";
        if (section_ == Section::Data || section_ == Section::Skipped) return "END_DATA";
        return names_.empty() ? "BEGIN_DATA_FORMAT" : "BEGIN_DATA";
    }

    void TakeKeyword(std::string_view line, std::string_view keyword) {
        if (keyword.empty()) return;
        // The value is the rest of the line: some writers do not quote it.
        std::string_view const rest = Trimmed(line.substr(line.find(cells_[0]) + cells_[0].size()));
        if (file_.dialect.empty()) {
            file_.dialect = rest.empty() ? ToUtf8(keyword) : "CGATS";
            if (file_.dialect == "SPECT")
                emission_ = {"the format SPECT, of lamps and displays", lines_.Number()};
        }
        if (rest.empty()) return;
        bool const isQuoted = cells_.size() > 1 && cells_[1].starts_with('"');
        std::string const value = isQuoted ? Unquoted(cells_[1]) : std::string(WithoutQuotes(rest));
        if (keyword == "NUMBER_OF_FIELDS") statedFields_ = value;
        if (keyword == "NUMBER_OF_SETS") statedSets_ = value;
        if (keyword == "SPECTRAL_NORM") TakeNorm(value);
        if (keyword == "DEVICE_CLASS" || keyword == "MEAS_TYPE" || keyword == "MEASUREMENT_TYPE") {
            TakeKind(keyword, value);
        }
        conditions_.Take(keyword, value);
    }

    /// Finds out whether the values are reflectances.
    void TakeKind(std::string_view keyword, std::string const& value) {
        std::string const kind = Key(value);
        std::string const text = std::string(keyword) + ' ' + Excerpt(value);
        if (Contains(kind, "EMISS") || Contains(kind, "DISPLAY") || Contains(kind, "AMBIENT") ||
            Contains(kind, "RADIANCE")) {
            emission_ = {text, lines_.Number()};
        } else if (Contains(kind, "REFLECT")) {
            emission_.reset();
        } else if (Contains(kind, "TRANSM")) {
            file_.warnings.push_back(text + ": transmittance read as reflectance");
        }
    }

    /// Reads the value of a perfect white.
    void TakeNorm(std::string const& value) {
        auto const norm = ToNumber(value);
        if (norm != 1 && norm != 100) Fail(Here(), "SPECTRAL_NORM " + Excerpt(value), "1 or 100");
        stated_ = StatedScale{norm == 1 ? Scale::Fraction : Scale::Percent, "SPECTRAL_NORM"};
    }

    void TakeFields(bool isClosed) {
        RefuseOpenQuote(isClosed);
        for (std::string_view const cell : cells_) names_.push_back(ToUtf8(Unquoted(cell)));
        if (names_.size() > MaxColumns) {
            Fail(Here(), "more than " + std::to_string(MaxColumns) + " fields", "at most that");
        }
    }

    void TakeData(std::string_view line, bool isClosed) {
        if (row_.empty()) rowLine_ = lines_.Number();
        if (row_.empty() && TakeTabbedRow(line)) return;
        RefuseOpenQuote(isClosed);
        std::size_t const width = table_->Width();
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
        Fail({file_.path, rowLine_}, "a row of " + std::to_string(count) + " values",
             std::to_string(table_->Width()) + ", one for each field");
    }

    void RefuseOpenQuote(bool isClosed) const {
        if (!isClosed) Fail(Here(), "a quote that is not closed", "its end in the same line");
    }

    /// Refuses a file that stops early, since its last number may be incomplete, and one without the table.
    void CheckEnd() const {
        bool const isComplete =
            section_ == Section::After || (section_ == Section::Header && tables_ > 0 && names_.empty());
        if (!isComplete) Fail(Here(), "the end of the file", Expected());
        if (!table_ && options_.table > 0) {
            Fail({file_.path}, "there is no table " + std::to_string(options_.table) + " (there " +
                                   (tables_ == 1 ? "is 1" : "are " + std::to_string(tables_)) + ')');
        }
        // Names what the first table lacks.
        if (!table_)
            static_cast<void>(FindColumns(skipped_.names, Dialect::Cgats, {file_.path, skipped_.line}));
        if (table_->Rows() == 0) Fail(Here(), "no rows of data", "one at least");
    }

    void ReportTables() {
        if (tables_ > 1 && options_.table == 0) {
            file_.warnings.push_back("table " + std::to_string(takenTable_) + " of " +
                                     std::to_string(tables_) +
                                     " read, the first with spectra (use --table to choose)");
        }
        auto const differs = [](std::optional<std::string> const& stated, std::size_t count) {
            return stated && ToNumber(*stated) != static_cast<double>(count);
        };
        if (differs(statedSets_, table_->Rows())) {
            file_.warnings.push_back("NUMBER_OF_SETS is " + Excerpt(*statedSets_) + ", but the table has " +
                                     Counted(table_->Rows(), "row"));
        }
        if (differs(statedFields_, table_->Width())) {
            file_.notes.push_back("NUMBER_OF_FIELDS is " + Excerpt(*statedFields_) + ", but the table has " +
                                  Counted(table_->Width(), "field"));
        }
    }

    struct Statement {
        std::string text;
        std::size_t line;
    };
    struct Format {
        std::vector<std::string> names;
        std::size_t line = 0;
    };

    LineReader lines_;
    ReadOptions const& options_;
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
    std::optional<Statement> emission_;  // why the values are not reflectances
    std::size_t tables_ = 0;             // so far
    std::size_t takenTable_ = 0;
    Format skipped_;  // of the first table
    bool hasWrappedRows_ = false;
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

void ReadCgats(std::string_view text, ReadOptions const& options, MeasurementFile& file) {
    CgatsReader(text, options, file).Read();
}

}  // namespace files
