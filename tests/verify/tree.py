"""What git knows of the checkout."""

import subprocess
from typing import Optional

# What may change without anything having to be tried anew: texts for people, and what a
# full run leaves behind: its records, and the inputs that it found. (docs/format.md is no
# such text: its examples are tests.)
NOT_CODE = (":(exclude,glob)*.md", ":(exclude,glob)**/README.md", ":!docs/architecture.md",
            ":!docs/performance.md", ":!docs/reliability.md", ":!LICENSE",
            ":!tests/mutation/state", ":!tests/mutation/survivors.md",
            ":!tests/fuzz/recorded.tsv", ":!tests/fuzz/corpus")


def git(*words: str) -> Optional[str]:
    """What git prints, without the last line's end; None if it fails."""
    done = subprocess.run(["git", *words], text=True, capture_output=True, check=False)
    return done.stdout.rstrip("\n") if done.returncode == 0 else None


class Tree:
    """A checkout at one moment. Outside a repository the commits are "unknown"."""

    def __init__(self) -> None:
        self.commit = git("log", "-1", "--format=%h") or "unknown"
        self.code_commit = git("log", "-1", "--format=%h", "--", ".", *NOT_CODE) or "unknown"
        changes = git("status", "--porcelain", "--", ".", *NOT_CODE) or ""
        self.changed_code = [line[3:] for line in changes.splitlines()]

    @property
    def is_commit(self) -> bool:
        """Whether its code is that of a commit, and nothing else."""
        return self.code_commit != "unknown" and not self.changed_code
