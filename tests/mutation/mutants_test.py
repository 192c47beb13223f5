"""The mutants of small samples, each compared with the list of what it should be.

    mutants_test.py COMPILER
"""

import sys
import tempfile
import unittest
from pathlib import Path

import survivors
from mutants import Finder, Mutant, find

COMPILER = "clang++"


def mutants_of(source: str, header: str = "") -> list[Mutant]:
    with tempfile.TemporaryDirectory() as name:
        root = Path(name).resolve()
        (root / "code").mkdir()
        (root / "code" / "sample.cpp").write_text(source)
        (root / "code" / "sample.h").write_text(header)
        (root / "other.h").write_text("inline int elsewhere(int n) { return n + 1; }\n")
        finder = Finder(root, ("code",))
        find(finder, [COMPILER, "-std=c++17", f"-I{root}", str(root / "code" / "sample.cpp")])
        return finder.mutants()


def changes(source: str) -> list[str]:
    """"old>new" of each mutant, "old>" for what is dropped."""
    return [f"{mutant.old}>{mutant.new}" for mutant in mutants_of(source)]


class Operators(unittest.TestCase):
    def expect(self, source: str, *wanted: str) -> None:
        self.assertEqual(sorted(changes(source)), sorted(wanted))

    def test_comparison(self) -> None:
        self.expect("bool f(int a, int b) { return a < b; }", "<><=", "<>>=")
        self.expect("bool f(int a, int b) { return a == b; }", "==>!=")

    def test_arithmetic_and_bits(self) -> None:
        self.expect("int f(int a, int b) { return a + b % a; }", "+>-", "%>*")
        self.expect("int f(int a, int b) { return (a | b) << a ^ b; }", "|>&", "<<>>>", "^>&")

    def test_logical(self) -> None:
        self.expect("bool f(bool a, bool b) { return a && b; }", "&&>||", "a && b>a", "a && b>b",
                    "a>!(a)", "b>!(b)")

    def test_operands_that_can_be_changed_themselves_are_not_negated(self) -> None:
        self.expect("bool f(bool a, int b) { return !a || b > a; }", "||>&&", "!a || b > a>!a",
                    "!a || b > a>b > a", "!>", ">>>=", ">><=")

    def test_operators_of_classes(self) -> None:
        self.expect("struct I { bool operator!=(I) const; I& operator++(); };\n"
                    "void f(I a, I b) { while (a != b) ++a; }", "!=>==", "++>--", "++a>")

    def test_signs_and_steps(self) -> None:
        self.expect("int f(int a, int b) { a++; return -a + ~b; }", "++>--", "a++>", "->", "+>-",
                    "~>")

    def test_integers(self) -> None:
        self.expect("long f() { return 1'0UL; }", "1'0UL>0UL", "1'0UL>11UL", "1'0UL>9UL")
        self.expect("int f() { return 0; }", "0>1", "0>(-1)")
        self.expect("enum E { a = 0x10 };", "0x10>17", "0x10>15", "0x10>0")

    def test_other_constants(self) -> None:
        self.expect("char f() { return 'a'; }", r"'a'>'\x62'", r"'a'>'\x60'")
        self.expect("bool f() { return true; }", "true>false")
        self.expect('const char* f() { return "text"; }', '"text">""')

    def test_conditions(self) -> None:
        self.expect("bool g(); int f(int a) { if (g()) a = a; return a; }", "g()>!(g())", "a = a>")
        self.expect("int f(bool c, int a, int b) { return c ? a : b; }", "a : b>b : a")

    def test_answers(self) -> None:
        self.expect("bool g(); bool f() { return g(); }", "g()>!(g())")

    def test_statements(self) -> None:
        self.expect("void g(); void f(int& a) { g(); a = a; a += a; }", "g()>", "a = a>",
                    "a += a>", "+=>-=")
        self.expect("void f() { throw f; }", "throw f>")

    def test_early_returns_only(self) -> None:
        self.expect("int f(bool c, int a) { if (c) return a; return a; }", "c>!(c)", "return a>")
        self.expect("int f(int a) { switch (a) { default: return a; } }")

    def test_break_and_continue(self) -> None:
        self.expect("void f(bool c) { for (;;) { if (c) break; continue; } }", "c>!(c)", "break>",
                    "break>continue", "continue>", "continue>break")

    def test_initialisers_of_members(self) -> None:
        self.expect("struct S { S(int a) : a_(a), b_{a} {} int a_; int b_; int c_ = 1; };", "a>",
                    "1>0", "1>2")

    def test_what_clang_adds_to_a_range_loop_is_left_alone(self) -> None:
        self.expect("void g(int); void f() { int a[3]; for (int each : a) g(each); }", "g(each)>")

    def test_what_clang_adds_to_a_class_is_left_alone(self) -> None:
        self.expect("struct M { M& operator=(const M&); };\n"
                    "struct S { M m; int a; };\n"
                    "struct T { T& operator=(const T&) = default; M m; int a; };\n"
                    "void f(S& a, S& b, T& c, T& d) { a = b; c = d; }", "a = b>", "c = d>")

    def test_bodies_of_lambdas_and_templates_count_once(self) -> None:
        self.expect("auto f() { return [](auto a) { return a + a; }; }\n"
                    "int g() { return f()(g()) + f()(g()); }", "+>-", "+>-")
        self.expect("template <class T> T f(T a) { return a + a; }\n"
                    "long g(long a) { return f(a); }\nint h(int a) { return f(a); }", "+>-")

    def test_macros_and_other_folders_are_left_alone(self) -> None:
        self.expect('#include "other.h"\n#define ONE 1\nint f() { return elsewhere(ONE); }')

    def test_headers_count(self) -> None:
        found = mutants_of('#include "code/sample.h"\n', "inline int f(int a) { return a - a; }\n")
        self.assertEqual([mutant.file for mutant in found], ["code/sample.h"])


class Keys(unittest.TestCase):
    source = "// first\nint f(int a) {\n  return 5 + a + 5;  // why\n}\n"

    def test_a_key_names_file_function_line_and_change(self) -> None:
        self.assertEqual(mutants_of(self.source)[0].key,
                         "code/sample.cpp | f | `return 5 + a + 5;` | `5` → `0`")

    def test_a_key_says_which_of_several_like_changes_it_is(self) -> None:
        keys = [mutant.key for mutant in mutants_of(self.source)]
        self.assertEqual(len(keys), len(set(keys)))
        self.assertIn("code/sample.cpp | f | `return 5 + a + 5;` | `5` → `6` (2)", keys)

    def test_a_key_does_not_depend_on_other_lines(self) -> None:
        moved = mutants_of("int first;\n\n" + self.source)
        self.assertEqual([mutant.key for mutant in moved],
                         [mutant.key for mutant in mutants_of(self.source)])

    def test_a_mutant_changes_its_place_alone(self) -> None:
        changed = [mutant.applied_to(self.source.encode()).decode()
                   for mutant in mutants_of(self.source)]
        self.assertIn(self.source.replace("+ a", "- a"), changed)


class Survivors(unittest.TestCase):
    def read(self, text: str) -> dict[str, str]:
        with tempfile.TemporaryDirectory() as name:
            path = Path(name, "survivors.md")
            path.write_text(text)
            return survivors.read(path)

    def test_a_paragraph_is_the_reason_of_the_items_before_it(self) -> None:
        reasons = self.read("# Title\n\nWords.\n\n## f\n\n- one\n- two\n\nBoth\nsame.\n\n- three\n\n"
                            "Another.\n\n## g\n\n- four\n")
        self.assertEqual(reasons, {"f | one": "Both same.", "f | two": "Both same.",
                                   "f | three": "Another.", "g | four": ""})

    def test_items_are_read_as_they_are_written(self) -> None:
        keys = ["f | one", "f | two", "g | three"]
        self.assertEqual(list(self.read(survivors.as_items(keys))), keys)


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(print(__doc__, file=sys.stderr) or 2)
    COMPILER = sys.argv.pop()
    unittest.main()
