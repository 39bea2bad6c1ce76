"""C++ files stand as clang-format leaves them. check_format.py ROOT"""

import pathlib
import subprocess
import sys

import project_files


def problems(root):
    files = [str(path) for path in project_files.list_files(root, ".h", ".cpp")]
    if not files:
        return ["no C++ files"]
    run = subprocess.run(["clang-format", "--dry-run", "--Werror", *files],
                         cwd=root, capture_output=True, text=True, check=False)
    return [run.stdout + run.stderr] if run.returncode != 0 else []


if __name__ == "__main__":
    project_files.report(problems(pathlib.Path(sys.argv[1])))
