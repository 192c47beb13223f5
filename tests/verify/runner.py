"""The steps, their shares of the time, and how one is run."""

import subprocess
import time
from datetime import date
from pathlib import Path
from threading import Thread
from typing import IO

from outcome import Outcome, Row
from progress import Progress

WORK = Path("build/verify")

# Seconds on two cores, builds included: of the 20 minutes of a quick run, and of the 150
# of a full one.
SHARES = {
    "reference": (60, 900),
    "worlds": (80, 900),
    "sources": (40, 300),
    "coverage": (120, 120),
    "mutation": (180, 2700),
    "fuzz": (240, 2100),
    "allocations": (40, 180),
    "files": (60, 260),
    "builds": (240, 1300),
    "limits": (60, 120),
    "planted": (80, 120),
}
NAMES = tuple(SHARES)
WITH_RECORDS = ("mutation", "fuzz")  # those that keep records in the tree with --write


def command(name: str, full: bool, write: bool) -> list[str]:
    words = [f"tests/verify/steps/{name}", "--full" if full else "--quick",
             "--seconds", str(SHARES[name][full]), "--work", str(WORK / name)]
    return words + (["--write"] if write and name in WITH_RECORDS else [])


def follow(name: str, words: IO[str], log: Path, progress: Progress, started: float) -> None:
    """Keeps all that a step says, and shows the latest of it."""
    with log.open("w", encoding="utf-8") as kept:
        for line in words:
            kept.write(line)
            kept.flush()
            progress.show(f"{name} {time.monotonic() - started:.0f} s: {line.strip()}")


def row_of(line: str) -> Row:
    """Paths below the checkout are told from there: the table may go into a document."""
    fields = line.rstrip("\n").replace(f"{Path.cwd()}/", "").split("\t")
    if len(fields) != 4 or fields[0] != "row":
        return Row("a line that is no row", "", line.strip())
    return Row(*fields[1:])


def run(name: str, full: bool, write: bool, progress: Progress) -> Outcome:
    """Runs a step. One that says nothing has not worked."""
    folder = WORK / name
    folder.mkdir(parents=True, exist_ok=True)
    log = folder / "log"
    started = time.monotonic()
    progress.show(f"{name} ...")
    with subprocess.Popen(command(name, full, write), stdout=subprocess.PIPE,
                          stderr=subprocess.PIPE, text=True, errors="replace") as step:
        follower = Thread(target=follow, args=(name, step.stderr, log, progress, started))
        follower.start()
        rows = [row_of(line) for line in step.stdout]
        follower.join()
    seconds = time.monotonic() - started
    status = 2 if step.returncode not in (0, 1) or not rows else step.returncode
    if status == 0 and any(row.result != "ok" for row in rows):
        status = 1
    if status == 2:
        rows.append(Row("the step itself", "", f"could not work, see {log}"))
    elif status == 1 and all(row.result == "ok" for row in rows):
        rows.append(Row("the step itself", "", f"ended with status 1, see {log}"))
    progress.say(f"{name}: {('ok', 'fell short', 'could not work')[status]}, {seconds:.0f} s")
    return Outcome(name, status, round(seconds, 1), date.today().isoformat(), rows)
