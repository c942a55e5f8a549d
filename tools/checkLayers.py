#!/usr/bin/python3
"""Checks that every file of src/ knows only what its layer may know, and that the command is linked
with nothing beyond libxml2 and the standard library.

    checkLayers.py SRC [--program FILE]

Prints one line per violation; exit 1 when there is one.
"""

import argparse
import re
import subprocess
import sys
from pathlib import Path

# A folder includes itself and the folders before it.
LAYERS = ["platform", "document", "formulas", "render", "editor", "component", "host"]
XML_FILE = Path("platform/xmlReader.cpp")
# Brings windows and logic together, without a widget of its own.
COMPONENT_LAYER = "component"
# The command's own process; everything else runs in that of somebody else.
PROGRAM_LAYER = "host"
LIBRARIES = {"libxml2", "libstdc++", "libm", "libgcc_s", "libc", "ld-linux-x86-64", "ld-linux-aarch64"}
SANITIZER_LIBRARIES = {"libasan", "libubsan"}

INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*(?:"([^"]*)"|<([^>]*)>)', re.MULTILINE)
COMMENT_OR_STRING = re.compile(r'//[^\n]*|/\*.*?\*/|"(?:\\.|[^"\\\n])*"', re.DOTALL)
END_OF_PROCESS = re.compile(r"(?<![\w.>])(?:exit|_exit|quick_exit|abort|terminate)[ \t]*\(")


def own_include_error(file, included, src):
    """Why the file may not include this header of the project, or None."""
    if not (src / included).is_file():
        return "is no file of src/"
    layer = included.parts[0]
    if layer not in LAYERS:
        return "belongs to no layer"
    if LAYERS.index(layer) > LAYERS.index(file.parts[0]):
        return f"{file.parts[0]} must not know {layer}"
    may_know_windows = "wx" in file.parts or file.parts[0] == COMPONENT_LAYER
    if "wx" in included.parts and not may_know_windows:
        return "only a wx folder and the component may know a wx folder"
    if file.parts[0] == PROGRAM_LAYER and included.parts[0] == COMPONENT_LAYER:
        return "the command loads the component at run time"
    return None


def violations(src):
    for path in sorted(p for p in src.rglob("*") if p.suffix in (".h", ".cpp")):
        file = path.relative_to(src)
        if file.parts[0] not in LAYERS:
            yield f"{file}: belongs to no layer"
            continue
        text = path.read_text(encoding="utf-8")
        for own, foreign in INCLUDE.findall(text):
            if own:
                if reason := own_include_error(file, Path(own), src):
                    yield f'{file}: "{own}": {reason}'
            elif foreign.startswith("libxml/") and file != XML_FILE:
                yield f"{file}: <{foreign}>: only {XML_FILE} knows libxml2"
            elif foreign.startswith("wx/") and "wx" not in file.parts:
                yield f"{file}: <{foreign}>: only a wx folder knows wxWidgets"
        if file.parts[0] != PROGRAM_LAYER:
            for call in END_OF_PROCESS.findall(COMMENT_OR_STRING.sub("", text)):
                yield f"{file}: {call}: a library never ends its host's process"


def foreign_libraries(program):
    dynamic = subprocess.run(["readelf", "-d", program], check=True, capture_output=True,
                             text=True).stdout
    for name in re.findall(r"\(NEEDED\).*\[(.*?)\]", dynamic):
        if name.split(".so")[0] not in LIBRARIES | SANITIZER_LIBRARIES:
            yield f"{program}: needs {name}"


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    parser.add_argument("src", type=Path)
    parser.add_argument("--program", type=Path)
    arguments = parser.parse_args()
    found = list(violations(arguments.src))
    if arguments.program:
        found += foreign_libraries(arguments.program)
    for line in found:
        print(line)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
