"""Builds and runs the programs of this folder for the steps of scripts/verify."""

import os
import re
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from dataclasses import dataclass
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "verify"))
import stepkit  # noqa: E402

SANITIZED = "-O1 -g -fsanitize=address,undefined -fno-sanitize-recover=all"


@dataclass
class Run:
    """What one run of a program came to: its rows, by what was tried, and its status."""

    rows: dict[str, tuple[str, str]]
    status: int


def build(step: stepkit.Step, name: str, flags: str, *targets: str) -> Path:
    """Builds the programs and returns the folder that they are in."""
    stepkit.install("g++")
    folder = step.work / name
    stepkit.say(f"building {', '.join(targets)} into {name}")
    stepkit.configure(folder, "g++", flags)
    stepkit.run(["nice", "ninja", "-C", folder, "-j2", *targets])
    return folder / "tests" / "failures"


def environment() -> dict[str, str]:
    """Files in memory, where there is a place for that."""
    memory = "/dev/shm"
    if "TMPDIR" in os.environ or not os.access(memory, os.W_OK):
        return dict(os.environ)
    return {**os.environ, "TMPDIR": memory}


def run(command: list[str], log: Path) -> Run:
    stepkit.say(f"running {Path(command[0]).name} {' '.join(command[1:])}")
    done = subprocess.run(command, env=environment(), stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, text=True, errors="replace")
    log.write_text(done.stdout, encoding="utf-8")
    fields = [line.split("\t") for line in done.stdout.splitlines() if line.startswith("row\t")]
    return Run({row[1]: (row[2], row[3]) for row in fields if len(row) == 4}, done.returncode)


def sum_of(counts: list[str]) -> str:
    """Of "3 in 1 calls" and "5 in 2 calls", "8 in 3 calls"."""
    numbers = [[int(word) for word in re.findall(r"\d+", count)] for count in counts]
    sums = iter(sum(column) for column in zip(*numbers))
    return re.sub(r"\d+", lambda _: f"{next(sums):,}", counts[0])


def run_shares(step: stepkit.Step, label: str, program: Path, every: int) -> bool:
    """Runs two shares of a program at once, each one in `every` of all cases; 2 for all.

    Prints their rows, summed. `label` tells builds apart, if it isn't empty.
    """
    logs = [step.work / f"{program.name}{label and '-' + label}-{part}.log" for part in range(2)]
    commands = [[str(program), str(part), str(every)] for part in range(2)]
    with ThreadPoolExecutor(2) as pool:
        runs = list(pool.map(run, commands, logs))
    fine = True
    for what in dict.fromkeys(what for each in runs for what in each.rows):
        counts = [each.rows[what][0] for each in runs if what in each.rows]
        results = [each.rows[what][1] for each in runs if what in each.rows]
        bad = [result for result in results if result != "ok"]
        shortfall = f"{bad[0]}, see {logs[0].parent}/{program.name}*.log" if bad else ""
        fine &= stepkit.row(what + (f", {label}" if label else ""), sum_of(counts), shortfall)
    for each, log in zip(runs, logs):
        is_silent = not each.rows or each.status not in (0, 1)
        if is_silent or (each.status and all(result == "ok" for _, result in each.rows.values())):
            fine &= stepkit.row(program.name, 0, f"ended with status {each.status}, see {log}")
    return fine


def run_tests(step: stepkit.Step, label: str, what: str, program: Path) -> bool:
    """Runs a GoogleTest program and prints a row for it."""
    log = step.work / f"{program.name}{label and '-' + label}.log"
    ended = run([str(program)], log)
    count = stepkit.tests_passed(log.read_text(encoding="utf-8")) or 0
    shortfall = "" if ended.status == 0 and count > 0 else f"see {log}"
    return stepkit.row(what + (f", {label}" if label else ""), f"{count} tests", shortfall)
