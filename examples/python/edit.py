#!/usr/bin/python3
"""A host in Python: edits the help of a door and shows its page.

    python3 examples/python/edit.py DOCUMENT
"""

import sys
import xml.etree.ElementTree as ET
from pathlib import Path

import tavisk

# What a real host computes from the item's construction.
VALUES = {"code": "D45", "type": "Door", "width": "450", "height": "720"}


def with_values(document: str) -> str:
    """The document with the present value of every formula."""
    ET.register_namespace("dt", "urn:schemas-microsoft-com:datatypes")
    parser = ET.XMLParser(target=ET.TreeBuilder(insert_comments=True, insert_pis=True))
    root = ET.fromstring(document, parser)
    for formula in root.findall("formula"):
        name = formula.get("name", "")
        if name.startswith("@"):  # the path of a picture, which a value would hide
            root.remove(formula)
        else:
            formula.set("value", VALUES.get(name, "?"))
    return ET.tostring(root, encoding="unicode")


def wants_refresh(document: str) -> bool:
    """Whether the editor was left by "Refresh Formula Values"."""
    return ET.fromstring(document).find("location") is not None


def main() -> int:
    file = Path(sys.argv[1])
    document = file.read_text(encoding="utf-8")
    try:
        # As long as the user refreshes, compute the values and open the editor at the same place.
        document = tavisk.edit_xml(with_values(document))
        while wants_refresh(document):
            document = tavisk.edit_xml(with_values(document))
        file.write_text(document, encoding="utf-8")
        tavisk.preview_xml(with_values(document), evaluate=True)
    except tavisk.Error as error:
        print(f"{file}: {error}", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
