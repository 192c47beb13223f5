"""Builds one of the comparisons, optimised, in the folder of a step."""

import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path[:0] = [str(ROOT / "tests/verify")]

import stepkit  # noqa: E402

FOLDERS = {"reference_compare": "reference", "small_worlds": "worlds", "source_trips": "sources"}


def program(work: Path, name: str) -> Path:
    """The program's path, built anew where something has changed."""
    stepkit.install("g++")
    build = work / "build"
    stepkit.say(f"building {name}")
    stepkit.run(["cmake", "-S", ROOT, "-B", build, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Release",
                 "-DCMAKE_CXX_FLAGS_RELEASE=-O2", "-DTAVREL_BUILD_TESTS=ON"], work / "cmake.log")
    stepkit.run(["ninja", "-j2", "-C", build, name], work / "build.log")
    return build / "tests" / FOLDERS[name] / name
