#!/usr/bin/python3
"""Checks that every file of src/ knows only what stands on a lower floor, as docs/architecture.md
draws it, and that the command is linked with nothing beyond libxml2 and the standard library.

    checkLayers.py [ROOT] [--program FILE]

Prints one line per violation; exit 1 when there is one.
"""

import argparse
import re
import subprocess
import sys
from collections import defaultdict
from pathlib import Path

ROOT = Path(__file__).resolve().parents[1]
PLAN = Path("docs/architecture.md")
XML_FILE = Path("xml/xmlReader.cpp")
WINDOW_FOLDER = "ui"
# The command's own process; everything else runs in that of somebody else.
PROGRAM_FOLDER = "command"
# What the command does without, though it is on a lower floor: editing is left to the component.
EDITING_FOLDER = "editor"
LIBRARIES = {"libxml2", "libstdc++", "libm", "libgcc_s", "libc", "ld-linux-x86-64", "ld-linux-aarch64"}
SANITIZER_LIBRARIES = {"libasan", "libubsan"}

# | 3 | `document/` | ...
ROW = re.compile(r"^\| (\d+)(?:\.(\d+))? \| `([\w/]+)/` \|", re.MULTILINE)
INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*(?:"([^"]*)"|<([^>]*)>)', re.MULTILINE)
COMMENT_OR_STRING = re.compile(r'//[^\n]*|/\*.*?\*/|"(?:\\.|[^"\\\n])*"', re.DOTALL)
END_OF_PROCESS = re.compile(r"(?<![\w.>])(?:exit|_exit|quick_exit|abort|terminate)[ \t]*\(")
SYSTEM = re.compile(r"_(linux|windows)$")
TOOLKIT = re.compile(r"_(gtk|msw)$")


def floors(root):
    """The plan: a folder of src/ to its floor and its step on that, 0 where the floor has none."""
    text = (root / PLAN).read_text(encoding="utf-8")
    return {Path(folder): (int(floor), int(step or 0)) for floor, step, folder in ROW.findall(text)}


def may_know(folder, other, plan):
    """A lower floor; on its own floor only itself and the lower steps of the same top folder. Nobody
    knows the command, and that does not know the editor."""
    if folder == other:
        return True
    if other.parts[0] == PROGRAM_FOLDER:
        return False
    if folder.parts[0] == PROGRAM_FOLDER and other.parts[0] == EDITING_FOLDER:
        return False
    if folder.parts[0] == other.parts[0]:
        return plan[other] < plan[folder]
    return plan[other][0] < plan[folder][0]


def unit(file):
    """A source is one with its header and with its twins for other systems."""
    return TOOLKIT.sub("", SYSTEM.sub("", file.with_suffix("").as_posix()))


def include_error(file, included, files, plan):
    """Why the file may not include this header of the project, or None."""
    if included not in files:
        return "is no file of src/"
    if included.parent not in plan:
        return None  # said of that file itself
    if not may_know(file.parent, included.parent, plan):
        return f"{file.parent} must not know {included.parent}"
    return None


def file_violations(file, text, files, plan):
    for own, foreign in INCLUDE.findall(text):
        if own:
            if reason := include_error(file, Path(own), files, plan):
                yield f'{file}: "{own}": {reason}'
        elif foreign.startswith("libxml/") and file != XML_FILE:
            yield f"{file}: <{foreign}>: only {XML_FILE} knows libxml2"
        elif foreign.startswith("wx/") and file.parts[0] != WINDOW_FOLDER:
            yield f"{file}: <{foreign}>: only {WINDOW_FOLDER} knows wxWidgets"
    in_windows = file.parts[0] == WINDOW_FOLDER
    if (SYSTEM if in_windows else TOOLKIT).search(file.stem):
        yield (f"{file}: is named after a {'system' if in_windows else 'toolkit'}; {WINDOW_FOLDER} has "
               "twins per toolkit, every other folder per system")
    if file.parts[0] != PROGRAM_FOLDER:
        for call in END_OF_PROCESS.findall(COMMENT_OR_STRING.sub("", text)):
            yield f"{file}: {call}: a library never ends its host's process"


def circle(edges):
    """Units that include each other in turn, the first one again at the end, or None."""
    done = set()

    def search(path):
        for other in sorted(edges[path[-1]]):
            if other in path:
                return path[path.index(other):] + [other]
            if other not in done and (found := search(path + [other])):
                return found
        done.add(path[-1])
        return None

    for start in sorted(edges):
        if start not in done and (found := search([start])):
            return found
    return None


def plan_violations(files, plan):
    folders = {file.parent for file in files}
    for folder in sorted(folders - plan.keys()):
        yield f"{folder}: has no floor in {PLAN}"
    for folder in sorted(plan.keys() - folders):
        yield f"{PLAN}: {folder}: is no folder with sources"


def violations(root):
    plan = floors(root)
    src = root / "src"
    texts = {path.relative_to(src): path.read_text(encoding="utf-8")
             for path in sorted(src.rglob("*")) if path.suffix in (".h", ".cpp")}
    yield from plan_violations(texts.keys(), plan)

    edges = defaultdict(set)
    for file, text in texts.items():
        if file.parent in plan:
            yield from file_violations(file, text, texts.keys(), plan)
        for own, _ in INCLUDE.findall(text):
            if own and unit(Path(own)) != unit(file):
                edges[unit(file)].add(unit(Path(own)))
    if found := circle(edges):
        yield f"{' -> '.join(found)}: a circle"

    named = defaultdict(list)
    headers = (path.relative_to(root) for path in sorted((root / "include").rglob("*.h")))
    for path in [*(Path("src") / file for file in texts), *headers]:
        named[path.name.lower()].append(path.as_posix())
    for paths in named.values():
        if len(paths) > 1:
            yield f"{', '.join(paths)}: one name"


def foreign_libraries(program):
    dynamic = subprocess.run(["readelf", "-d", program], check=True, capture_output=True,
                             text=True).stdout
    for name in re.findall(r"\(NEEDED\).*\[(.*?)\]", dynamic):
        if name.split(".so")[0] not in LIBRARIES | SANITIZER_LIBRARIES:
            yield f"{program}: needs {name}"


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    parser.add_argument("root", type=Path, nargs="?", default=ROOT)
    parser.add_argument("--program", type=Path)
    arguments = parser.parse_args()
    found = list(violations(arguments.root))
    if arguments.program:
        found += foreign_libraries(arguments.program)
    for line in found:
        print(line)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
