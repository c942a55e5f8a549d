#!/usr/bin/python3
"""Makes the package for Windows; the same files give the same bytes.

    package.py ZIP --build FOLDER --libraries FOLDER
"""

import argparse
import sys
import zipfile
from pathlib import Path

SOURCE = Path(__file__).resolve().parents[2]
DOCUMENTS = Path("/usr/share/doc")
# Linked in whenever this compiler links.
COMPILER_LICENCES = {"gcc-runtime.txt": "gcc-mingw-w64-base", "mingw-w64.txt": "mingw-w64-common"}
LINKED_IN = ["libjpeg-turbo.txt", "libpng1.6.txt", "libxml2.txt", "wxwidgets3.2.txt", "zlib.txt"]
LONG_AGO = (2026, 1, 1, 0, 0, 0)


def with_line_ends(text):
    return text.replace("\r\n", "\n").replace("\n", "\r\n").encode()


def licences(libraries):
    yield "Tavisk.txt", SOURCE / "LICENSE"
    for name in LINKED_IN:
        yield name, libraries / "licences" / name
    for name, package in COMPILER_LICENCES.items():
        yield name, DOCUMENTS / package / "copyright"


def contents(build, libraries):
    """The files' names and bytes."""
    for name in ("Tavisk.dll", "Tavisk.X.manifest"):
        yield name, (build / name).read_bytes()
    yield "Tavisk.tlb", (build / "described" / "Tavisk.tlb").read_bytes()
    for name in ("cabinet.png", "style.css"):
        yield name, (SOURCE / "assets" / name).read_bytes()
    for name in ("install.cmd", "uninstall.cmd", "README.txt"):
        yield name, (build / "package" / name).read_bytes()
    examples = SOURCE / "examples"
    for example in (examples / "door.xml", *sorted((examples / "windows").iterdir())):
        yield f"examples/{example.name}", with_line_ends(example.read_text(encoding="utf-8"))
    for name, file in licences(libraries):
        yield f"licences/{name}", with_line_ends(file.read_text(encoding="utf-8"))


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    parser.add_argument("zip", type=Path)
    parser.add_argument("--build", type=Path, required=True)
    parser.add_argument("--libraries", type=Path, required=True)
    arguments = parser.parse_args()
    files = sorted(contents(arguments.build, arguments.libraries))
    with zipfile.ZipFile(arguments.zip, "w", zipfile.ZIP_DEFLATED, compresslevel=9) as package:
        for name, data in files:
            entry = zipfile.ZipInfo(f"{arguments.zip.stem}/{name}", LONG_AGO)
            entry.compress_type = zipfile.ZIP_DEFLATED
            entry.external_attr = 0o644 << 16
            package.writestr(entry, data)
    print(f"{arguments.zip}: {arguments.zip.stat().st_size} bytes, {len(files)} files")
    return 0


if __name__ == "__main__":
    sys.exit(main())
