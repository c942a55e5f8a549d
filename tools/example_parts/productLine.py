"""A whole product line: 2,000 help nodes, a drawing per cabinet, a printed page per family."""

import itertools

from . import details, drawings
from .helpDocument import ANSWER_BOLD, QUIET, TITLE_BOLD, HelpDocument, Node, remark, section

NODES = 2000
HANDS = (("L", "left"), ("R", "right"))
SINGLE = (300, 350, 400, 450, 500, 600)
DOUBLE = (700, 800, 900, 1000, 1200)
DRAWERS = (400, 500, 600, 800, 900, 1000)


class Family:
    """Cabinets that differ in width, height and hand only."""

    def __init__(self, name, letters, use, widths, fronts, heights=(720,), depth=560, plinth=100,
                 hands=False, shelves=1, group="base"):
        self.name, self.letters, self.use, self.group = name, letters, use, group
        self.widths, self.heights, self.depth, self.plinth = widths, heights, depth, plinth
        self.fronts, self.hands, self.shelves = fronts, hands, shelves

    def cabinets(self):
        hands = HANDS if self.hands else (("", ""),)
        for height, width, (hand, side) in itertools.product(self.heights, self.widths, hands):
            tall = f"-{height // 10}" if len(self.heights) > 1 else ""
            yield f"{self.letters}{width // 10}{tall}{hand}", width, height, side


FAMILIES = (
    Family("Base units with one door", "B", "All-purpose units for pots and supplies.", SINGLE,
           [("door", 1)], hands=True),
    Family("Base units with two doors", "BD", "Wide units for large pots and appliances.", DOUBLE,
           [("doors", 1)]),
    Family("Base units with drawer and door", "B1", "Cutlery above, pots below.", SINGLE,
           [("drawer", 14), ("door", 58)], hands=True),
    Family("Base units with drawer and two doors", "BD1", "One wide drawer over two doors.", DOUBLE,
           [("drawer", 14), ("doors", 58)]),
    Family("Units with two drawers", "D2", "Deep pull-outs for pots and plates.", DRAWERS,
           [("drawer", 36), ("drawer", 36)], shelves=0),
    Family("Units with three drawers", "D3", "A flat drawer over two pull-outs.", DRAWERS,
           [("drawer", 14), ("drawer", 29), ("drawer", 29)], shelves=0),
    Family("Units with four drawers", "D4", "For tools, linen and everything flat.", DRAWERS,
           [("drawer", 14), ("drawer", 14), ("drawer", 22), ("drawer", 22)], shelves=0),
    Family("Wall units with one door", "W", "Hang at eye level, in three heights.", SINGLE,
           [("door", 1)], (600, 720, 900), 350, 0, hands=True, shelves=2, group="wall"),
    Family("Wall units with two doors", "WD", "Wide wall units without a centre post.", DOUBLE,
           [("doors", 1)], (600, 720, 900), 350, 0, shelves=2, group="wall"),
    Family("Wall units with glass doors", "WG", "Framed glass for what is meant to be seen.",
           DOUBLE, [("glass doors", 1)], (600, 720, 900), 350, 0, shelves=2, group="glass"),
    Family("Wall units with a flap", "WF", "The flap opens upwards and stays there.",
           (600, 800, 900), [("flap", 1)], (360, 450), 350, 0, shelves=0, group="wall"),
    Family("Open shelves", "S", "Without doors, finished inside and outside.", (300, 400, 600),
           [("open", 1)], (360, 720), 350, 0, group="open"),
    Family("Tall units", "T", "Larders and broom cupboards.", (300, 400, 450, 500, 600),
           [("door", 90), ("door", 118)], (2080, 2280), 580, hands=True, shelves=5, group="tall"),
    Family("Oven housings", "TO", "An oven at eye level, a drawer below it.", (600,),
           [("flap", 40), ("oven", 60), ("vent", 6), ("drawer", 30), ("doors", 72)],
           (2080, 2280), 580, shelves=1, group="tall"),
)


def document():
    doc = HelpDocument("NORD-24", "Kitchen programme with all cabinets and accessories")
    _formulas(doc)
    doc.picture("oak", details.swatch("wood", "#A9773F", "#DDB47E", 51), 96, 64, "jpg")
    doc.picture("white", details.swatch("plain", "#FBFAF7", "#EAE7E0", 52), 96, 64, "jpg")
    doc.picture("slate", details.swatch("stone", "#4A5056", "#878E95", 53), 96, 64, "jpg")
    doc.picture("hinge", details.hinge(), 200, 130)
    doc.picture("runner", details.runner(), 240, 110)
    doc.add(_guide())
    for family in FAMILIES:
        doc.add(_family(doc, family))
    doc.add(_accessories(NODES - doc.count() - 1))
    return doc.xml()


def _formulas(doc):
    doc.formula("carcase", "Particle board `board` mm, melamine white", "Material of all carcases")
    doc.formula("board", 18, "Thickness of the carcase boards in millimetres")
    doc.formula("back", "hardboard 8 mm, in a groove", "Material of all back panels")
    doc.formula("hinges", "Soft closing, `hinge angle`°", "Hinges of all doors")
    doc.formula("hinge angle", 110, "Opening angle of all doors in degrees")
    doc.formula("runners", "Full extension, 40 kg", "Runners of all drawers")
    doc.formula("delivery", "4 to 6 weeks", "Time of delivery")
    doc.formula("shelf load", 15, "Load of a shelf in kilograms")
    doc.formula("plinth", "80 to 150 mm", "Heights of plinths")
    for group, letter in (("base", "B"), ("wall", "C"), ("glass", "E"), ("open", "A"),
                          ("tall", "F")):
        doc.formula(f"price group {group}", letter, f"Price group of {group} units", False)


def _guide():
    return section(
        "How to read this list",
        remark("Introduction",
               "Every cabinet of the programme has an entry with its measures, its equipment and a "
               "drawing. All measures are in millimetres, ±1 mm, and without worktop – depths are "
               "without doors."),
        Node("Order codes", "Letters for the family, then the width in centimetres. L and R say on "
                            "which side the hinges sit. Example: B60L – 60 cm wide, hung on the "
                            "left."),
        Node("Carcase", "`carcase`\nBack panel: `back`\n`~white`"),
        Node("Worktops", "Oak or slate\n`~oak` `~slate`"),
        Node("Hinges", "`hinges`\n`~hinge`"),
        Node("Runners", "`runners`\n`~runner`"),
        Node("Delivery", "`delivery` after the order is confirmed", style=str(ANSWER_BOLD)),
        spacebefore="0", pagebreak="1")


def _family(doc, family):
    cabinets = [_cabinet(doc, family, *cabinet) for cabinet in family.cabinets()]
    if len(cabinets) > 2:
        cabinets[(len(cabinets) - 1) // 2].attributes["columnbreak"] = "1"
    return section(family.name, remark("Use", family.use, answercolor=QUIET), *cabinets,
                   titlefontsize="2", spacebefore="0", pagebreak="1")


def _cabinet(doc, family, code, width, height, side):
    drawn = [(f"door {side}" if kind == "door" else kind, share) for kind, share in family.fronts]
    tall = height > 1000
    size = (120, 210) if tall else (140, 130)
    doc.picture(code, drawings.elevation(width, height, drawn, family.plinth, size=size, density=1),
                *size)
    weight = (2 * height * family.depth + (2 + family.shelves) * width * family.depth) * 18e-9 * 680
    weight += width * height * 27e-9 * 700
    names = {"doors": "two doors", "glass doors": "two glass doors", "oven": "oven niche",
             "vent": "air grille"}
    front = ", ".join(names.get(kind, kind) for kind, _ in family.fronts)
    hung = f", hung on the {side}" if side else ""
    total = f"\n{height + family.plinth} mm with a plinth of {family.plinth} mm; plinths from " \
            "`plinth`" if family.plinth else ""
    shelves = {0: "none", 1: "one, adjustable"}.get(family.shelves, f"{family.shelves}, adjustable")
    load = "" if family.shelves == 0 else ", `shelf load` kg each"
    return Node(
        code, "",
        Node("Width", f"{width} mm"),
        Node("Height", f"{height} mm{total}"),
        Node("Depth", f"{family.depth} mm"),
        Node("Front", front[0].upper() + front[1:] + hung),
        Node("Shelves", shelves[0].upper() + shelves[1:] + load),
        Node("Weight", f"About {weight:.1f} kg"),
        Node("Price group", f"`price group {family.group}`"),
        Node("Drawing", f"`~{code}`"),
        Node("Order text", f"`code` {code}, colour of the fronts, delivery in `delivery`",
             answerfontsize="-1"),
        style=str(TITLE_BOLD), spacebefore="1")


def _accessories(count):
    """As many accessories as are wanted; their articles are numbered through."""
    kinds = ("Filler strip", "End panel", "Plinth panel", "Light pelmet", "Cornice")
    colours = ("crème", "sage", "graphite", "décor oak")
    lengths = (600, 720, 900, 1200, 2080, 2280, 2400)
    widths = (50, 80, 100, 150, 200)
    articles = []
    for number, (kind, colour, length, width) in enumerate(
            itertools.islice(itertools.product(kinds, colours, lengths, widths), count)):
        articles.append(Node(f"Article {4001 + number}",
                             f"{kind} {colour}, {length} mm long, {width} mm wide, "
                             f"{16 if width < 100 else 19} mm thick"))
    for place in (count // 3, count * 2 // 3):
        articles[place - 1].attributes["columnbreak"] = "1"
    return section("Accessories", *articles, titlefontsize="2", spacebefore="0")
