"""Runs the steps of the verification and shows what came of them in one table."""

import argparse
import sys
import time
from pathlib import Path
from typing import Optional

sys.dont_write_bytecode = True
sys.path.insert(0, str(Path(__file__).resolve().parent))
from outcome import Outcome, Store  # noqa: E402
from progress import Progress  # noqa: E402
from report import table, write_reliability  # noqa: E402
from tree import Tree  # noqa: E402

import runner  # noqa: E402


def arguments() -> argparse.Namespace:
    parser = argparse.ArgumentParser(
        prog="scripts/verify", description="Tries the library in every way there is.")
    kind = parser.add_mutually_exclusive_group()
    kind.add_argument("--quick", action="store_true", help="20 minutes on two cores; the default")
    kind.add_argument("--full", action="store_true",
                      help="for a release: at most 150 minutes, goes on where it stopped")
    parser.add_argument("--write", action="store_true",
                        help="with --full: renew docs/reliability.md and the records of the steps")
    parser.add_argument("names", nargs="*", metavar="NAME",
                        help="steps to run, all if none is named: " + " ".join(runner.NAMES))
    options = parser.parse_args()
    unknown = [name for name in options.names if name not in runner.NAMES]
    if unknown:
        parser.error(f"no such step: {unknown[0]}; there are {', '.join(runner.NAMES)}")
    if options.write and not options.full:
        parser.error("--write goes with --full")
    return options


def run_quick(names: list[str], progress: Progress) -> list[Outcome]:
    return [runner.run(name, False, False, progress) for name in names]


def is_done(kept: Optional[Outcome], write: bool) -> bool:
    if not kept or not kept.succeeded:
        return False
    return kept.wrote or not write or kept.name not in runner.WITH_RECORDS


def run_full(names: list[str], write: bool, tree: Tree, progress: Progress) -> list[Outcome]:
    """Runs what has not yet succeeded on this code; the results are kept in between."""
    store = Store(runner.WORK / "full", tree.code_commit)
    outcomes = []
    for name in names:
        kept = store.load(name)
        if is_done(kept, write):
            progress.say(f"{name}: done on {kept.commit}, {kept.date}")
        else:
            seconds_before = kept.seconds if kept else 0
            kept = runner.run(name, True, write, progress)
            check_unchanged(tree)
            kept.commit, kept.wrote = tree.commit, write
            kept.seconds += seconds_before
            store.save(kept)
        outcomes.append(kept)
    return outcomes


def check_unchanged(tree: Tree) -> None:
    now = Tree()
    if now.code_commit != tree.code_commit or now.changed_code:
        sys.exit("scripts/verify: the code has changed under the run; this step doesn't count")


def main() -> int:
    options = arguments()
    names = options.names or list(runner.NAMES)
    progress = Progress(sys.stderr)
    tree = Tree()
    if options.full and not tree.is_commit:
        what = tree.changed_code[0] + " has changed" if tree.changed_code else "git knows of none"
        print(f"scripts/verify: a full run is of one commit: {what}", file=sys.stderr)
        return 2
    started = time.monotonic()
    outcomes = (run_full(names, options.write, tree, progress) if options.full
                else run_quick(names, progress))
    progress.end()
    minutes = (time.monotonic() - started) / 60
    print(table(outcomes))
    changes = " and changes" if tree.changed_code else ""
    print(f"code of {tree.code_commit}{changes}, {minutes:.1f} minutes")
    if options.write:
        write_reliability(Store(runner.WORK / "full", tree.code_commit), tree)
    return max(outcome.status for outcome in outcomes)


if __name__ == "__main__":
    try:
        sys.exit(main())
    except KeyboardInterrupt:
        sys.exit("\nscripts/verify: interrupted")
