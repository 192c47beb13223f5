"""The last whole run over all mutants, as tests/mutation/state records it."""

from collections import Counter
from dataclasses import dataclass
from pathlib import Path
from typing import Mapping, Optional

import stepkit


@dataclass
class State:
    """What was tried, on which commit; for each source how many mutants met which end."""

    commit: str
    date: str
    files: Mapping[str, Counter[str]]

    @staticmethod
    def read(path: Path) -> Optional["State"]:
        if not path.exists():
            return None
        first: dict[str, str] = {}
        files: dict[str, Counter[str]] = {}
        for line in path.read_text(encoding="utf-8").splitlines():
            words = line.split()
            if words[0] != "file":
                first[words[0]] = words[1]
                continue
            files[words[1]] = Counter(dict(zip(words[2::2], map(int, words[3::2]))))
        return State(first["commit"], first["date"], files)

    def write(self, path: Path) -> None:
        lines = [f"commit {self.commit}", f"date {self.date}"]
        lines.append(" ".join(["all", *words_of(sum(self.files.values(), Counter()))]))
        lines += [" ".join(["file", file, *words_of(counts)])
                  for file, counts in sorted(self.files.items())]
        stepkit.write_whole(path, "\n".join(lines) + "\n")


def words_of(counts: Mapping[str, int]) -> list[str]:
    return [word for outcome, count in sorted(counts.items()) for word in (outcome, str(count))]
