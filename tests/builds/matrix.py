"""The builds that the suite and the transcript run in."""

from dataclasses import dataclass
from typing import Optional

SANITIZED = "-O1 -g1 -fno-omit-frame-pointer -fno-sanitize-recover=all"
# std::stable_sort of libstdc++ 12 uses what its own header calls deprecated, and clang 19 says so.
CLANG19 = f"{SANITIZED} -Wno-deprecated-declarations"
# Where a test brings its own operators new, or its own malloc, they stay in use.
VALGRIND = ("valgrind", "-q", "--error-exitcode=9", "--leak-check=full",
            "--soname-synonyms=somalloc=nouserintercepts",
            "--errors-for-leak-kinds=definite,possible")
DEBUG_MODE = "-O1 -D_GLIBCXX_DEBUG -D_GLIBCXX_DEBUG_PEDANTIC"
FOLDER = "tests/builds"


@dataclass(frozen=True)
class Build:
    name: str  # as in the table
    folder: str  # builds of one folder are one build, run in several ways
    compiler: str
    flags: str
    link_flags: str = ""
    launcher: tuple[str, ...] = ()
    without: tuple[str, ...] = ()  # the programs of the suite that can't be run in it
    has_suite: bool = True  # GoogleTest can be had for it
    googletest_flags: Optional[str] = None  # GoogleTest must be built anew with these


MATRIX = (
    Build("address and undefined, gcc 12", "address-gcc", "g++-12",
          f"{SANITIZED} -fsanitize=address,undefined"),
    Build("address and undefined, clang 14", "address-clang14", "clang++-14",
          f"{SANITIZED} -fsanitize=address,undefined"),
    Build("address and undefined, clang 19", "address-clang19", "clang++-19",
          f"{CLANG19} -fsanitize=address,undefined"),
    # Of engine and facade alone: integer.ignore says why.
    Build("integer and implicit conversion, clang 19", "integer", "clang++-19",
          f"{CLANG19} -fsanitize=integer,implicit-conversion"
          f" -fsanitize-ignorelist={{checkout}}/{FOLDER}/integer.ignore"),
    # GoogleTest passes containers across its interface, which are others in this mode.
    Build("_GLIBCXX_DEBUG, gcc 12", "debug-mode", "g++-12", DEBUG_MODE,
          googletest_flags=DEBUG_MODE),
    # Of gcc, since clang's doesn't let a test bring its own operators new.
    Build("thread sanitizer, gcc 12", "thread", "g++-12", f"{SANITIZED} -fsanitize=thread"),
    # Only one can bring a malloc, valgrind or a test. (With a sanitizer it isn't even built.)
    Build("valgrind memcheck, gcc 12", "signed-char", "g++-12", "-O1 -g -fsigned-char",
          launcher=VALGRIND, without=("failing_malloc_tests",)),
    Build("-O3, gcc 12", "optimised", "g++-12", "-O3"),
    Build("-fsigned-char, gcc 12", "signed-char", "g++-12", "-O1 -g -fsigned-char"),
    Build("-funsigned-char, clang 14", "unsigned-char", "clang++-14", "-O1 -funsigned-char"),
    # Assertions bring the code of strings into the program, where it is instrumented.
    Build("memory sanitizer, clang 19", "memory", "clang++-19",
          f"{CLANG19} -fsanitize=memory -D_GLIBCXX_ASSERTIONS"
          f" -fsanitize-ignorelist={{checkout}}/{FOLDER}/memory.ignore",
          link_flags=f"-Wl,--version-script={{checkout}}/{FOLDER}/memory.map", has_suite=False),
    Build("-m32, gcc 12", "m32", "g++-12", "-O1 -m32", has_suite=False),
)

SUITES = tuple(build for build in MATRIX if build.has_suite)

# Beside those of every build of the tests.
PACKAGES = ("g++-12", "g++-12-multilib", "clang-14", "libclang-rt-14-dev", "clang-19",
            "libclang-rt-19-dev", "valgrind", "libc6-dbg", "googletest")
