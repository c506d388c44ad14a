"""The lengths of the functions of a C++ source that clang-format has formatted."""

import re

# Comments, literals and preprocessor lines. They are replaced by blanks, so that lines keep their
# numbers.
NO_CODE = re.compile(
    r'R"([^(\s]*)\(.*?\)\1"'
    r'|"(?:\\.|[^"\\\n])*"'
    r"|(?<![0-9A-Fa-f])'(?:\\.|[^'\\\n])*'"
    r"|//[^\n]*|/\*.*?\*/"
    r"|^[ \t]*#(?:\\\n|[^\n])*", re.DOTALL | re.MULTILINE)
SCOPE = re.compile(r"\b(?:namespace|class|struct|union|enum)\b|\bextern\s*$")


def blanked(text):
    return NO_CODE.sub(lambda match: re.sub(r"[^\n]", " ", match[0]), text)


def is_function(head):
    """Whether the block after that text is a function's: it has parameters and is no
    initialiser."""
    return "(" in head and not head.rstrip().endswith("=")


def function_lengths(text):
    """Pairs of the first line of a function and its number of lines, including the last brace. A
    definition within a function is part of it."""
    code = blanked(text)
    inner = 0  # the depth in a block that is no scope, as a function
    head_start, function = 0, False
    for match in re.finditer(r"[{};]", code):
        sign, place = match[0], match.start()
        head = code[head_start:place]
        if sign == "{" and inner == 0 and SCOPE.search(head) and not is_function(head):
            head_start = place + 1
        elif sign == "{":
            function = is_function(head) if inner == 0 else function
            inner += 1
        elif sign == "}" and inner > 0:
            inner -= 1
            # A member initialiser in braces is followed by the next one or by the body.
            goes_on = re.match(r"\s*[,{)]", code[place + 1:])
            if inner == 0 and not goes_on:
                if function:
                    first = head_start + len(head_of(code, head_start))
                    yield code.count("\n", 0, first) + 1, code.count("\n", first, place) + 1
                head_start = place + 1
        elif inner == 0:
            head_start = place + 1


def head_of(code, start):
    """The blanks and access specifiers before a declaration."""
    return re.match(r"(?:\s|\b(?:public|private|protected|Q_SIGNALS|public Q_SLOTS)\s*:)*",
                    code[start:])[0]
