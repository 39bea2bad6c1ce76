"""Every engine header compiles by itself.

check_headers.py ROOT BUILD [CMAKE]: builds the header checks that CMake made for the rooms, and makes sure that no
header was left out.
"""

import pathlib
import subprocess
import sys

import project_files

TARGET = "all_verify_interface_header_sets"


def engine_headers(root):
    """Headers that lie right in a room's folder, relative to src/."""
    return [path.relative_to("src") for path in project_files.list_files(root, ".h")
            if path.parts[0] == "src" and len(path.parts) == 3]


def problems(root, build, cmake="cmake"):
    run = subprocess.run([cmake, "--build", str(build), "--target", TARGET, "--", "-k", "0"],
                         capture_output=True, text=True, check=False)
    if run.returncode != 0:
        return [run.stdout + run.stderr]
    checked = {str(path) for path in build.rglob("*_verify_interface_header_sets.dir/**/*.o")}
    return [f"src/{header}: no check was built for it" for header in engine_headers(root)
            if not any(path.endswith(f"_verify_interface_header_sets/{header}.cxx.o") for path in checked)]


if __name__ == "__main__":
    project_files.report(problems(pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2]), *sys.argv[3:4]))
