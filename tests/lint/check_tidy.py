"""clang-tidy has nothing to say about the sources. check_tidy.py ROOT BUILD

What it said nothing about is remembered in the user's cache folder, for all clones and build folders, until the source, a
header it includes, its compile command, .clang-tidy or clang-tidy itself changes.
"""

import concurrent.futures
import hashlib
import json
import os
import pathlib
import shlex
import subprocess
import sys

import project_files

# Fuzz targets are built on demand, with another compiler.
NOT_BUILT = {"fuzz"}


def commands_of(root, build):
    """The project's entries in the compile database, one a source: the plain one where a sanitized twin is built."""
    chosen = {}
    for entry in json.loads((build / "compile_commands.json").read_text()):
        source = pathlib.Path(entry["file"])
        if root not in source.parents or build in source.parents:
            continue
        if source not in chosen or "-fsanitize" in chosen[source]["command"]:
            chosen[source] = entry
    return chosen


def included_files(build):
    """What every object file was made from, as the last build saw it: {object: [paths]}."""
    run = subprocess.run(["ninja", "-C", str(build), "-t", "deps"], capture_output=True, text=True, check=False)
    found, current = {}, []
    for line in run.stdout.splitlines():
        if line.startswith("    "):
            current.append(build / line.strip())
        elif line:
            current = found.setdefault(line.partition(":")[0], [])
    return found


def object_of(command):
    words = shlex.split(command)
    return words[words.index("-o") + 1]


def without_warnings(command):
    """The compiler's own warnings are the build's business, and clang does not know all of them."""
    return shlex.join(word for word in shlex.split(command) if not word.startswith("-W"))


def cache_folder():
    base = os.environ.get("XDG_CACHE_HOME")
    return (pathlib.Path(base) if base else pathlib.Path.home() / ".cache") / "tembrel-lint"


class Tidy:
    def __init__(self, root, build, cache):
        self.root = root
        self.build = build
        self.cache = cache
        self.cache.mkdir(parents=True, exist_ok=True)
        self.folder = build / "lint" / "tidy"
        self.folder.mkdir(parents=True, exist_ok=True)
        self.commands = commands_of(root, build)
        self.included = included_files(build)
        entries = [entry | {"command": without_warnings(entry["command"])} for entry in self.commands.values()]
        (self.folder / "compile_commands.json").write_text(json.dumps(entries))
        version = subprocess.run(["clang-tidy", "--version"], check=True, capture_output=True).stdout
        settings = [path for path in project_files.list_files(root) if path.name == ".clang-tidy"]
        self.common = version + b"".join((root / path).read_bytes() for path in settings)

    def key(self, entry):
        """Names one result; None when it is not known what the source includes."""
        paths = self.included.get(object_of(entry["command"]))
        if not paths:
            return None
        own = [path for path in paths if self.root in path.parents and path.is_file()]
        digest = hashlib.sha256(self.common + self.anywhere(entry["command"]).encode())
        for path in [pathlib.Path(entry["file"]), *sorted(own)]:
            digest.update(self.anywhere(str(path)).encode() + b"\0" + hashlib.sha256(path.read_bytes()).digest())
        return digest.hexdigest()

    def anywhere(self, text):
        """The text with the same words for the project's folders wherever they are."""
        return text.replace(str(self.build), "BUILD").replace(str(self.root), "ROOT")

    def problem(self, source):
        """clang-tidy's words about the source, "" for none."""
        entry = self.commands[source]
        key = self.key(entry)
        remembered = self.cache / f"{key}.clean"
        if key and remembered.exists():
            return ""
        run = subprocess.run(["clang-tidy", "--quiet", "-p", str(self.folder), str(source)],
                             capture_output=True, text=True, check=False)
        if run.returncode != 0:
            return run.stdout + run.stderr
        if key:
            remembered.touch()
        return ""

    def problems(self):
        sources = [self.root / path for path in project_files.list_files(self.root, ".cpp")
                   if path.parts[0] not in NOT_BUILT]
        yield from (f"{source}: not part of the build" for source in sources if source not in self.commands)
        with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
            said = pool.map(self.problem, [source for source in sources if source in self.commands])
            yield from (words for words in said if words)


if __name__ == "__main__":
    folders = [pathlib.Path(name).resolve() for name in sys.argv[1:3]]
    project_files.report(Tidy(*folders, cache_folder()).problems())
