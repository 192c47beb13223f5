"""Showing people that the work goes on."""

import time
from typing import TextIO

WIDTH = 79


class Progress:
    """On a terminal one line that changes; elsewhere a line for each thing said."""

    def __init__(self, stream: TextIO) -> None:
        self._stream = stream
        self._changes = stream.isatty()
        self._shown = 0.0
        self._length = 0

    def say(self, text: str) -> None:
        self.end()
        print(text, file=self._stream, flush=True)

    def show(self, text: str) -> None:
        """For what is soon replaced: seen on a terminal alone, and not too often."""
        if not self._changes or time.monotonic() - self._shown < 0.1:
            return
        self._shown = time.monotonic()
        text = text[:WIDTH]
        print("\r" + text.ljust(self._length), end="", file=self._stream, flush=True)
        self._length = len(text)

    def end(self) -> None:
        """Clears the line that changes."""
        if self._length:
            print("\r" + " " * self._length + "\r", end="", file=self._stream, flush=True)
        self._length = 0
