#!/usr/bin/env python3
"""Checks that includes keep to the floors of the house (Docs/architecture.md): each points down, or is named below.

Prints file:line and the reason for each include that does not, and then exits with 1.
"""
import re
import subprocess
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent

# What each folder may include, beside itself. The longest prefix of a file's path decides.
LIBRARY = ["KVUtils/", "SV/core/", "SV/ui/", "SV/headless/"]
FLOORS = {
    "Platform/": ["Platform/"],
    "SV/core/": ["Platform/"],
    "SV/ui/": ["SV/core/", "Platform/"],
    "SV/headless/": ["SV/core/", "SV/ui/", "Platform/"],
    "SV/qt/": ["SV/core/", "SV/ui/", "Platform/"],
    "KVUtils/Source/": ["SV/core/", "SV/ui/", "Platform/"],
    "KVUtils/KVUtils.h": LIBRARY,
    "Apps/files/": LIBRARY + ["Platform/"],
    "Apps/evaluation/": LIBRARY + ["Platform/", "Apps/files/"],
    "Apps/suite/": LIBRARY + ["Platform/", "Apps/files/"],
    "Apps/report/": LIBRARY + ["Platform/", "Apps/files/", "Apps/evaluation/"],
    "Apps/kvcolor/": LIBRARY + ["Platform/", "Apps/files/", "Apps/evaluation/", "Apps/suite/", "Apps/report/"],
    "Apps/HQMSERV/": LIBRARY + ["Platform/", "Apps/files/", "Apps/evaluation/", "Apps/suite/"],
    "Apps/ColourDesk/": LIBRARY + ["Platform/", "Apps/files/", "Apps/evaluation/", "Apps/suite/", "Apps/report/"],
}

# The programs' mains choose the backend.
BACKEND_CHOICES = {"Apps/ColourDesk/Main.cpp", "Apps/kvcolor/printing/ByQt.cpp"}

# The subsystems of the library, from the ground up: each may include those below it, and of its own row those named.
ROWS = [
    {"frame": [], "resources": []},
    {"data": [], "mail": [], "printing": ["data"]},
    {"colorimetry": [], "controls": [], "plots": ["colorimetry", "controls"]},
    {"metrics": [], "messaging": [], "dialogs": [], "batch": ["metrics"]},
]

# The includes that run back up, each of one class to one class. No more are wanted.
UPWARD = {
    ("KVUtils/Source/colorimetry/CMetry.h", "KVUtils/Source/metrics/DichteFilter.h"),
    ("KVUtils/Source/colorimetry/CMetry.cpp", "KVUtils/Source/metrics/detail/StandardDensity.h"),
    ("KVUtils/Source/data/ASCIIFile.cpp", "KVUtils/Source/controls/RegisterTopWindow.h"),
    ("KVUtils/Source/data/ASCIIFile.cpp", "KVUtils/Source/controls/TextFenster.h"),
    ("KVUtils/Source/frame/KVSetting.h", "KVUtils/Source/colorimetry/Selectors.h"),
    # A program that starts without a backend gets the one that needs no display.
    ("SV/ui/Backend.cpp", "SV/headless/HeadlessBackend.h"),
}

# Public headers that need a header of the ground floor, which is installed for their sake. No more are wanted.
NEEDED = {
    # The entries of a mail client's library are types of the interface.
    ("KVUtils/Source/mail/Mail.h", "Platform/mail/MailEntries.h"),
    ("KVUtils/Source/mail/Mailer.h", "Platform/mail/MailEntries.h"),
}

SYSTEM_HEADERS = re.compile(
    r"(windows|ddeml|winspool|shlobj|unistd|fcntl|poll|dlfcn|pthread|signal|pwd|langinfo|termios|sys/.*|netinet/.*|arpa/.*)(\.h)?$")


def files():
    listed = subprocess.run(["git", "ls-files", "--cached", "--others", "--exclude-standard", "--", "*.h", "*.cpp"],
                            cwd=ROOT, capture_output=True, text=True, check=True).stdout.split()
    wanted = ("Platform/", "SV/", "KVUtils/", "Apps/")
    return [f for f in listed if f.startswith(wanted) and "/Tests/" not in f and (ROOT / f).exists()]


def floor_of(path):
    return max((prefix for prefix in FLOORS if path.startswith(prefix)), key=len, default=None)


def below(subsystem):
    """The subsystems that this one may include."""
    allowed = set()
    for row in ROWS:
        if subsystem in row:
            return allowed.union(row[subsystem])
        allowed.update(row)
    raise KeyError(f"{subsystem} is in no row of Tools/floors.py")


def fault(path, included):
    """Why this include is not wanted, or nothing."""
    floor = floor_of(path)
    if path in BACKEND_CHOICES and included == "SV/qt/QtBackend.h":
        return None
    if (path, included) in UPWARD | NEEDED:
        return None
    if floor is None or not included.startswith(tuple([floor] + FLOORS[floor])):
        return f"{floor} may not include {included}"
    here, there = path.split("/"), included.split("/")
    if floor == "KVUtils/Source/" and included.startswith(floor):
        if there[2] != here[2] and there[2] not in below(here[2]):
            return f"{here[2]}/ may not include {there[2]}/"
    if path.endswith(".h") and "detail" not in here and "detail" in there and is_public(path):
        return "a public header may not include a private one"
    if path.endswith(".h") and is_public(path) and included.startswith("Platform/"):
        return "a public header may not include the ground floor"
    return None


def is_public(path):
    """Whether a header is installed."""
    return path.startswith(("KVUtils/", "SV/core/", "SV/ui/", "SV/headless/")) and "/detail/" not in path


def system_fault(path, included):
    if re.match(r"Q[A-Z]|Qt", included) and not path.startswith("SV/qt/"):
        return "Qt stays in SV/qt/"
    if SYSTEM_HEADERS.match(included) and not path.startswith("Platform/"):
        return "the system's headers stay in Platform/"
    return None


def main():
    if sys.argv[1:]:
        print(__doc__.strip())
        return 0 if sys.argv[1:] in (["-h"], ["--help"]) else 2
    found = 0
    used = set()
    for path in files():
        for number, line in enumerate((ROOT / path).read_text(encoding="utf-8").splitlines(), 1):
            include = re.match(r'\s*#\s*include\s*([<"])([^>"]+)', line)
            if not include:
                continue
            quoted, name = include[1] == '"', include[2]
            why = fault(path, name) if quoted else system_fault(path, name)
            used.add((path, name))
            if why:
                print(f"{path}:{number}: {why}: {line.strip()}")
                found += 1
    for path, name in sorted((UPWARD | NEEDED) - used):
        print(f"{path}: does not include {name} any more: take it off the list in Tools/floors.py")
        found += 1
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
