"""The suite, built so that a mutant costs no more than a compilation and a link.

The engine and the client interface become one shared library, every symbol of it visible;
the suite's programs are linked against that instead of what they hold in an ordinary build.
"""

import json
import os
import re
import shlex
import signal
import subprocess
import sys
import time
from concurrent.futures import ThreadPoolExecutor
from dataclasses import dataclass, field
from pathlib import Path
from typing import Iterable, Sequence

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "verify"))
import stepkit  # noqa: E402

COMPILER = "clang++-19"
FLAGS = "-O1 -D_GLIBCXX_ASSERTIONS"  # an index outside a list is noticed wherever it is used
LIBRARY = "libtavrel_on_trial.so"
FOLDERS = ("engine", "facade")
OF_AN_ORDINARY_BUILD = re.compile(
    r"engine/CMakeFiles/tavrel_engine\.dir/|facade/libtavrel\.|-Wl,-rpath")


@dataclass
class Unit:
    """A translation unit and how it is compiled."""

    source: Path
    command: list[str]  # without -c, -o and the source
    compiled: Path
    needs: set[Path] = field(default_factory=set)  # the project's files it includes

    def compile(self, target: Path, *more: str) -> None:
        stepkit.run([*self.command, *more, "-c", self.source, "-o", target])


@dataclass
class Program:
    """One of the suite's programs and what it does when nothing is wrong."""

    name: str
    command: list[str]
    link: list[str]  # without the library on trial and -o
    units: list[Unit]
    tests: dict[str, float] = field(default_factory=dict)  # seconds of each, GoogleTest's only
    seconds: float = 0

    def is_googletest(self) -> bool:
        return any("gtest" in word for word in self.link)

    def link_to(self, target: Path, library: Path, replaced: dict[Path, Path]) -> None:
        """Object files that replace members of an archive stand before it: they win."""
        words = [str(replaced.pop(Path(word), word)) for word in self.link]
        stepkit.run([*words[:1], *replaced.values(), *words[1:], "-o", target, library])


class Suite:
    """Everything that stays the same from mutant to mutant."""

    def __init__(self, root: Path, work: Path) -> None:
        self.root, self.work, self.build = root, work, work / "build"
        self.objects = work / "objects"
        self.programs: list[Program] = []
        self.library: list[Unit] = []
        self.wholes: dict[str, Unit] = {}  # by folder, all its units in one
        self.jobs = 2

    # --- building -------------------------------------------------------------------

    def make(self) -> None:
        stepkit.say("mutation: building the suite")
        self.objects.mkdir(parents=True, exist_ok=True)
        stepkit.configure(self.build, COMPILER, FLAGS)
        targets = stepkit.suite_targets(self.build)
        stepkit.run(["nice", "ninja", "-C", self.build, f"-j{self.jobs}", *targets])
        units = self.read_units()
        self.library = [unit for unit in units.values() if self.in_library(unit.source)]
        self.read_programs(units)
        self.check_needs()
        self.make_library()
        for program in self.programs:
            program.link_to(self.work / program.name, self.work / LIBRARY, {})

    def in_library(self, source: Path) -> bool:
        return source.relative_to(self.root).parts[0] in FOLDERS

    def read_units(self) -> dict[str, Unit]:
        """The units of the library and of the suite, by the object file that they become."""
        needs = self.read_needs()
        units = {}
        for each in json.loads((self.build / "compile_commands.json").read_text()):
            words = shlex.split(each["command"])
            output = words[words.index("-o") + 1]
            command = words[:words.index("-o")]
            source = Path(each["file"])
            compiled = self.build / output
            if Path(output).parts[0] != source.relative_to(self.root).parts[0]:
                continue  # an engine that a test has built for itself
            if self.in_library(source):
                command = [word for word in command if not word.startswith("-fvisibility")]
                compiled = self.objects / (source.name + ".o")
            command = [word.replace("-fPIE", "-fPIC") for word in command]  # as precompiled
            units[output] = Unit(source, command, compiled, needs.get(output, set()))
        return units

    def read_needs(self) -> dict[str, set[Path]]:
        """For each object file, the project's own files that it was made from."""
        needs: dict[str, set[Path]] = {}
        current: set[Path] = set()
        for line in stepkit.run(["ninja", "-C", self.build, "-t", "deps"]).splitlines():
            if line and not line.startswith(" "):
                current = needs.setdefault(line.split(": ")[0], set())
            elif line:
                path = self.original(Path(self.build, line.strip()).resolve())
                if path.is_relative_to(self.root):
                    current.add(path)
        return needs

    def check_needs(self) -> None:
        """Without them a mutant would be compiled into nothing, and nobody would notice it."""
        for unit in [*self.library, *(u for program in self.programs for u in program.units)]:
            if unit.source not in unit.needs:
                raise stepkit.CannotWork(f"the build doesn't say what {unit.source} includes")

    def original(self, path: Path) -> Path:
        """The source of a header that the build has copied."""
        copied = path.is_relative_to(self.build / "include")
        source = self.root / "facade" / path.name
        return source if copied and source.exists() else path

    def copies(self, path: Path) -> list[Path]:
        return [copy for copy in (self.build / "include").rglob(path.name)
                if self.original(copy) == path]

    def read_programs(self, units: dict[str, Unit]) -> None:
        for command in stepkit.suite_commands(self.build):
            target = str(Path(command[0]).relative_to(self.build))
            words = self.link_command(target)
            members = [unit for word in words for unit in members_of(word, units)]
            words = [str(self.build / word) if (self.build / word).is_file() else word
                     for word in words]
            self.programs.append(Program(Path(target).name, command, words, members))

    def link_command(self, target: str) -> list[str]:
        last = stepkit.run(["ninja", "-C", self.build, "-t", "commands", target]).splitlines()[-1]
        words = shlex.split(last)
        words = words[words.index("&&") + 1:]
        words = words[:words.index("&&")]
        at = words.index("-o")
        del words[at:at + 2]
        return [word for word in words if not OF_AN_ORDINARY_BUILD.search(word)]

    def make_library(self) -> None:
        self.precompile_headers()
        self.wholes = {folder: self.whole(folder) for folder in FOLDERS}
        with ThreadPoolExecutor(self.jobs) as pool:
            list(pool.map(lambda unit: unit.compile(unit.compiled),
                          [*self.library, *self.wholes.values()]))
        self.link_library(self.work / LIBRARY, [unit.compiled for unit in self.library])

    def units_of(self, folder: str) -> list[Unit]:
        return [unit for unit in self.library if unit.source.parent == self.root / folder]

    def whole(self, folder: str) -> Unit:
        units = self.units_of(folder)
        source = self.objects / f"{folder}.cpp"
        source.write_text("".join(f'#include "{unit.source}"\n' for unit in units),
                          encoding="utf-8")
        needs = set().union(*(unit.needs for unit in units))
        return Unit(source, units[0].command, self.objects / f"{folder}.o", needs)

    def precompile_headers(self) -> None:
        """The headers that take most of a compilation, once for units of like definitions."""
        tests = {id(unit): unit for program in self.programs for unit in program.units}.values()
        with_gtest = [unit for unit in tests if "-DGTEST_HAS_PTHREAD=1" in unit.command]
        without = [*self.library, *(unit for unit in tests if unit not in with_gtest)]
        standard = self.system_headers((*FOLDERS, "tests"))
        self.precompile("standard", without, standard)
        self.precompile("gtest", with_gtest, ["gtest/gtest.h", *standard])

    def system_headers(self, folders: Iterable[str]) -> list[str]:
        """The C++ library's headers that sources below the folders include."""
        sources = [path for folder in folders for suffix in ("h", "cpp")
                   for path in (self.root / folder).rglob(f"*.{suffix}")]
        found = [re.findall(r"^#include <([a-z_]+)>", path.read_text(encoding="utf-8"), re.M)
                 for path in sources]
        return sorted({name for names in found for name in names})

    def precompile(self, name: str, units: Sequence[Unit], headers: Sequence[str]) -> None:
        header = self.objects / f"{name}.h"
        text = "".join(f"#include <{each}>\n" for each in headers)
        header.write_text(text, encoding="utf-8")
        precompiled = header.with_suffix(".pch")
        stepkit.run([*units[0].command, "-x", "c++-header", header, "-o", precompiled])
        for unit in units:
            unit.command = [*unit.command, "-include-pch", str(precompiled)]

    def link_library(self, target: Path, objects: Sequence[Path]) -> None:
        stepkit.run([COMPILER, "-shared", "-Wl,-Bsymbolic", f"-Wl,-soname,{LIBRARY}", *objects,
                     "-o", target])

    # --- running --------------------------------------------------------------------

    def try_out(self) -> None:
        """Runs everything unchanged: it must succeed, and shows how long it takes."""
        for program in self.programs:
            report = self.work / f"{program.name}.json"
            report.unlink(missing_ok=True)
            words = [str(self.work / program.name), *program.command[1:]]
            if program.is_googletest():
                words.append(f"--gtest_output=json:{report}")
            ending = run_limited(words, 600, self.work, self.work)
            if not ending.fine:
                raise stepkit.CannotWork(f"{program.name} fails without any change:\n"
                                         + ending.output[-2000:])
            program.seconds = ending.seconds
            stepkit.say(f"mutation: {program.name} takes {program.seconds:.1f} s")
            if report.exists():
                program.tests = test_times(report)


def members_of(word: str, units: dict[str, Unit]) -> list[Unit]:
    """The units in an object file or an archive of the build."""
    archive = re.fullmatch(r"(.*/)lib([^/]+)\.a", word)
    if archive:
        prefix = f"{archive[1]}CMakeFiles/{archive[2]}.dir/"
        return [unit for output, unit in units.items() if output.startswith(prefix)]
    return [units[word]] if word in units else []


@dataclass
class Ending:
    """How a program ended."""

    fine: bool
    output: str
    seconds: float


def test_times(report: Path) -> dict[str, float]:
    suites = json.loads(report.read_text(encoding="utf-8"))["testsuites"]
    return {f"{suite['name']}.{test['name']}": float(test["time"].rstrip("s"))
            for suite in suites for test in suite["testsuite"]}


def run_limited(words: Sequence[str], seconds: float, libraries: Path, scratch: Path) -> Ending:
    """Runs a program with limits on processor time, memory and the size of files."""
    temporary = scratch / "tmp"
    temporary.mkdir(exist_ok=True)
    limits = (f"ulimit -t {int(seconds) + 1} && ulimit -v 4000000 && ulimit -f 400000 &&"
              " ulimit -c 0 && exec \"$@\"")
    # glibc's own check of the heap: a byte written behind a block ends the program.
    environment = {"PATH": "/usr/bin:/bin", "LD_LIBRARY_PATH": str(libraries),
                   "TMPDIR": str(temporary), "LD_PRELOAD": "libc_malloc_debug.so.0",
                   "MALLOC_CHECK_": "3"}
    return finish(subprocess.Popen(
        ["sh", "-c", limits, "sh", *words], env=environment, text=True,
        errors="replace", stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
        stdin=subprocess.DEVNULL, start_new_session=True), 4 * seconds + 20)


def finish(process: "subprocess.Popen[str]", seconds: float) -> Ending:
    """Waits so long, then ends the program and whatever it started."""
    began = time.monotonic()
    try:
        output, _ = process.communicate(timeout=seconds)
    except subprocess.TimeoutExpired:
        os.killpg(process.pid, signal.SIGKILL)
        output, _ = process.communicate()
    return Ending(process.returncode == 0, output, time.monotonic() - began)
