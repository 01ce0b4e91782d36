"""Writes a text with its breaks in it, each behind a question that the program answers when it runs."""
from dataclasses import dataclass


@dataclass
class Break:
    """One way in which one place is broken. `number` is what the program is told to switch it on."""
    number: int
    file: str
    line: int
    source: str  # the line's text
    change: str
    key: tuple  # (begin, end, kind, index of the way): the same place in the next build


class Rendering:
    """The text with all edits but the dropped ones, and which range of it came from which key."""

    def __init__(self, name, text, edits, dropped, first):
        self.name, self.text, self.dropped, self.first = name, text, dropped, first
        self.breaks = []
        self.ranges = []  # (begin, end, key) in the rendered text
        self.count = 0
        self.pieces = []
        self.length = 0
        # The constants first: the ways of a dropped declaration's inside cannot stand.
        gone = [e for e in edits if e.kind == "constant" and self.is_dropped(e, 0)]
        ends = [(e.begin, self.end_of_declaration(e)) for e in gone]
        kept = [e for e in edits if not any(b <= e.begin and e.end <= f for b, f in ends)]
        kept.sort(key=lambda e: (e.begin, -e.end, e.kind != "swap", e.kind != "statement"))
        self.render(0, len(text), kept)
        self.result = "".join(self.pieces)

    def end_of_declaration(self, edit):
        """Behind the initializer or the body of what begins at the edit."""
        depth = 0
        for at in range(edit.begin, len(self.text)):
            letter = self.text[at]
            depth += {"{": 1, "(": 1, "}": -1, ")": -1}.get(letter, 0)
            if depth == 0 and letter in ";}":
                return at + 1
        return len(self.text)

    def is_dropped(self, edit, index):
        return (edit.begin, edit.end, edit.kind, index) in self.dropped

    def emit(self, text):
        self.pieces.append(text)
        self.length += len(text)

    def number(self, edit, index, words):
        line = self.text.count("\n", 0, edit.begin) + 1
        source = self.text.split("\n")[line - 1].strip()
        key = (edit.begin, edit.end, edit.kind, index)
        number = self.first + self.count
        self.count += 1
        part = self.text[edit.begin:edit.end] if edit.kind != "swap" else ""
        change = f"`{' '.join(part.split())}` {words}".strip() if part else words
        self.breaks.append(Break(number, self.name, line, source, change, key))
        return number, key

    def render(self, begin, end, edits):
        at = begin
        while edits:
            edit = edits[0]
            inside = [e for e in edits[1:] if e.end <= edit.end]
            self.emit(self.text[at:edit.begin])
            self.edit(edit, inside)
            at = edit.end
            edits = [e for e in edits[1:] if e.begin >= edit.end]
        self.emit(self.text[at:end])

    def edit(self, edit, inside):
        start = self.length
        ways = [(i, way) for i, way in enumerate(edit.ways) if not self.is_dropped(edit, i)]
        if edit.kind == "constant":
            if ways:
                self.emit(ways[0][1][0])
                self.ranges.append((start, self.length, (edit.begin, edit.end, edit.kind, 0)))
            else:
                self.render(edit.begin, edit.end, inside)
            return
        keys = []
        opened = self.open(edit, ways, keys)
        self.render(edit.begin, edit.end, inside)
        self.emit(opened)
        for key in keys:
            self.ranges.append((start, self.length, key))

    def open(self, edit, ways, keys):
        """Writes what stands before the true text, and returns what closes it."""
        if not ways:
            return ""
        if edit.kind == "jump":
            number, key = self.number(edit, ways[0][0], ways[0][1][1])
            keys.append(key)
            self.emit(f"if (tarvo_broken({number})) {{}} else ")
            return ""
        if edit.kind == "swap":
            for index, (other, words) in ways:
                number, key = self.number(edit, index, words)
                self.way(f"if (tarvo_broken({number})) {{ ", other, " } else ", key)
            self.emit("{ ")
            return " }"
        if edit.kind == "statement":
            number, key = self.number(edit, ways[0][0], ways[0][1][1])
            keys.append(key)
            self.emit(f"(tarvo_broken({number}) ? void() : void(")
            return "))"
        self.emit("(")
        for index, (other, words) in ways:
            number, key = self.number(edit, index, words)
            keys.append(key)
            self.way(f"tarvo_broken({number}) ? ", other, " : ", key)
        self.emit("!!(" if edit.kind == "condition" else "(")
        return "))"

    def way(self, before, other, after, key):
        self.emit(before)
        start = self.length
        self.emit(other)
        self.ranges.append((start, self.length, key))
        self.emit(after)

    def place(self, line, column):
        return sum(len(text) + 1 for text in self.result.split("\n")[:line - 1]) + column - 1

    def blamed(self, line, column):
        """The keys that a compiler's complaint at this place (both from 1) may be about, nearest first."""
        at = self.place(line, column)
        hit = [r for r in self.ranges if r[0] <= at < r[1]]
        return [key for _, _, key in sorted(hit, key=lambda r: r[1] - r[0])]

    def declared(self, line, column):
        """The key of the constant whose name stands at this place, in a list; empty when it is none."""
        begin, at = self.place(line, 1), self.place(line, column)
        hit = [r for r in self.ranges if r[2][2] == "constant" and begin <= r[0] <= at]
        return [max(hit)[2]] if hit else []
