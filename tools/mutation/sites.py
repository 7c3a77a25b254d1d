"""Finds the places of a C++ source that a mutation changes, and rewrites the source so that a number
in the environment chooses one of the changes while it runs."""

import dataclasses
import re

from clang import cindex
from clang.cindex import CursorKind

# The function of mutant.h that stands for an operator, and what its changes put in its place.
COMPARISONS = {
    "<": ("less", (">=", "<=")),
    "<=": ("less_or_equal", (">", "<")),
    ">": ("greater", ("<=", ">=")),
    ">=": ("greater_or_equal", ("<", ">")),
    "==": ("equal", ("!=",)),
    "!=": ("unequal", ("==",)),
}
SUMS = {"+": ("plus", ("-",)), "-": ("minus", ("+",))}
ASSIGNED_SUMS = {"+=": ("add", ("-=",)), "-=": ("subtract", ("+=",))}
STANDARD_LIMITS = {
    "min": ("first argument alone", "second argument alone"),
    "max": ("first argument alone", "second argument alone"),
    "clamp": ("no lower limit", "no upper limit"),
}
OWN_LIMITS = {"kept_from_zero"}


@dataclasses.dataclass
class Mutant:
    number: int
    kind: str  # comparison, edge, limit or sign
    file: str
    line: int
    column: int
    text: str  # the expression as it stands
    change: str

    def __str__(self):
        return f"{self.file}:{self.line}:{self.column}: {self.change} in `{self.text}`"


class Rewriting:
    """One source: its mutants, the places left alone, and the text with a choice at every place."""

    def __init__(self, root, file, first_number):
        self.file = file
        self.source = (root / file).read_bytes()
        self.mutants = []
        self.skipped = []
        self.edits = []  # offset, rank at the offset, outermost first, bytes removed, text
        self.next_number = first_number
        self.done = set()
        arguments = ["-x", "c++", "-std=c++20", f"-I{root / 'src'}", "-Wno-pragma-once-outside-header"]
        self.unit = cindex.Index.create().parse(str(root / file), arguments)
        errors = [d for d in self.unit.diagnostics if d.severity >= cindex.Diagnostic.Error]
        if errors:
            raise SystemExit(f"mutate: {file} does not parse: {errors[0]}")
        self.name = str(root / file)
        self.visit(self.unit.cursor, False)
        self.check_nothing_missed()

    def text(self):
        out, at = [b'#include "mutant.h"\n#line 1\n'], 0
        for offset, _, _, removed, text in sorted(self.edits):
            out += [self.source[at:offset], text.encode()]
            at = offset + removed
        return b"".join(out + [self.source[at:]])

    # Where the places are.

    def visit(self, cursor, constant):
        for child in cursor.get_children():
            if cursor.kind == CursorKind.TRANSLATION_UNIT:
                if not child.location.file or child.location.file.name != self.name:
                    continue
            fixed = constant or is_constant(child)
            self.look_at(child, fixed)
            # The label of a case is a constant, its statement is not.
            if child.kind == CursorKind.CASE_STMT:
                label, statement = list(child.get_children())
                self.done.update(self.operators_in(label))
                self.visit(statement, fixed)
                self.look_at(statement, fixed)
            else:
                self.visit(child, fixed)

    def operators_in(self, cursor):
        return {t.extent.start.offset for t in cursor.get_tokens()}

    def look_at(self, cursor, constant):
        kind = cursor.kind
        children = list(cursor.get_children())
        if kind == CursorKind.BINARY_OPERATOR:
            self.operator(cursor, children, {**COMPARISONS, **SUMS}, constant)
        elif kind == CursorKind.COMPOUND_ASSIGNMENT_OPERATOR:
            self.operator(cursor, children, ASSIGNED_SUMS, constant)
        elif kind == CursorKind.UNARY_OPERATOR:
            self.negation(cursor, children, constant)
        elif kind == CursorKind.CALL_EXPR and re.fullmatch(r"operator([!=]=|\+)", cursor.spelling):
            self.operator(cursor, [children[0], children[-1]], {**COMPARISONS, **SUMS}, constant)
        elif kind == CursorKind.CALL_EXPR:
            self.limit(cursor, children, constant)

    def operator(self, cursor, operands, functions, constant):
        left, right = operands
        gap = self.source[left.extent.end.offset : right.extent.start.offset].decode()
        symbol = re.sub(r"[\s()]", "", gap)
        if symbol not in functions:
            return
        at = left.extent.end.offset + gap.index(symbol)
        is_sum = symbol in SUMS
        wrong = is_sum and not (is_number(left.type) and is_number(right.type))
        if not self.may_change(cursor, at, constant or wrong):
            return
        function, changes = functions[symbol]
        kinds = ("comparison", "edge") if symbol in COMPARISONS else ("sign",)
        number = self.add(cursor, at, zip(kinds, (f"{symbol} to {c}" for c in changes)))
        self.wrap(cursor, f"mutant::{function}({number}, ", at, symbol, ",")

    def negation(self, cursor, operands, constant):
        at = cursor.extent.start.offset
        if self.source[at : at + 1] != b"-" or self.source[at : at + 2] == b"--":
            return
        if self.may_change(cursor, at, constant):
            number = self.add(cursor, at, [("sign", "-a to a")])
            self.wrap(cursor, f"mutant::negative({number}, ", at, "-", "")

    def limit(self, cursor, children, constant):
        name = cursor.spelling
        if name not in STANDARD_LIMITS and name not in OWN_LIMITS:
            return
        at, callee_end = children[0].extent.start.offset, children[0].extent.end.offset
        parenthesis = self.source.index(b"(", callee_end)
        if not self.may_change(cursor, at, constant):
            return
        changes = STANDARD_LIMITS.get(name, ("no limit",))
        number = self.add(cursor, at, [("limit", f"{name}: {change}") for change in changes])
        if name in OWN_LIMITS:
            text = f"mutant::limited({number}, {name}, "
            self.edits.append((at, 2, 0, parenthesis + 1 - at, text))
        else:
            self.edits.append((at, 2, 0, len("std"), "mutant"))
            self.edits.append((parenthesis + 1, 0, 0, 0, f"{number}, "))

    # What is done with them.

    def may_change(self, cursor, at, constant):
        if at in self.done:
            return False
        self.done.add(at)
        if constant:
            self.skipped.append(f"{self.file}:{cursor.location.line}: {self.expression(cursor)}")
        return not constant

    def add(self, cursor, at, changes):
        first = self.next_number
        line_start = self.source.rfind(b"\n", 0, at) + 1
        line = self.source.count(b"\n", 0, at) + 1
        for kind, change in changes:
            expression = self.expression(cursor)
            place = (self.file, line, at - line_start + 1, expression)
            self.mutants.append(Mutant(self.next_number, kind, *place, change))
            self.next_number += 1
        return first

    def wrap(self, cursor, opening, at, symbol, replacement):
        start, end = cursor.extent.start.offset, cursor.extent.end.offset
        self.edits.append((start, 1, -end, 0, opening))
        self.edits.append((at, 2, 0, len(symbol), replacement))
        self.edits.append((end, 0, 0, 0, ")"))

    def expression(self, cursor):
        extent = cursor.extent
        text = self.source[extent.start.offset : extent.end.offset].decode()
        return " ".join(text.split())

    def check_nothing_missed(self):
        """Every operator in the text is a place or a place left alone: the parser hides none."""
        sure = {"<=", ">=", "==", "!=", "+", "-", "+=", "-="}
        for token in self.unit.get_tokens(extent=self.unit.cursor.extent):
            if token.spelling in sure and token.extent.start.offset not in self.done:
                before = self.source[: token.extent.start.offset].rstrip()
                declared = before.endswith(b"operator")
                for_the_eye = token.spelling == "+" and before[-1:] in b"(,{="
                if declared or for_the_eye:
                    continue
                raise SystemExit(f"mutate: {self.file}:{token.location.line}: `{token.spelling}` missed")


def is_constant(cursor):
    """Whether what stands below must be a constant when the program is compiled."""
    if cursor.kind in (CursorKind.ENUM_CONSTANT_DECL, CursorKind.STATIC_ASSERT):
        return True
    declarations = (CursorKind.VAR_DECL, CursorKind.FUNCTION_DECL, CursorKind.CXX_METHOD)
    if cursor.kind not in declarations:
        return False
    name = cursor.location.offset
    return any(
        t.spelling == "constexpr" for t in cursor.get_tokens() if t.extent.start.offset < name
    )


def is_number(type_):
    pointed = type_.get_canonical().kind
    return pointed.value in range(cindex.TypeKind.BOOL.value, cindex.TypeKind.LONGDOUBLE.value + 1)
