"""Measures Tavrel beside other ways to do the same, and prints a table.

    scripts/bench [--write | NAME...]

Installs what is missing, builds the preset "bench" and runs its programs, all or
those named: read, find, rectangle, move, redraw, start, allocations, layout, hands.
Exit status 1 says that a bar was missed, 2 that it could not measure. --write also
puts the tables into docs/performance.md. TAVREL_BENCH_BUILD=FOLDER in the environment takes the
programs of a build that is there already.
"""

from __future__ import annotations

import argparse
import datetime
import os
import re
import subprocess
import sys
from dataclasses import dataclass
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
sys.dont_write_bytecode = True  # no traces in the checkout
sys.path.insert(0, str(ROOT / "tests/verify"))

import layout_quality  # noqa: E402
from stepkit import write_whole  # noqa: E402
from tree import Tree  # noqa: E402

DOCUMENT = ROOT / "docs" / "performance.md"
NAMES = ["read", "find", "rectangle", "move", "redraw", "start", "allocations", "layout",
         "hands"]
PEERS = ["libsimdjson-dev", "rapidjson-dev", "nlohmann-json3-dev", "libboost1.81-dev",
         "graphviz"]
TOOLS = ["cmake", "g++", "ninja-build", "libutf8proc-dev", "libyaml-cpp-dev", "libmuparser-dev",
         "libre2-dev", "libxxhash-dev", "pkg-config"]
HEADINGS = ["question", "contestant", "median", "quartiles", "Tavrel, to it", "bar", "met"]


class CannotMeasure(Exception):
    """The reason, for the user."""


@dataclass
class Row:
    """What a program says about one contestant: see compete() in bench/Contest.cpp."""

    question: str
    input: str
    contestant: str
    unit: str  # "ns" or "count"
    times: tuple[float, float, float]  # lower quartile, median, upper quartile
    rival: str  # "itself", "floor" or "peer"
    ratios: tuple[float, ...]  # as the times; empty for Tavrel itself
    bar: float | None

    @staticmethod
    def of(line: str) -> Row:
        fields = line.split("\t")
        if len(fields) != 12:
            raise CannotMeasure(f"no row of a table: {line}")
        low, median, high = (float(field) for field in fields[4:7])
        ratios = tuple(float(field) for field in fields[8:11] if field)
        bar = float(fields[11]) if fields[11] else None
        return Row(*fields[:4], (low, median, high), fields[7], ratios, bar)

    @property
    def is_met(self) -> bool | None:
        """Whether the median keeps to the bar; None without a bar."""
        if self.bar is None:
            return None
        if self.rival == "peer":
            return self.ratios[1] >= self.bar
        return (self.ratios or self.times)[1] <= self.bar


def quantity(value: float, unit: str) -> str:
    if unit == "count":
        return f"{value:.0f}"
    for limit, divisor, name in [(1e3, 1, "ns"), (1e6, 1e3, "µs"), (1e9, 1e6, "ms")]:
        if value < limit:
            break
    scaled = value / divisor
    return f"{scaled:.3g} {name}" if scaled < 100 else f"{scaled:.0f} {name}"


def span(low: float, high: float, unit: str) -> str:
    if low == high:
        return ""
    return f"{quantity(low, unit)} – {quantity(high, unit)}"


def ratio_text(row: Row) -> str:
    if not row.ratios:
        return ""
    low, median, high = row.ratios
    word = " × as long" if row.rival == "floor" else " × faster"
    return f"{median:.2f}{word} ({low:.2f} – {high:.2f})"


def bar_text(row: Row) -> str:
    if row.bar is None:
        return ""
    if row.rival == "peer":
        return f"≥ {row.bar:g} × faster"
    return f"≤ {row.bar:g} × as long" if row.ratios else f"≤ {quantity(row.bar, row.unit)}"


def cells(row: Row) -> list[str]:
    met = {None: "", True: "yes", False: "NO"}[row.is_met]
    low, median, high = row.times
    return [f"{row.question}: {row.input}", row.contestant, quantity(median, row.unit),
            span(low, high, row.unit), ratio_text(row), bar_text(row), met]


def table(rows: list[Row]) -> str:
    """A question is written once, not in each row."""
    lines = []
    for row in rows:
        line = cells(row)
        if row.rival != "itself":
            line[0] = ""
        lines.append(line)
    return aligned([HEADINGS, *lines])


def aligned(lines: list[list[str]]) -> str:
    """In Markdown, the first line a heading."""
    widths = [max(len(line[column]) for line in lines) for column in range(len(lines[0]))]
    lines.insert(1, ["-" * width for width in widths])
    padded = (" | ".join(f"{cell:<{width}}" for cell, width in zip(line, widths)) for line in lines)
    return "\n".join(f"| {line} |" for line in padded)


def check_call(command: list[str | Path]) -> None:
    result = subprocess.run(command, cwd=ROOT, check=False)
    if result.returncode != 0:
        raise CannotMeasure(f"{command[0]} failed")


def build(asked_to_write: bool) -> Path:
    """Returns the folder of the programs."""
    if folder := os.environ.get("TAVREL_BENCH_BUILD"):
        if asked_to_write:
            raise CannotMeasure("--write is for programs that were built just now")
        return Path(folder) / "bench"
    check_call([ROOT / "scripts" / "dependencies", *TOOLS, *PEERS])
    check_call([ROOT / "scripts" / "build", "bench"])
    return ROOT / "build" / "bench" / "bench"


def measure(program: Path) -> list[Row]:
    print(f"{program.name} ...", file=sys.stderr, flush=True)
    try:
        result = subprocess.run([program], stdout=subprocess.PIPE, text=True, check=False)
    except OSError as error:
        raise CannotMeasure(str(error)) from error
    if result.returncode != 0:
        raise CannotMeasure(f"{program.name} ended with status {result.returncode}")
    rows = [Row.of(line) for line in result.stdout.splitlines()]
    if not rows:
        raise CannotMeasure(f"{program.name} measured nothing")
    return rows


def first_line(command: list[str]) -> str:
    result = subprocess.run(command, cwd=ROOT, stdout=subprocess.PIPE, text=True, check=False)
    return result.stdout.split("\n")[0].strip()


def processor() -> str:
    found = re.search(r"^model name\s*:\s*(.*)$", Path("/proc/cpuinfo").read_text(), re.MULTILINE)
    return found[1] if found else "unknown"


def compiler(programs: Path) -> str:
    cache = (programs.parent / "CMakeCache.txt").read_text()
    found = re.search(r"^CMAKE_CXX_COMPILER:\w+=(.*)$", cache, re.MULTILINE)
    return first_line([found[1], "--version"]) if found else "unknown"


def versions() -> str:
    lines = subprocess.run(["dpkg-query", "-W", "-f", "${Package} ${Version}\n", *PEERS],
                           stdout=subprocess.PIPE, text=True, check=False).stdout.split("\n")
    return ", ".join(line for line in lines if line)


def commit_measured() -> str:
    tree = Tree()
    return f"{tree.code_commit} and changes" if tree.changed_code else tree.code_commit


def circumstances(programs: Path, commit: str) -> str:
    """The machine and what ran on it, as a list."""
    load = ", ".join(f"{average:.1f}" for average in os.getloadavg())
    return "\n".join([
        f"- Measured on {datetime.date.today().isoformat()}, commit {commit}.",
        f"- Machine: {os.cpu_count()} processors, {processor()}; load at the end {load}.",
        f"- Compiler: {compiler(programs)}, build type Release.",
        f"- Beside it: {versions()}.",
        "- Command: `scripts/bench --write`.",
    ])


def with_section(text: str, name: str, content: str) -> str:
    """The document with what stands between the markers of a table replaced."""
    pattern = re.compile(f"(<!-- table: {name} -->\n).*?(<!-- end -->)", re.DOTALL)
    changed, count = pattern.subn(lambda found: f"{found[1]}{content}\n{found[2]}", text)
    if count != 1:
        raise CannotMeasure(f"{DOCUMENT.name} has no place, or several, for the table {name}")
    return changed


def write(sections: dict[str, str]) -> None:
    text = DOCUMENT.read_text()
    for name, content in sections.items():
        text = with_section(text, name, content)
    write_whole(DOCUMENT, text)


def arguments() -> argparse.Namespace:
    parser = argparse.ArgumentParser(prog="scripts/bench",
                                     description="Measures Tavrel beside its peers.")
    parser.add_argument("--write", action="store_true",
                        help="put the tables into docs/performance.md")
    parser.add_argument("names", nargs="*", metavar="NAME", help=", ".join(NAMES))
    asked = parser.parse_args()
    for name in asked.names:
        if name not in NAMES:
            parser.error(f"no measurement is called {name}; there are {', '.join(NAMES)}")
    if asked.write and asked.names:
        parser.error("--write measures everything, so that the page tells of one run")
    return asked


def main() -> int:
    asked = arguments()
    try:
        programs = build(asked.write)
        commit = commit_measured()
        rows = {name: measure(programs / f"{name}_bench")
                for name in NAMES if name in (asked.names or NAMES)}
        print(table([row for part in rows.values() for row in part]))
        sections = {name: table(part) for name, part in rows.items()}
        if "layout" in rows:
            quality = layout_quality.rows(programs / "layout_bench")
            sections["layout-quality"] = aligned([layout_quality.HEADINGS, *quality])
            print(f"\n{sections['layout-quality']}")
        if asked.write:
            write({"circumstances": circumstances(programs, commit), **sections})
    except (CannotMeasure, OSError, subprocess.CalledProcessError) as error:
        print(f"scripts/bench: {error}", file=sys.stderr)
        return 2
    missed = [row for part in rows.values() for row in part if row.is_met is False]
    print(f"\n{len(missed)} bars missed" if missed else "\nevery bar met")
    return 1 if missed else 0


if __name__ == "__main__":
    sys.exit(main())
