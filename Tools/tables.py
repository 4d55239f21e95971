#!/usr/bin/env python3
"""Brings printed tables into the source and checks that they are still the printed ones.

usage: tables.py write DOCUMENT                 writes the table headers below KVUtils/Source/
       tables.py check DOCUMENT [HEADING ...]   compares every entry with the document, and lists the long
                                                constants below these headings that the source lacks

DOCUMENT is a Markdown text that holds the tables. A header is written whole, one row per physical key, and is
never edited by hand. `check` reads the numbers back out of the C++ files, so it does not depend on `write`.
"""

import pathlib
import re
import sys

TREE = pathlib.Path(__file__).resolve().parent.parent
SOURCE = TREE / "KVUtils" / "Source"
WAVELENGTHS = [str(nm) for nm in range(380, 740, 10)]
NUMBER = re.compile(r"-?\d+(?:\.\d+)?(?:e-?\d+)?")


def markdown_tables(text):
    """Every table of the document as a list of rows of stripped cells, without the ruler line."""
    tables, rows = [], []
    for line in text.splitlines() + [""]:
        if line.startswith("|"):
            cells = [cell.strip() for cell in line.strip().strip("|").split("|")]
            if not all(set(cell) <= set("-: ") and cell for cell in cells):
                rows.append(cells)
        elif rows:
            tables.append(rows)
            rows = []
    return tables


def table_with(tables, *heads):
    """The one table whose head starts with these cells."""
    found = [rows for rows in tables if rows[0][: len(heads)] == list(heads)]
    if len(found) != 1:
        sys.exit(f"tables.py: {len(found)} tables start with {heads}, expected 1")
    return found[0]


def spectral(tables, *heads):
    rows = table_with(tables, *heads)[1:]
    if [row[0] for row in rows] != WAVELENGTHS:
        sys.exit(f"tables.py: the table {heads} does not run from 380 to 730 nm by 10")
    return rows


def unquote(cell):
    """A quoted text, such a text and a number put together, or None for a description."""
    if joined := re.fullmatch(r'"(\w+)" \+ (\d+)', cell):
        return joined[1] + joined[2]
    return cell[1:-1] if len(cell) > 1 and cell[0] == cell[-1] == '"' else None


# ---------------------------------------------------------------------------------------------- writing

NOTE = "// Written by Tools/tables.py from the printed table; not edited by hand.\n"


def header(about, includes, body):
    lines = "".join(f"#include {name}\n" for name in includes)
    return f"{about}{NOTE}#pragma once\n\n{lines}\nnamespace kv::detail {{\n\n// clang-format off\n{body}// clang-format on\n\n}}  // namespace kv::detail\n"


def literal(number):
    """The number as a float literal, digits as printed."""
    if not number:
        return "0.0F"
    return f"{number}F" if "." in number or "e" in number else f"{number}.0F"


def spectral_array(name, rows, comment):
    columns = len(rows[0]) - 1
    literals = [[literal(cell) for cell in row[1:]] for row in rows]
    widths = [max(len(row[k]) for row in literals) for k in range(columns)]
    lines = [f"/// {comment}\n", f"inline constexpr SpectralTable<{columns}> {name} = {{{{\n"]
    for row, cells in zip(rows, literals):
        lines.append(f"    {{{row[0]}, {{{{{', '.join(c.rjust(w) for c, w in zip(cells, widths))}}}}}}},\n")
    return "".join(lines) + "}};\n"


def text_array(struct, name, key, rows):
    lines = [f"inline constexpr std::array<{struct}, {len(rows)}> {name} = {{{{\n"]
    for value, texts in rows:
        quoted = ", ".join(f'"{text}"' if isinstance(text, str) else str(text) for text in texts)
        lines.append(f"    {{{key(value)}, {quoted}}},\n")
    return "".join(lines) + "}};\n"


def read_texts(tables, heads, enum, read, written):
    """Rows (value, (read form, written form)); a form that is not a fixed text stands as the empty text."""
    rows = table_with(tables, *heads)
    names = rows[0]
    result = []
    for row in rows[1:]:
        forms = [unquote(row[names.index(column)]) or "" for column in (read, written)]
        result.append((int(row[0]), forms))
    return text_array("SelectorText", f"{enum}Texts", str, result)


SELECTORS = {
    "Illum": ("`IllumType`", "Illuminant"),
    "Filter": ("`ValueFilterType`", "Filter"),
    "DStd": ("`DStdType`", "Density standard"),
    "WBase": ("`StoredWBaseType`", "White base"),
}


def illuminant_header(tables):
    body = spectral_array("IlluminantTable", spectral(tables, "nm", "A", "C", "D50", "D65"),
                          "CIE illuminants A, C, D50, D65 and the components S0, S1, S2 of CIE daylight, in this order.")
    body += "\n" + spectral_array("FluorescentTable", spectral(tables, "nm", "F1", "F2"),
                                  "CIE fluorescent lamps F1 to F12, in this order.")
    return header("// Relative spectral powers of the illuminants, 380 to 730 nm by 10 (CIE 15).\n",
                  ['"KVUtils/Source/colorimetry/SpectralTable.h"'], body)


def observer_header(tables):
    body = spectral_array("ObserverTable", spectral(tables, "nm", "x2", "y2", "z2"),
                          "x, y, z of the CIE 1931 2 degree observer, then of the CIE 1964 10 degree observer.")
    return header("// Colour-matching functions of the standard observers, 380 to 730 nm by 10 (CIE 15).\n",
                  ['"KVUtils/Source/colorimetry/SpectralTable.h"'], body)


def density_header(tables):
    body = spectral_array(
        "DensityTable", spectral(tables, "nm", "visual"),
        "Visual, which sums to 100; then red, green, blue of ANSI A, of ANSI T and of SPI, each of which sums to 1.")
    return header("// Spectral products of the density standards, 380 to 730 nm by 10 (ISO 5-3).\n",
                  ['"KVUtils/Source/colorimetry/SpectralTable.h"'], body)


def selector_header(tables):
    body = "/// A selector's value and its texts: the one that is read and the one that is written, which differ in places.\n"
    body += "/// An empty text is none: such a value is not read, or is written by rule.\n"
    body += "struct SelectorText {\n    int value;\n    std::string_view read;\n    std::string_view written;\n};\n\n"
    body += "\n".join([
        read_texts(tables, heads, enum, "Read as", "Written as") for enum, heads in SELECTORS.items()
    ])
    return header("// The stored vocabulary of the measuring conditions.\n", ["<array>", "<string_view>"], body)


def language_rows(tables):
    """(absolute index, name, country code), the row of the empty slots spread out."""
    result = []
    for index, name, codes in table_with(tables, "Absolute", "Name", "Country code")[1:]:
        first, _, last = index.partition(" to ")
        for k, code in zip(range(int(first), int(last or first) + 1), codes.split(", ")):
            result.append((k, unquote(name) or "", int(code)))
    return result


def paired_rows(tables, *heads):
    """The rows of a table that is printed in several pairs of columns side by side, as a dictionary."""
    return {cells[k]: int(cells[k + 1]) for cells in table_with(tables, *heads)[1:]
            for k in range(0, len(cells) - 1, 2) if cells[k]}


def system_language_rows(tables):
    """(identifier, absolute index), (name, absolute index), and the index of whatever is in neither."""
    identifiers = paired_rows(tables, "Identifier", "Index")
    names = paired_rows(tables, "Value", "Index", "Value", "Index")
    other = identifiers.pop("all others")
    if names.pop("any other") != other:
        sys.exit("tables.py: identifiers and names disagree on the language of all others")
    names = {"" if name == "empty" else unquote(name): index for name, index in names.items()}
    return sorted((int(k), index) for k, index in identifiers.items()), list(names.items()), other


def code_page_text(text):
    """The inside of a literal of Windows-1252 bytes; what follows an escape stands in a literal of its own."""
    return "".join(c if c.isascii() else f'\\x{c.encode("cp1252")[0]:02X}" "' for c in text)


def language_header(tables):
    rows = language_rows(tables)
    identifiers, names, other = system_language_rows(tables)
    body = "/// A slot of the language table; its place in the array is the absolute index.\n"
    body += "struct LanguageSlot {\n    std::string_view name;  // in the suite's code page\n    unsigned short countryCode;\n};\n\n"
    body += f"inline constexpr std::array<LanguageSlot, {len(rows)}> LanguageTable = {{{{\n"
    body += "".join(f'    {{"{code_page_text(name)}", {code}}},\n' for _, name, code in rows) + "}};\n\n"
    body += "/// The absolute index of a language that the system names by its Windows identifier.\n"
    body += "struct SystemLanguage {\n    unsigned short identifier;\n    unsigned short absolute;\n};\n\n"
    body += f"inline constexpr std::array<SystemLanguage, {len(identifiers)}> SystemLanguages = {{{{\n"
    body += "".join(f"    {{{identifier}, {index}}},\n" for identifier, index in identifiers) + "}};\n\n"
    body += "/// The absolute index of a language that win.ini names.\n"
    body += "struct WinIniLanguage {\n    std::string_view name;\n    unsigned short absolute;\n};\n\n"
    body += f"inline constexpr std::array<WinIniLanguage, {len(names)}> WinIniLanguages = {{{{\n"
    body += "".join(f'    {{"{name}", {index}}},\n' for name, index in names) + "}};\n\n"
    body += "/// The absolute index of a language that the system names otherwise.\n"
    body += f"inline constexpr unsigned short OtherSystemLanguage = {other};\n"
    return header("// The languages that the suite knows, with the codes by which the outside world names them.\n",
                  ["<array>", "<string_view>"], body)


def message_rows(tables):
    """The messages' names by number, None for a reserved number; the count of messages is the last."""
    names = {}
    for row in table_with(tables, "No.", "Name", "No.", "Name")[1:]:
        for number, cell in zip(row[::2], row[1::2]):
            name = re.match(r"`(\w+)`", cell)
            first, _, last = number.partition("-")
            for k in range(int(first), int(last or first) + 1) if number else ():
                names[k] = name and name[1]
    if sorted(names) != list(range(len(names))):
        sys.exit("tables.py: the table of messages has gaps")
    return [names[k] for k in range(len(names))]


def message_header(tables):
    names = message_rows(tables)
    width = max(len(name or "") for name in names)
    body = "/// A message is spoken of by its number.\nenum MessageNumber : int {\n"
    body += "".join(f"    {name} = {k},\n" for k, name in enumerate(names) if name) + "};\n\n"
    body += "/// A message travels by its name, which is padded with zeros; a reserved number has an empty one.\n"
    body += "struct MessageRecord {\n    char name[30];\n};\n\n"
    body += "/// By number. The last record holds the number of messages and is none itself.\n"
    body += f"inline constexpr std::array<MessageRecord, {len(names)}> MessageTable = {{{{\n"
    body += "".join(f'    {{"{name or ""}"}},{" " * (width - len(name or ""))}  // {k}\n'
                    for k, name in enumerate(names)) + "}};\n"
    return header("// The vocabulary of the messages between the programs of the suite.\n", ["<array>"],
                  body).replace("kv::detail", "kv")


def button_rows(tables):
    """(id, style, text index, bitmap record, file) of the standard buttons, as printed."""
    return [row[:4] + [unquote(row[4])]
            for row in table_with(tables, "id", "style", "text index", "bitmap record", "bitmap file")[1:]]


def bitmap_rows(tables, text):
    """(record, file) of every bitmap, in ascending order. Their names are printed as runs of a sentence, each from
    a record on, with the numbers of records that are left out behind; the buttons' own records must agree."""
    names = r'("[^"]+"(?:, "[^"]+")*)'
    left_out = {int(number) for number in re.findall(r"Record (\d+) is left out", text)}
    records = {int(number): name for number, name in re.findall(r'Record (\d+) is "([^"]+)"', text)}
    for first, run in re.findall(rf"from (\d+): {names}", text):
        record = int(first)
        for name in re.findall(r'"([^"]+)"', run):
            while record in left_out:
                record += 1
            records[record] = name
            record += 1
    for _, _, _, record, name in button_rows(tables):
        if records.get(int(record)) != name:
            sys.exit(f"tables.py: bitmap record {record} is {records.get(int(record))}, the button's is {name}")
    return sorted(records.items())


def button_header(tables, text):
    buttons = button_rows(tables)
    bitmaps = bitmap_rows(tables, text)
    body = "/// A button that the bar knows by a single bit: its style, the number of its text, its bitmap.\n"
    body += "struct StandardButton {\n    long id;\n    unsigned short style;\n    unsigned short textIndex;\n"
    body += "    unsigned short bitmapRecord;\n    std::string_view bitmapFile;\n};\n\n"
    body += f"inline constexpr std::array<StandardButton, {len(buttons)}> StandardButtonTable = {{{{\n"
    width = max(len(row[0]) for row in buttons)
    body += "".join(f'    {{{row[0].rjust(width)}, {row[1].rjust(5)}, {row[2].rjust(2)}, {row[3]}, "{row[4]}"}},\n'
                    for row in buttons) + "}};\n\n"
    body += "/// A bitmap of the library's resources, by the number of its record.\n"
    body += "struct BitmapRecord {\n    unsigned short record;\n    std::string_view file;\n};\n\n"
    body += "/// Ascending by record.\n"
    body += f"inline constexpr std::array<BitmapRecord, {len(bitmaps)}> BitmapTable = {{{{\n"
    body += "".join(f'    {{{record}, "{name}"}},\n' for record, name in bitmaps) + "}};\n"
    return header("// The standard buttons of the suite and the bitmaps of the library.\n",
                  ["<array>", "<string_view>"], body)


def display_matrix(tables):
    """The rows of the matrix from X, Y, Z to linear R, G, B, as printed."""
    rows = table_with(tables, "", "X", "Y", "Z")[1:]
    if [row[0] for row in rows] != ["R", "G", "B"]:
        sys.exit("tables.py: the matrix of the display does not run R, G, B")
    return [row[1:] for row in rows]


def matrix_header(tables):
    body = "/// Linear R, G, B (1 for full) from X, Y, Z (Y of 100 for white), row by row.\n"
    body += "inline constexpr std::array<float, 9> DisplayMatrix = {{\n"
    body += "".join(f"    {', '.join(literal(cell) for cell in row)},\n" for row in display_matrix(tables)) + "}};\n"
    return header("// The primaries of the display.\n", ["<array>"], body)


NO_LIMIT = "Unbounded"


def name_rules(tables):
    """The rows that tell the colour of a hue, each a list of cells of source: hue from and to, chroma from and
    below, lightness from and below, number."""
    rules = []
    for hues, condition, number in table_with(tables, "h", "condition", "result")[1:]:
        if hues == "any other":
            continue
        limits = dict(zip(("h", "end", "c", "c below", "L", "L below"),
                          hues.split(" to ") + [f"-{NO_LIMIT}", NO_LIMIT] * 2))
        found = re.findall(r"\b([hcL]) (below|at least) (\d+)", condition)
        if len(found) != len(re.findall(r"below|least", condition)):
            sys.exit(f"tables.py: cannot read the condition '{condition}'")
        for letter, kind, limit in found:
            if letter == "h" and kind == "below":
                limits["end"] = str(int(limit) - 1)
            else:
                limits[letter if kind == "at least" else f"{letter} below"] = limit
        rules.append(list(limits.values()) + [number])
    return rules


def name_header(tables):
    rules = name_rules(tables)
    body = "/// A range of hues (whole degrees, both ends included), of chroma and of lightness (the upper ends not\n"
    body += "/// included), with the number of its colour.\n"
    body += "struct ColourNameRule {\n    int hueFrom, hueTo;\n    double chromaFrom, chromaBelow;\n"
    body += "    double lightnessFrom, lightnessBelow;\n    int number;\n};\n\n"
    body += f"inline constexpr double {NO_LIMIT} = std::numeric_limits<double>::infinity();\n\n"
    body += "/// The first rule that fits decides.\n"
    body += f"inline constexpr std::array<ColourNameRule, {len(rules)}> ColourNameRules = {{{{\n"
    widths = [max(len(rule[k]) for rule in rules) for k in range(7)]
    body += "".join(f"    {{{', '.join(cell.rjust(w) for cell, w in zip(rule, widths))}}},\n"
                    for rule in rules) + "}};\n"
    return header("// How colours that are not neutral get their name.\n", ["<array>", "<limits>"], body)


FILES = {
    "colorimetry/IlluminantTables.h": illuminant_header,
    "colorimetry/ObserverTables.h": observer_header,
    "colorimetry/SelectorTexts.h": selector_header,
    "metrics/ColourNameTable.h": name_header,
    "metrics/DensityTables.h": density_header,
    "metrics/DisplayMatrix.h": matrix_header,
    "frame/LanguageTable.h": language_header,
    "messaging/MessageTable.h": message_header,
}
FILES_FROM_PROSE = {
    "controls/ButtonTables.h": button_header,
}


def write(tables, text):
    contents = {name: make(tables) for name, make in FILES.items()}
    contents |= {name: make(tables, text) for name, make in FILES_FROM_PROSE.items()}
    for name, content in contents.items():
        (SOURCE / name).write_text(content, encoding="utf-8")
        print(f"wrote KVUtils/Source/{name}")


# --------------------------------------------------------------------------------------------- checking

def array_rows(file, name):
    """The rows of one array as the C++ file has them, each a list of its numbers as text."""
    text = (SOURCE / file).read_text(encoding="utf-8")
    body = re.search(rf"\b{name} = \{{\{{\n(.*?)\n\}}\}};", text, re.S)
    if not body:
        sys.exit(f"tables.py: no array {name} in {file}")
    return body.group(1).splitlines()


def check_numbers(file, name, rows, keys=1):
    ours = [[float(n) for n in NUMBER.findall(line)] for line in array_rows(file, name)]
    printed = [[float(cell or 0) for cell in row] for row in rows]
    wrong = sum(a != b for x, y in zip(ours, printed) for a, b in zip(x, y))
    wrong += abs(len(ours) - len(printed)) + sum(len(x) != len(y) for x, y in zip(ours, printed))
    print(f"{name}: {len(rows)} rows, {sum(len(row) - keys for row in rows)} entries, {wrong} differ")
    return wrong


def check_texts(file, name, expected):
    ours = [re.sub(r"\s+", "", line) for line in array_rows(file, name)]
    wrong = sum(a != re.sub(r"\s+", "", b) for a, b in zip(ours, expected)) + abs(len(ours) - len(expected))
    print(f"{name}: {len(expected)} rows, {wrong} differ")
    return wrong


def check_selector(tables, heads, name):
    rows = table_with(tables, *heads)
    columns = [rows[0].index("Read as"), rows[0].index("Written as")]
    expected = [f'    {{{row[0]}, "{unquote(row[columns[0]]) or ""}", "{unquote(row[columns[1]]) or ""}"}},'
                for row in rows[1:]]
    # Blanks inside a text matter ("ANSI T"), so they are compared before white space is folded.
    ours = array_rows("colorimetry/SelectorTexts.h", name)
    wrong = sum(a.strip() != b.strip() for a, b in zip(ours, expected)) + abs(len(ours) - len(expected))
    print(f"{name}: {len(expected)} rows, {wrong} differ")
    return wrong


def check_messages(tables):
    """Compares the records' names and the enumerators with the printed names."""
    names = message_rows(tables)
    records = [re.search(r'"(\w*)"', line)[1] for line in array_rows("messaging/MessageTable.h", "MessageTable")]
    text = (SOURCE / "messaging/MessageTable.h").read_text(encoding="utf-8")
    numbers = {int(number): name for name, number in re.findall(r"^    (\w+) = (\d+),$", text, re.M)}
    wrong = sum(a != (b or "") for a, b in zip(records, names)) + abs(len(records) - len(names))
    wrong += sum(numbers.get(k) != name for k, name in enumerate(names)) + sum(k >= len(names) for k in numbers)
    print(f"MessageTable: {len(names)} rows, {wrong} differ")
    return wrong


def check_constants(text, headings):
    """Lists the constants of six and more digits below these headings that stand nowhere in the source."""
    source = "\n".join(p.read_text(encoding="utf-8") for p in SOURCE.rglob("*") if p.suffix in (".h", ".cpp"))
    known = {float(n) for n in NUMBER.findall(source)}
    missing, count = [], 0
    for heading in headings:
        section = re.search(rf"^# {re.escape(heading)}.*?(?=^# |\Z)", text, re.S | re.M).group(0)
        prose = "\n".join(line for line in section.splitlines() if not line.startswith("|"))
        prose = prose.split("**Edge cases")[0]
        for number in sorted({n for n in NUMBER.findall(prose) if len(n.replace(".", "").lstrip("-0")) >= 6}):
            count += 1
            if abs(float(number)) not in {abs(k) for k in known}:
                missing.append(f"{heading}: {number}")
    print(f"constants: {count} of six and more digits, {len(missing)} not in the source")
    for line in missing:  # no fault in itself: worked examples are among them
        print(f"  look at {line}")


def check(tables, text, headings):
    wrong = check_numbers("colorimetry/IlluminantTables.h", "IlluminantTable", spectral(tables, "nm", "A", "C", "D50"))
    wrong += check_numbers("colorimetry/IlluminantTables.h", "FluorescentTable", spectral(tables, "nm", "F1", "F2"))
    wrong += check_numbers("colorimetry/ObserverTables.h", "ObserverTable", spectral(tables, "nm", "x2", "y2", "z2"))
    wrong += check_numbers("metrics/DensityTables.h", "DensityTable", spectral(tables, "nm", "visual"))
    for enum, heads in SELECTORS.items():
        wrong += check_selector(tables, heads, f"{enum}Texts")
    wrong += check_texts("frame/LanguageTable.h", "LanguageTable",
                         [f'{{"{code_page_text(name)}",{code}}},' for _, name, code in language_rows(tables)])
    identifiers, names, _ = system_language_rows(tables)
    wrong += check_texts("frame/LanguageTable.h", "SystemLanguages",
                         [f"{{{identifier},{index}}}," for identifier, index in identifiers])
    wrong += check_texts("frame/LanguageTable.h", "WinIniLanguages",
                         [f'{{"{name}",{index}}},' for name, index in names])
    wrong += check_messages(tables)
    wrong += check_texts("controls/ButtonTables.h", "StandardButtonTable",
                         [f'{{{",".join(row[:4])},"{row[4]}"}},' for row in button_rows(tables)])
    wrong += check_texts("controls/ButtonTables.h", "BitmapTable",
                         [f'{{{record},"{name}"}},' for record, name in bitmap_rows(tables, text)])
    wrong += check_numbers("metrics/DisplayMatrix.h", "DisplayMatrix", display_matrix(tables), keys=0)
    wrong += check_texts("metrics/ColourNameTable.h", "ColourNameRules",
                         [f'{{{",".join(rule)}}},' for rule in name_rules(tables)])
    check_constants(text, headings)
    return wrong


def main(arguments):
    if len(arguments) < 2 or arguments[0] not in ("write", "check"):
        print(__doc__)
        return 0 if arguments in (["--help"], ["-h"]) else 2
    text = pathlib.Path(arguments[1]).read_text(encoding="utf-8")
    tables = markdown_tables(text)
    if arguments[0] == "write":
        write(tables, text)
        return 0
    return 1 if check(tables, text, arguments[2:]) else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
