"""The changes of one line that tools/mutate tries, and the places in C++ sources where they can be made.

They go by the text as clang-format leaves it: a binary operator has blanks around it, a template's bracket or a
pointer's star doesn't. What is taken for an operator and isn't one doesn't compile, and the tool draws another change.
"""

import hashlib
import re
from collections import namedtuple

# `line` counts from 1; `before` and `after` are the whole line.
Mutation = namedtuple("Mutation", "file line change before after")

# What stands for what, between blanks. The first column is the name of the change.
BETWEEN = (
    ("comparison", {"==": "!=", "!=": "==", "<": ">=", ">=": "<", ">": "<=", "<=": ">"}),
    ("boundary", {"<": "<=", "<=": "<", ">": ">=", ">=": ">"}),
    ("logic", {"&&": "||", "||": "&&"}),
    ("arithmetic", {"+": "-", "-": "+", "*": "/", "/": "*"}),
    ("bits", {"&": "|", "|": "&", "<<": ">>", ">>": "<<"}),
    ("assignment", {"+=": "-=", "-=": "+=", "|=": "&=", "&=": "|="}),
)
WORDS = {
    "true": "false",
    "false": "true",
    "TRUE": "FALSE",
    "FALSE": "TRUE",
    "continue": "break",
    "min": "max",
    "max": "min",
    "++": "--",
    "--": "++",
}
WORD = re.compile(r"(?<![\w.>])(true|false|TRUE|FALSE)\b|(?<=std::)(min|max)(?=\()|\bcontinue(?=;)|\+\+|--")
NUMBER = re.compile(r"(?<![\w.])(0[xX][0-9A-Fa-f]+|\d+)(?=[uUlL]*(?![\w.]))")
# The number in `char text[16] = ...` is room, not behaviour.
ROOM = re.compile(r"[\w>] \w+\[\d+\]( =|;)")
NEGATION = re.compile(r"(?<![\w=)])!(?=[\w(:])")
CONDITION = re.compile(r"\b(?:if|while) (\()")
# A statement alone on its line, or after the condition or label before it: a call, an assignment to something that isn't
# declared here, a jump.
LABEL = re.compile(r"(case [^?]*?[^:]:|default:)(?!:) ?")
CALL = re.compile(r"(?!(?:return|if|for|while|switch|sizeof)\b)[\w:]+(?:(?:\.|->)\w+|\(\)|\[[^\]]*\])*\(.*\);$")
ASSIGNMENT = re.compile(r"(?:\*|\+\+|--)?[\w:]+(?:(?:\.|->)\w+|\([^ ]*\)|\[[^\]]*\])* (?:[-+|&]?=) .*;$")
JUMP = re.compile(r"break;$")
LEAVING = re.compile(r"(return\b.*|continue);$")
# Lines of these say nothing about behaviour, or nothing that a test could see. The first runs to its semicolon.
TOLD = re.compile(r"\b(static_assert|assert|Trace)\(")
IDLE = re.compile(r"\s*(#|using\b|namespace\b|template\b|friend\b|extern\b|public:|private:|protected:|$)")


def blanked(text):
    """`text` with comments, strings and characters blanked, of the same length and with the same lines."""
    parts = re.compile(r'//[^\n]*|/\*.*?\*/|"(?:\\.|[^"\\\n])*"|(?<![0-9A-Fa-f])\'(?:\\.|[^\'\\\n])+\'', re.S)

    def blank(found):
        piece = found.group()
        if piece[0] == "/":
            return re.sub(r"[^\n]", " ", piece)
        return piece[0] + "~" * (len(piece) - 2) + piece[-1]

    return parts.sub(blank, text)


def closing(line, start):
    """The position of the bracket that closes the one at `start`, -1 if it isn't on this line."""
    depth = 0
    for position in range(start, len(line)):
        depth += (line[position] in "([{") - (line[position] in ")]}")
        if depth == 0:
            return position
    return -1


def statement_start(line):
    """Where the statement begins on `line`, and whether a condition stands before it."""
    start, conditional = len(line) - len(line.lstrip()), False
    while True:
        rest = line[start:]
        label = LABEL.match(rest)
        if label:
            start += label.end()
        elif rest.startswith("else "):
            start, conditional = start + 5, True
        elif rest.startswith("if ("):
            end = closing(line, start + 3)
            if end < 0 or not line[end + 1 :].strip():
                return start, False
            start, conditional = end + 2, True
        else:
            return start, conditional


def arms(line):
    """Start and end of the two arms of a choice by `?`, if the line has one, and all of it."""
    question = line.find(" ? ")
    if question < 0 or line.count(" ? ") > 1:
        return None
    depth, colon = 0, -1
    for position in range(question + 3, len(line)):
        sign = line[position]
        if depth == 0 and colon < 0 and line.startswith(" : ", position):
            colon = position
        if depth == 0 and colon >= 0 and sign in ";,)]}":
            return question + 3, position
        depth += (sign in "([{") - (sign in ")]}")
        if depth < 0:
            return None
    return None


def changes_of(line):
    """Each change of a blanked line: its name, the start and end of what it replaces, and by what: a text, or a function
    that makes it of what was there."""
    for name, signs in BETWEEN:
        for found in re.finditer(r"(?<= )(\S{1,2})(?= )", line):
            if found[1] in signs:
                yield name, found.start(), found.end(), signs[found[1]]
    for found in WORD.finditer(line):
        yield "opposite", found.start(), found.end(), WORDS[found.group()]
    if not ROOM.search(line):
        for found in NUMBER.finditer(line):
            digits, value = found[1], int(found[1], 0 if found[1][:2].lower() == "0x" else 10) + 1
            more = f"0x{value:0{len(digits) - 2}X}" if digits[:2].lower() == "0x" else str(value)
            yield "constant", found.start(), found.end(), more
    for found in NEGATION.finditer(line):
        yield "negation", found.start(), found.end(), ""
    for found in CONDITION.finditer(line):
        end = closing(line, found.start(1))
        if end >= 0 and ";" not in line[found.start(1) : end]:
            yield "condition", found.start(1), end + 1, lambda text: f"(!{text})"
    choice = arms(line)
    if choice:
        yield "arms", *choice, lambda text: " : ".join(reversed(text.split(" : ", 1)))
    start, conditional = statement_start(line)
    statement = line[start:].rstrip()
    if CALL.match(statement) and statement.count("(") == statement.count(")"):
        yield "dropped call", start, start + len(statement), ";"
    elif ASSIGNMENT.match(statement):
        yield "dropped assignment", start, start + len(statement), ";"
    elif JUMP.match(statement) or (conditional and LEAVING.match(statement)):
        yield "dropped jump", start, start + len(statement), ";"


def lines_to_change(text):
    """The lines of `text` that do something: their number, the line, and the line blanked."""
    plain = blanked(text).split("\n")
    telling = False
    for number, (line, code) in enumerate(zip(text.split("\n"), plain), 1):
        telling = telling or bool(TOLD.search(code))
        if not telling and not IDLE.match(code) and not re.search(r"= (delete|default);|\boperator\b", code):
            yield number, line, code
        telling = telling and ";" not in code


def mutations(file, text, seed):
    """One change for each line of `text` that has any, after its place in the order of all changes. The place hangs on the
    seed, the file's name and what the line says, so that a line keeps it until it changes, wherever it goes."""
    seen = {}
    for number, line, code in lines_to_change(text):
        seen[line.strip()] = times = seen.get(line.strip(), 0) + 1
        identity = f"{seed}|{file.rsplit('/', 1)[-1]}|{line.strip()}|{times}"
        options = []
        for name, start, end, new in changes_of(code):
            after = line[:start] + (new(line[start:end]) if callable(new) else new) + line[end:]
            place = hashlib.sha256(f"{identity}|{name}|{start - len(line) + len(line.lstrip())}".encode()).hexdigest()
            options.append((place, Mutation(file, number, name, line, after)))
        if options:
            yield hashlib.sha256(identity.encode()).hexdigest(), min(options)[1]
