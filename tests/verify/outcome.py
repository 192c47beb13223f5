"""What came of a step, and where the outcomes of a full run are kept."""

import json
from dataclasses import asdict, dataclass, field
from pathlib import Path
from typing import Optional

from stepkit import write_whole


@dataclass
class Row:
    what: str
    count: str
    result: str  # "ok", or what fell short


@dataclass
class Outcome:
    name: str
    status: int  # 0 all is well, 1 something fell short, 2 the step could not work
    seconds: float
    date: str
    rows: list[Row] = field(default_factory=list)
    commit: str = ""
    wrote: bool = False  # the records in the tree

    @property
    def succeeded(self) -> bool:
        return self.status == 0


class Store:
    """One file for each step, in a folder of the code that was tried."""

    def __init__(self, folder: Path, code_commit: str) -> None:
        self._folder = folder / code_commit

    def load(self, name: str) -> Optional[Outcome]:
        try:
            kept = json.loads(self._path(name).read_text(encoding="utf-8"))
        except FileNotFoundError:
            return None
        return Outcome(**{**kept, "rows": [Row(**row) for row in kept["rows"]]})

    def save(self, outcome: Outcome) -> None:
        self._folder.mkdir(parents=True, exist_ok=True)
        write_whole(self._path(outcome.name), json.dumps(asdict(outcome), indent=1))

    def _path(self, name: str) -> Path:
        return self._folder / f"{name}.json"
