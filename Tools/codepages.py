#!/usr/bin/env python3
"""Generates the upper halves of single-byte code pages from Python's codecs.

usage: codepages.py write        writes SV/core/detail/CodePages.h
       codepages.py check        compares each number of the header with the codec
"""

import pathlib
import re
import sys

HEADER = pathlib.Path(__file__).resolve().parent.parent / "SV" / "core" / "detail" / "CodePages.h"
PAGES = {"Windows1252": ("cp1252", "Windows-1252, the code page of the suite."),
         "MacRoman": ("mac_roman", "Mac Roman, with the euro sign of 1998.")}

HEAD = """// The characters of the bytes 0x80 to 0xFF in single-byte code pages; the bytes below are ASCII in all of them.
// Written by Tools/codepages.py from Python's codecs; not edited by hand.
#pragma once

#include <array>

namespace sv::detail {

/// Unicode characters by byte minus 0x80; 0 for a byte that means nothing.
using CodePage = std::array<char16_t, 128>;

// clang-format off
"""
TAIL = """// clang-format on

}  // namespace sv::detail
"""


def characters(codec):
    """The code points of the upper half, 0 where the codec has none."""
    return [ord(bytes([byte]).decode(codec, errors="ignore") or "\0") for byte in range(0x80, 0x100)]


def page(name, codec, about):
    points = characters(codec)
    rows = "".join("    " + " ".join(f"0x{point:04X}," for point in points[start : start + 8])
                   + f"  // {start + 0x80:02X}\n" for start in range(0, 128, 8))
    return f"/// {about}\ninline constexpr CodePage {name} = {{{{\n{rows}}}}};\n"


def write():
    pages = "\n".join(page(name, codec, about) for name, (codec, about) in PAGES.items())
    HEADER.write_text(HEAD + pages + TAIL, encoding="ascii")
    print(f"wrote {HEADER.name}")


def check():
    text, wrong = HEADER.read_text(encoding="ascii"), 0
    for name, (codec, _) in PAGES.items():
        body = re.search(rf"\b{name} = \{{\{{\n(.*?)\n\}}\}};", text, re.S)
        ours = [int(number, 16) for number in re.findall(r"0x([0-9A-F]{4}),", body[1])] if body else []
        expected = characters(codec)
        differ = abs(len(ours) - len(expected)) + sum(a != b for a, b in zip(ours, expected))
        print(f"{name}: {len(expected)} bytes, {differ} differ")
        wrong += differ
    return 1 if wrong else 0


if __name__ == "__main__":
    if sys.argv[1:] == ["write"]:
        write()
    elif sys.argv[1:] == ["check"]:
        sys.exit(check())
    else:
        print(__doc__)
        sys.exit(0 if sys.argv[1:] in (["--help"], ["-h"]) else 2)
