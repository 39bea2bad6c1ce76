"""The project's own text files, as every check sees them: what git tracks, and what is new and not ignored."""

import pathlib
import subprocess
import sys


def list_files(root, *suffixes):
    """Paths below root, relative to it and sorted; all of them when no suffix is given."""
    listed = subprocess.run(
        ["git", "-C", str(root), "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
        check=True, capture_output=True).stdout.decode()
    paths = sorted({pathlib.PurePosixPath(name) for name in listed.split("\0") if name})
    return [path for path in paths
            if (not suffixes or path.suffix in suffixes) and (root / path).is_file()]


def read_lines(root, path):
    """The lines of a text file; none for a binary one."""
    data = (root / path).read_bytes()
    return [] if b"\0" in data else data.decode(errors="replace").splitlines()


def report(problems):
    """Prints the problems as they come and ends the process: status 0 when there are none, else 1."""
    count = 0
    for count, problem in enumerate(problems, 1):
        print(problem, flush=True)
    if count:
        print(f"{count} problem(s)")
    sys.exit(1 if count else 0)
