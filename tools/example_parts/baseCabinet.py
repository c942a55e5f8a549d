"""A base unit: two columns, pictures, overlays and formulas."""

from . import cabinetPicture, details, drawings
from .helpDocument import ANSWER_BOLD, QUIET, WARNING, HelpDocument, Node, remark, section


def document():
    doc = HelpDocument("B60-1D1S", "Base unit with one drawer and one door")
    _formulas(doc)
    _pictures(doc)
    doc.add(_about(), _dimensions(), _materials(), _hardware(), _fitting())
    return doc.xml()


def _formulas(doc):
    # The size is written with the other formulas, which the catalogue expands after it.
    doc.formula("size", "`width` × `height` × `depth` mm", "Width, height and depth in one line")
    doc.formula("width", 600, "Outer width in millimetres")
    doc.formula("height", 720, "Height of the carcase in millimetres")
    doc.formula("depth", 560, "Depth of the carcase in millimetres")
    doc.formula("plinth height", 100, "Height of the plinth in millimetres")
    doc.formula("worktop thickness", 38, "Thickness of the worktop in millimetres")
    doc.formula("total height", 858, "Height of the worktop's surface above the floor")
    doc.formula("shelves", 1, "Number of adjustable shelves")
    doc.formula("max load", 15, "Load of a shelf in kilograms")
    doc.formula("door hand", "left", "Side on which the door has its hinges")
    doc.formula("opening angle", 110, "Opening angle of the door in degrees", standard=False)


def _pictures(doc):
    front = drawings.elevation(600, 720, [("drawer", 140), ("door left", 580)], 100, 38)
    doc.picture("front", front, 260, 250)
    doc.picture("section", drawings.section(560, 720, 100, 38), 220, 250)
    doc.picture("hinge", details.hinge(), 200, 130)
    doc.picture("runner", details.runner(), 240, 110)
    doc.picture("handle", details.handle("bar"), 150, 70)
    doc.picture("oak", details.swatch("wood", "#A9773F", "#DDB47E", 11), 96, 64, "jpg")
    doc.picture("sage", details.swatch("plain", "#C3D2CA", "#A9BDB4", 12), 96, 64, "jpg")
    doc.picture("white", details.swatch("plain", "#FBFAF7", "#EAE7E0", 13), 96, 64, "jpg")
    for name, layer in (("measuring points", cabinetPicture.measure_layer()),
                        ("hinge side", cabinetPicture.hinge_layer()),
                        ("pipe zone", cabinetPicture.service_layer())):
        doc.picture(name, layer, 256, 256)


def _about():
    return section(
        "About this unit",
        remark("Introduction",
               "A full-depth base unit for pots, dishes and supplies. The drawer keeps cutlery at "
               "hand; behind the door there is room for tall pots, with `shelves` adjustable shelf "
               "in between."),
        Node("Front view", "`~front`"),
        Node("Goes with", "All worktops from 30 to 60 mm, plinths from 80 to 150 mm, and end "
                          "panels of the same height."),
        spacebefore="0")


def _dimensions():
    return section(
        "Dimensions",
        Node("Size", "`size`", style=str(ANSWER_BOLD)),
        Node("Width", "`width` mm, outside to outside"),
        Node("Height", "`height` mm without plinth and worktop\n"
                       "`total height` mm with a plinth of `plinth height` mm and a worktop of "
                       "`worktop thickness` mm"),
        Node("Depth", "`depth` mm without the door, 582 mm with it"),
        Node("Cross-section", "`~section`"),
        Node("Where to measure",
             "Width and height are taken at the front edge, depth along the side."
             "`!measuring points`"
             "Allow ±1 mm for each unit in a row, and add a filler of 20 mm at a wall that is not "
             "straight."),
        columnbreak="1")


def _materials():
    return section(
        "Materials",
        Node("Carcase", "Particle board, 18 mm, melamine both sides, white\n`~white`"),
        Node("Fronts", "Lacquered MDF, 19 mm, satin, colour sage\n`~sage`"),
        Node("Worktop", "Solid oak, 38 mm, oiled\n`~oak`"),
        Node("Back panel", "Hardboard, 8 mm, in a groove, set back 20 mm for pipes"),
        spacebefore="0")


def _hardware():
    return section(
        "Hardware",
        Node("Hinges", "Two cup hinges with soft closing, opening angle `opening angle`°\n"
                       "`~hinge`"),
        Node("Runners", "Full extension, 500 mm, up to 40 kg, soft closing\n`~runner`"),
        Node("Handles", "Two bars of brushed steel, hole spacing 160 mm\n`~handle`"),
        Node("Door side",
             "The door is hung on the `door hand`."
             "`!hinge side`"
             "To change it, move the mounting plates to the other side panel; the holes are "
             "drilled on both sides."))


def _fitting():
    return section(
        "Fitting",
        Node("Legs", "Screw in the four legs and set them roughly to `plinth height` mm before "
                     "the unit stands in its place."),
        Node("Pipes and sockets",
             "Keep pipes and sockets within the marked field of the back panel."
             "`!pipe zone`"
             "Cut the back panel with a hole saw, never with the unit in place."),
        Node("Load", "At most `max load` kg on a shelf, spread evenly",
             titlecolor=WARNING, answercolor=WARNING),
        remark("Version", "Drawings are not to be scaled.", answercolor=QUIET,
               answerfontsize="-1", spacebefore="1"))
