"""No two headers of src/ define a class, struct or enum of the same name: such a pair is undefined behaviour that no
compiler tells, and the two headers cannot be included together."""

import pathlib
import re
import sys

import project_files

COMMENTS_AND_TEXTS = re.compile(r'//[^\n]*|/\*.*?\*/|"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])+\'', re.DOTALL)
DIRECTIVE = re.compile(r"^[ \t]*#(?:[^\n]*\\\n)*[^\n]*", re.MULTILINE)
TEMPLATE = re.compile(r"\btemplate\s*<[^{};]*?>\s*(?=\b(?:class|struct|requires)\b)")
NAMESPACE = re.compile(r"\bnamespace\b\s*([\w:]*)\s*$")
TYPE = re.compile(r"^(?:template\b.*\s)?\s*(?:class|struct|union|enum(?:\s+(?:class|struct))?)"
                  r"(?:\s+(?:\[\[.*?\]\]|alignas\s*\([^)]*\)))*\s+(\w+)\s*(?:final\s*)?(?::(?!:).*)?$", re.DOTALL)


def blank(match):
    """Spaces in the match's place; a digit separator is no text."""
    return re.sub(r"[^\n]", " ", match.group())


def defined_types(text):
    """(line, name with its namespaces) of every type that the text defines outside classes and functions."""
    text = re.sub(r"(?<=[0-9a-fA-F])'(?=[0-9a-fA-F])", " ", text)
    text = TEMPLATE.sub(blank, DIRECTIVE.sub(blank, COMMENTS_AND_TEXTS.sub(blank, text)))
    scopes = []  # of each open brace: a namespace's name, or None
    begun = 0    # where the declaration that is read has begun
    for brace in re.finditer(r"[{};]", text):
        declaration = text[begun:brace.start()]
        begun = brace.end()
        if brace.group() == "}" and scopes:
            scopes.pop()
        elif brace.group() == "{":
            namespace = NAMESPACE.search(declaration)
            if None not in scopes and not namespace:
                if type_found := TYPE.match(declaration.strip()):
                    yield (text.count("\n", 0, brace.start()) + 1, "::".join(scopes + [type_found.group(1)]))
            scopes.append(namespace.group(1) if namespace else None)


def problems(root):
    found = []
    first = {}
    for path in project_files.list_files(root, ".h"):
        if path.parts[0] != "src":
            continue
        for number, name in defined_types("\n".join(project_files.read_lines(root, path))):
            if name in first:
                found.append(f"{path}:{number}: {name} is defined in {first[name]} too")
            else:
                first[name] = f"{path}:{number}"
    return found


if __name__ == "__main__":
    project_files.report(problems(pathlib.Path(sys.argv[1])))
