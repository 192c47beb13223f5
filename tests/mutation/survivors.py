"""Reads survivors.md: the mutants that no test notices, and why none can.

A mutant is a list item below the heading of its file, a reason the paragraph that follows
one or more of them. A reason that begins with "Not equivalent" owns up to a gap.
"""

import re
from pathlib import Path

GAP = "Not equivalent"


def read(path: Path) -> dict[str, str]:
    """The reason of each mutant by its key; empty where none is given."""
    reasons: dict[str, str] = {}
    file, waiting, paragraph = "", [], ""
    for line in [*path.read_text(encoding="utf-8").splitlines(), "## "]:
        item = re.fullmatch(r"- (.+)", line)
        heading = re.fullmatch(r"## (.*)", line)
        if item or heading:
            if paragraph or heading:
                reasons.update((key, paragraph) for key in waiting)
                waiting, paragraph = [], ""
        if heading:
            file = heading[1]
        elif item:
            waiting.append(f"{file} | {item[1]}")
        elif waiting and line.strip():
            paragraph = f"{paragraph} {line.strip()}".strip()
    return reasons


def as_items(keys: list[str]) -> str:
    """Keys in the form of the document, their reasons to be written."""
    text, last = "", ""
    for key in keys:
        file, rest = key.split(" | ", 1)
        text += f"\n## {file}\n\n" if file != last else ""
        text += f"- {rest}\n"
        last = file
    return text
