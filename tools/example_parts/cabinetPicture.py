"""The picture of a base cabinet that stands for every cabinet, and layers drawn to lie over it."""

from .canvas import Canvas, mixed, png

SIZE = 256
# Corners of the front face in the picture; depth runs up and to the right.
LEFT, RIGHT, TOP, BOTTOM, FLOOR = 36, 172, 74, 212, 228
DEPTH = (46, -26)
DRAWER = (LEFT + 4, TOP + 4, RIGHT - 4, TOP + 38)
DOOR = (LEFT + 4, TOP + 42, RIGHT - 4, BOTTOM - 3)

OAK, OAK_LIGHT, OAK_DARK = "#C08A4E", "#E0B27A", "#8E6234"
FRONT, FRONT_LIGHT, FRONT_DARK = "#A9BDB4", "#C3D2CA", "#8DA39A"
SIDE_NEAR, SIDE_FAR = "#7E948A", "#5E7369"
GAP = "#4B5C54"


def back(x, y, share=1.0):
    """The point that lies behind (x, y)."""
    return (x + DEPTH[0] * share, y + DEPTH[1] * share)


def cabinet():
    """256 by 256, transparent around the cabinet."""
    canvas = Canvas(SIZE, SIZE, background=None)
    _ground(canvas)
    _body(canvas)
    _worktop(canvas)
    for box in (DRAWER, DOOR):
        _front(canvas, box)
    middle = (LEFT + RIGHT) / 2
    _handle(canvas, middle - 26, DRAWER[1] + 15, middle + 26, DRAWER[1] + 19)
    _handle(canvas, DOOR[2] - 13, DOOR[1] + 10, DOOR[2] - 9, DOOR[1] + 52)
    return png(canvas.finished())


def _ground(canvas):
    for strength, softness, reach in ((105, 7, 6), (120, 3, 2)):
        canvas.shadow([(LEFT - reach, FLOOR - 2), (RIGHT + reach, FLOOR + 3),
                       (RIGHT + DEPTH[0] + reach * 2, FLOOR + DEPTH[1] + 6),
                       (LEFT + DEPTH[0], FLOOR + DEPTH[1])], strength, softness)


def _body(canvas):
    kick = 7
    canvas.shaded([(LEFT + 3, BOTTOM), (RIGHT - 2, BOTTOM), (RIGHT - 2, FLOOR), (LEFT + 3, FLOOR)],
                  "#2F3833", "#56635C")
    near = (RIGHT - 2 + kick * 0.5, FLOOR - kick * 0.3)
    canvas.polygon([(RIGHT - 2, BOTTOM), back(RIGHT, BOTTOM), back(RIGHT - 2, FLOOR, 0.96), near,
                    (RIGHT - 2, FLOOR)], fill="#3D4842")
    canvas.shaded([(RIGHT, TOP), back(RIGHT, TOP), back(RIGHT, BOTTOM), (RIGHT, BOTTOM)],
                  SIDE_NEAR, SIDE_FAR, angle=60)
    canvas.line([(RIGHT, BOTTOM), back(RIGHT, BOTTOM)], GAP, 0.7)
    canvas.rectangle(LEFT, TOP, RIGHT, BOTTOM, fill=GAP, outline=None)


def _worktop(canvas):
    left, right, thick = LEFT - 4, RIGHT + 4, 10
    top = TOP - thick
    far_left, far_right = back(left + 3, top), back(right - 1, top)
    canvas.shadow([(LEFT, TOP), (RIGHT, TOP), (RIGHT, TOP + 5), (LEFT, TOP + 5)], 90, 2)
    canvas.shaded([(left, top), (right, top), far_right, far_left], OAK, OAK_LIGHT, angle=-60)
    for share, strength in ((0.2, 0.2), (0.38, 0.35), (0.55, 0.18), (0.7, 0.3), (0.86, 0.22)):
        ends = [(a[0] + (b[0] - a[0]) * share, a[1] + (b[1] - a[1]) * share)
                for a, b in (((left, top), far_left), ((right, top), far_right))]
        canvas.line([(ends[0][0] + 2, ends[0][1]), (ends[1][0] - 2, ends[1][1])],
                    mixed(OAK_LIGHT, OAK_DARK, strength), 0.7)
    canvas.shaded([(right, top), far_right, (far_right[0], far_right[1] + thick), (right, TOP)],
                  "#9A6B3A", "#7A5229", angle=60)
    canvas.shaded([(left, top), (right, top), (right, TOP), (left, TOP)], "#D2A066", OAK_DARK)
    canvas.line([(left, top), (right, top)], "#F0CF9F", 0.8)


def _front(canvas, box):
    left, top, right, bottom = box
    canvas.shaded([(left, top), (right, top), (right, bottom), (left, bottom)],
                  FRONT_LIGHT, FRONT, angle=70)
    frame = 6
    inner = (left + frame, top + frame, right - frame, bottom - frame)
    canvas.line([(inner[0], inner[3]), (inner[0], inner[1]), (inner[2], inner[1])], FRONT_DARK, 0.9)
    canvas.line([(inner[2], inner[1]), (inner[2], inner[3]), (inner[0], inner[3])], "#DCE6E0", 0.9)
    canvas.line([(left, bottom), (left, top), (right, top)], "#DCE6E0", 0.8)
    canvas.line([(right, top), (right, bottom), (left, bottom)], FRONT_DARK, 0.8)


def _handle(canvas, left, top, right, bottom):
    canvas.shadow([(left + 1, top + 4), (right + 2, top + 4), (right + 2, bottom + 4),
                   (left + 1, bottom + 4)], 120, 1.2)
    upright = bottom - top > right - left
    canvas.shaded([(left, top), (right, top), (right, bottom), (left, bottom)],
                  "#F4F6F7", "#6F787F", angle=0 if upright else 90)


def _layer():
    return Canvas(SIZE, SIZE, background=None)


def hinge_layer():
    """Where the hinges sit and how the door swings."""
    canvas = _layer()
    colour = "#C01818"
    for y in (DOOR[1] + 14, DOOR[3] - 14):
        canvas.circle(DOOR[0] + 9, y, 6, outline=colour, width=2)
        canvas.line([(DOOR[0] + 5, y), (DOOR[0] + 13, y)], colour, 1.4)
        canvas.line([(DOOR[0] + 9, y - 4), (DOOR[0] + 9, y + 4)], colour, 1.4)
    middle = (DOOR[1] + DOOR[3]) / 2
    for y in (DOOR[1] + 2, DOOR[3] - 2):
        canvas.dashed((DOOR[2] - 2, y), (DOOR[0] + 2, middle), colour, 1.6, 7, 4)
    return png(canvas.finished())


def measure_layer():
    """Width and height of the front, drawn where they are taken."""
    canvas = _layer()
    colour = "#00257A"
    canvas.measure((LEFT, FLOOR + 14), (RIGHT, FLOOR + 14), "W", colour, 11, 1.5)
    canvas.measure((LEFT - 18, TOP), (LEFT - 18, BOTTOM), "H", colour, 11, 1.5)
    start, end = (RIGHT + 12, FLOOR + 6), back(RIGHT + 12, FLOOR + 6)
    canvas.line([start, end], colour, 1.5)
    canvas.arrow(start, end, colour)
    canvas.arrow(end, start, colour)
    canvas.text((start[0] + end[0]) / 2 + 9, (start[1] + end[1]) / 2 + 7, "D", 11, colour, 1.7)
    return png(canvas.finished())


def service_layer():
    """The part of the back where pipes and sockets may be."""
    canvas = _layer()
    colour = "#B34700"
    left, top, right, bottom = DOOR[0] + 22, DOOR[1] + 18, DOOR[2] - 22, DOOR[3] - 24
    canvas.polygon([(left, top), (right, top), (right, bottom), (left, bottom)],
                   fill=(255, 150, 40, 150))
    for a, b in (((left, top), (right, top)), ((right, top), (right, bottom)),
                 ((right, bottom), (left, bottom)), ((left, bottom), (left, top))):
        canvas.dashed(a, b, colour, 1.8, 6, 3)
    canvas.text((left + right) / 2, (top + bottom) / 2, "PIPES", 12, colour, 1.6)
    return png(canvas.finished())
