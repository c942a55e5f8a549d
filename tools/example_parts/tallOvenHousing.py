"""A tall oven housing: opens at a node deep in the tree, which the location names."""

from . import details, drawings
from .helpDocument import (ANSWER_BOLD, QUIET, TITLE_BOLD, WARNING, HelpDocument, Node, remark,
                           section)


def document():
    doc = HelpDocument("T60-OVN", "Tall housing for an oven at eye level")
    doc.formula("width", 600, "Outer width in millimetres")
    doc.formula("height", 2080, "Height of the carcase in millimetres")
    doc.formula("depth", 580, "Depth of the carcase in millimetres")
    doc.formula("plinth height", 100, "Height of the plinth in millimetres")
    doc.formula("total height", 2180, "Height above the floor in millimetres")
    doc.formula("niche", "560 × 595 × 550 mm", "Width, height and depth of the oven's niche")
    doc.formula("air gap", 40, "Free depth behind the oven in millimetres")
    doc.formula("air opening", 200, "Free cross-section of each opening in square centimetres")
    doc.formula("oven level", 962, "Height of the oven's bottom above the floor in millimetres")
    doc.formula("oven power", "3.6", "Connected load of the oven in kilowatts")
    fronts = [("flap", 400), ("oven", 600), ("vent", 60), ("drawer", 300), ("doors", 720)]
    doc.picture("front", drawings.elevation(600, 2080, fronts, size=(210, 380)), 210, 380)
    doc.picture("air", drawings.air_section(), 240, 300)
    doc.picture("plan", drawings.plan(600, 580, "right"), 230, 230)
    doc.picture("runner", details.runner(), 240, 110)
    doc.picture("handle", details.handle("bar"), 150, 70)
    doc.picture("graphite", details.swatch("plain", "#5A6067", "#42474D", 41), 96, 64, "jpg")
    doc.picture("ash", details.swatch("wood", "#C9B594", "#E9DCC2", 42), 96, 64, "jpg")
    doc.add(_overview(), _dimensions(), _ventilation(), _electricity(), _finish())
    doc.location = "cabinet=>Ventilation=>Air gap at the back"
    return doc.xml()


def _overview():
    return section(
        "Overview",
        remark("Introduction",
               "The oven sits at eye level, with a drawer for trays below it and storage above "
               "and beneath. Only the oven itself is not part of the delivery."),
        Node("Front view", "`~front`"),
        Node("From top to bottom", "Lift-up flap\nOven niche\nAir grille\nDrawer, 300 mm\n"
                                   "Two doors with one shelf behind them"),
        spacebefore="0", columnbreak="1")


def _dimensions():
    return section(
        "Dimensions",
        Node("Outside", "`width` × `height` × `depth` mm\n`total height` mm above the floor with a "
                        "plinth of `plinth height` mm"),
        Node("Oven niche", "`niche`", style=str(ANSWER_BOLD)),
        Node("Oven level", "`oven level` mm above the floor"),
        Node("Room to tip it up", "The unit is tilted into its place: the ceiling must be at least "
                                  "2,270 mm high."),
        Node("Room in front", "`~plan`"),
        spacebefore="0")


def _ventilation():
    return section(
        "Ventilation",
        remark("Why", "An oven without enough air switches itself off. The housing leads cool air "
                      "from the plinth up behind the oven and out at the top."),
        Node("Air flow", "`~air`"),
        Node("Air gap at the back", "`air gap` mm, kept free by the shortened shelves. Do not put "
                                    "cables into it in loops."),
        Node("Openings", "`air opening` cm² each, in the plinth and above the flap",
             Node("Plinth grille", "Part of the delivery; the arrows point outwards."),
             Node("Top outlet", "Leave the gap to the ceiling open, or cut an opening into the "
                                "cover strip.")),
        columnbreak="1")


def _electricity():
    return section(
        "Electricity",
        Node("Only by a qualified person", "The oven's connection is work for an electrician.",
             titlecolor=WARNING, answercolor=WARNING, style=str(TITLE_BOLD)),
        Node("Power", "`oven power` kW on a circuit of its own"),
        Node("Socket", "Beside the niche, never behind the oven: 180 to 400 mm above the floor, "
                       "reachable through the left door"),
        spacebefore="0")


def _finish():
    return section(
        "Equipment and finish",
        Node("Drawer", "Full extension, soft closing\n`~runner`"),
        Node("Flap", "Stays open at every angle from 30° to 90°; the force is set with a "
                     "screwdriver."),
        Node("Handles", "`~handle`"),
        Node("Fronts", "Lacquer, graphite\n`~graphite`"),
        Node("Carcase", "Décor ash\n`~ash`"),
        remark("Note", "The drawing shows doors hung on both sides.", answercolor=QUIET,
               answerfontsize="-1"))
