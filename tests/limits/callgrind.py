"""Counting instructions with callgrind, so that the same program gives the same counts on
every machine of one architecture."""

import os
import sys
import tempfile
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path
from typing import Sequence

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "verify"))
import stepkit  # noqa: E402

# The C library picks its variant of memcpy, memchr and so on by the processor: these
# settings leave it the plain one. Caches decide from where on it copies otherwise.
FEATURES_LEFT_OUT = ("AVX2", "AVX", "AVX512F", "AVX512VL", "AVX512BW", "AVX_Fast_Unaligned_Load",
                     "BMI1", "BMI2", "LZCNT", "MOVBE", "POPCNT", "ERMS", "FSRM", "RTM", "SSSE3",
                     "SSE4_1", "SSE4_2", "Fast_Unaligned_Copy", "Fast_Copy_Backward", "Slow_BSF",
                     "Fast_Rep_String", "Prefer_No_VZEROUPPER", "Prefer_ERMS", "Prefer_FSRM")
TUNABLES = ":".join((
    "glibc.cpu.hwcaps=" + ",".join("-" + feature for feature in FEATURES_LEFT_OUT),
    "glibc.cpu.x86_non_temporal_threshold=0xc0000",
    "glibc.cpu.x86_rep_movsb_threshold=0x800",
    "glibc.cpu.x86_rep_stosb_threshold=0x800",
    "glibc.cpu.x86_data_cache_size=0x8000",
    "glibc.cpu.x86_shared_cache_size=0x100000"))

# Nothing of the caller's, whose length alone moves the stack. All names of functions are
# looked up before main.
ENVIRONMENT = {"PATH": "/usr/bin:/bin", "LC_ALL": "C", "LD_BIND_NOW": "1",
               "GLIBC_TUNABLES": TUNABLES}


def build(folder: Path, *programs: str) -> Path:
    """Builds programs of this folder as the release is; returns where they are."""
    stepkit.install("g++", "valgrind")
    stepkit.run(["cmake", "--preset", "release", "-B", folder])
    stepkit.run(["cmake", "--build", folder, "--target", *programs])
    return folder / "tests/limits"


def count(program: Path, names: Sequence[str], directory: Path) -> dict[str, int]:
    """The instructions of each operation that the program counts, given these names and
    started in this directory."""
    with tempfile.TemporaryDirectory() as output:
        counts = Path(output) / "callgrind"
        stepkit.run(["valgrind", "--tool=callgrind", "--instr-atstart=no", "--combine-dumps=yes",
                     "--dump-line=no", f"--callgrind-out-file={counts}", program.resolve(),
                     *names], cwd=directory, env=ENVIRONMENT)
        return parse(counts.read_text(encoding="utf-8", errors="replace"))


def parse(text: str) -> dict[str, int]:
    """The total of each part of callgrind's output that the counted program asked for."""
    totals: dict[str, int] = {}
    request = "desc: Trigger: Client Request: "
    name = None
    for line in text.splitlines():
        if line.startswith("part: "):
            name = None
        elif line.startswith(request):
            name = line[len(request):].strip()
        elif line.startswith("totals: ") and name is not None:
            totals[name] = int(line.split()[1])
    return totals


def count_each(program: Path, names: Sequence[str], directory: Path) -> dict[str, int]:
    """The same with a process for each name, so that none sees what others left behind in
    the heap; as many at once as there are processors."""
    return merged(program, [[name] for name in names], directory)


def count_together(program: Path, names: Sequence[str], directory: Path) -> dict[str, int]:
    """The same with as many processes as there are processors."""
    processes = processors()
    return merged(program, [names[first::processes] for first in range(processes)], directory)


def merged(program: Path, shares: Sequence[Sequence[str]], directory: Path) -> dict[str, int]:
    with ThreadPoolExecutor(processors()) as pool:
        results = pool.map(lambda names: count(program, names, directory), filter(None, shares))
        return {name: total for result in results for name, total in result.items()}


def processors() -> int:
    return len(os.sched_getaffinity(0))


def names_of(program: Path) -> list[str]:
    """What the program can count."""
    return stepkit.run([program, "--list"]).splitlines()
