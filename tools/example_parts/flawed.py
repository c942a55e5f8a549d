"""Documents with flaws, each in a node that is named after its flaw."""

from . import details
from .helpDocument import HelpDocument, Node, section

TEXT_LIMIT = 32767


def document():
    """Flaws that the page shows, or hides."""
    doc = HelpDocument("FLAWED", "A cabinet whose help needs work")
    doc.formula("width", 600, "Outer width in millimetres")
    doc.picture("knob", details.handle("knob"), 150, 70)
    doc.picture("never shown", details.handle("bar"), 150, 70)
    doc.picture("no data", b"", 150, 70)
    doc.add(
        section("Tokens",
                Node("A good one", "`width` mm\n`~knob`"),
                Node("Unknown formula", "The unit is `hight` mm high."),
                Node("Unknown picture", "`~knobs`"),
                Node("Unknown overlay", "`!hinge side`"),
                Node("Odd backquote", "A width of `width` mm and a depth of `560 mm"),
                Node("Picture without data", "`~no data`")),
        section("Attributes",
                Node("Colour", "A colour by its name", titlecolor="red"),
                Node("Size", "A size in words", titlefontsize="big"),
                Node("Style", "A style in words", style="bold"),
                Node("Gap", "A gap in words", spacebefore="two"),
                Node("Flag", "Neither yes nor no", titlehidden="true")),
        section("Names",
                Node("Twin", "The first of two nodes of one name beside each other"),
                Node("Twin", "The second one, which no key reaches")))
    return doc.xml()


def without_page():
    """Flaws that stop the page from being written."""
    doc = HelpDocument("NO-PAGE", "A cabinet without a page")
    sentence = "This answer is longer than any text may be. "
    doc.add(Node("Foreign character", "Diameter 35 mm → depth 12 mm, tolerance ≤ 0.2 mm"),
            Node("Too long", sentence * (TEXT_LIMIT // len(sentence) + 1)))
    return doc.xml()
