"""Nothing in the files or their names says where or from what papers they were written. check_words.py ROOT"""

import pathlib
import re
import sys

import project_files

# Each pattern is written so that it does not match this file.
FORBIDDEN = [
    ("a path of one machine", r"(?<![\w.])/(?:work|farm|root)/|bash[_]jobs|[.]library\b"),
    ("a planning paper", r"(?i:\bspecificatio[n]\b|\bspec[.]md\b|\bthe spe[c]\b|\bPart [0-9]+\.[0-9])"),
    ("a task", r"(?i:\bissue #?[0-9])"),
    ("a package registry's host", r"\b(?:deb|security|snapshot)[.]debian[.]org|\bregistry[.]npmjs|\bpypi[.]org"),
]
PATTERNS = [(what, re.compile(pattern)) for what, pattern in FORBIDDEN]


def line_problems(text):
    return [f"{what}: {match.group()}" for what, pattern in PATTERNS for match in pattern.finditer(text)]


def problems(root):
    found = []
    for path in project_files.list_files(root):
        found += [f"{path}: the file's name holds {wrong}" for wrong in line_problems(str(path))]
        for number, line in enumerate(project_files.read_lines(root, path), 1):
            found += [f"{path}:{number}: {wrong}" for wrong in line_problems(line)]
    return found


if __name__ == "__main__":
    project_files.report(problems(pathlib.Path(sys.argv[1])))
