#!/usr/bin/env python3
"""Plants faults in the sources, one at a time, and counts those that the tests catch.

    Tools/plant.py list --seed 7 --count 100 > faults.tsv
    Tools/plant.py run faults.tsv --tree . --build build/dev --results caught.tsv
    Tools/plant.py report caught.tsv
    Tools/plant.py compare before.tsv after.tsv

`list` chooses faults over all rooms, by the size of each, and as many spare ones again.
`run` needs a built tree with shared libraries. It compiles a changed copy of one source, links it into what holds it, runs
the test programs and puts the original back; the sources stay untouched. A fault that does not compile, or that the
optimiser finds to mean the same, is replaced by a spare one of its room. Results are appended, so a run that was
interrupted continues. A fault is caught if a test fails, crashes or exceeds its time limit, twice in a row.
Faults are found by the text of their line, so a list also serves a tree whose files have been moved.
"""

import argparse
import collections
import csv
import difflib
import json
import os
import pathlib
import random
import re
import selectors
import shlex
import shutil
import signal
import subprocess
import sys
import tempfile
import time

FIELDS = ["id", "room", "kind", "file", "occurrence", "line", "before", "nth", "old", "new", "reaches_user"]
RESULTS = ["id", "room", "kind", "file", "line_number", "line", "mutant", "reaches_user", "found", "outcome", "program",
           "test", "seconds"]

# The rooms, and the sources in them that no number, file or message of a user passes through.
ROOMS = ["KVUtils/Source/*", "SV/core", "SV/ui", "SV/headless", "Platform/posix", "Apps/*"]
SKIPPED = re.compile(r"/Tests/|/resources/|/printing/ByQt|/win32/|/detail/Bitmaps")
LOOK_ONLY = re.compile(r"/controls/(KO|WINDOWPL|ToolBox|Button|Bubble)|/(Help|Usage)\w*\.cpp|WaitVisualizer")

TWINS = [("X", "Y"), ("Y", "Z"), ("L", "a"), ("a", "b"), ("C", "h"), ("first", "second"), ("front", "back"),
         ("begin", "end"), ("min", "max"), ("Min", "Max"), ("Left", "Right"), ("Top", "Bottom"), ("left", "right"),
         ("top", "bottom"), ("Width", "Height"), ("width", "height"), ("x", "y"), ("row", "column"),
         ("cyan", "magenta"), ("Cyan", "Magenta"), ("yellow", "black"), ("standard", "sample"), ("begins", "ends"),
         ("true", "false"), ("floor", "ceil"), ("read", "write"), ("reference", "sample"), ("Reference", "Sample")]


def code_of(line):
    """The line with comments and the insides of texts replaced by spaces of the same length."""
    line = re.sub(r'"(?:\\.|[^"\\])*"', lambda m: '"' + "\1" * (len(m[0]) - 2) + '"', line)
    line = re.sub(r"'(?:\\.|[^'\\])'", lambda m: "'" + "\1" * (len(m[0]) - 2) + "'", line)
    return re.sub(r"//.*", lambda m: " " * len(m[0]), line)


def changes(line, previous):
    """All faults of one line: kind, the text at fault, how many equal texts are before it, and what replaces it."""
    code = code_of(line)
    if re.match(r"\s*(#|using |namespace|static_assert|template|\*|/\*)", code):
        return
    declares = re.match(r"\s*[\w:<>*& ]+\b\w+\([^()]*\)( const)?( noexcept)? \{?$", code)

    def fault(kind, start, old, new):
        return kind, old, line[:start].count(old), new

    for pattern, kind, table in (
            (r" ([+\-*/]) ", "arithmetic", {"+": "-", "-": "+", "*": "/", "/": "*"}),
            (r" ([+\-])= ", "arithmetic", {"+": "-", "-": "+"}),
            (r" (<|<=|>|>=|==|!=) ", "comparison",
             {"<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "=="}),
            (r" (&&|\|\|) ", "comparison", {"&&": "||", "||": "&&"})):
        for match in re.finditer(pattern, code):
            old = match[0]
            if kind == "arithmetic" and "\"" in line:
                continue  # texts have no difference
            yield fault(kind, match.start(), old, old.replace(match[1], table[match[1]]))
    if not re.search(r"\benum\b|^\s*case ", code):
        for match in re.finditer(r"(?<![\w.'])(\d{1,3})(?![\w.'])", code):
            yield fault("off by one", match.start(1), match[1], str(int(match[1]) + 1))
    if re.match(r"\s*[\w.:>\-\[\]]+\(.*\);$", code) and code.count("(") == code.count(")") and re.search(
            r"[;{}):]\s*$|^\s*$|\belse$", code_of(previous)) and not re.match(r"\s*(return|throw|if|for|while)\b|.*\breserve\(", code):
        yield fault("dropped call", 0, line.strip(), "{}")
    if not declares:
        name = r"\w+(?:(?:\.|->|::)\w+|\(\)|\[\w+\])*"
        for match in re.finditer(rf"(?<=[( ])({name}), ({name})(?=[,)])", code):
            if match[1] != match[2] and not re.search(r"\b(min|max|equal)(<\w+>)?\($", code[:match.start()]):
                yield fault("swapped arguments", match.start(), match[0], f"{match[2]}, {match[1]}")
    for one, other in TWINS:
        for old, new in ((one, other), (other, one)):
            part = rf"(?<![A-Za-z_0-9\"]){old}(?![A-Za-z_\"])" if old[0].islower() or len(old) == 1 else rf"{old}(?![a-z\"])"
            for match in re.finditer(part, code):
                yield fault("wrong member", match.start(), old, new)


def sources_of(tree):
    found = []
    for room in ROOMS:
        for folder in sorted(tree.glob(room)):
            found += sorted(folder.rglob("*.cpp"))
    return [path for path in found if not SKIPPED.search("/" + str(path.relative_to(tree)))]


def room_of(name):
    parts = name.split("/")
    return "/".join(parts[:3] if parts[0] == "KVUtils" else parts[:2])


def read_lines(path):
    return path.read_text(encoding="utf-8", errors="surrogateescape").split("\n")


def faults_of(path, name):
    lines = read_lines(path)
    seen = collections.Counter()
    previous = ""
    for line in lines:
        text = line.strip()
        seen[text] += 1
        if line.startswith((" ", "\t")) and text and not text.startswith("//"):
            for kind, old, nth, new in changes(line, previous):
                yield {"room": room_of(name), "kind": kind, "file": name, "occurrence": seen[text], "line": text,
                       "before": previous.strip(), "nth": nth, "old": old, "new": new,
                       "reaches_user": "no" if LOOK_ONLY.search("/" + name) else "yes"}
        if text and not text.startswith("//"):
            previous = line


def list_faults(arguments):
    tree = arguments.tree.resolve()
    chance = random.Random(arguments.seed)
    by_room = collections.defaultdict(lambda: collections.defaultdict(list))
    size = collections.Counter()
    for path in sources_of(tree):
        name = str(path.relative_to(tree))
        size[room_of(name)] += len(read_lines(path))
        for fault in faults_of(path, name):
            by_room[fault["room"]][fault["kind"]].append(fault)
    # Each room gets its share by lines, and every room at least one.
    total = sum(size[room] for room in by_room)
    exact = {room: arguments.count * size[room] / total for room in by_room}
    share = {room: max(1, int(exact[room])) for room in by_room}
    for room in sorted(by_room, key=lambda room: exact[room] - share[room], reverse=True):
        if sum(share.values()) < arguments.count:
            share[room] += 1
    chosen = []
    for room in sorted(by_room):
        lines = set()
        kinds = sorted(by_room[room])
        count = 0
        while count < 2 * share[room] and kinds:
            kind = chance.choice(kinds)
            pool = by_room[room][kind]
            fault = pool.pop(chance.randrange(len(pool)))
            if not pool:
                kinds.remove(kind)
            if (fault["file"], fault["line"]) in lines:
                continue
            lines.add((fault["file"], fault["line"]))
            count += 1
            chosen.append((count > share[room], fault))
    # The faults proper first, mixed so that an unfinished run has seen all rooms; then the spare ones.
    chance.shuffle(chosen)
    chosen.sort(key=lambda entry: entry[0])
    writer = csv.DictWriter(sys.stdout, ["id"] + FIELDS[1:], delimiter="\t", lineterminator="\n")
    writer.writeheader()
    for number, (spare, fault) in enumerate(chosen, 1):
        writer.writerow({"id": f"{'S' if spare else 'F'}{number:03}", **fault})


def place_of(fault, tree, files):
    """Where the fault's line lies now: path, index of the line, and "same", "moved" or "changed"."""
    def candidates(paths):
        for path in paths:
            for index, line in enumerate(files[path]):
                yield path, index, line.strip()

    def before(path, index):
        for line in reversed(files[path][:index]):
            if line.strip() and not line.strip().startswith("//"):
                return line.strip()
        return ""

    base = pathlib.Path(fault["file"]).name
    same_name = [path for path in files if path.name == base]
    exact_path = tree / fault["file"]
    if exact_path in files:
        equal = [place for place in candidates([exact_path]) if place[2] == fault["line"]]
        number = int(fault["occurrence"]) - 1
        if number < len(equal) and before(*equal[number][:2]) == fault["before"]:
            return *equal[number][:2], "same"
    equal = [place for place in candidates(same_name) if place[2] == fault["line"]]
    equal = equal or [place for place in candidates(files) if place[2] == fault["line"]]
    if equal and (len(fault["line"]) > 12 or len(equal) == 1):
        best = max(equal, key=lambda place: difflib.SequenceMatcher(None, before(*place[:2]), fault["before"]).ratio())
        return *best[:2], "moved"
    best, best_ratio = None, 0.8
    matcher = difflib.SequenceMatcher(None, "", fault["line"])
    for path, index, text in candidates(files):
        if fault["old"] not in code_of(text) and fault["kind"] != "dropped call":
            continue
        matcher.set_seq1(text)
        bonus = 0.1 if path.name == base else 0
        if matcher.real_quick_ratio() + bonus > best_ratio and matcher.quick_ratio() + bonus > best_ratio:
            ratio = matcher.ratio() + bonus
            if ratio > best_ratio:
                best, best_ratio = (path, index, "changed"), ratio
    return best


def planted(line, fault):
    """The line with its fault, or none if the text at fault is not in it."""
    if fault["kind"] == "dropped call":
        return re.sub(r"\S.*", "{}", line)
    at = -1
    for _ in range(int(fault["nth"]) + 1):
        found = line.find(fault["old"], at + 1)
        if found < 0:
            break
        at = found
    return None if at < 0 else line[:at] + fault["new"] + line[at + len(fault["old"]):]


class Build:
    """A built tree: what compiles a source, and what links an object into the programs."""

    def __init__(self, folder):
        self.folder = folder
        self.commands = {}
        self.units = {}  # of sources that are compiled several in one unit
        for entry in reversed(json.loads((folder / "compile_commands.json").read_text())):
            self.commands[entry["file"]] = entry["command"]
            if re.search(r"/Unity/unity_\w+\.cxx$", entry["file"]):
                for source in re.findall(r'#include "([^"]+)"', pathlib.Path(entry["file"]).read_text()):
                    self.commands[source] = entry["command"]
                    self.units[source] = pathlib.Path(entry["file"])
        self.links = {}
        for line in (folder / "build.ninja").read_text().split("\n"):
            match = re.match(r"build ([^:|]+?)(?: \|[^:]*)?: CXX_\w+_LINKER__\S+ (.*)", line)
            if match:
                self.links[match[1].split()[0]] = match[2].split(" || ")[0].replace("|", " ").split()
        self.saved = {}
        self.linker = " -fuse-ld=lld" if shutil.which("ld.lld") else ""

    def compile(self, path, text, output, flags):
        """Compiles text as if it were the source at path. False if it does not compile."""
        words = shlex.split(self.commands[str(path)])
        copy = output.with_suffix(".cpp")
        copy.write_text(text, encoding="utf-8", errors="surrogateescape")
        if str(path) in self.units:
            unit = self.units[str(path)].read_text().replace(f'"{path}"', f'"{copy}"')
            copy = output.with_suffix(".cxx")
            copy.write_text(unit)
        at = words.index("-o")
        words[at + 1] = str(output)
        words[words.index("-c") + 1] = str(copy)
        words = [word for word in words if word not in ("-g", "-Werror")]
        words[1:1] = ["-iquote", str(path.parent)]
        words += ["-g0", "-w", *flags]
        return subprocess.run(words, cwd=self.folder, stderr=subprocess.DEVNULL,
                              env={**os.environ, "CCACHE_DISABLE": "1"}).returncode == 0

    def is_same(self, path, text, other, output):
        """Whether the optimiser makes the same of both texts of the source at path."""
        made = []
        for content in (text, other):  # under one name, which the object contains
            if not self.compile(path, content, output, ["-O2"]):
                return False
            made.append(output.read_bytes())
        return made[0] == made[1]

    def object_of(self, path):
        words = shlex.split(self.commands[str(path)])
        return words[words.index("-o") + 1]

    def replace(self, name):
        """Puts the built file aside, to be put back by restore."""
        self.saved[name] = name + ".original"
        os.rename(self.folder / name, self.folder / self.saved[name])

    def link(self, name):
        command = subprocess.run(["ninja", "-C", self.folder, "-t", "commands", "-s", name], text=True,
                                 capture_output=True, check=True).stdout.strip().split("\n")[-1]
        if not name.endswith(".a"):
            command = command.replace("c++ ", f"c++{self.linker} ", 1)
        self.replace(name)
        subprocess.run(command, shell=True, cwd=self.folder, check=True, stdout=subprocess.DEVNULL,
                       env={**os.environ, "CCACHE_DISABLE": "1"})

    def holders(self, name):
        """What has to be linked again when a file changes, in order; users of a shared library take it as it is."""
        found = []
        for output, inputs in self.links.items():
            if name in inputs and output not in found:
                found.append(output)
                if output.endswith(".a"):
                    found += [holder for holder in self.holders(output) if holder not in found]
        return found

    def restore(self):
        for name, original in self.saved.items():
            os.replace(self.folder / original, self.folder / name)
        self.saved = {}

    def recover(self):
        """Puts back what an interrupted run has left."""
        for original in self.folder.rglob("*.original"):
            os.replace(original, original.with_suffix(""))


def end_all(group, meeting_place):
    """Ends a process group, and the processes that it started in groups of their own."""
    try:
        os.killpg(group, signal.SIGKILL)
    except ProcessLookupError:
        pass
    mark = f"XDG_RUNTIME_DIR={meeting_place}".encode()
    for process in pathlib.Path("/proc").glob("[0-9]*"):
        try:
            if mark in (process / "environ").read_bytes().split(b"\0"):
                os.kill(int(process.name), signal.SIGKILL)
        except OSError:
            pass  # another user's, or ended since
    shutil.rmtree(meeting_place, ignore_errors=True)


class Tests:
    """The test programs of a build, their tests and how long each takes."""

    NAMES = ["KVUtilsTests", "AppsTests", "KVUtilsQtTests", "ColourDeskTests"]

    def __init__(self, build, scratch, limit):
        self.build = build
        self.limit = limit
        self.home = scratch
        self.environment = {**os.environ, "HOME": str(scratch / "home"), "QT_QPA_PLATFORM": "offscreen"}
        (scratch / "home").mkdir(exist_ok=True)
        self.seconds = {}

    def run(self, program, tests=None, fail_fast=True):
        """Runs tests (all: None). Returns (test, what) of the first that failed, or none."""
        if tests is not None and not tests:
            return None
        command = [str(self.build.folder / program), "--gtest_color=no"]
        if fail_fast:
            command.append("--gtest_fail_fast")
        if tests is not None:
            command.append("--gtest_filter=" + ":".join(tests))
        # Programs find one another by this folder, so none finds what an earlier run has left.
        meeting_place = tempfile.mkdtemp(prefix="run", dir=self.home)
        process = subprocess.Popen(command, cwd=self.build.folder,
                                   env={**self.environment, "XDG_RUNTIME_DIR": meeting_place}, stdin=subprocess.DEVNULL,
                                   stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, start_new_session=True)
        watch = selectors.DefaultSelector()
        watch.register(process.stdout, selectors.EVENT_READ)
        current, failed, text, begun = "(start)", None, b"", time.monotonic()
        try:
            while True:
                allowed = self.limit + 5 * self.seconds.get((program, current), 0)
                if not watch.select(max(0.0, begun + allowed - time.monotonic())):
                    return current, "time limit"
                part = os.read(process.stdout.fileno(), 65536)
                if not part:
                    break
                *lines, text = (text + part).split(b"\n")
                for line in lines:
                    match = re.match(rb"\[ RUN      \] (\S+)|\[  FAILED  \] (\S+?),? .*\(\d+ ms\)|"
                                     rb"\[       OK \] (\S+) \((\d+) ms\)", line)
                    if not match:
                        continue
                    if match[1]:
                        current, begun = match[1].decode(), time.monotonic()
                    elif match[2]:
                        failed = failed or match[2].decode()
                    elif not fail_fast:
                        self.seconds[program, match[3].decode()] = int(match[4]) / 1000
            try:
                code = process.wait(timeout=self.limit)
            except subprocess.TimeoutExpired:
                return current, "time limit"
            if failed:
                return failed, "failed"
            return (current, f"ended with {code}") if code else None
        finally:
            end_all(process.pid, meeting_place)
            process.wait()
            process.stdout.close()

    def measure(self, file):
        """Runs every program once as it is; says what fails, and learns how long each test takes. The file keeps that."""
        if file and file.exists():
            self.seconds = {tuple(test): seconds for test, seconds in json.loads(file.read_text())}
            return
        for program in self.NAMES:
            if not (self.build.folder / program).exists():
                print(f"no {program} in this build", file=sys.stderr)
                continue
            result = self.run(program, fail_fast=False)
            if result and result[1] != "failed":
                raise SystemExit(f"{program} fails without a fault: {result[0]}: {result[1]}")
            if result:
                print(f"{program}: left out what fails without a fault: {result[0]} and maybe others", file=sys.stderr)
        if file:
            file.write_text(json.dumps(list(self.seconds.items())))

    def of(self, program):
        return [test for (owner, test) in self.seconds if owner == program]

    def stages(self, program, path):
        """The tests in the order in which they are likely to catch a fault in path soon."""
        stem = re.sub(r"[^a-z]", "", path.stem.lower())
        tests = self.of(program)
        near = [test for test in tests if stem[:6] in test.lower()]
        quick = [test for test in tests if test not in near and self.seconds[program, test] < 0.15]
        slow = sorted(set(tests) - set(near) - set(quick), key=lambda test: self.seconds[program, test])
        return near, quick, slow

    def catch(self, program, path):
        """The first test that fails twice, or none."""
        for stage in self.stages(program, path):
            left = list(stage)
            while left:
                result = self.run(program, left)
                if not result:
                    break
                test = result[0]
                if test not in left or self.run(program, [test]):
                    return result
                left.remove(test)  # failed once only
        return None


def run_one(fault, place, mutant, build, tests, scratch, files):
    path, index, _ = place
    lines = list(files[path])
    original = "\n".join(lines)
    lines[index] = mutant
    text = "\n".join(lines)
    output = scratch / "fault.o"
    if not build.compile(path, text, output, ["-O0"]):
        return "does not compile", "", ""
    target = build.object_of(path)
    try:
        build.replace(target)
        shutil.copy(output, build.folder / target)
        holders = build.holders(target)
        done = set()
        apps = not any(holder.endswith(".so") or ".so." in holder for holder in holders if "KVUtils" in holder)
        for name in holders:
            if name.endswith(".a") or ".so" in name:
                build.link(name)
                done.add(name)
        for program in tests.NAMES:
            if not tests.of(program) or apps and program not in holders:
                continue
            # Programs that tests start are linked before the first test program.
            for name in holders:
                if name not in done and (name == program or not name.endswith("Tests")):
                    build.link(name)
                    done.add(name)
            result = tests.catch(program, path)
            if result:
                return result[1] if result[1] != "failed" else "caught", program, result[0]
    except subprocess.CalledProcessError:
        return "does not compile", "", ""
    finally:
        build.restore()
    return ("equivalent" if build.is_same(path, text, original, output) else "survived"), "", ""


def run_faults(arguments):
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))
    tree = arguments.tree.resolve()
    build = Build(arguments.build.resolve())
    build.recover()
    with open(arguments.faults, newline="") as file:
        faults = list(csv.DictReader(file, delimiter="\t"))
    done = {}
    if arguments.results.exists():
        with open(arguments.results, newline="") as file:
            done = {row["id"]: row for row in csv.DictReader(file, delimiter="\t")}
    else:
        with open(arguments.results, "w", newline="") as file:
            csv.writer(file, delimiter="\t", lineterminator="\n").writerow(RESULTS)
    files = {path: read_lines(path) for path in sources_of(tree) if str(path) in build.commands}
    spare = [] if arguments.no_spares else [fault for fault in faults if fault["id"].startswith("S")]
    wanted = [fault for fault in faults if fault not in spare]
    with tempfile.TemporaryDirectory(prefix="plant") as scratch:
        scratch = pathlib.Path(scratch)
        tests = Tests(build, scratch, arguments.limit)
        tests.measure(arguments.timings)
        if arguments.jobs > 1:
            run_lanes(arguments, [fault for fault in faults if fault["id"] not in done], tests, scratch)
            return report(arguments)
        print(f"{len(tests.seconds)} tests pass as they are, in {sum(tests.seconds.values()):.0f} s", file=sys.stderr)
        queue = collections.deque(wanted)
        while queue:
            fault = queue.popleft()
            row = done.get(fault["id"])
            if not row:
                begun = time.monotonic()
                place = place_of(fault, tree, files)
                mutant = place and planted(files[place[0]][place[1]], fault)
                row = {key: fault[key] for key in ("id", "room", "kind", "file", "line", "reaches_user")}
                if mutant is None or place is None:
                    row.update(found="gone", outcome="gone", mutant="")
                else:
                    outcome, program, test = run_one(fault, place, mutant, build, tests, scratch, files)
                    row.update(file=str(place[0].relative_to(tree)), line_number=place[1] + 1, found=place[2],
                               line=files[place[0]][place[1]].strip(), mutant=mutant.strip(), outcome=outcome,
                               program=program, test=test)
                row["seconds"] = f"{time.monotonic() - begun:.0f}"
                with open(arguments.results, "a", newline="") as file:
                    csv.DictWriter(file, RESULTS, delimiter="\t", lineterminator="\n").writerow(row)
                print(fault["id"], row["outcome"], row["file"], row["seconds"], "s", file=sys.stderr, flush=True)
            if row["outcome"] in ("does not compile", "equivalent"):
                same_room = [other for other in spare if other["room"] == fault["room"]]
                if same_room or spare:
                    queue.append((same_room or spare)[0])
                    spare.remove(queue[-1])
    report(arguments)


def run_lanes(arguments, faults, tests, scratch):
    """Runs the faults in several processes. Each sees a copy of the build at the path of the build, since tests and
    programs find one another by their paths."""
    timings = scratch / "timings.json"
    timings.write_text(json.dumps(list(tests.seconds.items())))
    faults.sort(key=lambda fault: (fault["id"][0], fault["room"]))
    build = arguments.build.resolve()
    lanes = []
    for number in range(arguments.jobs):
        part = scratch / f"part{number}.tsv"
        with open(part, "w", newline="") as file:
            writer = csv.DictWriter(file, FIELDS, delimiter="\t", lineterminator="\n")
            writer.writeheader()
            writer.writerows(faults[number::arguments.jobs])
        copy = scratch / f"build{number}"
        subprocess.run(["cp", "-a", "--reflink=auto", build, copy], check=True)
        lanes.append(subprocess.Popen(
            ["unshare", "--mount", *([] if os.geteuid() == 0 else ["--map-root-user"]), "sh", "-c",
             'mount --bind "$1" "$2" && shift 2 && exec "$@"', "sh", copy, build,
             sys.executable, __file__, "run", part, "--tree", arguments.tree.resolve(), "--build", build,
             "--results", arguments.results.resolve(), "--limit", str(arguments.limit), "--timings", timings,
             *(["--no-spares"] if arguments.no_spares else [])], stdout=subprocess.DEVNULL))
    try:
        for lane in lanes:
            lane.wait()
    finally:
        for lane in lanes:
            lane.terminate()
            lane.wait()


NOT_COUNTED = ("does not compile", "equivalent", "gone")


def report(arguments):
    with open(arguments.results, newline="") as file:
        rows = list(csv.DictReader(file, delimiter="\t"))
    by_room = collections.defaultdict(list)
    for row in rows:
        if row["outcome"] not in NOT_COUNTED:
            by_room[row["room"]].append(row)
    print(f"{'room':32} planted caught")
    for room in sorted(by_room):
        print(f"{room:32} {len(by_room[room]):7} {sum(row['outcome'] != 'survived' for row in by_room[room]):6}")
    for title, of in (("all", ("yes", "no")), ("reaching a user", ("yes",))):
        counted = [row for rows in by_room.values() for row in rows if row["reaches_user"] in of]
        caught = sum(row["outcome"] != "survived" for row in counted)
        print(f"{title:32} {len(counted):7} {caught:6}  {100 * caught / max(1, len(counted)):.1f} %")
    for outcome in NOT_COUNTED:
        print(f"{outcome:32} {sum(row['outcome'] == outcome for row in rows):7}")
    for row in rows:
        if row["outcome"] == "survived":
            print(f"survived: {row['file']}:{row['line_number']}: {row['line']}  ->  {row['mutant']}")


def compare(arguments):
    """The counts of two results over the faults that both could plant, and the faults whose outcome differs."""
    tables = []
    for path in (arguments.before, arguments.after):
        with open(path, newline="") as file:
            tables.append({row["id"]: row for row in csv.DictReader(file, delimiter="\t")
                           if row["outcome"] not in NOT_COUNTED})
    common = sorted(tables[0].keys() & tables[1].keys())
    for path, rows in zip((arguments.before, arguments.after), tables):
        print(f"{path}: {len(common)} planted, {sum(rows[key]['outcome'] != 'survived' for key in common)} caught")
    for key in common:
        was, is_now = (rows[key]["outcome"] != "survived" for rows in tables)
        if was != is_now:
            row = tables[1][key]
            print(f"{'caught now' if is_now else 'slips through now'}: {key} {row['file']}:{row['line_number']}: "
                  f"{row['line']}  ->  {row['mutant']}")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    commands = parser.add_subparsers(required=True)
    listing = commands.add_parser("list", help="print a list of faults")
    listing.add_argument("--seed", type=int, default=1)
    listing.add_argument("--count", type=int, default=100)
    listing.add_argument("--tree", type=pathlib.Path, default=pathlib.Path("."))
    listing.set_defaults(run=list_faults)
    running = commands.add_parser("run", help="plant them one by one")
    running.add_argument("faults", type=pathlib.Path)
    running.add_argument("--tree", type=pathlib.Path, default=pathlib.Path("."))
    running.add_argument("--build", type=pathlib.Path, default=pathlib.Path("build/dev"))
    running.add_argument("--results", type=pathlib.Path, default=pathlib.Path("plant.tsv"))
    running.add_argument("--limit", type=float, default=30, metavar="SECONDS",
                         help="for one test, besides five times what it takes without a fault")
    running.add_argument("--jobs", type=int, default=1, help="faults at a time, each with a copy of the build")
    running.add_argument("--timings", type=pathlib.Path, metavar="FILE",
                         help="how long each test takes without a fault; written if it does not exist")
    running.add_argument("--no-spares", action="store_true", help="plant the spare faults of the list too, and replace none")
    running.set_defaults(run=run_faults)
    counting = commands.add_parser("report", help="count what was caught")
    counting.add_argument("results", type=pathlib.Path)
    counting.set_defaults(run=report)
    comparing = commands.add_parser("compare", help="compare the results of one list on two trees")
    comparing.add_argument("before", type=pathlib.Path)
    comparing.add_argument("after", type=pathlib.Path)
    comparing.set_defaults(run=compare)
    arguments = parser.parse_args()
    arguments.run(arguments)


if __name__ == "__main__":
    main()
