"""Technical drawings of cabinets: elevations, plans and sections, to scale."""

from .canvas import INK, MEASURE, THIN, Canvas, png

CARCASE = "#E9EDF0"
FACE = "#F7F8F9"
WOOD = "#EAD9BF"
STEEL = "#C9D1D8"
GLASS = "#D5E6EF"
AIR = "#C2571A"
PLINTH = "#B4BDC4"


def elevation(width, height, fronts, plinth=100, worktop=0, size=(260, 250), density=2):
    """The front of a cabinet: rows of fronts from top to bottom, as (kind, height) pairs."""
    canvas = Canvas(*size, density=density)
    total = height + plinth + worktop
    scale = min((size[0] - 60) / width, (size[1] - 44) / total)
    left = (size[0] - width * scale) / 2 + 12
    top = (size[1] - 24 - total * scale) / 2 + 4
    right, floor = left + width * scale, top + total * scale
    body = top + worktop * scale
    if worktop:
        canvas.rectangle(left - 3, top, right + 3, body, fill=WOOD)
    canvas.rectangle(left, body, right, body + height * scale, fill=CARCASE)
    if plinth:
        canvas.rectangle(left + 2, body + height * scale, right - 2, floor, fill=PLINTH,
                         width=0.9)
    share = height / sum(row[1] for row in fronts)
    edge = body
    for kind, row in fronts:
        bottom = edge + row * share * scale
        _front(canvas, kind, left + 2, edge + 2, right - 2, bottom - 2)
        edge = bottom
    canvas.line([(left - 24, floor), (right + 14, floor)], THIN, 0.8)
    canvas.measure((left, floor + 14), (right, floor + 14), str(width))
    canvas.measure((left - 18, top), (left - 18, floor), str(total))
    return png(canvas.finished(), 24)


def _front(canvas, kind, left, top, right, bottom):
    middle, centre = (left + right) / 2, (top + bottom) / 2
    if kind in ("door left", "door right"):
        canvas.rectangle(left, top, right, bottom, fill=FACE, width=0.9)
        hinge, open_side = (left, right) if kind == "door left" else (right, left)
        _swing(canvas, open_side, hinge, top, bottom)
        grip = open_side - 6 if open_side > hinge else open_side + 6
        canvas.line([(grip, top + 10), (grip, min(top + 34, bottom - 6))], INK, 2.2)
    elif kind == "doors":
        _front(canvas, "door left", left, top, middle - 1, bottom)
        _front(canvas, "door right", middle + 1, top, right, bottom)
    elif kind == "glass doors":
        _front(canvas, "glass left", left, top, middle - 1, bottom)
        _front(canvas, "glass right", middle + 1, top, right, bottom)
    elif kind in ("glass left", "glass right"):
        canvas.rectangle(left, top, right, bottom, fill=FACE, width=0.9)
        canvas.rectangle(left + 7, top + 7, right - 7, bottom - 7, fill=GLASS, width=0.8)
        for offset in (0, 8):
            canvas.line([(left + 16 + offset, top + 36), (left + 34 + offset, top + 16)],
                        "#FFFFFF", 1.4)
    elif kind == "drawer":
        canvas.rectangle(left, top, right, bottom, fill=FACE, width=0.9)
        canvas.line([(middle - 16, top + 8), (middle + 16, top + 8)], INK, 2.2)
    elif kind == "flap":
        canvas.rectangle(left, top, right, bottom, fill=FACE, width=0.9)
        canvas.dashed((left, bottom), (middle, top), THIN, 0.8)
        canvas.dashed((right, bottom), (middle, top), THIN, 0.8)
        canvas.line([(middle - 16, bottom - 7), (middle + 16, bottom - 7)], INK, 2.2)
    elif kind == "oven":
        canvas.rectangle(left, top, right, bottom, fill="#4A535B", width=0.9)
        canvas.rectangle(left + 8, top + 18, right - 8, bottom - 8, fill="#2C333A", outline=STEEL,
                         width=0.8)
        canvas.line([(left + 12, top + 15), (right - 12, top + 15)], STEEL, 2)
        for place in (0.2, 0.5, 0.8):
            canvas.circle(left + (right - left) * place, top + 7, 2.6, fill=STEEL, width=0.6)
    elif kind == "vent":
        canvas.rectangle(left, top, right, bottom, fill=STEEL, width=0.9)
        across = left + 8
        while across < right - 6:
            canvas.line([(across, top + 3), (across, bottom - 3)], INK, 0.9)
            across += 6
    elif kind == "open":
        canvas.rectangle(left, top, right, bottom, fill="#DDE3E7", width=0.9)
        canvas.line([(left, centre), (right, centre)], INK, 1.6)
    else:
        raise ValueError(kind)


def _swing(canvas, open_side, hinge, top, bottom):
    centre = (top + bottom) / 2
    for corner in (top, bottom):
        canvas.dashed((open_side, corner), (hinge, centre), THIN, 0.8)


def plan(width, depth, swing="left", size=(230, 230), density=2):
    """A cabinet from above, with the way its door needs."""
    canvas = Canvas(*size, density=density)
    scale = min((size[0] - 70) / width, (size[1] - 42) / (depth + width))
    left, top = (size[0] - width * scale) / 2 + 10, 30
    right, front = left + width * scale, top + depth * scale
    canvas.line([(left - 16, top), (right + 16, top)], INK, 2)
    across = left - 14
    while across < right + 14:
        canvas.line([(across, top), (across + 5, top - 6)], THIN, 0.8)
        across += 7
    canvas.rectangle(left, top, right, front, fill=CARCASE)
    canvas.rectangle(left + 5, top + 8, right - 5, front - 1, fill="#FFFFFF", width=0.9)
    hinge = left if swing == "left" else right
    reach = right - left
    canvas.line([(left, front + 2), (right, front + 2)], INK, 2.6)
    if swing == "left":
        canvas.arc(hinge, front + 2, reach, 0, 90, THIN, 0.9)
    else:
        canvas.arc(hinge, front + 2, reach, 90, 180, THIN, 0.9)
    canvas.line([(hinge, front + 2), (hinge, front + 2 + reach)], INK, 1.4)
    canvas.measure((left, 14), (right, 14), str(width))
    canvas.measure((left - 22, top), (left - 22, front), str(depth))
    return png(canvas.finished(), 24)


def section(depth, height, plinth=100, worktop=40, shelves=1, size=(220, 250), density=2):
    """A cut through a cabinet from front to back; the wall is on the left."""
    canvas = Canvas(*size, density=density)
    total = height + plinth + worktop
    scale = min((size[0] - 76) / (depth + 40), (size[1] - 40) / total)
    left, top = 40, 10
    right, body = left + depth * scale, top + worktop * scale
    bottom, floor = body + height * scale, top + total * scale
    canvas.line([(left - 6, top - 6), (left - 6, floor)], INK, 2)
    down = top - 4
    while down < floor - 6:
        canvas.line([(left - 6, down), (left - 12, down + 6)], THIN, 0.8)
        down += 7
    canvas.line([(left - 20, floor), (right + 24, floor)], INK, 1.4)
    if worktop:
        canvas.rectangle(left - 5, top, right + 12, body, fill=WOOD)
    board = 4
    canvas.rectangle(left, body, right, body + board, fill=CARCASE, width=0.9)
    canvas.rectangle(left, bottom - board, right, bottom, fill=CARCASE, width=0.9)
    canvas.rectangle(left + 8, body + board, left + 10, bottom - board, fill=STEEL, width=0.7)
    for shelf in range(shelves):
        level = body + (bottom - body) * (shelf + 1) / (shelves + 1)
        canvas.rectangle(left + 10, level, right - 8, level + board, fill=CARCASE, width=0.9)
    canvas.rectangle(right + 1, body + 1, right + 5, bottom, fill=FACE, width=0.9)
    if plinth:
        canvas.rectangle(right - 14, bottom, right - 10, floor, fill=PLINTH, width=0.9)
        for leg in (left + 14, right - 26):
            canvas.rectangle(leg, bottom, leg + 5, floor - 3, fill=STEEL, width=0.8)
            canvas.rectangle(leg - 3, floor - 3, leg + 8, floor, fill=STEEL, width=0.8)
    canvas.measure((left, floor + 14), (right + 5, floor + 14), str(depth))
    canvas.measure((right + 34, top), (right + 34, floor), str(total))
    return png(canvas.finished(), 24)


def corner_plan(side=900, depth=560, blind=False, size=(260, 250), density=2):
    """A corner unit from above: two walls meet, the door stands across or folds."""
    canvas = Canvas(*size, density=density)
    scale = (size[0] - 80) / side
    left, top = 46, 34
    far, low, inner = left + side * scale, top + side * scale, depth * scale
    canvas.line([(left - 4, low + 10), (left - 4, top - 4), (far + 10, top - 4)], INK, 2.4)
    corner = [(left, top), (far, top), (far, top + inner), (left + inner, top + inner),
              (left + inner, low), (left, low)]
    canvas.polygon(corner, fill=CARCASE, outline=INK)
    centre, radius = (left + inner * 0.62, top + inner * 0.62), inner * 0.52
    if blind:
        canvas.polygon([(left + inner, top + inner), (left + inner, low), (left, low),
                        (left, top + inner)], fill="#D3DAE0", outline=INK, width=0.9)
        canvas.line([(left, low), (left + inner, top + inner)], THIN, 0.8)
    else:
        canvas.circle(centre[0], centre[1], radius, fill="#FFFFFF", outline=INK, width=1)
        canvas.circle(centre[0], centre[1], 3, fill=STEEL, width=0.8)
        canvas.arc(centre[0], centre[1], radius * 0.6, 200, 320, MEASURE, 1)
        canvas.arrow((centre[0] + radius * 0.46, centre[1] - radius * 0.386),
                     (centre[0] + radius * 0.3, centre[1] - radius * 0.56))
    canvas.line([(far, top + inner), (left + inner, top + inner), (left + inner, low)], INK, 2.8)
    canvas.measure((left, 16), (far, 16), str(side))
    canvas.measure((left - 22, top), (left - 22, low), str(side))
    canvas.measure((far + 12, top), (far + 12, top + inner), str(depth))
    return png(canvas.finished(), 24)


def air_section(size=(240, 300), density=2):
    """How air runs behind a built-in oven, from the plinth to the top."""
    canvas = Canvas(*size, density=density)
    left, right, top, floor = 50, 176, 18, 284
    canvas.line([(left - 8, 8), (left - 8, floor)], INK, 2)
    canvas.line([(left - 20, floor), (right + 40, floor)], INK, 1.4)
    canvas.rectangle(left, top, right, floor - 26, fill=CARCASE)
    canvas.rectangle(left + 22, top + 8, right, floor - 34, fill="#FFFFFF", width=0.8)
    for level in (70, 190):
        canvas.rectangle(left + 34, level, right, level + 4, fill=CARCASE, width=0.9)
    canvas.rectangle(left + 40, 80, right + 6, 186, fill="#4A535B")
    canvas.text((left + right) / 2 + 22, 133, "OVEN", 9, "#FFFFFF", 1.1)
    canvas.rectangle(right - 12, floor - 26, right - 8, floor, fill=STEEL, width=0.8)
    route = [(right + 30, floor - 13), (left + 16, floor - 13), (left + 12, floor - 20),
             (left + 12, top - 6)]
    canvas.line(route, AIR, 2)
    canvas.arrow((left + 12, top - 10), (left + 12, top), AIR, 8)
    for level in (220, 150, 60):
        canvas.arrow((left + 12, level), (left + 12, level + 10), AIR, 6)
    canvas.text(right + 34, floor - 30, "200", 8, AIR)
    canvas.text(left + 34, top - 8, "200", 8, AIR)
    return png(canvas.finished(), 32)
