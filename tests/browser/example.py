"""An example document, and what a reader has to see of it; derived from the XML alone."""

import pathlib
import re
import xml.etree.ElementTree as ElementTree
from html.parser import HTMLParser

EXAMPLES = pathlib.Path(__file__).resolve().parent.parent.parent / "examples"
GENERATED = "generated_cabinet_picture"


def names():
    """The documents that are without flaws."""
    return sorted(file.stem for file in EXAMPLES.glob("*.xml") if file.stem != "flawed")


def squeezed(text):
    """Without white space, which pages lay out as they like."""
    return re.sub(r"\s+", "", text)


class _Text(HTMLParser):
    def __init__(self):
        super().__init__()
        self.pieces = []

    def handle_data(self, data):
        self.pieces.append(data)


def text_of(html):
    parser = _Text()
    parser.feed(html)
    parser.close()
    return squeezed("".join(parser.pieces))


class Row:
    """One row of the page: a help node's, or an empty one of a gap."""

    def __init__(self, page, column, node=None):
        self.page, self.column, self.node = page, column, node

    def is_gap(self):
        return self.node is None

    def attribute(self, name, default):
        return self.node.get(name, default)

    def title(self):
        if self.attribute("titlehidden", "0") == "1":
            return None
        return self.node.tag.replace("_", " ")

    def answer(self):
        """The answer as it is written, or nothing where the row has no cell for it."""
        if self.attribute("answerhidden", "0") == "1":
            return None
        value = self.attribute("value", "")
        return value if value or self.title() is None else None

    def style(self, which):
        """Colour, relative size, bold, italic and underlined of "title" or "answer"."""
        bits = int(self.attribute("style", "0")) >> (0 if which == "title" else 3)
        return {"color": self.attribute(which + "color", "#000000").lower(),
                "size": int(self.attribute(which + "fontsize", "0")),
                "bold": bool(bits & 1), "italic": bool(bits & 2), "underlined": bool(bits & 4)}


class Example:
    def __init__(self, name):
        self.name = name
        self.path = EXAMPLES / f"{name}.xml"
        self.root = ElementTree.parse(self.path).getroot()
        self.cabinet = self.root.find("cabinet")
        self.formulas = [(formula.get("name"), formula.get("value"))
                         for formula in self.root.iter("formula")]
        self.pictures = {picture.get("name"): picture for picture in self.root.iter("image")}
        self.rows = []
        self._page = self._column = 0
        self._walk(self.cabinet, outermost=True)

    def _walk(self, node, outermost=False):
        self._gaps(node, "spacebefore")
        if not outermost:
            row = Row(self._page, self._column, node)
            if row.title() is not None or row.answer() is not None:
                self.rows.append(row)
        for child in node:
            self._walk(child)
        self._gaps(node, "spaceafter")
        if node.get("columnbreak") == "1":
            self._column += 1
        if node.get("pagebreak") == "1":
            self._page, self._column = self._page + 1, 0

    def _gaps(self, node, attribute):
        for _ in range(int(node.get(attribute, "0"))):
            self.rows.append(Row(self._page, self._column))

    def pages(self):
        return self._page + 1

    def code(self):
        """The page's heading, formulas filled in."""
        return next(self.filled(node.get("value")) for node in self.cabinet.iter()
                    if node.tag.replace("_", " ").lower() == "code" and node.get("value"))

    def filled(self, text):
        for name, value in self.formulas:
            text = text.replace(f"`{name}`", value)
        return text

    def shown(self, text):
        """What can be read of an answer once formulas are filled in and pictures stand there."""
        return text_of(re.sub("`[~!@][^`]*`", "", self.filled(text)))

    def tokens(self, text, kinds):
        """Pictures of these kinds in the order in which they stand: (kind, name) pairs."""
        return re.findall(f"`([{kinds}])([^`]*)`", self.filled(text))

    def file(self, name):
        """The name of a picture's file."""
        extension = "png" if name == GENERATED else self.pictures[name].get("extension")
        return f"{name}.{extension}"

    def overlay_size(self):
        """Width and height of the picture that lies below every overlay."""
        generated = self.pictures.get(GENERATED)
        if generated is None:
            return (256, 256)
        return (int(generated.get("width")), int(generated.get("height")))
