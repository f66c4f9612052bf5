"""The mutants of a source file: copies of it that differ in one small thing each. For mutate.py."""

import collections
import os
import re

# What is left alone: comments, texts, preprocessor lines and what these leave out on Linux.
HIDDEN = re.compile(r"#ifdef (?:_WIN32|Q_OS_WIN)\n.*?\n#(?:else|endif)|#else\n.*?\n#endif|//[^\n]*|/\*.*?\*/"
                    r'|"(?:\\.|[^"\\\n])*"|' r"'(?:\\[^'\n]+|[^'\\\n])'" r"|^[ \t]*#[^\n]*"
                    r"|\bstatic_assert\(.*?\);", re.DOTALL | re.MULTILINE)
SWAPS = {
    "comparison": {"<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "=="},
    "logic": {"&&": "||", "||": "&&", "true": "false", "false": "true"},
    "arithmetic": {"+": "-", "-": "+", "*": "/", "/": "*", "%": "*", "+=": "-=", "-=": "+=",
                   "/=": "*=", "*=": "/=", "++": "--", "--": "++"},
}
# The format of the sources tells operators from template brackets, signs and stars of pointers.
TOKENS = {
    "comparison": re.compile(r"(?<= )(?:[<>]=?|[=!]=)(?=\s)"),
    "logic": re.compile(r"(?<=\s)(?:&&|\|\|)(?=\s)|\b(?:true|false)\b"),
    "arithmetic": re.compile(r"(?<=\s)[-+*/%]=?(?=\s)|\+\+|--"),
}
NUMBER = re.compile(r"(?<![\w.'])(\d[\d']*)(?=(?:\.\d+)?U?\b(?!'))")
NOT = re.compile(r"(?<![\w=])!(?=[\w(:*])")
LONE_NOT = re.compile(r"!(?:(?!&&|\|\|).)*", re.DOTALL)  # loses its own negation already
CONDITION = re.compile(r"\b(?:if|while) \(")
STATEMENT = re.compile(r"(?<=[;{}):])\n\s*((?:(?:\+\+|--)?[A-Za-z_:][\w:]*"
                       r"(?:\(|\.|->|\[|--|\+\+| [-+*/|&]?= )[^;{}]*|break|continue|return);)")

Mutant = collections.namedtuple("Mutant", "place text changed")


def closing(text, at):
    """The index of the parenthesis that closes the one at at."""
    depth = 0
    for index in range(at, len(text)):
        depth += {"(": 1, ")": -1}.get(text[index], 0)
        if depth == 0:
            return index
    return at


def changes(text):
    """All small changes to a source text, by kind: from where, to where, what instead."""
    visible = HIDDEN.sub(lambda hit: re.sub(r"[^\n]", " ", hit.group()), text)
    result = {kind: [(*hit.span(), SWAPS[kind][hit.group()]) for hit in pattern.finditer(visible)]
              for kind, pattern in TOKENS.items()}
    result["constant"] = [(*hit.span(1), str(int(hit.group(1).replace("'", "")) + 1))
                          for hit in NUMBER.finditer(visible)]
    result["negation"] = [(*hit.span(), "") for hit in NOT.finditer(visible)]
    for hit in CONDITION.finditer(visible):
        start, end = hit.end(), closing(visible, hit.end() - 1)
        if not LONE_NOT.fullmatch(visible[start:end]):
            result["negation"].append((start, end, f"!({text[start:end]})"))
    result["statement"] = [(*hit.span(1), ";") for hit in STATEMENT.finditer(visible)]
    return result


def mutants(name, text):
    """Pairs of a kind and a mutant of the file of this name and text."""
    for kind, found in changes(text).items():
        for start, end, instead in found:
            line, column = text.count("\n", 0, start) + 1, start - text.rfind("\n", 0, start)
            yield kind, Mutant(f"{name}:{line}:{column}", text, text[:start] + instead + text[end:])


def difference(mutant):
    """The lines that differ, as in a patch."""
    lines = [mutant.text.splitlines(), mutant.changed.splitlines()]
    head = len(os.path.commonprefix(lines))
    tail = len(os.path.commonprefix([side[:head - 1:-1] if head else side[::-1] for side in lines]))
    removed, added = (side[head:len(side) - tail] for side in lines)
    return "\n".join([f"-{line}" for line in removed] + [f"+{line}" for line in added])
