"""Qt stays in ui/ folders, a room includes only the rooms that its CMake target uses, and nobody but the platform room's
own sources the headers of one operating system.

check_layering.py ROOT RULES: every line of the file RULES is "room: used rooms".
"""

import pathlib
import re
import sys

import project_files

INCLUDE = re.compile(r'\s*#\s*include\s*([<"])([^>"]+)[>"]')
QT_HEADER = re.compile(r"Q[A-Zt]\w*(/|$)|q[a-z]+\.h$")
QT_FOLDERS = {"ui", "gui"}
SYSTEM_FOLDER = "platform/linux/"  # what is written for one operating system


def read_rules(path):
    rules = {}
    for line in path.read_text().splitlines():
        room, colon, used = line.partition(":")
        if colon:
            rules[room.strip()] = set(used.split())
    return rules


def room_of(path):
    """The room of a path below src/: view/EditView.h is in view, view/ui/CountWin.h in view/ui."""
    parts = path.parts
    if len(parts) < 2:
        return None
    return f"{parts[0]}/ui" if len(parts) > 2 and parts[1] == "ui" else parts[0]


def layer_problem(source, quote, header, rules):
    """What is wrong when the file `source`, relative to src/, includes the header; None when nothing is."""
    if quote == "<" or header.endswith(".moc"):
        return None
    room = room_of(source)
    if room not in rules:
        return f"the room {room} has no CMake target"
    if header.startswith(SYSTEM_FOLDER) and not str(source).startswith(SYSTEM_FOLDER):
        return f'only {SYSTEM_FOLDER} includes "{header}"'
    used = room_of(pathlib.PurePosixPath(header))
    if used is None:
        return f'"{header}" is not a path from src/'
    if used != room and used not in rules[room]:
        return f'{room} must not include "{header}"'
    return None


def problems(root, rules):
    found = []
    for path in project_files.list_files(root, ".h", ".cpp"):
        for number, line in enumerate(project_files.read_lines(root, path), 1):
            include = INCLUDE.match(line)
            if not include:
                continue
            quote, header = include.groups()
            if QT_HEADER.match(header) and not QT_FOLDERS & set(path.parts[:-1]):
                found.append(f"{path}:{number}: Qt outside a ui/ or gui/ folder: {header}")
            if path.parts[0] == "src":
                wrong = layer_problem(path.relative_to("src"), quote, header, rules)
                if wrong:
                    found.append(f"{path}:{number}: {wrong}")
    return found


if __name__ == "__main__":
    project_files.report(problems(pathlib.Path(sys.argv[1]), read_rules(pathlib.Path(sys.argv[2]))))
