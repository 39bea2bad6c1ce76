"""Shell scripts parse and please shellcheck. check_shell.py ROOT"""

import pathlib
import subprocess
import sys

import project_files


def is_script(root, path):
    if path.suffix in {".sh", ".bash"}:
        return True
    lines = project_files.read_lines(root, path)
    return bool(lines) and lines[0].startswith("#!") and lines[0].endswith("sh")


def problems(root):
    scripts = [str(path) for path in project_files.list_files(root) if is_script(root, path)]
    if not scripts:
        return ["no shell scripts"]
    commands = [["bash", "-n", script] for script in scripts]
    # SC2119 takes optional arguments for forgotten ones.
    commands.append(["shellcheck", "--exclude=SC2119", "--external-sources", "--source-path=SCRIPTDIR", *scripts])
    runs = [subprocess.run(command, cwd=root, capture_output=True, text=True, check=False) for command in commands]
    return [run.stdout + run.stderr for run in runs if run.returncode != 0]


if __name__ == "__main__":
    project_files.report(problems(pathlib.Path(sys.argv[1])))
