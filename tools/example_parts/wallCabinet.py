"""A wall unit: three printed pages, every text style, sizes from small to large, gaps."""

from . import details, drawings
from .helpDocument import (ANSWER_BOLD, ANSWER_ITALIC, ANSWER_UNDERLINED, QUIET, TITLE_BOLD,
                           TITLE_ITALIC, TITLE_UNDERLINED, WARNING, HelpDocument, Node, remark,
                           section)

GREEN = "#2E6B3A"


def document():
    doc = HelpDocument("W90-2G", "Wall unit with two glass doors")
    doc.formula("width", 900, "Outer width in millimetres")
    doc.formula("height", 720, "Outer height in millimetres")
    doc.formula("depth", 350, "Depth of the carcase in millimetres")
    doc.formula("clearance", 500, "Distance between worktop and wall unit in millimetres")
    doc.formula("weight", "31.5", "Weight of the empty unit in kilograms")
    doc.formula("max load", 60, "Load of the whole unit in kilograms")
    doc.formula("glass", "clear float glass, 4 mm, tempered", "Filling of the doors")
    doc.picture("front", drawings.elevation(900, 720, [("glass doors", 720)], plinth=0,
                                             size=(280, 240)), 280, 240)
    doc.picture("section", drawings.section(350, 720, plinth=0, worktop=0, shelves=2,
                                             size=(180, 240)), 180, 240)
    doc.picture("hanger", details.hanger(), 200, 170)
    doc.picture("holes", details.drilling(), 150, 234)
    doc.picture("knob", details.handle("knob"), 150, 70)
    doc.picture("bow handle", details.handle("bow"), 150, 70)
    doc.add(*_first_page(), *_mounting(), *_care())
    return doc.xml()


def _first_page():
    """Two columns; the page ends after the second."""
    return (
        section("The unit",
                remark("Introduction",
                       "A wall unit with framed glass doors for what is meant to be seen. It hangs "
                       "on two adjustable hangers and a steel rail; nothing shows from below.",
                       answerfontsize="1"),
                Node("Front view", "`~front`"),
                Node("Glass", "Doors of `glass`"),
                spacebefore="0", titlefontsize="3", columnbreak="1"),
        section("Sizes",
                Node("Width", "`width` mm"),
                Node("Height", "`height` mm"),
                Node("Depth", "`depth` mm, 372 mm with doors"),
                Node("Above the worktop", "`clearance` mm is usual, 450 mm the least"),
                Node("Weight", "`weight` kg empty"),
                Node("Cross-section", "`~section`"),
                spacebefore="0", titlefontsize="2", pagebreak="1"))


def _mounting():
    warn = {"titlecolor": WARNING, "answercolor": WARNING}
    return (
        section("Mounting",
                Node("Read this first", "Two persons lift the unit. Never hang it by one hanger, "
                                        "not even for a moment.",
                     style=str(TITLE_BOLD | TITLE_UNDERLINED | ANSWER_BOLD), **warn),
                Node("Find the height", "Draw a level line on the wall `clearance` mm above the "
                                        "worktop, then another `height` mm above it.",
                     spacebefore="1"),
                Node("Fix the rail", "Screw the rail to the wall 35 mm below the upper line, with "
                                     "one screw every 300 mm. In a plasterboard wall every screw "
                                     "has to meet a stud."),
                Node("Hang the unit", "Hook both hangers into the rail, then turn the screws:\n"
                                      "A lifts the unit, B pulls it to the wall.\n`~hanger`"),
                Node("Shelves", "The rows of holes are 37 mm from the front edge and from the back "
                                "panel; four steps are 128 mm.\n`~holes`"),
                Node("Last check", "Unit level, doors parallel, screws B tight",
                     style=str(TITLE_ITALIC | ANSWER_ITALIC), titlecolor=GREEN, answercolor=GREEN,
                     spacebefore="2", spaceafter="1"),
                Node("Load", "At most `max load` kg in the whole unit",
                     style=str(TITLE_BOLD | ANSWER_BOLD | ANSWER_UNDERLINED), answerfontsize="1"),
                spacebefore="0", titlefontsize="3", pagebreak="1"),)


def _care():
    return (
        section("Handles and care", spacebefore="0", titlefontsize="3"),
        Node("Knob", "Comes with the unit\n`~knob`"),
        Node("Bow handle", "To be ordered apart, hole spacing 128 mm\n`~bow handle`"),
        Node("Glass panes", "Wipe with a soft cloth and a little glass cleaner. Spray the cloth, "
                            "not the pane, so that nothing runs into the frame.", spacebefore="3"),
        Node("Frames", "A damp cloth is enough. No scouring powder, no steam – the frames are "
                       "of anodised aluminium."),
        Node("Hinges", "They need no oil.", answerfontsize="-1"),
        Node("Spare parts", "", titlefontsize="-1", style=str(TITLE_ITALIC)),
        Node("Spare part list", answerhidden="1", titlecolor=QUIET, titlefontsize="-2"),
        remark("Note", "Quote the code `code` when you order spare parts, and say on which side "
                       "the hinge sits.", answercolor=QUIET, answerfontsize="-2", spacebefore="1"))
