#include "Apps/files/CsvReader.h"

#include "Apps/files/Quotes.h"
#include "Apps/files/SampleTable.h"
#include "Apps/files/Text.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace files {

namespace {

/// Splits a line; if a spreadsheet quoted the whole line, splits its content.
class CellSplitter {
  public:
    explicit CellSplitter(char separator) noexcept : separator_(separator) {}

    /// Returns false if a quote is not closed. The cells are valid until the next call.
    [[nodiscard]] bool Split(std::string_view line, Cells& cells) {
        if (!SplitAt(separator_, line, cells)) return false;
        return cells.size() > 1 || !UnwrapLine(line, unwrapped_) || SplitAt(separator_, line, cells);
    }

  private:
    char separator_;
    std::string unwrapped_;
};

void DropEmptyEnd(Cells& cells, std::size_t leastSize) {
    while (cells.size() > leastSize && WithoutQuotes(cells.back()).empty()) cells.pop_back();
}

bool IsComment(std::string_view line) {
    std::string_view const text = Trimmed(line);
    // Some spreadsheets declare the separator in a line of its own.
    bool const isAnnouncement = text.size() == 5 && text.starts_with("sep=");
    return text.empty() || text.starts_with('#') || isAnnouncement;
}

std::size_t CountWavelengths(Cells const& cells) {
    return static_cast<std::size_t>(std::ranges::count_if(cells, [](std::string_view cell) {
        auto const name = ToSpectralName(WithoutQuotes(cell));
        return name && name->nm;
    }));
}

struct Head {
    char separator = ',';
    std::vector<std::string> names;
};

/// Chooses the separator that yields the most wavelengths.
Head ReadHead(std::string_view line, Location const& location) {
    Head head;
    Cells cells;
    std::size_t most = 0;
    for (char const separator : {',', ';', '\t'}) {
        CellSplitter splitter(separator);
        if (!splitter.Split(line, cells))
            Fail(location, "a quote that is not closed", "its end in the same line");
        std::size_t const count = CountWavelengths(cells);
        if (count <= most) continue;
        most = count;
        DropEmptyEnd(cells, 0);
        head = {separator, {}};
        for (std::string_view const cell : cells) head.names.push_back(ToUtf8(Unquoted(cell)));
    }
    if (most == 0) {
        Fail(location, Excerpt(Trimmed(line)),
             "a CSV header with wavelengths, or a CGATS file with BEGIN_DATA_FORMAT and BEGIN_DATA");
    }
    return head;
}

char const* NameOf(char separator) {
    if (separator == '\t') return "tabs";
    return separator == ';' ? "semicolons" : "commas";
}

void ReadRows(LineReader& lines, char separator, SampleTable& table, MeasurementFile& file) {
    CellSplitter splitter(separator);
    Cells cells;
    std::size_t skipped = 0;
    std::size_t firstSkipped = 0;
    while (lines.Next()) {
        Location const location{file.path, lines.Number()};
        if (Trimmed(lines.Text()).starts_with('#')) {
            if (skipped++ == 0) firstSkipped = lines.Number();
            continue;
        }
        if (!splitter.Split(lines.Text(), cells)) {
            Fail(location, "a quote that is not closed", "its end in the same line");
        }
        bool const isBlank =
            std::ranges::all_of(cells, [](auto cell) { return WithoutQuotes(cell).empty(); });
        if (isBlank) continue;
        DropEmptyEnd(cells, table.Width());
        if (cells.size() != table.Width()) {
            Fail(location, "a row of " + std::to_string(cells.size()) + " cells",
                 std::to_string(table.Width()) + " as in the header");
        }
        table.AddRow(cells, location);
    }
    if (table.Rows() == 0) Fail({file.path, lines.Number()}, "no rows after the header", "one at least");
    if (skipped > 0) {
        file.warnings.push_back(Counted(skipped, "row") + " skipped that begin" + (skipped == 1 ? "s" : "") +
                                " with \"#\" (line " + std::to_string(firstSkipped) +
                                (skipped == 1 ? "" : ", ...") + "); quote the name to read it");
    }
}

}  // namespace

void ReadCsv(std::string_view text, ReadOptions const& options, MeasurementFile& file) {
    LineReader lines(text);
    while (lines.Next() && IsComment(lines.Text())) {
    }
    Location const headLocation{file.path, lines.Number()};
    Head head = ReadHead(lines.Text(), headLocation);
    SampleTable table(std::move(head.names), Dialect::Csv, headLocation);
    ReadRows(lines, head.separator, table, file);
    file.dialect = "CSV";
    file.notes.push_back(std::string("cells separated by ") + NameOf(head.separator));
    table.Finish(file, std::nullopt, options.scale);
}

}  // namespace files
