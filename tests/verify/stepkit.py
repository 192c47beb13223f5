"""What the steps written in Python share: arguments, rows, commands, the suite's programs."""

import argparse
import json
import re
import subprocess
import sys
import time
import traceback
from dataclasses import dataclass
from pathlib import Path
from typing import Callable, Mapping, NoReturn, Optional, Sequence

# The folders below tests/ whose programs exercise the engine and the client interface.
# Those of tests/fuzz hold an engine of their own, with its files in memory.
SUITE_FOLDERS = ("unit", "conversations", "reference", "failures")

# What every build of the tests wants, but for its compiler.
PACKAGES = ("cmake", "ninja-build", "pkg-config", "libcli11-dev", "libgtest-dev",
            "libncurses-dev", "libutf8proc-dev", "libvterm-dev", "libyaml-cpp-dev",
            "nlohmann-json3-dev", "libpugixml-dev", "libcairo2-dev", "librsvg2-dev",
            "fonts-dejavu-core", "poppler-utils")


class CannotWork(Exception):
    """The step could not do its work; the text says why."""


@dataclass
class Step:
    """How a step was started."""

    full: bool
    deadline: float  # on the clock of time.monotonic()
    work: Path
    extra: argparse.Namespace

    def seconds_left(self) -> float:
        return self.deadline - time.monotonic()


def say(text: str) -> None:
    print(text, file=sys.stderr, flush=True)


def row(what: str, count: object, shortfall: str = "") -> bool:
    """Prints a row of the table; true if nothing fell short."""
    print("row", what, count, shortfall or "ok", sep="\t", flush=True)
    return not shortfall


def run(command: Sequence[object], log: Optional[Path] = None, cwd: Optional[Path] = None,
        env: Optional[Mapping[str, str]] = None) -> str:
    """Standard output of a command. One that fails ends the step, with what it said."""
    done = subprocess.run([str(word) for word in command], cwd=cwd, env=env, text=True,
                          stdout=subprocess.PIPE, stderr=subprocess.PIPE, errors="replace")
    if log:
        log.write_text(done.stdout + done.stderr, encoding="utf-8")
    if done.returncode != 0:
        said = (done.stdout + done.stderr)[-4000:]
        raise CannotWork(f"{said}\nstatus {done.returncode} from {' '.join(map(str, command))}")
    return done.stdout


def write_whole(path: Path, text: str) -> None:
    """Nobody ever sees half of it."""
    draft = path.with_name(path.name + ".new")
    draft.write_text(text, encoding="utf-8")
    draft.replace(path)


def install(*more: str) -> None:
    """Sees to it that the packages for a build of the tests, and these, are there."""
    run(["scripts/dependencies", *PACKAGES, *more])


def configure(build: Path, compiler: str, flags: str, *definitions: str) -> None:
    """Configures the checkout, tests included, into a build folder."""
    run(["cmake", "-S", ".", "-B", build, "-G", "Ninja", f"-DCMAKE_CXX_COMPILER={compiler}",
         f"-DCMAKE_CXX_FLAGS={flags}", "-DCMAKE_BUILD_TYPE=None", "-DTAVREL_BUILD_TESTS=ON",
         "-DCMAKE_EXPORT_COMPILE_COMMANDS=ON", *(f"-D{each}" for each in definitions)])


def suite_targets(build: Path, folders: Sequence[str] = SUITE_FOLDERS) -> list[str]:
    """The programs below tests/ to be built: those that exercise the engine and the client
    interface, or those of other folders."""
    targets = run(["ninja", "-C", build, "-t", "targets", "all"]).splitlines()
    names = [line.split(": ")[0] for line in targets if ": CXX_EXECUTABLE_LINKER__" in line]
    return [name for name in names if name.startswith(tuple(f"tests/{f}/" for f in folders))]


def suite_commands(build: Path, folders: Sequence[str] = SUITE_FOLDERS) -> list[list[str]]:
    """How those programs, built, are run as tests: GoogleTest's as a whole, others as CTest does."""
    listing = json.loads(run(["ctest", "--test-dir", build, "--show-only=json-v1"]))
    programs = {str((build / target).resolve()) for target in suite_targets(build, folders)}
    commands = []
    for test in listing["tests"]:
        command = test.get("command", [])
        if not command or command[0] not in programs:
            continue
        whole = any(word.startswith("--gtest_filter") for word in command)
        command = command[:1] if whole else command
        if command not in commands:
            commands.append(command)
    return commands


def tests_passed(output: str) -> Optional[int]:
    """The tests that a program of GoogleTest says have passed; None of any other program."""
    line = re.search(r"^\[  PASSED  \] (\d+) test", output, re.MULTILINE)
    return int(line[1]) if line else None


def start(description: str, work: Callable[[Step], bool],
          more: Callable[[argparse.ArgumentParser], None] = lambda parser: None) -> NoReturn:
    """Reads the arguments, does the work and ends with the step's status."""
    parser = argparse.ArgumentParser(description=description)
    kind = parser.add_mutually_exclusive_group(required=True)
    kind.add_argument("--quick", action="store_true", help="what fits in every run")
    kind.add_argument("--full", action="store_true", help="everything")
    parser.add_argument("--seconds", type=float, required=True, help="the step's share of the time")
    parser.add_argument("--work", type=Path, required=True, help="folder that lives on between runs")
    more(parser)
    options = parser.parse_args()
    options.work.mkdir(parents=True, exist_ok=True)
    try:
        step = Step(options.full, time.monotonic() + options.seconds, options.work.resolve(), options)
        sys.exit(0 if work(step) else 1)
    except CannotWork as problem:
        say(f"{Path(sys.argv[0]).name}: {problem}")
        sys.exit(2)
    except Exception:
        say(traceback.format_exc())
        sys.exit(2)
