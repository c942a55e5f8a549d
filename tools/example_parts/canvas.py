"""A small drawing surface: drawn four times too large and scaled down, so that lines are smooth."""

import io
import math

from PIL import Image, ImageChops, ImageDraw, ImageFilter

from . import lettering

INK = "#2B333B"
THIN = "#8A949E"
MEASURE = "#1F5F99"
SMOOTH = 4


def mixed(first, second, share):
    """The colour that lies `share` of the way from the first to the second."""
    return tuple(round(a + (b - a) * share) for a, b in zip(rgb(first), rgb(second)))


def rgb(colour):
    if isinstance(colour, tuple):
        return colour
    return tuple(int(colour[i : i + 2], 16) for i in (1, 3, 5))


class Canvas:
    """Coordinates are pixels of the finished picture shown at its own size.

    With a density of 2 the stored picture has twice as many pixels each way, for sharp print.
    """

    def __init__(self, width, height, background="#FFFFFF", density=1):
        self.width, self.height, self.density = width, height, density
        self.scale = SMOOTH * density
        fill = (255, 255, 255, 0) if background is None else rgb(background) + (255,)
        self.picture = Image.new("RGBA", (width * self.scale, height * self.scale), fill)
        self.pen = ImageDraw.Draw(self.picture)

    def _points(self, points):
        return [(x * self.scale, y * self.scale) for x, y in points]

    def line(self, points, colour=INK, width=1.2):
        placed = self._points(points)
        thickness = max(1, round(width * self.scale))
        self.pen.line(placed, fill=colour, width=thickness, joint="curve")
        radius = thickness / 2
        for x, y in (placed[0], placed[-1]):
            self.pen.ellipse([x - radius, y - radius, x + radius, y + radius], fill=colour)

    def dashed(self, start, end, colour=INK, width=1, dash=5, gap=3):
        length = math.dist(start, end)
        if length == 0:
            return
        step = ((end[0] - start[0]) / length, (end[1] - start[1]) / length)
        at = 0
        while at < length:
            stop = min(at + dash, length)
            self.line([(start[0] + step[0] * d, start[1] + step[1] * d) for d in (at, stop)],
                      colour, width)
            at += dash + gap

    def polygon(self, points, fill=None, outline=None, width=1.2):
        if fill is not None:
            self.pen.polygon(self._points(points), fill=fill)
        if outline is not None:
            self.line(list(points) + [points[0]], outline, width)

    def rectangle(self, left, top, right, bottom, fill=None, outline=INK, width=1.2):
        self.polygon([(left, top), (right, top), (right, bottom), (left, bottom)],
                     fill, outline, width)

    def circle(self, x, y, radius, fill=None, outline=INK, width=1.2):
        box = self._points([(x - radius, y - radius), (x + radius, y + radius)])
        self.pen.ellipse(box, fill=fill, outline=outline, width=round(width * self.scale))

    def arc(self, x, y, radius, start, end, colour=INK, width=1.2):
        steps = max(8, round(abs(end - start) / 4))
        angles = [math.radians(start + (end - start) * i / steps) for i in range(steps + 1)]
        self.line([(x + radius * math.cos(a), y + radius * math.sin(a)) for a in angles],
                  colour, width)

    def shaded(self, points, first, second, angle=90):
        """A polygon filled with a gradient that runs in the direction of the angle."""
        mask = Image.new("L", self.picture.size, 0)
        ImageDraw.Draw(mask).polygon(self._points(points), fill=255)
        box = mask.getbbox()
        # Wider than the gradient, so that turning it leaves no empty corners.
        ramp = Image.new("L", (768, 768), 0)
        ramp.paste(255, (0, 512, 768, 768))
        ramp.paste(Image.linear_gradient("L").resize((768, 256)), (0, 256))
        ramp = ramp.rotate(90 - angle, Image.BILINEAR).crop((256, 256, 512, 512))
        ramp = ramp.resize((box[2] - box[0], box[3] - box[1]), Image.BILINEAR)
        start, end = rgb(first), rgb(second)
        bands = [ramp.point([round(a + (b - a) * v / 255) for v in range(256)])
                 for a, b in zip(start, end)]
        filled = Image.merge("RGB", bands).convert("RGBA")
        self.picture.paste(filled, box[:2], mask.crop(box))

    def shadow(self, points, strength, softness):
        """A soft shadow under what is drawn later."""
        mask = Image.new("L", self.picture.size, 0)
        ImageDraw.Draw(mask).polygon(self._points(points), fill=strength)
        mask = mask.filter(ImageFilter.GaussianBlur(softness * self.scale))
        dark = Image.new("RGBA", self.picture.size, (38, 34, 30, 0))
        dark.putalpha(mask)
        self.picture.alpha_composite(dark)

    def text(self, x, y, text, size=8, colour=INK, width=1, upright=True, anchor="middle"):
        """A line of text around (x, y); not upright means read from the right."""
        run = lettering.width(text, size)
        start = {"left": 0, "middle": -run / 2, "right": -run}[anchor]
        for place, character in enumerate(text.upper()):
            for stroke in lettering.strokes(character):
                along = [start + (place * 6 + sx) * size / 6 for sx, _ in stroke]
                across = [(sy - 3) * size / 6 for _, sy in stroke]
                if upright:
                    points = [(x + a, y + b) for a, b in zip(along, across)]
                else:
                    points = [(x + b, y - a) for a, b in zip(along, across)]
                self.line(points, colour, width)

    def arrow(self, tip, towards, colour=MEASURE, size=5):
        """An arrow head at the tip that points away from `towards`."""
        angle = math.atan2(tip[1] - towards[1], tip[0] - towards[0])
        sides = [(tip[0] - size * math.cos(angle + turn), tip[1] - size * math.sin(angle + turn))
                 for turn in (0.32, -0.32)]
        self.polygon([tip] + sides, fill=colour)

    def measure(self, start, end, label, colour=MEASURE, size=8, width=0.8):
        """A dimension line between two points on one level, or one above the other."""
        level = start[1] == end[1]
        middle = ((start[0] + end[0]) / 2, (start[1] + end[1]) / 2)
        half = lettering.width(label, size) / 2 + 3
        length = math.dist(start, end)
        if length > half * 2 + 8:
            share = (length / 2 - half) / length
            for a, b in ((start, end), (end, start)):
                self.line([a, (a[0] + (b[0] - a[0]) * share, a[1] + (b[1] - a[1]) * share)],
                          colour, width)
            place = middle
        else:
            self.line([start, end], colour, width)
            high = min(start[1], end[1])
            place = (max(start[0], end[0]) + half, middle[1]) if level else (middle[0], high - half)
        for tip, other in ((start, end), (end, start)):
            self.arrow(tip, other, colour)
            mark = [(tip[0], tip[1] - 4), (tip[0], tip[1] + 4)] if level else \
                   [(tip[0] - 4, tip[1]), (tip[0] + 4, tip[1])]
            self.line(mark, colour, width)
        self.text(place[0], place[1], label, size, colour, width + 0.2, upright=level)

    def finished(self):
        """The picture at its stored size."""
        size = (self.width * self.density, self.height * self.density)
        # Colours are weighted with their opacity, so that edges do not darken.
        red, green, blue, alpha = self.picture.split()
        bands = [ImageChops.multiply(band, alpha).resize(size, Image.BOX)
                 for band in (red, green, blue)]
        small = alpha.resize(size, Image.BOX)
        if small.getextrema() == (255, 255):
            return Image.merge("RGB", bands)
        share = list(small.getdata())
        undone = []
        for band in bands:
            flat = Image.new("L", size)
            flat.putdata([min(255, round(value * 255 / part)) if part else 255
                          for value, part in zip(band.getdata(), share)])
            undone.append(flat)
        return Image.merge("RGBA", undone + [small])


def png(picture, colours=None):
    """The bytes of a PNG file; with few colours it is small."""
    if colours and picture.mode == "RGB":
        picture = picture.quantize(colours, method=Image.MEDIANCUT, dither=Image.NONE)
    out = io.BytesIO()
    picture.save(out, "PNG", optimize=True)
    return out.getvalue()


def jpeg(picture):
    """The bytes of a JPEG file."""
    out = io.BytesIO()
    picture.convert("RGB").save(out, "JPEG", quality=82, optimize=True)
    return out.getvalue()
