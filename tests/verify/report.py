"""The tables of a run, for a terminal and for docs/reliability.md."""

import os
from pathlib import Path

import runner
from outcome import Outcome, Store
from stepkit import write_whole
from tree import Tree

RELIABILITY = Path("docs/reliability.md")
BEGIN, END = "<!-- table: full run -->", "<!-- end -->"
HEADS = ("step", "what was tried", "count", "result")


def lines_of(outcomes: list[Outcome]) -> list[tuple[str, ...]]:
    """A line for each row; the step's name stands in its first."""
    lines = []
    for outcome in outcomes:
        for number, row in enumerate(outcome.rows):
            lines.append(("" if number else outcome.name, row.what, row.count, row.result))
    return lines


def grouped(count: str) -> str:
    return f"{int(count):,}" if count.isdigit() else count


def table(outcomes: list[Outcome]) -> str:
    lines = [(name, what, grouped(count), result)
             for name, what, count, result in [HEADS, *lines_of(outcomes)]]
    widths = [max(len(line[column]) for line in lines) for column in range(3)]
    return "\n".join(f"{name:<{widths[0]}}  {what:<{widths[1]}}  {count:>{widths[2]}}  {result}"
                     for name, what, count, result in lines)


def markdown(outcomes: list[Outcome]) -> str:
    lines = ["| step | what was tried | count | result | commit, date |", "|---|---|---:|---|---|"]
    for outcome in outcomes:
        where = f"{outcome.commit}, {outcome.date}"
        for number, row in enumerate(outcome.rows):
            name, place = ("", "") if number else (f"`{outcome.name}`", where)
            cells = (name, row.what, grouped(row.count), row.result, place)
            lines.append("| " + " | ".join(cell.replace("|", "\\|") for cell in cells) + " |")
    return "\n".join(lines)


def summary(outcomes: list[Outcome], tree: Tree) -> str:
    minutes = sum(outcome.seconds for outcome in outcomes) / 60
    missing = [name for name in runner.NAMES if name not in {o.name for o in outcomes}]
    text = f"The last commit that changed code is {tree.code_commit}; "
    text += f"the steps of its full run took {minutes:.0f} minutes on {os.cpu_count()} cores."
    return text + (f" Not run yet: {', '.join(missing)}." if missing else "")


def write_reliability(store: Store, tree: Tree) -> None:
    """Puts the outcomes kept of this code into the document, in place of the old ones."""
    outcomes = [kept for kept in map(store.load, runner.NAMES) if kept]
    text = RELIABILITY.read_text(encoding="utf-8")
    before, rest = text.split(BEGIN, 1)
    after = rest.split(END, 1)[1]
    write_whole(RELIABILITY, f"{before}{BEGIN}\n\n{summary(outcomes, tree)}\n\n"
                             f"{markdown(outcomes)}\n\n{END}{after}")
