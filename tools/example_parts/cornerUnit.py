"""A corner unit: a deep tree, HTML in the answers and a picture that lies beside the page."""

from . import details, drawings
from .helpDocument import (ANSWER_ITALIC, QUIET, TITLE_BOLD, TITLE_ITALIC, WARNING, HelpDocument,
                           Node, remark, section)


def document():
    doc = HelpDocument("C90-CAR", "Corner unit with carousel")
    doc.formula("leg", 900, "Length of each leg along the wall in millimetres")
    doc.formula("depth", 560, "Depth of each leg in millimetres")
    doc.formula("height", 720, "Height of the carcase in millimetres")
    doc.formula("tray", 710, "Diameter of a tray in millimetres")
    doc.formula("tray load", 25, "Load of a tray in kilograms")
    doc.formula("door", "folding door, hung on the left", "How the unit opens")
    doc.picture("plan", drawings.corner_plan(900, 560), 260, 250)
    doc.picture("blind corner", drawings.corner_plan(1000, 560, blind=True), 260, 250)
    doc.picture("hinge", details.hinge(), 200, 130)
    doc.picture("edge", details.edge_profile(), 200, 90)
    doc.picture("slate", details.swatch("stone", "#4A5056", "#878E95", 31), 96, 64, "jpg")
    doc.picture("walnut", details.swatch("wood", "#5B3A22", "#94663F", 32), 96, 64, "jpg")
    doc.add(_choice(), _carousel(), _worktop(), _family())
    return doc.xml()


def _choice():
    rows = (("Carousel", "C90-CAR", "900 × 900", "every day"),
            ("Blind corner", "C100-BL", "1000 × 560", "now and then"),
            ("Diagonal door", "C90-DG", "900 × 900", "large pots"))
    table = ("<table border=1><tr><th>Unit</th><th>Code</th><th>Space in mm</th><th>Good for</th>"
             "</tr>" + "".join("<tr>" + "".join(f"<td>{cell}</td>" for cell in row) + "</tr>"
                               for row in rows) + "</table>")
    return section(
        "The right corner",
        remark("Introduction",
               "A corner can be used in <b>three ways</b>. This unit brings its contents to you: "
               "two round trays turn with the door."),
        Node("Comparison", table),
        Node("Plan", "`~plan`"),
        Node("In its place", "The unit needs `leg` mm along each wall and joins units of `depth` "
                             "mm depth on both sides. It opens with a `door`."),
        Node("Blind corner instead",
             "Where a drawer next to the corner must open fully, take the blind corner. It needs "
             "<i>1000 mm</i> on one wall and <i>560 mm</i> on the other.\n`~blind corner`"),
        spacebefore="0")


def _carousel():
    """Six levels below one another, each a little quieter than the one above."""
    oil = Node("Oil", "A drop of <u>silicone oil</u> once a year. Mineral oil lets the plastic "
                      "swell.", titlecolor=QUIET, titlefontsize="-2", answerfontsize="-1")
    screw = Node("Grub screw", "M5 × 8, hexagon 2½ mm. Turn it by a quarter turn at a time.", oil,
                 titlecolor=QUIET, titlefontsize="-1")
    height = Node("Height setting",
                  "<ol><li>Empty both trays.</li><li>Loosen the grub screw.</li><li>Turn the ring: "
                  "one turn is 1.5 mm.</li><li>Tighten the grub screw again.</li></ol>", screw,
                  style=str(TITLE_ITALIC))
    upper = Node("Upper bearing", "Snaps into the rail under the top panel.", height)
    lower = Node("Lower bearing", "Stands on the bottom panel in a pressed cup; it carries the "
                                  "whole weight.")
    shaft = Node("Shaft", "Steel tube, 30 mm, chrome-plated", upper, lower, style=str(TITLE_BOLD))
    trays = Node("Trays", "Two trays of `tray` mm with a rim of 50 mm",
                 Node("Load", "`tray load` kg each, spread evenly", titlecolor=WARNING,
                      answercolor=WARNING),
                 Node("Surface", "<table border=0><tr><td>`~slate`</td><td>`~walnut`</td></tr>"
                                 "<tr><td>Slate</td><td>Walnut</td></tr></table>"),
                 style=str(TITLE_BOLD))
    door = Node("Door",
                "<ul><li>Two leaves of 300 mm, joined at a right angle</li><li>Turns into the "
                "unit, so that no corner sticks out</li><li>Stops by itself in its closed place"
                "</li></ul>",
                Node("Door hinge", "`~hinge`"), style=str(TITLE_BOLD))
    return section("Carousel", shaft, trays, door)


def _worktop():
    return section(
        "Worktop",
        Node("Joint", "Cut both worktops at 45° or join them with a mitre at the front edge "
                      "(\"mason's mitre\"). Three fasteners, water-proof glue (D4)."),
        Node("Edge", "`~edge`"),
        Node("Chamfer", "Radius 8 mm at the front, <b>none</b> at the joint. "
                        "1 m<sup>2</sup> of worktop weighs about 27 kg."))


def _family():
    # The folder of the page holds this picture: the path is relative to the page.
    return section(
        "The same fronts elsewhere",
        Node("Base unit", "Fronts and worktop match those of all base units:\n`@cabinet.png`"),
        remark("Enquiries", "Questions? <a href=\"mailto:help@example.org\">help@example.org</a> – "
                            "quote the code <b>`code`</b>.", style=str(ANSWER_ITALIC)))
