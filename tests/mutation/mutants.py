"""The small changes that may be made to a source: its mutants, found on clang's syntax tree.

    relational, logical, arithmetic, bitwise operators   another of their kind
    operands of && and ||                                left alone, negated
    conditions, answers of type bool                     negated
    ! - ~                                                dropped
    ++ --                                                the other
    integers                                             one more, one less, 0
    characters                                           one more, one less
    true, false, texts                                   the other, emptied
    a ? b : c                                            a ? c : b
    calls, assignments, throws, early returns            dropped
    break, continue                                      dropped, the other
    initialisers of members                              emptied
"""

import json
import re
import subprocess
import sys
from dataclasses import dataclass
from pathlib import Path
from typing import Iterator, Optional, Sequence

sys.setrecursionlimit(20000)

Node = dict  # as clang writes it

OPERATORS = {
    "<": ("<=", ">="), "<=": ("<", ">"), ">": (">=", "<="), ">=": (">", "<"),
    "==": ("!=",), "!=": ("==",), "&&": ("||",), "||": ("&&",),
    "+": ("-",), "-": ("+",), "*": ("/",), "/": ("*",), "%": ("*",),
    "&": ("|",), "|": ("&",), "^": ("&",), "<<": (">>",), ">>": ("<<",),
    "+=": ("-=",), "-=": ("+=",), "*=": ("/=",), "/=": ("*=",), "%=": ("*=",),
    "&=": ("|=",), "|=": ("&=",), "^=": ("&=",), "<<=": (">>=",), ">>=": ("<<=",),
    "++": ("--",), "--": ("++",),
}
COMPARISONS = ("<", "<=", ">", ">=", "==", "!=")
LOGICAL = ("&&", "||")
WRAPPERS = ("ImplicitCastExpr", "ExprWithCleanups", "ParenExpr", "ConstantExpr",
            "MaterializeTemporaryExpr", "CXXBindTemporaryExpr")
FUNCTIONS = ("FunctionDecl", "CXXMethodDecl", "CXXConstructorDecl", "CXXDestructorDecl",
             "CXXConversionDecl")
CALLS = ("CallExpr", "CXXMemberCallExpr", "CXXOperatorCallExpr")
ANSWERS = ("CallExpr", "CXXMemberCallExpr", "DeclRefExpr", "MemberExpr")
EFFECTS = CALLS + ("CompoundAssignOperator", "CXXThrowExpr", "CXXStaticCastExpr")


@dataclass(frozen=True)
class Mutant:
    """One change: the bytes of `file` from `begin` up to `end` become `new`."""

    file: str
    begin: int
    end: int
    old: str
    new: str
    function: str
    line: str  # the source line in which the change begins
    ordinal: int = 1  # among changes that read the same

    @property
    def change(self) -> str:
        return f"`{self.old}` → `{self.new}`" if self.new else f"`{self.old}` dropped"

    @property
    def key(self) -> str:
        """Names the mutant whatever the lines around it are."""
        which = f" ({self.ordinal})" if self.ordinal > 1 else ""
        return f"{self.file} | {self.function} | `{self.line}` | {self.change}{which}"

    def applied_to(self, source: bytes) -> bytes:
        return source[:self.begin] + self.new.encode() + source[self.end:]


def squeezed(text: str) -> str:
    return " ".join(text.split())


def line_at(source: bytes, place: int) -> str:
    """The line around a place, without its comment."""
    line = source[source.rfind(b"\n", 0, place) + 1:].split(b"\n", 1)[0].decode()
    return squeezed(re.sub(r"\s//.*", "", line))


def syntax_tree(command: Sequence[str]) -> list[Node]:
    """The declarations of a translation unit; `command` compiles it without -c and -o."""
    dump = subprocess.run([*command, "-fsyntax-only", "-Xclang", "-ast-dump=json"],
                          stdout=subprocess.PIPE, stderr=subprocess.PIPE)
    if dump.returncode != 0:
        raise ValueError(dump.stderr.decode(errors="replace"))
    unit = json.loads(dump.stdout)
    name_files(unit, [""])
    return unit["inner"]


def name_files(value: object, current: list[str]) -> None:
    """Writes its file into every place of the tree: clang names a file where it changes."""
    if isinstance(value, list):
        for each in value:
            name_files(each, current)
    elif isinstance(value, dict):
        if "offset" in value:
            current[0] = value.get("file", current[0])
            value["file"] = current[0]
        else:
            for key, each in value.items():
                if key != "includedFrom":
                    name_files(each, current)


def bare(node: Node) -> Node:
    """The expression without what clang or the author put around it."""
    while node.get("kind") in WRAPPERS and node.get("inner"):
        node = node["inner"][0]
    return node


def children(node: Node) -> list[Node]:
    return [child for child in node.get("inner", []) if child.get("kind")]


class Finder:
    """Collects the mutants of the files below `root` that a translation unit shows."""

    def __init__(self, root: Path, folders: Sequence[str]) -> None:
        self.root = root
        self.folders = folders
        self.sources: dict[str, bytes] = {}
        self.found: dict[tuple[str, int, int, str], str] = {}  # change -> function

    # --- the source text ------------------------------------------------------------

    def file_of(self, name: str) -> Optional[str]:
        """The path from the root of a file whose mutants are wanted."""
        try:
            path = str(Path(name).resolve().relative_to(self.root))
        except ValueError:
            return None
        if not path.startswith(tuple(folder + "/" for folder in self.folders)):
            return None
        if path not in self.sources:
            self.sources[path] = (self.root / path).read_bytes()
        return path

    def span(self, node: Node) -> Optional[tuple[str, int, int]]:
        """File, first and past-the-last byte; nothing for what a macro wrote."""
        ends = node.get("range", {})
        begin, end = ends.get("begin", {}), ends.get("end", {})
        if "offset" not in begin or "offset" not in end or begin["file"] != end["file"]:
            return None
        file = self.file_of(begin["file"])
        return (file, begin["offset"], end["offset"] + end["tokLen"]) if file else None

    def text(self, span: tuple[str, int, int]) -> str:
        return self.sources[span[0]][span[1]:span[2]].decode()

    # --- adding ---------------------------------------------------------------------

    def add(self, span: Optional[tuple[str, int, int]], new: str, function: str) -> None:
        if span and span[1] < span[2] and self.text(span) != new:
            self.found.setdefault((*span, new), function)

    def mutants(self) -> list[Mutant]:
        seen: dict[str, int] = {}
        result = []
        for (file, begin, end, new), function in sorted(self.found.items()):
            source = self.sources[file]
            line = line_at(source, begin)
            old = squeezed(source[begin:end].decode())
            mutant = Mutant(file, begin, end, old, new, function, line)
            seen[mutant.key] = seen.get(mutant.key, 0) + 1
            result.append(Mutant(file, begin, end, old, new, function, line, seen[mutant.key]))
        return result

    # --- walking --------------------------------------------------------------------

    def visit(self, node: Node, function: str) -> None:
        kind = node.get("kind", "")
        if not kind or node.get("isImplicit") or node.get("explicitlyDefaulted"):
            return
        function = self.name_within(node, function)
        handler = getattr(self, "on_" + kind, None)
        if handler:
            handler(node, function)
        if kind == "CXXForRangeStmt":
            return self.visit_range_loop(node, function)
        for child in node.get("inner", []):
            self.visit(child, function)

    @staticmethod
    def name_within(node: Node, function: str) -> str:
        if node["kind"] in FUNCTIONS and node.get("name") != "operator()":
            return function + "::" + node["name"] if function else node["name"]
        if node["kind"] in ("CXXRecordDecl", "EnumDecl", "VarDecl") and not function:
            return node.get("name", "")
        return function

    def visit_range_loop(self, node: Node, function: str) -> None:
        """The range and the body; the rest is clang's own."""
        range_variable = children(node["inner"][1])[0]
        for child in children(range_variable):
            self.visit(child, function)
        self.drop(node["inner"][-1], function)
        self.visit(node["inner"][-1], function)

    # --- operators ------------------------------------------------------------------

    def on_BinaryOperator(self, node: Node, function: str) -> None:
        left, right = node["inner"][:2]
        place = self.between(left, right, node["opcode"])
        for other in OPERATORS.get(node["opcode"], ()):
            self.add(place, other, function)
        if node["opcode"] in LOGICAL:
            self.leave_alone(node, function)
            self.negate(left, function)
            self.negate(right, function)

    on_CompoundAssignOperator = on_BinaryOperator

    def between(self, left: Node, right: Node, token: str) -> Optional[tuple[str, int, int]]:
        first, second = self.span(left), self.span(right)
        if not first or not second or first[0] != second[0]:
            return None
        at = self.sources[first[0]].find(token.encode(), first[2], second[1])
        return (first[0], at, at + len(token)) if at >= 0 else None

    def leave_alone(self, node: Node, function: str) -> None:
        """Each operand instead of both."""
        whole = self.span(node)
        for operand in node["inner"][:2]:
            part = self.span(operand)
            if whole and part:
                self.add(whole, self.text(part), function)

    def on_CXXOperatorCallExpr(self, node: Node, function: str) -> None:
        place = self.span(node["inner"][0])
        if not place:
            return
        others = OPERATORS.get(self.text(place), ())
        if len(node["inner"]) == 2 and self.text(place) not in ("++", "--"):
            others = ()  # * and & of one operand
        for other in others:
            self.add(place, other, function)

    def on_UnaryOperator(self, node: Node, function: str) -> None:
        whole, opcode = self.span(node), node["opcode"]
        if not whole:
            return
        begin = whole[2] - len(opcode) if node.get("isPostfix") else whole[1]
        place = (whole[0], begin, begin + len(opcode))
        if self.text(place) != opcode:
            return
        if opcode in ("++", "--"):
            self.add(place, OPERATORS[opcode][0], function)
        elif opcode in ("!", "-", "~"):
            self.add(place, "", function)

    # --- constants ------------------------------------------------------------------

    def on_IntegerLiteral(self, node: Node, function: str) -> None:
        span = self.span(node)
        written = re.fullmatch(r"((?:0[xX][0-9a-fA-F']+)|[0-9']+)([uUlLzZ]*)",
                               self.text(span)) if span else None
        if not written:
            return
        value, suffix = int(written[1].replace("'", ""), 0), written[2]
        for other in {value + 1, value - 1, 0} - {value}:
            self.add(span, f"{other}{suffix}" if other >= 0 else f"({other}{suffix})", function)

    def on_CharacterLiteral(self, node: Node, function: str) -> None:
        span = self.span(node)
        if span and self.text(span).startswith("'"):
            for other in (node["value"] + 1, node["value"] - 1):
                self.add(span, f"'\\x{other & 0xFF:02x}'", function)

    def on_CXXBoolLiteralExpr(self, node: Node, function: str) -> None:
        self.add(self.span(node), "false" if node["value"] else "true", function)

    def on_StringLiteral(self, node: Node, function: str) -> None:
        span = self.span(node)
        if span and self.text(span).startswith('"'):
            self.add(span, '""', function)

    # --- conditions -----------------------------------------------------------------

    def negate(self, condition: Node, function: str) -> None:
        """Unless a change of its own operator does the same."""
        inside, span = bare(condition), self.span(condition)
        kind = inside.get("kind")
        if kind in ("BinaryOperator", "UnaryOperator") and inside["opcode"] in COMPARISONS + ("!",):
            return
        if not span or kind == "CXXBoolLiteralExpr" or self.compares(inside):
            return
        self.add(span, f"!({self.text(span)})", function)

    def compares(self, node: Node) -> bool:
        place = self.span(node["inner"][0]) if node.get("kind") == "CXXOperatorCallExpr" else None
        return bool(place) and self.text(place) in COMPARISONS + ("!",)

    def on_IfStmt(self, node: Node, function: str) -> None:
        place = int(node.get("hasInit", False)) + int(node.get("hasVar", False))
        if not node.get("hasVar"):
            self.negate(node["inner"][place], function)
        for branch in node["inner"][place + 1:]:
            self.drop(branch, function)

    def on_WhileStmt(self, node: Node, function: str) -> None:
        if not node.get("hasVar"):
            self.negate(node["inner"][0], function)
        self.drop(node["inner"][-1], function)

    def on_DoStmt(self, node: Node, function: str) -> None:
        self.negate(node["inner"][1], function)

    def on_ForStmt(self, node: Node, function: str) -> None:
        if node["inner"][2].get("kind"):
            self.negate(node["inner"][2], function)
        self.drop(node["inner"][-1], function)

    def on_ConditionalOperator(self, node: Node, function: str) -> None:
        _, first, second = node["inner"]
        one, other = self.span(first), self.span(second)
        if one and other:
            swapped = f"{self.text(other)} : {self.text(one)}"
            self.add((one[0], one[1], other[2]), swapped, function)

    def on_ReturnStmt(self, node: Node, function: str) -> None:
        value = children(node)[0] if children(node) else {}
        is_bool = value.get("type", {}).get("qualType") == "bool"
        if is_bool and bare(value).get("kind") in ANSWERS:
            self.negate(value, function)

    # --- statements -----------------------------------------------------------------

    def drop(self, statement: Node, function: str) -> None:
        if self.may_go(bare(statement)):
            self.add(self.span(statement), "", function)

    @staticmethod
    def may_go(statement: Node) -> bool:
        kind = statement.get("kind")
        if kind in ("BinaryOperator", "UnaryOperator"):
            return statement["opcode"] in ("=", "++", "--")
        return kind in EFFECTS or kind in ("ReturnStmt", "BreakStmt", "ContinueStmt")

    def on_CompoundStmt(self, node: Node, function: str) -> None:
        for statement in children(node):
            self.drop(statement, function)

    def on_CaseStmt(self, node: Node, function: str) -> None:
        self.drop(node["inner"][-1], function)

    on_DefaultStmt = on_CaseStmt

    def on_BreakStmt(self, node: Node, function: str) -> None:
        self.add(self.span(node), "continue", function)

    def on_ContinueStmt(self, node: Node, function: str) -> None:
        self.add(self.span(node), "break", function)

    def keep_last_return(self, node: Node) -> None:
        """Takes back the dropping of the return that ends a function: that is no program."""
        bodies = [child for child in children(node) if child["kind"] == "CompoundStmt"]
        last = children(bodies[-1])[-1] if bodies and children(bodies[-1]) else {}
        while last.get("kind") in ("SwitchStmt", "CompoundStmt", "DefaultStmt") and children(last):
            last = children(last)[-1]
        span = self.span(last)
        if span and last["kind"] == "ReturnStmt":
            self.found.pop((*span, ""), None)

    # --- declarations ---------------------------------------------------------------

    def on_CXXCtorInitializer(self, node: Node, function: str) -> None:
        value = bare(children(node)[0]) if children(node) else {}
        written = [value]
        if value.get("kind") == "CXXConstructExpr":
            written = [each for each in children(value) if each["kind"] != "CXXDefaultArgExpr"]
        spans = [self.span(each) for each in written]
        if not spans or None in spans:
            return
        file, begin, end = spans[0][0], spans[0][1], spans[-1][2]
        source = self.sources[file]
        if source[:begin].rstrip().endswith(b"(") and source[end:].lstrip().startswith(b")"):
            self.add((file, begin, end), "", function)


def functions_in(node: Node) -> Iterator[Node]:
    if node.get("kind") in FUNCTIONS + ("LambdaExpr",):
        yield node
    for child in node.get("inner", []):
        yield from functions_in(child)


def find(finder: Finder, command: Sequence[str]) -> None:
    """Adds what one translation unit shows to what the finder has found."""
    declarations = syntax_tree(command)
    for declaration in declarations:
        finder.visit(declaration, "")
    for declaration in declarations:
        for function in functions_in(declaration):
            finder.keep_last_return(function)
