"""Which sources can be compiled as one."""

import re

# A name that is declared without indentation, which is so for all that belongs to one source alone.
DECLARED = re.compile(r"^(?:#\s*define\s+|MATCHER\w*\()(\w+)"
                      r"|^(?:class|struct|union|enum(?: class)?) (\w+)"
                      r"|^(?!template|namespace|using \w+::|TEST)"
                      r"[a-zA-Z](?:[^(={;]*[ *&>])?(?<!::)(\w+)\s*[({=;\[]",
                      re.MULTILINE)


def declared_names(text):
    return {name for names in DECLARED.findall(text) for name in names if name}


def groups_of(sources, most):
    """Lists of sources that declare no name twice: each goes to the first list where it can."""
    groups = []
    for source in sources:
        names = declared_names(source.read_text(encoding="utf-8"))
        for group, taken in groups:
            if len(group) < most and not names & taken:
                group.append(source)
                taken |= names
                break
        else:
            groups.append(([source], names))
    return [group for group, _ in groups]
