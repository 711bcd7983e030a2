"""Small changes of C++ sources, one at a time: comparisons, signs and arithmetic, constants, negated conditions and
calls left out. scripts/mutants.py makes them and looks whether a test notices.

No parser: the sources are laid out by clang-format, so that an operator has blanks on both sides and the bracket of a
template has not. What does not compile in the end does not count.
"""

import bisect
import collections
import re

# The text between start and end becomes new. kind is one of KINDS.
Change = collections.namedtuple("Change", "start end new kind")
KINDS = ("comparison", "sign", "constant", "string", "condition", "call")

COMPARISONS = {"==": "!=", "!=": "==", "<": "<=", "<=": "<", ">": ">=", ">=": ">", "&&": "||", "||": "&&"}
ARITHMETIC = {"+": "-", "-": "+", "*": "/", "/": "*", "%": "*", "+=": "-=", "-=": "+=", "*=": "/=", "/=": "*="}
STEPS = {"++": "--", "--": "++"}

NOT_CODE = re.compile(r"""
    (?P<comment> //[^\n]* | /\*.*?\*/ )
  | (?P<directive> ^[ \t]*\#(?:[^\n\\]|\\.)* )
  | (?P<raw> \b(?:u8|[uUL])?R"(?P<mark>[^\s()\\]{0,16})\(.*?\)(?P=mark)" )
  | (?P<string> \b(?:u8|[uUL])?"(?:[^"\\\n]|\\.)*" | "(?:[^"\\\n]|\\.)*" )
  | (?P<character> (?<![0-9a-fA-F])'(?:[^'\\\n]|\\.)+' )
""", re.X | re.M | re.S)
INFIX = re.compile(r"(?<=\s)(==|!=|<=|>=|&&|\|\||\+=|-=|\*=|/=|<|>|\+|-|\*|/|%)(?=\s)")
MINUS = re.compile(r"(?<=[(,=?:\[{ ])-(?=[\w(])")
NOT = re.compile(r"(?<![\w!=])!(?=[\w(])")
STEP = re.compile(r"\+\+|--")
NUMBER = re.compile(r"(?<![\w.'])(?:0[xX][0-9a-fA-F']+|\d[\d']*(?:\.\d+)?)(?=[uUlLfF]*\b|\.)")
TRUTH = re.compile(r"\b(?:true|false)\b")
CONDITION = re.compile(r"\b(?:if|while) \(")
EQUALITY = re.compile(r" [!=]= |^!")
JOINED = re.compile(r"&&|\|\|")
DECLARES = re.compile(r"\s*(?:const\s+)?(?:auto|[A-Za-z_][\w:]*(?:<[^;]*>)?)\s*[*&]*\s+[*&]*\w+\s*=[^=]")
# Where a statement may begin, and what begins one that is not a call.
STATEMENT = re.compile(r"(?:(?<=[;{})])|(?<=\belse))\s*(?P<cast>\(void\))?(?P<call>[A-Za-z_][\w:]*)")
NO_CALL = {"return", "if", "for", "while", "switch", "case", "default", "do", "else", "throw", "delete", "new",
           "break", "continue", "goto", "using", "namespace", "class", "struct", "enum", "public", "private",
           "protected", "static", "const", "constexpr", "auto", "template", "typedef", "static_assert", "try",
           "catch", "co_return", "extern", "inline", "Q_OBJECT", "signals", "explicit", "operator", "virtual"}
SQL = re.compile(r"\b(?:SELECT|INSERT|UPDATE|DELETE|WHERE|FROM|ORDER|PRAGMA|CREATE|TABLE|SET|AND)\b")


def blanked(text):
    """The text with comments, directives and the insides of literals replaced by blanks, place by place, and the
    literals as (start, end, is it a character)."""
    literals = []

    def blank(found):
        words = found.group()
        if found.group("comment") or found.group("directive"):
            return re.sub(r"[^\n]", " ", words)
        literals.append((found.start(), found.end(), bool(found.group("character"))))
        return '"' + re.sub(r"[^\n]", "_", words[1:-1]) + '"'

    return NOT_CODE.sub(blank, text), literals


def closing(code, opening):
    """Where the bracket at opening is closed, or -1."""
    depth = 0
    for place in range(opening, len(code)):
        depth += {"(": 1, "{": 1, "[": 1, ")": -1, "}": -1, "]": -1}.get(code[place], 0)
        if depth == 0:
            return place
    return -1


def operators(code, literals):
    strings = {place for start, end, is_character in literals if not is_character for place in (start, end)}
    for found in INFIX.finditer(code):
        sign, start, end = found.group(), *found.span()
        if sign in COMPARISONS:
            yield Change(start, end, COMPARISONS[sign], "comparison")
        elif not strings & {start - 1, end + 1}:  # texts can only be joined
            yield Change(start, end, ARITHMETIC[sign], "sign")
    for found in STEP.finditer(code):
        yield Change(*found.span(), STEPS[found.group()], "sign")
    for found in MINUS.finditer(code):
        yield Change(*found.span(), "", "sign")
    for found in NOT.finditer(code):
        yield Change(*found.span(), "", "condition")


def next_number(text):
    if text[:2].lower() == "0x":
        return f"{text[:2]}{int(text[2:].replace(chr(39), ''), 16) + 1:x}"
    whole, point, fraction = text.replace("'", "").partition(".")
    return f"{int(whole) + 1}{point}{fraction}"


def constants(code):
    for found in NUMBER.finditer(code):
        yield Change(*found.span(), next_number(found.group()), "constant")
    for found in TRUTH.finditer(code):
        yield Change(*found.span(), "false" if found.group() == "true" else "true", "constant")


def for_people(literal):
    """Whether a string is only words for people: Japanese, or an English phrase that is not SQL."""
    if not literal.isascii():
        return True
    return bool(re.search(r"[a-z]{2,} [a-z]{2,}", literal)) and not SQL.search(literal)


def literal_changes(text, literals, words):
    for start, end, is_character in literals:
        literal = text[start:end]
        if is_character:
            inside = re.fullmatch(r"(.*')([ -~])'", literal)  # one plain character, no escape
            if inside and inside.group(2) not in "\\":
                other = "x" if inside.group(2) != "x" else "y"
                yield Change(start, end, f"{inside.group(1)}{other}'", "constant")
            continue
        if not words and for_people(literal):
            continue
        opening = literal.index('"')
        if "R" in literal[:opening]:
            begin, finish = literal.index("(") + 1, literal.rindex(")")
        else:
            begin, finish = opening + 1, len(literal) - 1
        yield Change(start + begin, start + finish, "x" if begin == finish else "", "string")


def conditions(code):
    for found in CONDITION.finditer(code):
        opening = found.end() - 1
        end = closing(code, opening)
        if end < 0:
            continue
        inside = code[opening + 1:end]
        first = inside.rfind(";") + 1  # after what an if declares before its condition
        begin = opening + 1 + first + (len(inside[first:]) - len(inside[first:].lstrip()))
        if not DECLARES.match(code[begin:end] + " "):
            yield begin, end


def condition_changes(text, code):
    for begin, end in conditions(code):
        # A single one of these is negated by its own change already.
        if len(EQUALITY.findall(code[begin:end])) != 1 or JOINED.search(code[begin:end]):
            yield Change(begin, end, f"!({text[begin:end]})", "condition")


def call_changes(text, code):
    """Statements that consist of one call, or of calls joined by points, arrows and brackets."""
    for found in STATEMENT.finditer(code):
        if found.group("call") in NO_CALL:
            continue
        start = place = found.start("cast") if found.group("cast") else found.start("call")
        place = found.end()
        called = False
        while place < len(code) and code[place] != ";":
            if code[place] in "([{":
                called = called or code[place] == "("
                place = closing(code, place)
                if place < 0:
                    break
            elif not re.match(r"[\w:.\n ]|->", code[place:place + 2]) or re.match(r"\w \w", code[place - 1:place + 2]):
                called = False
                break
            place += 2 if code[place:place + 2] == "->" else 1
        if called and code[place:place + 1] == ";" and code[place - 1] == ")":
            yield Change(start, place, re.sub(r"[^\n]", "", text[start:place]), "call")


def changes(text, words=True):
    """Every change of text that there is, in order; without words those of strings for people are left out."""
    code, literals = blanked(text)
    found = [*operators(code, literals), *constants(code), *literal_changes(text, literals, words),
             *condition_changes(text, code), *call_changes(text, code)]
    return sorted(found, key=lambda change: (change.start, change.end, change.new))


def applied(text, change):
    return text[:change.start] + change.new + text[change.end:]


class Lines:
    """Which lines of a text a change touches, and how they read before and after."""

    def __init__(self, text):
        self._text = text
        self._starts = [0, *(found.end() for found in re.finditer("\n", text))]

    def number(self, change):
        return bisect.bisect_right(self._starts, change.start)

    def before_and_after(self, change):
        """Both lines with single blanks, so that an entry in a list of changes still fits after reformatting."""
        start = self._starts[self.number(change) - 1]
        end = self._text.find("\n", change.end)
        end = len(self._text) if end < 0 else end
        after = self._text[start:change.start] + change.new + self._text[change.end:end]
        return " ".join(self._text[start:end].split()), " ".join(after.split())
