"""Window tests wait for what they want to see, never for a fixed time. check_sleeps.py ROOT

The one sleep allowed is the pause between two looks, in the polling function of tests/program/desktop.bash.
"""

import pathlib
import re
import sys

import project_files

CPP_SLEEP = re.compile(r"\bqSleep\b|\bqWait\s*\(|\b(?:sleep_for|sleep_until|usleep|nanosleep|msleep)\b|\bsleep\s*\(")
SHELL_SLEEP = re.compile(r"(?:^|[;&|({]|\bdo\b|\bthen\b)\s*sleep\s")
FOLDERS = {"gui", "program"}
POLLING = pathlib.PurePosixPath("tests/program/desktop.bash")


def is_sleep(path, line):
    if path.suffix in {".h", ".cpp"}:
        return CPP_SLEEP.search(line.partition("//")[0])
    return SHELL_SLEEP.search(line)


def problems(root):
    found = []
    for path in project_files.list_files(root, ".h", ".cpp", ".bash", ".sh"):
        if path.parts[0] != "tests" or path.parts[1] not in FOLDERS or path == POLLING:
            continue
        for number, line in enumerate(project_files.read_lines(root, path), 1):
            if is_sleep(path, line):
                found.append(f"{path}:{number}: a bare sleep: {line.strip()}")
    return found


if __name__ == "__main__":
    project_files.report(problems(pathlib.Path(sys.argv[1])))
