#!/usr/bin/python3
"""Makes assets/cabinet.png and the documents in examples/. The same bytes come out every time.

With --check nothing is written: the exit status is 1 if a file in the tree differs.
"""

import argparse
import pathlib
import sys

sys.dont_write_bytecode = True

try:
    from example_parts import (baseCabinet, cabinetPicture, cornerUnit, flawed, productLine,
                               tallOvenHousing, wallCabinet)
except ImportError as error:
    sys.exit(f"{sys.executable} cannot draw ({error}): apt-get install python3-pil")

ROOT = pathlib.Path(__file__).resolve().parent.parent

DOCUMENTS = {
    "base-cabinet": baseCabinet.document,
    "wall-cabinet": wallCabinet.document,
    "corner-unit": cornerUnit.document,
    "tall-oven-housing": tallOvenHousing.document,
    "product-line": productLine.document,
    "flawed": flawed.document,
    "flawed/no-page": flawed.without_page,
}


def made():
    """The files by their path in the tree."""
    yield "assets/cabinet.png", cabinetPicture.cabinet()
    for name, document in DOCUMENTS.items():
        yield f"examples/{name}.xml", document().encode("utf-8")


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--check", action="store_true",
                        help="write nothing; exit with 1 if a file in the tree differs")
    check = parser.parse_args().check
    differing = []
    for path, content in made():
        file = ROOT / path
        if file.exists() and file.read_bytes() == content:
            continue
        differing.append(path)
        if not check:
            file.parent.mkdir(exist_ok=True)
            file.write_bytes(content)
    for path in differing:
        print(f"{path} {'differs from what this tool makes' if check else 'written'}")
    return 1 if check and differing else 0


if __name__ == "__main__":
    sys.exit(main())
