"""Where a source file can be broken: each Edit is a range of the text with the ways to write it otherwise.

The ranges come from clang's tree, so that they are whole expressions and statements. Offsets are bytes;
texts are decoded as Latin-1, so that an offset is an index.
"""
import re
from dataclasses import dataclass, field

import clang.cindex as clang
from clang.cindex import CursorKind as Kind

COMPARISONS = {"<": ["<=", ">="], "<=": ["<", ">"], ">": [">=", "<="], ">=": [">", "<"],
               "==": ["!="], "!=": ["=="]}
ARITHMETIC = {"+": ["-"], "-": ["+"], "*": ["/"], "/": ["*"], "%": ["*"], "<<": [">>"], ">>": ["<<"],
              "&": ["|"], "|": ["&"], "^": ["&"], "+=": ["-="], "-=": ["+="], "*=": ["/="],
              "/=": ["*="], "|=": ["&="], "&=": ["|="], "^=": ["&="], "<<=": [">>="], ">>=": ["<<="]}
LOGIC = {"&&": ["||"], "||": ["&&"]}
NUMBERS = ("BOOL", "CHAR_S", "CHAR_U", "SCHAR", "UCHAR", "SHORT", "USHORT", "INT", "UINT", "LONG",
           "ULONG", "LONGLONG", "ULONGLONG", "FLOAT", "DOUBLE", "POINTER", "DEPENDENT", "ENUM")
FUNCTIONS = (Kind.FUNCTION_DECL, Kind.CXX_METHOD, Kind.CONSTRUCTOR, Kind.DESTRUCTOR, Kind.FUNCTION_TEMPLATE,
             Kind.CONVERSION_FUNCTION)
CONSTANT_ONLY = (Kind.STATIC_ASSERT, Kind.ENUM_DECL, Kind.TYPE_ALIAS_DECL, Kind.CXX_BASE_SPECIFIER,
                 Kind.TEMPLATE_NON_TYPE_PARAMETER, Kind.TEMPLATE_TYPE_PARAMETER)


@dataclass
class Edit:
    """`kind`: "expression" (alternatives of an expression), "condition" (the same, of a yes or no), "statement" (removed), "jump" (removed),
    "swap" (alternatives of a run of statements) or "constant" (a declaration that must not be constexpr,
    which is no break). `ways`: pairs of the text to use instead and the words for the report."""
    begin: int
    end: int
    kind: str
    ways: list = field(default_factory=list)


def plain(text):
    """A text that can be put on one line."""
    return "//" not in text and "#" not in text and 'R"' not in text


def one_line(text):
    return re.sub(r"\s*\n\s*", " ", text)


class Finder:
    def __init__(self, files):
        """`files`: path as clang names it -> text, of the files that may be broken."""
        self.files = files
        self.edits = {name: {} for name in files}

    def add(self, name, begin, end, kind, ways):
        edit = self.edits[name].setdefault((begin, end, kind), Edit(begin, end, kind))
        for way in ways:
            if way not in edit.ways:
                edit.ways.append(way)

    def walk(self, cursor, parent=None):
        for child in cursor.get_children():
            try:
                kind = child.kind
            except ValueError:  # a construct that this clang has no name for
                continue
            place = child.location.file
            if kind.is_translation_unit() or place is None or place.name not in self.files:
                continue
            if kind in CONSTANT_ONLY or self.is_of_type(child, cursor):
                continue
            self.visit(child, kind, place.name, cursor)
            self.walk(child, cursor)

    def is_of_type(self, child, declaration):
        """Whether it is in the type of what is declared: a bound of an array, an argument of a template."""
        if not declaration.kind.is_declaration() or declaration.kind in FUNCTIONS or not child.kind.is_expression():
            return False
        text = self.files[child.location.file.name]
        return (child.extent.end.offset <= declaration.location.offset
                or text[:child.extent.start.offset].endswith("["))

    def visit(self, cursor, kind, name, parent):
        begin, end = cursor.extent.start.offset, cursor.extent.end.offset
        text = self.files[name]
        if end <= begin:
            return
        if kind == Kind.VAR_DECL or kind in (Kind.FUNCTION_DECL, Kind.CXX_METHOD, Kind.CONSTRUCTOR):
            self.constant(cursor, kind, name, begin, end, text)
        elif kind == Kind.COMPOUND_STMT:
            self.swaps(cursor, name, text)
        elif kind in (Kind.BREAK_STMT, Kind.CONTINUE_STMT) or text[begin:end] == "return":
            self.add(name, begin, end, "jump", [("", "removed")])
        elif kind == Kind.INTEGER_LITERAL:
            way = {"0": "1", "1": "0"}.get(text[begin:end], f"({text[begin:end]} + 1)")
            self.add(name, begin, end, "expression", [(way, f"is {way}")])
        elif kind == Kind.FLOATING_LITERAL:
            self.add(name, begin, end, "expression", [(f"({text[begin:end]} + 1)", "plus 1")])
        elif kind == Kind.CHARACTER_LITERAL:
            way = "'#'" if text[begin:end] == "'~'" else "'~'"
            self.add(name, begin, end, "expression", [(way, f"is {way}")])
        elif kind == Kind.CXX_BOOL_LITERAL_EXPR:
            way = "false" if text[begin:end] == "true" else "true"
            self.add(name, begin, end, "expression", [(way, f"is {way}")])
        elif kind == Kind.STRING_LITERAL:
            self.words(cursor, name, begin, end, text)
        elif kind == Kind.UNARY_OPERATOR:
            self.unary(cursor, name, begin, end, text)
        if kind.is_expression():
            self.binary(cursor, kind, name, begin, end, text)
        self.statements(cursor, kind, name, text)

    def binary(self, cursor, kind, name, begin, end, text):
        parts = [c for c in cursor.get_children() if c.extent.end.offset > c.extent.start.offset
                 and not c.spelling.startswith("operator")]
        if len(parts) != 2 or parts[0].extent.start.offset != begin or parts[1].extent.end.offset != end:
            return
        gap_begin, gap_end = parts[0].extent.end.offset, parts[1].extent.start.offset
        sign = text[gap_begin:gap_end].strip()
        left, right = text[begin:gap_begin], text[gap_end:end]
        numbers = all(p.type.get_canonical().kind.name in NUMBERS for p in parts)
        numbers = numbers and [p.type.get_canonical().kind.name for p in parts] != ["POINTER", "POINTER"]
        signs = COMPARISONS.get(sign) or LOGIC.get(sign) or (ARITHMETIC.get(sign) if numbers else None)
        if signs and plain(text[begin:end]):
            ways = [(f"({one_line(left)} {s} {one_line(right)})", f"{sign} is {s}") for s in signs]
            self.add(name, begin, end, "expression", ways)

    def unary(self, cursor, name, begin, end, text):
        whole = text[begin:end]
        if not plain(whole):
            return
        rest = one_line(whole[1:])
        if whole.startswith(("++", "--")) or whole.endswith(("++", "--")):
            other = whole.replace("++", "??").replace("--", "++").replace("??", "--")
            self.add(name, begin, end, "expression", [(f"({other})", f"is {other}")])
        elif whole.startswith("!") and not whole.startswith("!="):  # what C++20 makes of a != b
            self.add(name, begin, end, "expression", [(f"!!({rest})", "! is gone")])
        elif whole.startswith("-"):
            self.add(name, begin, end, "expression", [(f"+({rest})", "- is gone")])

    def words(self, cursor, name, begin, end, text):
        whole = text[begin:end]
        if not whole.startswith('"') or not whole.endswith('"') or not plain(whole):
            return
        letters = [m.start(1) for m in re.finditer(r'(?:\\x[0-9A-Fa-f]+|\\.|([A-Za-z ~.,:;!?%/<>=_-]))', whole)
                   if m.group(1)]
        letters = [at for at in letters if not re.search(r"\\x[0-9A-Fa-f]+$", whole[:at])]
        if letters:
            at = letters[len(letters) // 2]
            other = whole[:at] + ("#" if whole[at] == "~" else "~") + whole[at + 1:]
            empty = '"' + "\\0" * (cursor.type.element_count - 1) + '"'  # of the same type
            ways = [(one_line(other), f"is {one_line(other)}"), (empty, "is empty")]
            self.add(name, begin, end, "expression", ways)

    def statements(self, cursor, kind, name, text):
        """Calls and assignments that stand as statements, and conditions without an operator."""
        children = list(cursor.get_children())
        if kind in (Kind.IF_STMT, Kind.WHILE_STMT, Kind.CONDITIONAL_OPERATOR) and children:
            self.condition(children[0], name, text)
        if kind == Kind.COMPOUND_STMT:
            bodies = children
        elif kind == Kind.IF_STMT:
            bodies = children[1:]
        elif kind in (Kind.FOR_STMT, Kind.CXX_FOR_RANGE_STMT, Kind.WHILE_STMT, Kind.CASE_STMT,
                      Kind.DEFAULT_STMT):
            bodies = children[-1:]
        else:
            return
        for body in bodies:
            if self.is_statement(body, text):
                self.add(name, body.extent.start.offset, body.extent.end.offset, "statement",
                         [("", "removed")])

    @staticmethod
    def is_statement(cursor, text):
        after = text[cursor.extent.end.offset:cursor.extent.end.offset + 80].lstrip()
        return cursor.kind.is_expression() and after.startswith(";")

    def condition(self, cursor, name, text):
        begin, end = cursor.extent.start.offset, cursor.extent.end.offset
        simple = re.fullmatch(r"[\w:.>\[\]-]+(\([^()]*\))?", text[begin:end])
        if cursor.kind.is_expression() and simple:
            self.add(name, begin, end, "condition", [(f"!({text[begin:end]})", "turned round")])

    def swaps(self, cursor, name, text):
        run = []
        for child in list(cursor.get_children()) + [None]:
            if child is not None and self.is_statement(child, text):
                run.append((child.extent.start.offset, child.extent.end.offset, self.is_call(child)))
                continue
            parts = [one_line(text[a:b]) for a, b, _ in run]
            if len(run) > 1 and all(plain(text[a:b]) for a, b, _ in run):
                ways = []
                for i in range(len(parts) - 1):
                    order = parts[:i] + [parts[i + 1], parts[i]] + parts[i + 2:]
                    if parts[i] != parts[i + 1] and run[i][2] and run[i + 1][2]:
                        ways.append(("; ".join(order) + ";", f"{parts[i]}; and {parts[i + 1]}; swapped"))
                if ways:
                    self.add(name, run[0][0], text.index(";", run[-1][1]) + 1, "swap", ways)
            run = []

    @staticmethod
    def is_call(cursor):
        """A call of a function, not an assignment, which in a class's case is a call as well."""
        while cursor.kind in (Kind.UNEXPOSED_EXPR, Kind.PAREN_EXPR):
            inside = list(cursor.get_children())
            if len(inside) != 1:
                return False
            cursor = inside[0]
        return cursor.kind == Kind.CALL_EXPR and not cursor.spelling.startswith("operator")

    def constant(self, cursor, kind, name, begin, end, text):
        """A constexpr declaration becomes one that is worked out when the program starts."""
        found = re.match(r"((?:inline |static )*)constexpr ", text[begin:end])
        if not found:
            return
        at = begin + found.end()
        in_class = cursor.semantic_parent.kind in (Kind.STRUCT_DECL, Kind.CLASS_DECL, Kind.CLASS_TEMPLATE)
        if kind != Kind.VAR_DECL:
            inline = "" if in_class or "inline" in found.group(1) else "inline "
            self.add(name, begin, at, "constant", [(found.group(1) + inline, "")])
            return
        head = found.group(1) + ("inline " if in_class and "inline" not in found.group(1) else "")
        pointer = re.match(r"(const \w+\* )(?!const)", text[at:end])
        if pointer:
            self.add(name, begin, at + pointer.end(), "constant", [(head + pointer.group(1) + "const ", "")])
            return
        head += "" if text.startswith("const ", at) else "const "
        words = re.match(r"char (\w+)\[\] *=", text[at:end])
        if words:
            size = cursor.type.element_count
            edited = f"{found.group(1)}const char (&{words.group(1)})[{size}] ="
            if not in_class:
                self.add(name, begin, at + words.end(), "constant", [(edited, "")])
            return
        self.add(name, begin, at, "constant", [(head, "")])


def find(main, files, arguments):
    """The edits of those of `files` (path -> text) that one translation unit is made of."""
    unit = clang.Index.create().parse(main, args=arguments)
    for problem in unit.diagnostics:
        if problem.severity >= clang.Diagnostic.Error:
            raise SystemExit(f"{main}: {problem}")
    included = {main} | {i.include.name for i in unit.get_includes()}
    finder = Finder({name: text for name, text in files.items() if name in included})
    finder.walk(unit.cursor)
    return {name: sorted(edits.values(), key=lambda e: (e.begin, -e.end))
            for name, edits in finder.edits.items()}
