"""Finds the places of a C++ source where one operator, constant or branch can be changed, for tools/mutate."""

import re
from dataclasses import dataclass

# What each operator becomes. They stand between blanks, as .clang-format lays them out; template brackets do not.
OPERATORS = {
    "<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "==",
    "&&": "||", "||": "&&",
    "+": "-", "-": "+", "*": "/", "/": "*", "%": "/",
    "<<": ">>", ">>": "<<", "&": "|", "|": "&", "^": "&",
    "+=": "-=", "-=": "+=", "*=": "/=", "/=": "*=", "&=": "|=", "|=": "&=", "<<=": ">>=", ">>=": "<<=",
}
DECLARATORS = ("*", "&", "&&")
TYPE_WORDS = {"auto", "bool", "char", "const", "double", "float", "int", "long", "short", "signed", "unsigned", "void"}

OPERATOR = re.compile(r"(?<= )(%s)(?=[ \n])" % "|".join(sorted(map(re.escape, OPERATORS), key=len, reverse=True)))
WORD_BEFORE = re.compile(r"([\w:]+|>)\s*$")
STEP = re.compile(r"\+\+|--")
NEGATION = re.compile(r"!(?=[A-Za-z_(])")
INTEGER = re.compile(r"(?<![\w.'])(0x[0-9A-Fa-f]+|\d+)(?=[uUlL]*(?![\w.']))")
REAL = re.compile(r"(?<![\w.'])(\d+\.\d+)(?![\w.'])")
TRUTH = re.compile(r"\b(true|false)\b")
JUMP = re.compile(r"\b(break|continue|return);")
BRANCH = re.compile(r"\b(?:if|while) \(")

TOKEN = re.compile(
    r"""//[^\n]* | /\*.*?\*/                               # comments
      | ^[ \t]*\#(?:[^\n]*\\\n)*[^\n]*                     # directives
      | "(?:\\.|[^"\\\n])*"
      | (?<![0-9A-Fa-f])'(?:\\.|[^'\\\n])+'
      | \b(?:static_assert|assert)\((?:[^()]|\([^()]*\))*\) """,
    re.VERBOSE | re.MULTILINE | re.DOTALL,
)
# Sizes of arrays, room asked for in advance: a little more or less of it changes nothing that could be seen.
ONLY_ROOM = re.compile(r"^\s*(?:[\w:]+ )+\w+\[\w+\](?:;| = \{\};)$|\breserve\(|\btemplate <")


@dataclass(frozen=True)
class Change:
    """One change: the text from `start` to `end` is replaced."""

    path: str
    line: int
    column: int
    source: str  # the line, stripped
    nth: int  # which of the lines of that text it is
    start: int
    end: int
    old: str
    new: str

    @property
    def key(self):
        """What tells the change apart while lines come and go above it."""
        return self.path, self.source if self.nth == 1 else f"{self.source}   #{self.nth}", self.arrow

    @property
    def arrow(self):
        return f"`{self.old}` -> `{self.new}`"

    def __str__(self):
        return f"{self.path}:{self.line}:{self.column}: {self.arrow} in: {self.source}"

    def apply(self, text):
        return text[: self.start] + self.new + text[self.end :]


def blanked(text):
    """The text with blanks in place of what is never changed, so that positions stay."""
    return TOKEN.sub(lambda match: re.sub(r"[^\n]", " ", match[0]), text)


def is_declarator(code, position):
    """Whether the `*` or `&` at `position` follows a type: a word of the language, or a name with a capital."""
    word = WORD_BEFORE.search(code, max(0, position - 80), position)
    if not word:
        return False
    last = word[1].split("::")[-1]
    return word[1] == ">" or last in TYPE_WORDS or last.endswith("_t") or last[0].isupper()


def condition_end(code, start):
    """The position of the bracket that closes the one before `start`."""
    depth = 1
    for position in range(start, len(code)):
        depth += {"(": 1, ")": -1}.get(code[position], 0)
        if depth == 0:
            return position
    return len(code)


def integer_changes(word):
    if word.startswith("0x"):
        base, form = 16, "0x{:0%dX}" % (len(word) - 2)
    else:
        base, form = (8, "0{:o}") if word.startswith("0") and len(word) > 1 else (10, "{}")
    number = int(word, base)
    return [form.format(other) for other in (number + 1, number - 1) if other >= 0]


def edits(code):
    """Yields start, end and replacement of every possible change, the telling branches last."""
    for match in OPERATOR.finditer(code):
        if match[1] not in DECLARATORS or not is_declarator(code, match.start()):
            yield match.start(), match.end(), OPERATORS[match[1]]
    for match in STEP.finditer(code):
        yield match.start(), match.end(), "--" if match[0] == "++" else "++"
    for match in NEGATION.finditer(code):
        yield match.start(), match.end(), ""
    for match in INTEGER.finditer(code):
        for other in integer_changes(match[1]):
            yield match.start(), match.end(), other
    for match in REAL.finditer(code):
        yield match.start(), match.end(), str(float(match[1]) + 1)
    for match in TRUTH.finditer(code):
        yield match.start(), match.end(), "false" if match[1] == "true" else "true"
    for match in JUMP.finditer(code):
        yield match.start(), match.end(), ";"
    for match in BRANCH.finditer(code):
        start, end = match.end(), condition_end(code, match.end())
        start += code[start:end].rfind("; ") + 2 if "; " in code[start:end] else 0
        condition = code[start:end]
        if " = " not in condition:
            for pattern in ("!({})", "({}) && false", "({}) || true"):
                if not (match[0].startswith("while") and pattern.endswith("true")):
                    yield start, end, pattern


def changes_of(path, text):
    """All changes of a source, in order of their places."""
    code = blanked(text)
    found = []
    for start, end, new in edits(code):
        begin = text.rfind("\n", 0, start) + 1
        source = text[begin : text.find("\n", start)]
        nth = 1 + [other.strip() for other in text[:begin].splitlines()].count(source.strip())
        if ONLY_ROOM.search(source):
            continue
        old = text[start:end]
        line = text.count("\n", 0, start) + 1
        found.append(Change(path, line, start - begin + 1, source.strip(), nth, start, end, old, new.format(old)))
    return sorted(found, key=lambda change: (change.start, change.new))
