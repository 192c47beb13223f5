"""How good layouts are, beside Graphviz's dot: the table "layout-quality" of bench.py.

What is measured stands in docs/performance.md.
"""

from __future__ import annotations

import itertools
import resource
import subprocess
from dataclasses import dataclass
from pathlib import Path

BOX_WIDTH, BOX_HEIGHT = 2.4, 0.6  # inches, as layout_bench --dot has them
MOST_BOXES_FOR_DOT = 1000
MOST_SECONDS_FOR_DOT = 60
PIECES = 16  # of a curve
HEADINGS = ["chart", "drawn by", "boxes drawn", "width", "height", "length of lines", "bends",
            "empty cells", "crossings", "time"]

Point = tuple[float, float]


@dataclass
class Line:
    ends: tuple[str, str]
    points: list[Point]

    @property
    def bounds(self) -> tuple[float, float, float, float]:
        xs, ys = [x for x, _ in self.points], [y for _, y in self.points]
        return min(xs), min(ys), max(xs), max(ys)

    @property
    def length(self) -> float:
        return sum(((b[0] - a[0]) ** 2 + (b[1] - a[1]) ** 2) ** 0.5
                   for a, b in zip(self.points, self.points[1:]))

    @property
    def bends(self) -> int:
        """Of a line with straight parts along the axes."""
        across = [abs(b[0] - a[0]) > abs(b[1] - a[1])
                  for a, b in zip(self.points, self.points[1:]) if a != b]
        return sum(a != b for a, b in zip(across, across[1:]))


def bezier(curve: list[Point], part: float) -> Point:
    weights = [(1 - part) ** 3, 3 * part * (1 - part) ** 2, 3 * part ** 2 * (1 - part), part ** 3]
    return (sum(weight * x for weight, (x, _) in zip(weights, curve)),
            sum(weight * y for weight, (_, y) in zip(weights, curve)))


def drawn_line(fields: list[str], pieces: int) -> Line:
    """From a line "edge TAIL HEAD N X Y X Y ..." of dot's plain output."""
    numbers = [float(field) for field in fields[4:4 + 2 * int(fields[3])]]
    controls = list(zip(numbers[::2], numbers[1::2]))
    points = [controls[0]]
    for start in range(0, len(controls) - 1, 3):
        curve = controls[start:start + 4]
        points += [bezier(curve, piece / pieces) for piece in range(1, pieces + 1)]
    return Line((fields[1], fields[2]), points)


def side(a: Point, b: Point, c: Point) -> float:
    return (b[0] - a[0]) * (c[1] - a[1]) - (b[1] - a[1]) * (c[0] - a[0])


def cross(a: Point, b: Point, c: Point, d: Point) -> bool:
    """Whether two pieces of lines cross; those that only touch don't."""
    if max(a[0], b[0]) < min(c[0], d[0]) or max(c[0], d[0]) < min(a[0], b[0]):
        return False
    return side(a, b, c) * side(a, b, d) < 0 and side(c, d, a) * side(c, d, b) < 0


def crossings(lines: list[Line]) -> int:
    """How often a line crosses another one."""
    count = 0
    by_left = sorted(lines, key=lambda line: line.bounds[0])
    bounds = [line.bounds for line in by_left]
    for i, one in enumerate(by_left):
        for j in range(i + 1, len(by_left)):
            if bounds[j][0] > bounds[i][2]:
                break
            if bounds[j][1] > bounds[i][3] or bounds[j][3] < bounds[i][1]:
                continue
            pieces = itertools.product(zip(one.points, one.points[1:]),
                                       zip(by_left[j].points, by_left[j].points[1:]))
            count += sum(cross(a, b, c, d) for (a, b), (c, d) in pieces)
    return count


def milliseconds(seconds: float) -> str:
    return f"{1e3 * seconds:.3g} ms" if seconds < 1 else f"{seconds:.3g} s"


def dot_row(description: str, name: str, is_orthogonal: bool) -> list[str]:
    kind = "dot, orthogonal" if is_orthogonal else "dot"
    before = resource.getrusage(resource.RUSAGE_CHILDREN).ru_utime
    try:
        result = subprocess.run(
            ["dot", "-Tplain", f"-Gsplines={'ortho' if is_orthogonal else 'true'}"], check=False,
            input=description, capture_output=True, text=True, timeout=MOST_SECONDS_FOR_DOT)
    except subprocess.TimeoutExpired:
        return [name, kind, *[""] * 7, f"more than {MOST_SECONDS_FOR_DOT} s"]
    time = milliseconds(resource.getrusage(resource.RUSAGE_CHILDREN).ru_utime - before)
    if result.returncode != 0:
        return [name, kind, *[""] * 7, f"failed after {time}"]
    rows = [line.split() for line in result.stdout.splitlines()]
    width, height = (float(field) for field in rows[0][2:4])
    lines = [drawn_line(row, 1 if is_orthogonal else PIECES) for row in rows if row[0] == "edge"]
    return [name, kind, str(sum(row[0] == "node" for row in rows)),
            f"{width / BOX_WIDTH:.1f}", f"{height / BOX_HEIGHT:.1f}",
            f"{sum(line.length for line in lines) / BOX_WIDTH:.0f}",
            str(sum(line.bends for line in lines)) if is_orthogonal else "curves", "",
            str(crossings(lines)), time]


def our_row(fields: list[str]) -> list[str]:
    name, _, drawn, width, height, length, bends, empty, crossings_, time = fields
    return [name, "Tavrel", drawn, width, height, f"{float(length):.0f}", bends, empty,
            crossings_, milliseconds(float(time) / 1e3)]


def rows(program: Path) -> list[list[str]]:
    """The table's rows; `program` is layout_bench."""
    said = subprocess.run([program, "--quality"], stdout=subprocess.PIPE, text=True, check=True)
    table = []
    for line in said.stdout.splitlines():
        fields = line.split("\t")
        table.append(our_row(fields))
        if int(fields[1]) > MOST_BOXES_FOR_DOT:
            continue
        description = subprocess.run([program, "--dot", fields[0]], stdout=subprocess.PIPE,
                                     text=True, check=True).stdout
        table += [dot_row(description, "", is_orthogonal) for is_orthogonal in (False, True)]
    return table
