"""Counts what operations cost in instructions and compares that with bench/budgets.txt.

    scripts/budgets            fails where a count is off by more than 3 %, either way
    scripts/budgets --write    writes the counts into bench/budgets.txt

Exit status: 0 if all are within, 1 if one isn't, 2 if nothing could be compared.
"""

import argparse
import math
import platform
import sys
import tempfile
from dataclasses import dataclass
from pathlib import Path
from typing import Optional

ROOT = Path(__file__).resolve().parent.parent
sys.dont_write_bytecode = True  # no traces in the checkout
sys.path[:0] = [str(ROOT / "tests/limits"), str(ROOT / "tests/verify")]

import callgrind  # noqa: E402
import stepkit  # noqa: E402

BUDGETS = ROOT / "bench/budgets.txt"
TOLERANCE = 0.03
HEAD = """\
# What operations cost: instructions for each byte, find, cell, element or start, as
# callgrind counts them in the release build. Written by `scripts/budgets --write`;
# `scripts/budgets` fails where a count is off by more than 3 %, either way, so that what
# was gained is kept. A change that means to cost more, or gained, comes with new budgets.
"""


class CannotCompare(Exception):
    """There is nothing to compare; the text says why."""


@dataclass
class Budget:
    name: str
    instructions: float
    unit: str

    def line(self) -> str:
        return f"{self.name:24}{shown(self.instructions):>10}  {self.unit}\n"


def shown(instructions: float) -> str:
    """With four digits that count."""
    digits = 3 - math.floor(math.log10(instructions)) if instructions > 0 else 0
    return f"{instructions:.{max(0, digits)}f}"


def toolchain(folder: Path) -> str:
    """What the counts depend on: "g++ 12.2.0 x86_64"."""
    cache = (folder / "CMakeCache.txt").read_text(encoding="utf-8").splitlines()
    compiler = next(line.split("=", 1)[1] for line in cache
                    if line.startswith("CMAKE_CXX_COMPILER:"))
    kind = "g++" if "Free Software Foundation" in stepkit.run([compiler, "--version"]) else "clang++"
    return f"{kind} {stepkit.run([compiler, '-dumpfullversion']).strip()} {platform.machine()}"


def counted(program: Path) -> list[Budget]:
    names = callgrind.names_of(program)
    with tempfile.TemporaryDirectory() as directory:
        stepkit.run([program.resolve(), "--charts"], cwd=Path(directory))
        totals = callgrind.count_each(program, names, Path(directory))
    budgets = {}
    for label, total in totals.items():
        name, units, unit = label.split("|")
        budgets[name] = Budget(name, total / int(units), unit)
    if sorted(budgets) != sorted(names):
        raise CannotCompare("callgrind's output lacks a count")
    return [budgets[name] for name in names]


def write(budgets: list[Budget], tools: str) -> None:
    stepkit.write_whole(
        BUDGETS, HEAD + f"compiler: {tools}\n\n" + "".join(map(Budget.line, budgets)))


def recorded(tools: str) -> dict[str, Budget]:
    if not BUDGETS.exists():
        raise CannotCompare(f"{BUDGETS} is missing: scripts/budgets --write makes it")
    budgets = {}
    for line in BUDGETS.read_text(encoding="utf-8").splitlines():
        if line.startswith("compiler: ") and line != f"compiler: {tools}":
            raise CannotCompare(f"{BUDGETS} is for {line[10:]}, the release build's is {tools}")
        if line and not line.startswith(("#", "compiler: ")):
            name, instructions, unit = line.split()
            budgets[name] = Budget(name, float(instructions), unit)
    return budgets


def difference(budget: Budget, old: Optional[Budget]) -> str:
    """What is wrong with a count; empty if nothing is."""
    if old is None:
        return f"{budget.name}: {shown(budget.instructions)} per {budget.unit}, not recorded"
    change = budget.instructions / old.instructions - 1
    if budget.unit == old.unit and abs(change) <= TOLERANCE:
        return ""
    return (f"{budget.name}: {shown(budget.instructions)} per {budget.unit} instead of "
            f"{shown(old.instructions)} per {old.unit}, {change:+.1%}")


def compare(budgets: list[Budget], old: dict[str, Budget]) -> bool:
    wrong = [difference(budget, old.get(budget.name)) for budget in budgets]
    wrong += [f"{name}: no longer counted" for name in old.keys() - {b.name for b in budgets}]
    wrong = [text for text in wrong if text]
    if wrong:
        print("\n".join(wrong))
        print("If that is meant, or better: scripts/budgets --write")
    else:
        print(f"{len(budgets)} counts within {TOLERANCE:.0%} of their budgets")
    return not wrong


def main() -> int:
    parser = argparse.ArgumentParser(prog="scripts/budgets",
                                     description=__doc__.splitlines()[0])
    parser.add_argument("--write", action="store_true", help="write bench/budgets.txt")
    parser.add_argument("--build", type=Path, default=ROOT / "build/release", metavar="DIR",
                        help="the folder of the release build (build/release)")
    options = parser.parse_args()
    try:
        folder = options.build.resolve()
        program = callgrind.build(folder, "budgeted") / "budgeted"
        tools = toolchain(folder)
        if options.write:
            write(counted(program), tools)
            return 0
        old = recorded(tools)
        return 0 if compare(counted(program), old) else 1
    except (CannotCompare, stepkit.CannotWork, OSError) as problem:
        print(f"scripts/budgets: {problem}", file=sys.stderr)
        return 2


sys.exit(main())
