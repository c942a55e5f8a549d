"""Builds help documents: a tree of help nodes, the formulas they name, the pictures they show."""

import base64
import textwrap

TITLE_BOLD, TITLE_ITALIC, TITLE_UNDERLINED = 1, 2, 4
ANSWER_BOLD, ANSWER_ITALIC, ANSWER_UNDERLINED = 8, 16, 32

HEADING = "#1F4E79"
QUIET = "#5C6670"
WARNING = "#B00020"


class Node:
    """A help node; the name is the one that the user sees."""

    def __init__(self, name, value="", *children, **attributes):
        self.name, self.value = name, value
        self.children, self.attributes = list(children), attributes

    def count(self):
        return 1 + sum(child.count() for child in self.children)


def section(name, *children, **attributes):
    """A heading over the nodes below it."""
    look = {"titlecolor": HEADING, "titlefontsize": "1", "style": str(TITLE_BOLD),
            "spacebefore": "1"}
    return Node(name, "", *children, **{**look, **attributes})


def remark(name, value, **attributes):
    """A text over the whole width, without its heading."""
    return Node(name, value, titlehidden="1", **attributes)


def cabinet_data():
    """What the host fills in: the page's heading, and the type below it."""
    return Node("cabinetdata", "",
                Node("Code", "`code`", titlehidden="1", answerhidden="1"),
                remark("Type", "`type`", answercolor=QUIET, answerfontsize="1",
                       style=str(ANSWER_ITALIC)),
                titlehidden="1", answerhidden="1")


class HelpDocument:
    def __init__(self, code, kind):
        self.nodes = [cabinet_data()]
        self.formulas, self.pictures = [], []
        self.location = None
        self.formula("code", code, "Order code of the cabinet")
        self.formula("type", kind, "What kind of cabinet it is")

    def add(self, *nodes):
        self.nodes.extend(nodes)

    def formula(self, name, value, description, standard=True):
        self.formulas.append([("name", name), ("standard", "1" if standard else "0"),
                              ("description", description), ("value", str(value))])

    def picture(self, name, data, width, height, extension="png"):
        self.pictures.append((name, data, width, height, extension))

    def count(self):
        return sum(node.count() for node in self.nodes)

    def xml(self):
        out = ['<?xml version="1.0"?>', "<cabinetinfo>", "  <cabinet>"]
        for node in self.nodes:
            _write_node(out, node, "    ")
        out.append("  </cabinet>")
        for formula in self.formulas:
            out.append(f"  <formula{_attributes(formula)}/>")
        for name, data, width, height, extension in self.pictures:
            kept = [("xmlns:dt", "urn:schemas-microsoft-com:datatypes"), ("dt:dt", "bin.base64"),
                    ("extension", extension), ("name", name), ("width", str(width)),
                    ("height", str(height))]
            lines = textwrap.wrap(base64.b64encode(data).decode("ascii"), 96)
            out.append(f"  <image{_attributes(kept)}>" + "\n".join(lines) + "</image>")
        if self.location is not None:
            out.append(f"  <location{_attributes([('value', self.location)])}/>")
        out.append("</cabinetinfo>")
        return "\n".join(out) + "\n"


def _write_node(out, node, indent):
    element = node.name.replace(" ", "_")
    kept = ([("value", node.value)] if node.value else []) + list(node.attributes.items())
    start = f"{indent}<{element}{_attributes(kept)}"
    if not node.children:
        out.append(start + "/>")
        return
    out.append(start + ">")
    for child in node.children:
        _write_node(out, child, indent + "  ")
    out.append(f"{indent}</{element}>")


def _attributes(pairs):
    return "".join(f' {name}="{_escaped(text)}"' for name, text in pairs)


def _escaped(text):
    for character, reference in (("&", "&amp;"), ("<", "&lt;"), (">", "&gt;"), ('"', "&quot;"),
                                 ("\n", "&#10;")):
        text = text.replace(character, reference)
    return text
