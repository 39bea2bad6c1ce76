"""The programs named as arguments are linked without Qt."""

import re
import subprocess
import sys

import project_files

QT_LIBRARY = re.compile(r"\(NEEDED\).*\[(libQt[^\]]*)\]")


def problems(programs):
    found = []
    for program in programs:
        headers = subprocess.run(["readelf", "--dynamic", program], check=True, capture_output=True, text=True).stdout
        if "(NEEDED)" not in headers:
            found.append(f"{program}: no dynamic section to look at")
        found += [f"{program}: links {library}" for library in QT_LIBRARY.findall(headers)]
    return found


if __name__ == "__main__":
    project_files.report(problems(sys.argv[1:]) if len(sys.argv) > 1 else ["no programs given"])
