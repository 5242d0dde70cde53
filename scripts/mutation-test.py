#!/usr/bin/env python3
"""Mutation check: plants one small fault at a time in a copy of the tree and runs the tests.

A mutant the tests fail on is killed; one they pass on survived, and shows a gap in the tests
(or changes nothing a program could observe: an equivalent mutant). A mutant that does not
build is not counted. Faults planted:
  relational    <  <=  >  >=  ==  !=  swapped for a neighbour
  arithmetic    binary + and - swapped
  logical       && and || swapped
  constant      an integer literal plus or minus 1
  loop start    the first value of a for loop plus 1
  statement     an assignment, a step of a rule, or a signal's emission removed

Usage: scripts/mutation-test.py [--max N] [--seed S] [--time-limit SECONDS] [--list] [--lines FILE:LINE,...] PATH...
PATH is a .cpp file or a folder of them (its .cpp files; headers only when named). Standard
library only. The copy and its build live in a temporary folder. Files of the window (the Qt
view, the playback, the session, the panels, the shell) are checked against the window's
tests, offscreen; the core's against the core's tests and the golden dumps.
"""
import argparse
import os
import random
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import time
from dataclasses import dataclass
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
# The core's tests; the window is not built, so a mutant of the core rebuilds quickly.
CORE_TESTS = r"model_tests|engine_tests|view_core_tests|history_tests|cursor_tests|display_tests|HostileFiles|dump_"
CORE_TARGETS = ["model_tests", "engine_tests", "view_core_tests", "history_tests", "cursor_tests", "display_tests",
                "robustness_tests", "trelvin-dump"]
# The window's tests that drive the playback, the session and the panels.
UI_TESTS = r"playback_tests|replay_session_tests|panels_tests|finding_window_tests|map_window_tests"
UI_TARGETS = ["playback_tests", "replay_session_tests", "panels_tests", "finding_window_tests", "map_window_tests"]
UI_FOLDERS = ("src/playback", "src/session", "src/panels", "src/shell", "src/bridge")
UI_FILES = ("src/widgets/map_grid.cpp", "src/render/map_painter.cpp")


@dataclass
class Mutant:
    path: Path  # relative to the tree
    line: int  # 1-based
    kind: str
    before: str
    after: str

    def describe(self):
        return f"{self.path}:{self.line}: {self.kind}: `{self.before.strip()}` -> `{self.after.strip()}`"


def code_part(line):
    """The line with comments, string and character literals blanked, so no site is found there."""
    out, i, quote = [], 0, None
    while i < len(line):
        c = line[i]
        if quote:
            if c == "\\":
                out.append("  ")
                i += 2
                continue
            if c == quote:
                quote = None
            out.append(" ")
            i += 1
            continue
        if line.startswith("//", i):
            break
        if c in "\"'":
            quote = c
            out.append(" ")
        else:
            out.append(c)
        i += 1
    return "".join(out).ljust(len(line))


RELATIONAL = {" < ": [" <= "], " <= ": [" < "], " > ": [" >= "], " >= ": [" > "],
              " == ": [" != "], " != ": [" == "]}
SWAPS = {" + ": " - ", " - ": " + ", " && ": " || ", " || ": " && "}
INTEGER = re.compile(r"(?<![\w.])(\d+)(?![\w.'])")
ASSIGNMENT = re.compile(r"^\s*[\w.\[\]>-]+(\(\))?\s*(=|\+=|-=|\*=)\s[^=]")
LOOP_START = re.compile(r"for \((?:const )?\w+ \w+ = ([^;:]+);")


def sites(path):
    """Every mutant of one file."""
    lines = path.read_text(encoding="latin-1").splitlines(keepends=True)
    rel = path.relative_to(ROOT)
    found = []
    in_block_comment = False
    depth = 0
    for number, line in enumerate(lines, 1):
        stripped = line.strip()
        if in_block_comment:
            in_block_comment = "*/" not in line
            continue
        if stripped.startswith("/*"):
            in_block_comment = "*/" not in line
            continue
        if stripped.startswith("#") or "static_assert" in line:
            continue
        code = code_part(line)
        if stripped.startswith(("namespace", "}  // namespace", 'extern "C"')):
            continue  # namespaces do not open a body
        inside_function = depth > 0
        depth += code.count("{") - code.count("}")
        if not inside_function:
            continue  # declarations, tables and signatures: faults there rarely build

        def add(kind, start, old, new):
            mutated = line[:start] + new + line[start + len(old):]
            found.append(Mutant(rel, number, kind, line, mutated))

        for old, news in RELATIONAL.items():
            for m in re.finditer(re.escape(old), code):
                for new in news:
                    add("relational", m.start(), old, new)
        for old, new in SWAPS.items():
            kind = "logical" if "&" in old or "|" in old else "arithmetic"
            if kind == "arithmetic" and '"' in line:
                continue  # joining texts: a minus there would not build
            for m in re.finditer(re.escape(old), code):
                add(kind, m.start(), old, new)
        for m in INTEGER.finditer(code):
            value = int(m.group(1))
            for new in {value + 1, max(value - 1, 0)} - {value}:
                add("constant", m.start(), m.group(1), str(new))
        loop = LOOP_START.search(code)
        if loop:
            start = loop.start(1)
            old = line[start:loop.end(1)]
            add("loop start", start, old, f"({old}) + 1")
        if stripped.endswith(";") and (ASSIGNMENT.match(code) or "ctx.step(" in code or
                                       stripped.startswith("emit ")):
            if code.count("(") == code.count(")") and code.count("{") == code.count("}"):
                indent = line[: len(line) - len(line.lstrip())]
                found.append(Mutant(rel, number, "statement", line, indent + ";\n"))
    return found


def source_files(arguments):
    files = []
    for argument in arguments:
        path = (ROOT / argument).resolve() if not Path(argument).is_absolute() else Path(argument)
        if path.is_dir():
            files += sorted(path.glob("*.cpp"))
        elif path.is_file():
            files.append(path)
        else:
            sys.exit(f"no such file or folder: {argument}")
    return files


def is_window_code(path):
    rel = str(path.relative_to(ROOT))
    return rel.startswith(UI_FOLDERS) or rel in UI_FILES


def run(command, cwd, timeout=None):
    """Runs a command in a process group of its own, so that a test a mutant made loop for ever
    ends with it when the time is up."""
    with subprocess.Popen(command, cwd=cwd, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                          start_new_session=True) as process:
        try:
            output, _ = process.communicate(timeout=timeout)
            return process.returncode, output
        except subprocess.TimeoutExpired:
            os.killpg(process.pid, signal.SIGKILL)
            process.communicate()
            return None, "timed out"


def copy_tree(destination):
    listed = subprocess.run(["git", "ls-files", "-z"], cwd=ROOT, stdout=subprocess.PIPE,
                            check=True).stdout.decode().split("\0")
    for name in filter(None, listed):
        target = destination / name
        target.parent.mkdir(parents=True, exist_ok=True)
        shutil.copy2(ROOT / name, target)


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("paths", nargs="+", help=".cpp files or folders")
    parser.add_argument("--max", type=int, default=40, help="mutants to try (default 40)")
    parser.add_argument("--seed", type=int, default=1, help="seed of the sample (default 1)")
    parser.add_argument("--time-limit", type=float, default=1800, help="seconds in all (default 1800)")
    parser.add_argument("--list", action="store_true", help="only list the sampled mutants")
    parser.add_argument("--lines", default="", metavar="FILE:LINE,...",
                        help="only the sites on these lines, such as a run's survivors to try again")
    options = parser.parse_args()

    files = source_files(options.paths)
    window = any(is_window_code(path) for path in files)
    if window and not all(is_window_code(path) for path in files):
        sys.exit("give files of the core or files of the window, not both at once")
    tests, targets = (UI_TESTS, UI_TARGETS) if window else (CORE_TESTS, CORE_TARGETS)
    everything = [m for path in files for m in sites(path)]
    if options.lines:
        chosen = {tuple(item.rsplit(":", 1)) for item in options.lines.split(",")}
        everything = [m for m in everything if (str(m.path), str(m.line)) in chosen]
    sample = random.Random(options.seed).sample(everything, min(options.max, len(everything)))
    sample.sort(key=lambda m: (str(m.path), m.line))
    print(f"{len(everything)} mutation sites; trying {len(sample)} (seed {options.seed})", flush=True)
    if options.list:
        for mutant in sample:
            print(mutant.describe())
        return 0

    started = time.monotonic()
    with tempfile.TemporaryDirectory(prefix="trelvin-mutants-") as temporary:
        tree = Path(temporary) / "tree"
        build = Path(temporary) / "build"
        copy_tree(tree)
        # Checked indexing turns a read past a container's end into a failure the tests see.
        code, output = run(["cmake", "-S", str(tree), "-B", str(build), "-DCMAKE_BUILD_TYPE=Debug",
                            "-DCMAKE_CXX_FLAGS=-D_GLIBCXX_ASSERTIONS", f"-DTRELVIN_BUILD_UI={'ON' if window else 'OFF'}",
                            "-DTRELVIN_BUILD_BENCH=OFF"], tree)
        build_command = ["cmake", "--build", str(build), "-j2", "--target", *targets]
        test_command = ["ctest", "--test-dir", str(build), "-R", tests, "-j2", "--stop-on-failure",
                        "--timeout", "60"]
        if code == 0:
            code, output = run(build_command, tree)
        if code == 0:
            baseline = time.monotonic()
            code, output = run(test_command, tree)
            test_seconds = time.monotonic() - baseline
        if code != 0:
            print(output)
            sys.exit("the unmutated tree does not build or pass its tests")

        killed, survived, unbuilt = 0, [], 0
        for number, mutant in enumerate(sample, 1):
            if time.monotonic() - started > options.time_limit:
                print(f"time limit reached after {number - 1} mutants")
                break
            source = tree / mutant.path
            original = source.read_text(encoding="latin-1")
            lines = original.splitlines(keepends=True)
            lines[mutant.line - 1] = mutant.after
            source.write_text("".join(lines), encoding="latin-1")
            try:
                code, _ = run(build_command, tree)
                if code != 0:
                    unbuilt += 1
                    continue
                code, _ = run(test_command, tree, timeout=max(120, 20 * test_seconds))
                if code == 0:
                    survived.append(mutant)
                    print("survived " + mutant.describe(), flush=True)
                else:
                    killed += 1
            finally:
                source.write_text(original, encoding="latin-1")
        # Leave the copy's build as it was for nothing: it goes with the temporary folder.
    minutes = (time.monotonic() - started) / 60
    counted = killed + len(survived)
    score = 100 * killed / counted if counted else 0
    print(f"{unbuilt} did not build; {minutes:.1f} minutes; {score:.0f} % killed")
    print(f"{killed} killed, {len(survived)} survived")
    return 0


if __name__ == "__main__":
    sys.exit(main())
