#!/usr/bin/env python3
"""Generates the sources that hold tables from Tools/tables/*.csv.

usage: tables.py write    writes the headers below KVUtils/Source
       tables.py check    exits with 1 where a header is not what write would write

A header is written whole, one row per physical key, and is never edited by hand.
"""

import csv
import pathlib
import sys

TREE = pathlib.Path(__file__).resolve().parent.parent
SOURCE = TREE / "KVUtils" / "Source"
TABLES = TREE / "Tools" / "tables"
SPECTRAL_TABLE = '"KVUtils/Source/colorimetry/SpectralTable.h"'
NOTE = "// Written by Tools/tables.py from the printed table; not edited by hand.\n"


def rows_of(name):
    """The rows of a table below its head."""
    with open(TABLES / f"{name}.csv", newline="", encoding="utf-8") as file:
        head, *rows = csv.reader(file)
    for number, row in enumerate(rows, 2):
        if len(row) != len(head):
            sys.exit(f"Tools/tables/{name}.csv:{number}: {len(row)} cells, expected {len(head)}")
    return rows


def header(about, includes, body, namespace="kv::detail"):
    lines = "".join(f"#include {name}\n" for name in includes)
    return (f"{about}{NOTE}#pragma once\n\n{lines}\nnamespace {namespace} {{\n\n// clang-format off\n{body}"
            f"// clang-format on\n\n}}  // namespace {namespace}\n")


def array(struct, name, rows):
    """A constant array; each row is the text inside its braces."""
    lines = "".join(f"    {{{row}}},\n" for row in rows)
    return f"inline constexpr std::array<{struct}, {len(rows)}> {name} = {{{{\n{lines}}}}};\n"


def literal(number):
    """The number as a float literal, digits as in the table."""
    if not number:
        return "0.0F"
    return f"{number}F" if "." in number or "e" in number else f"{number}.0F"


def spectral_array(name, table, comment):
    rows = rows_of(table)
    if [row[0] for row in rows] != [str(nm) for nm in range(380, 740, 10)]:
        sys.exit(f"Tools/tables/{table}.csv: does not run from 380 to 730 nm by 10")
    literals = [[literal(cell) for cell in row[1:]] for row in rows]
    widths = [max(map(len, column)) for column in zip(*literals)]
    lines = [f"/// {comment}\ninline constexpr SpectralTable<{len(widths)}> {name} = {{{{\n"]
    for row, cells in zip(rows, literals):
        lines.append(f"    {{{row[0]}, {{{{{', '.join(c.rjust(w) for c, w in zip(cells, widths))}}}}}}},\n")
    return "".join(lines) + "}};\n"


def illuminants():
    return header(
        "// Relative spectral powers of the illuminants, 380 to 730 nm by 10 (CIE 15).\n", [SPECTRAL_TABLE],
        spectral_array("IlluminantTable", "illuminants",
                       "CIE illuminants A, C, D50, D65 and the components S0, S1, S2 of CIE daylight, in this order.")
        + "\n" + spectral_array("FluorescentTable", "fluorescent", "CIE fluorescent lamps F1 to F12, in this order."))


def observers():
    return header(
        "// Colour-matching functions of the standard observers, 380 to 730 nm by 10 (CIE 15).\n", [SPECTRAL_TABLE],
        spectral_array("ObserverTable", "observers",
                       "x, y, z of the CIE 1931 2 degree observer, then of the CIE 1964 10 degree observer."))


def densities():
    return header(
        "// Spectral products of the density standards, 380 to 730 nm by 10 (ISO 5-3).\n", [SPECTRAL_TABLE],
        spectral_array("DensityTable", "densities", "Visual, which sums to 100; then red, green, blue of ANSI A, of "
                                                    "ANSI T and of SPI, each of which sums to 1."))


def selectors():
    body = """\
/// A selector's value and its texts: the one that is read and the one that is written, which differ in places.
/// An empty text is none: such a value is not read, or is written by rule.
struct SelectorText {
    int value;
    std::string_view read;
    std::string_view written;
};
"""
    for name, table in (("Illum", "illuminant_texts"), ("Filter", "filter_texts"), ("DStd", "density_standard_texts"),
                        ("WBase", "white_base_texts")):
        body += "\n" + array("SelectorText", f"{name}Texts",
                             [f'{value}, "{read}", "{written}"' for value, read, written in rows_of(table)])
    return header("// The stored vocabulary of the measuring conditions.\n", ["<array>", "<string_view>"], body)


def code_page_text(text):
    """The inside of a literal of Windows-1252 bytes; what follows an escape is a literal of its own."""
    return "".join(c if c.isascii() else f'\\x{c.encode("cp1252")[0]:02X}" "' for c in text)


def languages():
    *identifiers, (_, other) = rows_of("windows_languages")
    body = f"""\
/// A slot of the language table; its place in the array is the absolute index.
struct LanguageSlot {{
    std::string_view name;  // in the suite's code page
    unsigned short countryCode;
}};

{array("LanguageSlot", "LanguageTable",
       [f'"{code_page_text(name)}", {code}' for _, name, code in rows_of("languages")])}
/// The absolute index of a language that the system names by its Windows identifier.
struct SystemLanguage {{
    unsigned short identifier;
    unsigned short absolute;
}};

{array("SystemLanguage", "SystemLanguages", [f"{identifier}, {index}" for identifier, index in identifiers])}
/// The absolute index of a language that win.ini names.
struct WinIniLanguage {{
    std::string_view name;
    unsigned short absolute;
}};

{array("WinIniLanguage", "WinIniLanguages", [f'"{name}", {index}' for name, index in rows_of("win_ini_languages")])}
/// The absolute index of a language that the system names otherwise.
inline constexpr unsigned short OtherSystemLanguage = {other};
"""
    return header("// The languages that the suite knows, with the codes by which the outside world names them.\n",
                  ["<array>", "<string_view>"], body)


def messages():
    names = [name for _, name in rows_of("messages")]
    width = max(map(len, names))
    body = "/// A message is spoken of by its number.\nenum MessageNumber : int {\n"
    body += "".join(f"    {name} = {number},\n" for number, name in enumerate(names) if name) + "};\n\n"
    body += "/// A message travels by its name, which is padded with zeros; a reserved number has an empty one.\n"
    body += "struct MessageRecord {\n    char name[30];\n};\n\n"
    body += "/// By number. The last record holds the number of messages and is none itself.\n"
    body += f"inline constexpr std::array<MessageRecord, {len(names)}> MessageTable = {{{{\n"
    body += "".join(f'    {{"{name}"}},{" " * (width - len(name))}  // {number}\n'
                    for number, name in enumerate(names)) + "}};\n"
    return header("// The vocabulary of the messages between the programs of the suite.\n", ["<array>"], body, "kv")


def buttons():
    rows, bitmaps = rows_of("buttons"), rows_of("bitmaps")
    for _, _, _, record, file in rows:
        if [record, file] not in bitmaps:
            sys.exit(f"Tools/tables/bitmaps.csv: has no row {record},{file}, which buttons.csv names")
    width = max(len(row[0]) for row in rows)
    body = f"""\
/// A button that the bar knows by a single bit: its style, the number of its text, its bitmap.
struct StandardButton {{
    long id;
    unsigned short style;
    unsigned short textIndex;
    unsigned short bitmapRecord;
    std::string_view bitmapFile;
}};

{array("StandardButton", "StandardButtonTable",
       [f'{number.rjust(width)}, {style.rjust(5)}, {text.rjust(2)}, {record}, "{file}"'
        for number, style, text, record, file in rows])}
/// A bitmap of the library's resources, by the number of its record.
struct BitmapRecord {{
    unsigned short record;
    std::string_view file;
}};

/// Ascending by record.
{array("BitmapRecord", "BitmapTable", [f'{record}, "{file}"' for record, file in bitmaps])}"""
    return header("// The standard buttons of the suite and the bitmaps of the library.\n",
                  ["<array>", "<string_view>"], body)


def display_matrix():
    body = "/// Linear R, G, B (1 for full) from X, Y, Z (Y of 100 for white), row by row.\n"
    body += "inline constexpr std::array<float, 9> DisplayMatrix = {{\n"
    body += "".join(f"    {', '.join(map(literal, row[1:]))},\n" for row in rows_of("display_matrix")) + "}};\n"
    return header("// The primaries of the display.\n", ["<array>"], body)


def colour_names():
    defaults = ["", ""] + ["-Unbounded", "Unbounded"] * 2 + [""]
    rules = [[cell or default for cell, default in zip(row, defaults)] for row in rows_of("colour_names")]
    widths = [max(map(len, column)) for column in zip(*rules)]
    body = """\
/// A range of hues (whole degrees, both ends included), of chroma and of lightness (the upper ends not
/// included), with the number of its colour.
struct ColourNameRule {
    int hueFrom, hueTo;
    double chromaFrom, chromaBelow;
    double lightnessFrom, lightnessBelow;
    int number;
};

inline constexpr double Unbounded = std::numeric_limits<double>::infinity();

/// The first rule that fits decides.
"""
    body += array("ColourNameRule", "ColourNameRules",
                  [", ".join(cell.rjust(width) for cell, width in zip(rule, widths)) for rule in rules])
    return header("// How colours that are not neutral get their name.\n", ["<array>", "<limits>"], body)


FILES = {
    "colorimetry/detail/IlluminantTables.h": illuminants,
    "colorimetry/detail/ObserverTables.h": observers,
    "colorimetry/detail/SelectorTexts.h": selectors,
    "controls/detail/ButtonTables.h": buttons,
    "frame/detail/LanguageTable.h": languages,
    "messaging/MessageTable.h": messages,
    "metrics/detail/ColourNameTable.h": colour_names,
    "metrics/detail/DensityTables.h": densities,
    "metrics/detail/DisplayMatrix.h": display_matrix,
}


def main(arguments):
    if arguments not in (["write"], ["check"]):
        print(__doc__)
        return 0 if arguments in (["--help"], ["-h"]) else 2
    stale = 0
    for name, make in FILES.items():
        path, content = SOURCE / name, make()
        if path.exists() and path.read_text(encoding="utf-8") == content:
            continue
        if arguments == ["write"]:
            path.write_text(content, encoding="utf-8")
            print(f"wrote KVUtils/Source/{name}")
        else:
            print(f"KVUtils/Source/{name}:1: differs from its table (run Tools/tables.py write)")
            stale += 1
    return 1 if stale else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
