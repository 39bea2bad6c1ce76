"""Tests wait for what they want to see, never for a fixed time. check_sleeps.py ROOT

The sleeps allowed are the pauses between two looks, in the two functions that poll.
"""

import pathlib
import re
import sys

import project_files

CPP_SLEEP = re.compile(r"\bqSleep\b|\bqWait\s*\(|\b(?:sleep_for|sleep_until|usleep|nanosleep|msleep)\b|\bsleep\s*\(")
# As a command, or as one of xdotool's.
SHELL_SLEEP = re.compile(r"(?:^|[;&|({]|\bdo\b|\bthen\b)\s*sleep\s|\bxdotool\b.*\ssleep\s")
POLLING = {pathlib.PurePosixPath("tests/program/desktop.bash"), pathlib.PurePosixPath("tests/support/Eventually.h")}


def is_sleep(path, line):
    if path.suffix in {".h", ".cpp"}:
        return CPP_SLEEP.search(line.partition("//")[0])
    return SHELL_SLEEP.search(line)


def problems(root):
    found = []
    for path in project_files.list_files(root, ".h", ".cpp", ".bash", ".sh"):
        if path.parts[0] != "tests" or path in POLLING:
            continue
        for number, line in enumerate(project_files.read_lines(root, path), 1):
            if is_sleep(path, line):
                found.append(f"{path}:{number}: a bare sleep: {line.strip()}")
    return found


if __name__ == "__main__":
    project_files.report(problems(pathlib.Path(sys.argv[1])))
