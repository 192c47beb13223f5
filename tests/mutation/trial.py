"""One mutant after another: compiled, linked, and given to the suite until a test notices."""

import json
import queue
import re
import shutil
import threading
from collections import Counter
from concurrent.futures import ThreadPoolExecutor
from dataclasses import dataclass
from pathlib import Path
from typing import Callable, Optional, Sequence

from mutants import Mutant
from suite import FLAGS, FOLDERS, LIBRARY, Program, Suite, Unit, run_limited

import stepkit

TIMES_LONGER = 10  # than the unchanged program: then a mutant is taken to hang
LEAST_SECONDS = 2
IS_NO_PROGRAM = re.compile(r"^\d+ errors? generated\.$|undefined reference", re.M)
NOT_THE_MUTANTS_FAULT = re.compile(r"No space left|error while loading shared libraries")
ITS_END = "its end"  # what has noticed a mutant where no test says so
QUICK_TEST = 0.05  # seconds; slower ones wait until the quick have noticed nothing
FAVOURITES = 12  # tests that have noticed most in a file, tried first
MOST_APART = 3  # units that are compiled one by one rather than their folder in one piece


@dataclass
class Verdict:
    """What became of a mutant."""

    outcome: str  # killed, survived, identical (object code), stillborn (doesn't compile)
    by: str = ""  # the test that noticed it


class Killers:
    """Which tests have noticed mutants of a file, the most successful first."""

    def __init__(self) -> None:
        self.counts: dict[str, Counter[tuple[str, str]]] = {}
        self.lock = threading.Lock()

    def note(self, file: str, program: str, test: str) -> None:
        with self.lock:
            self.counts.setdefault(file, Counter())[(program, test)] += 1

    def best(self, file: str, program: str) -> list[str]:
        with self.lock:
            counts = self.counts.get(file, Counter())
            best = [pair for pair, _ in counts.most_common(FAVOURITES)]
        return [test for name, test in best if name == program and test]

    def order(self, file: str, programs: list[Program]) -> list[Program]:
        with self.lock:
            counts = Counter(name for name, _ in self.counts.get(file, Counter()).elements())
        return sorted(programs, key=lambda each: (-counts[each.name], each.seconds))


class Workplace:
    """Where one mutant at a time is tried."""

    def __init__(self, suite: Suite, folder: Path, killers: Killers) -> None:
        self.suite, self.folder, self.killers = suite, folder, killers
        self.originals: dict[Path, bytes] = {}  # optimised object code
        shutil.rmtree(folder, ignore_errors=True)
        folder.mkdir(parents=True)

    # --- building -------------------------------------------------------------------

    def overlay(self, mutant: Mutant) -> list[str]:
        """Arguments that show the compiler the mutant in the place of its file."""
        path = self.suite.root / mutant.file
        changed = self.folder / "changed"
        changed.write_bytes(mutant.applied_to(path.read_bytes()))
        roots = [{"name": str(each), "type": "file", "external-contents": str(changed)}
                 for each in [path, *self.suite.copies(path)]]
        description = self.folder / "overlay.yaml"
        description.write_text(json.dumps(
            {"version": 0, "use-external-names": False, "roots": roots}))
        return ["-ivfsoverlay", str(description)]

    def compile(self, mutant: Mutant, units: list[Unit]) -> dict[Path, Path]:
        """What takes the place of the units' object files."""
        path = self.suite.root / mutant.file
        replaced = {}
        for number, unit in enumerate(unit for unit in units if path in unit.needs):
            target = self.folder / f"{number}-{unit.compiled.name}"
            unit.compile(target, "-w", *self.overlay(mutant))
            replaced[unit.compiled] = target
        return replaced

    def build(self, mutant: Mutant, program: Program) -> Path:
        """The program, linked anew if units of its own include the mutant's file."""
        replaced = self.compile(mutant, program.units)
        if not replaced:
            return self.suite.work / program.name
        target = self.folder / program.name
        program.link_to(target, self.suite.work / LIBRARY, replaced)
        return target

    def library_with(self, mutant: Mutant) -> list[Path]:
        """The library's object files, those that include the mutant's file made anew."""
        objects: list[Path] = []
        for folder in FOLDERS:
            units = self.suite.units_of(folder)
            pieces = self.pieces(mutant, folder)
            replaced = self.compile(mutant, pieces)
            in_one = self.suite.wholes[folder].compiled
            objects += ([replaced[in_one]] if in_one in replaced else
                        [replaced.get(unit.compiled, unit.compiled) for unit in units])
        return objects

    def pieces(self, mutant: Mutant, folder: str) -> list[Unit]:
        """What of a folder has to be compiled. Most headers are wanted by many units."""
        path = self.suite.root / mutant.file
        units = [unit for unit in self.suite.units_of(folder) if path in unit.needs]
        return units if len(units) <= MOST_APART else [self.suite.wholes[folder]]

    # --- trying ---------------------------------------------------------------------

    def try_mutant(self, mutant: Mutant) -> Verdict:
        try:
            self.suite.link_library(self.folder / LIBRARY, self.library_with(mutant))
            noticed = self.notice(mutant)
        except stepkit.CannotWork as problem:
            if not IS_NO_PROGRAM.search(str(problem)) or "No space left" in str(problem):
                raise
            return Verdict("stillborn")
        if noticed:
            return Verdict("killed", noticed)
        return Verdict("identical" if self.is_identical(mutant) else "survived")

    def notice(self, mutant: Mutant) -> str:
        """The test that notices the mutant, or nothing. Programs as they are go first."""
        path = self.suite.root / mutant.file
        programs = self.killers.order(mutant.file, self.suite.programs)
        anew = [each for each in programs if any(path in unit.needs for unit in each.units)]
        as_they_are = [each for each in programs if each not in anew]
        return self.notice_by(mutant, as_they_are) or self.notice_by(mutant, anew)

    def notice_by(self, mutant: Mutant, programs: list[Program]) -> str:
        built: dict[str, Path] = {}
        for choose in (self.favourites, self.quick, self.slow):
            for program in programs:
                tests = choose(mutant, program)
                if tests == []:
                    continue
                if program.name not in built:
                    built[program.name] = self.build(mutant, program)
                test = self.run(program, built[program.name], tests)
                if test is not None:
                    self.killers.note(mutant.file, program.name, test)
                    return f"{program.name}: {test or ITS_END}"
        return ""

    # Each of these says which tests of a program a stage runs; None for all of them.

    def favourites(self, mutant: Mutant, program: Program) -> Optional[list[str]]:
        best = self.killers.best(mutant.file, program.name)
        return [test for test in best if program.tests.get(test, QUICK_TEST + 1) <= QUICK_TEST]

    def quick(self, _: Mutant, program: Program) -> Optional[list[str]]:
        if not program.tests and program.seconds > QUICK_TEST:
            return []
        return [test for test, seconds in program.tests.items() if seconds <= QUICK_TEST] or None

    def slow(self, _: Mutant, program: Program) -> Optional[list[str]]:
        if not program.tests:
            return None if program.seconds > QUICK_TEST else []
        return [test for test, seconds in program.tests.items() if seconds > QUICK_TEST]

    def run(self, program: Program, path: Path, tests: Optional[list[str]]) -> Optional[str]:
        """The test that noticed, "" for the program as a whole; None if nothing did."""
        words = [str(path), *program.command[1:]]
        usual = program.seconds
        if tests:
            usual = sum(program.tests[test] for test in tests)
            words += ["--gtest_fail_fast", "--gtest_filter=" + ":".join(tests)]
        seconds = max(LEAST_SECONDS, TIMES_LONGER * usual)
        ending = run_limited(words, seconds, self.folder, self.folder)
        if ending.fine:
            return None
        shutil.rmtree(self.folder / "tmp", ignore_errors=True)
        if NOT_THE_MUTANTS_FAULT.search(ending.output):
            raise stepkit.CannotWork(f"{program.name}: {ending.output[-2000:]}")
        failed = re.findall(r"^\[  FAILED  \] ([^ ,\n]+)", ending.output, re.M)
        begun = re.findall(r"^\[ RUN      \] (\S+)", ending.output, re.M)
        return (failed or begun[-1:] or [""])[0]

    # --- comparing object code ------------------------------------------------------

    def is_identical(self, mutant: Mutant) -> bool:
        """Whether the optimiser makes the same of the mutant as of the original."""
        pieces = [piece for folder in FOLDERS for piece in self.pieces(mutant, folder)]
        return all(self.optimised(piece, self.overlay(mutant)) == self.original(piece)
                   for piece in pieces)

    def original(self, unit: Unit) -> bytes:
        if unit.source not in self.originals:
            self.originals[unit.source] = self.optimised(unit, [])
        return self.originals[unit.source]

    def optimised(self, unit: Unit, more: list[str]) -> bytes:
        at = unit.command.index("-include-pch")
        words = [word for word in unit.command[:at] + unit.command[at + 2:]
                 if word not in FLAGS.split()]
        target = self.folder / "optimised.o"
        Unit(unit.source, [*words, "-O2"], unit.compiled).compile(target, "-w", *more)
        return target.read_bytes()


def try_each(suite: Suite, folder: Path, killers: Killers, mutants: Sequence[Mutant],
             note: Callable[[Mutant, Verdict], None],
             is_over: Callable[[], bool] = lambda: False) -> None:
    """Tries as many at once as the suite has jobs, and notes each verdict as it comes, on the
    thread that found it. Once it is over, no further mutant is begun."""
    workplaces: "queue.Queue[Workplace]" = queue.Queue()
    for number in range(suite.jobs):
        workplaces.put(Workplace(suite, folder / f"workplace{number}", killers))

    def attempt(mutant: Mutant) -> None:
        if is_over():
            return
        workplace = workplaces.get()
        try:
            verdict = workplace.try_mutant(mutant)
        finally:
            workplaces.put(workplace)
        note(mutant, verdict)

    with ThreadPoolExecutor(suite.jobs) as pool:
        list(pool.map(attempt, mutants))
