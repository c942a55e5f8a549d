"""Sketches of fittings and boards, and swatches of materials."""

import random

from PIL import Image, ImageFilter

from .canvas import INK, MEASURE, THIN, Canvas, jpeg, mixed, png

STEEL = "#C9D1D8"
BOARD = "#EADFCB"


def hinge(size=(200, 130), density=2):
    """A cup hinge on its plate, door at the right."""
    canvas = Canvas(*size, density=density)
    canvas.rectangle(14, 12, 30, 118, fill=BOARD)
    canvas.rectangle(38, 12, 186, 30, fill=BOARD)
    canvas.polygon([(104, 30), (150, 30), (146, 50), (108, 50)], fill=STEEL, outline=INK)
    canvas.polygon([(30, 48), (44, 48), (96, 42), (110, 34), (116, 42), (98, 56), (44, 66),
                    (30, 66)], fill=STEEL, outline=INK)
    canvas.circle(104, 42, 3.4, fill="#FFFFFF", width=0.9)
    canvas.rectangle(30, 44, 38, 92, fill=STEEL)
    for level in (74, 84):
        canvas.circle(34, level, 2.2, fill="#FFFFFF", width=0.8)
    canvas.circle(58, 55, 3.2, fill="#FFFFFF", width=0.9)
    canvas.line([(56, 57), (60, 53)], INK, 0.9)
    canvas.measure((104, 64), (150, 64), "35")
    canvas.measure((14, 106), (104, 106), "37")
    return png(canvas.finished(), 24)


def runner(size=(240, 110), density=2):
    """A drawer side on its full-extension runner."""
    canvas = Canvas(*size, density=density)
    canvas.rectangle(12, 16, 176, 58, fill=BOARD)
    canvas.rectangle(12, 60, 150, 68, fill=STEEL, width=0.9)
    canvas.rectangle(26, 68, 190, 74, fill="#E3E8EC", width=0.9)
    canvas.rectangle(178, 8, 184, 74, fill="#F7F8F9")
    for across in (36, 84, 132):
        canvas.circle(across, 64, 2, fill="#FFFFFF", width=0.8)
    canvas.line([(198, 38), (226, 38)], MEASURE, 1.4)
    canvas.arrow((230, 38), (198, 38), size=7)
    canvas.measure((12, 94), (176, 94), "500")
    return png(canvas.finished(), 24)


def handle(kind, size=(150, 70), density=2):
    """A handle from the front: a bar, a bow or a knob."""
    canvas = Canvas(*size, density=density)
    if kind == "bar":
        canvas.shaded([(20, 24), (130, 24), (130, 34), (20, 34)], "#F4F6F7", "#87919A")
        canvas.rectangle(20, 24, 130, 34)
        canvas.measure((38, 52), (112, 52), "160")
    elif kind == "bow":
        for colour, thickness in ((INK, 9), (STEEL, 6.8)):
            canvas.arc(75, 76, 54, 218, 322, colour, thickness)
        for foot in (27, 115):
            canvas.rectangle(foot, 38, foot + 8, 44, fill=STEEL, width=0.9)
        canvas.measure((31, 60), (119, 60), "128")
    else:
        canvas.circle(75, 28, 17, fill=STEEL)
        canvas.circle(71, 24, 8, fill="#EEF1F3", outline="#B9C2CA", width=0.8)
        canvas.measure((58, 56), (92, 56), "32")
    return png(canvas.finished(), 32)


def drilling(size=(150, 234), density=2):
    """The rows of holes in a side panel."""
    canvas = Canvas(*size, density=density)
    canvas.rectangle(34, 10, 134, 204, fill=BOARD)
    for across in (46, 122):
        for hole in range(17):
            canvas.circle(across, 24 + hole * 10, 1.5, fill="#FFFFFF", width=0.7)
    for level in (34, 174):
        canvas.circle(122, level, 3.4, outline="#C01818", width=1.2)
    canvas.measure((34, 224), (46, 224), "37")
    canvas.measure((18, 64), (18, 104), "128")
    return png(canvas.finished(), 24)


def edge_profile(size=(200, 90), density=2):
    """The front edge of a worktop."""
    canvas = Canvas(*size, density=density)
    canvas.polygon([(14, 22), (150, 22), (162, 26), (168, 38), (162, 54), (150, 60), (14, 60)],
                   fill=BOARD, outline=INK)
    for offset in range(6):
        canvas.line([(24 + offset * 22, 54), (48 + offset * 22, 30)], mixed(BOARD, INK, 0.25), 0.8)
    canvas.line([(14, 16), (14, 66)], THIN, 0.8)
    canvas.measure((184, 22), (184, 60), "38")
    canvas.text(60, 74, "R 8", 8, MEASURE)
    return png(canvas.finished(), 24)


def hanger(size=(200, 170), density=2):
    """A wall hanger that hooks into its rail."""
    canvas = Canvas(*size, density=density)
    canvas.line([(40, 8), (40, 160)], INK, 2.2)
    for level in range(12, 158, 8):
        canvas.line([(40, level), (32, level + 7)], THIN, 0.8)
    canvas.polygon([(42, 40), (50, 40), (50, 52), (58, 52), (58, 38), (62, 38), (62, 58), (42, 58)],
                   fill=STEEL, outline=INK)
    canvas.polygon([(54, 34), (66, 34), (66, 44), (104, 44), (104, 84), (84, 84), (84, 52),
                    (66, 52), (66, 47), (54, 47)], fill="#E3E8EC", outline=INK)
    canvas.rectangle(64, 20, 180, 30, fill=BOARD)
    canvas.rectangle(112, 30, 120, 156, fill=BOARD)
    for level, label in ((60, "A"), (74, "B")):
        canvas.circle(94, level, 4, fill="#FFFFFF", width=0.9)
        canvas.line([(98, level), (136, level)], MEASURE, 0.8)
        canvas.text(144, level, label, 9, MEASURE)
    return png(canvas.finished(), 24)


def swatch(kind, first, second, seed, size=(96, 64)):
    """A piece of a surface: wood grain, stone or plain lacquer."""
    chance = random.Random(seed)
    width, height = size[0] * 2, size[1] * 2
    noise = Image.new("L", (width, height))
    noise.putdata([chance.randrange(256) for _ in range(width * height)])
    if kind == "wood":
        streaks = noise.resize((width // 24, height)).resize((width, height), Image.BICUBIC)
        noise = Image.blend(streaks, noise, 0.18)
    elif kind == "stone":
        soft = noise.filter(ImageFilter.GaussianBlur(1.2))
        noise = soft.point([max(0, min(255, (v - 128) * 5 + 128)) for v in range(256)])
    else:
        noise = Image.linear_gradient("L").resize((width, height))
    bands = [noise.point([round(a + (b - a) * v / 255) for v in range(256)])
             for a, b in zip(mixed(first, first, 0), mixed(second, second, 0))]
    return jpeg(Image.merge("RGB", bands))
