"""Pictures and overlays."""

import base64
import functools
import unittest

from example import GENERATED
from reader import PIXEL, examples, on_examples, opened, page, rows_of

# The sizes of pictures as the browser itself decodes them from the document's data.
DECODE = """
const [addresses, done] = arguments;
Promise.all(addresses.map(async address => {
    const image = new Image();
    image.src = address;
    await image.decode();
    return [image.naturalWidth, image.naturalHeight];
})).then(done, error => done(String(error)));
"""
KINDS = {"png": "image/png", "jpg": "image/jpeg"}


@functools.lru_cache(maxsize=None)
def decoded_sizes(document):
    """Width and height of every picture's data, by name."""
    addresses = []
    for picture in document.pictures.values():
        data = base64.b64encode(base64.b64decode(picture.text)).decode("ascii")
        addresses.append(f"data:{KINDS[picture.get('extension')]};base64,{data}")
    sizes = opened(document.name).execute_async_script(DECODE, addresses)
    return dict(zip(document.pictures, sizes))


def uses(document, row, kinds):
    if row.is_gap() or row.answer() is None:
        return []
    return document.tokens(row.answer(), kinds)


def showing(kinds):
    """Whether a document has tokens of these kinds."""
    return lambda document: any(uses(document, row, kinds) for row in document.rows)


def shown(document, kinds):
    """The names in tokens of these kinds, with the pictures in their place and their cells."""
    for row, found in rows_of(document):
        wanted = uses(document, row, "~@")
        if not wanted:
            continue
        cell = found["cells"][-1]
        pictures = [picture for picture in cell["pictures"] if not picture["layer"]]
        if len(pictures) != len(wanted):
            raise AssertionError(f"{len(pictures)} pictures instead of {wanted}")
        for (kind, name), picture in zip(wanted, pictures):
            if kind in kinds:
                yield name, picture, cell


class Pictures(unittest.TestCase):
    @on_examples()
    def test_all_are_loaded(self, document):
        for _, found in rows_of(document):
            for cell in found["cells"]:
                for picture in cell["pictures"]:
                    self.assertGreater(min(picture["natural"]), 0, picture["source"])

    @on_examples(showing("~"))
    def test_stand_in_the_folder_of_pictures_behind_a_doubled_slash(self, document):
        folder = page(document.name).parent
        for name, picture, _ in shown(document, "~"):
            self.assertEqual(f"{folder}/temp_images//{document.file(name)}", picture["source"])

    @on_examples(showing("~"))
    def test_are_those_of_the_document(self, document):
        for name, picture, _ in shown(document, "~"):
            self.assertEqual(decoded_sizes(document)[name], picture["natural"], name)

    @on_examples(showing("~"))
    def test_are_as_large_as_the_document_says_where_there_is_room(self, document):
        for name, picture, cell in shown(document, "~"):
            width, height = (int(document.pictures[name].get(side)) for side in ("width", "height"))
            box = picture["box"]
            room = min(width, cell["room"])
            self.assertAlmostEqual(room, box["right"] - box["left"], delta=PIXEL)
            self.assertAlmostEqual(room * height / width, box["bottom"] - box["top"], delta=PIXEL)

    def test_most_have_room(self):
        widths = [(int(document.pictures[name].get("width")), cell["room"])
                  for document in examples(showing("~"))
                  for name, _, cell in shown(document, "~")]
        full = [width for width, room in widths if width <= room]
        self.assertGreater(len(full), len(widths) * 0.9)

    @on_examples(showing("@"))
    def test_an_external_picture_comes_by_its_own_path(self, document):
        for path, picture, _ in shown(document, "@"):
            self.assertEqual(path, picture["source"])
            self.assertEqual((page(document.name).parent / path).as_uri(), picture["address"])
            self.assertGreater(min(picture["natural"]), 0)


def overlays():
    """Every overlay of every example: document, name, row wanted, row seen, cell and two layers."""
    for document in examples(showing("!")):
        for row, found in rows_of(document):
            for _, name in uses(document, row, "!"):
                cell = found["cells"][-1]
                layers = [picture for picture in cell["pictures"] if picture["layer"]]
                if len(layers) != 2:
                    raise AssertionError(f"{len(layers)} layers, not 2, for {name}")
                yield document, name, row, found, cell, layers


class Overlays(unittest.TestCase):
    def test_the_cabinet_lies_below_and_the_named_picture_above(self):
        for document, name, _, _, _, (bottom, top) in overlays():
            folder = f"{page(document.name).parent}/temp_images/"
            self.assertEqual(folder + document.file(GENERATED), bottom["source"])
            self.assertEqual(folder + document.file(name), top["source"])
            self.assertLess(int(bottom["depth"]), int(top["depth"]))

    def test_the_layers_lie_exactly_on_top_of_each_other(self):
        for document, _, _, _, _, (bottom, top) in overlays():
            box = top["box"]
            self.assertEqual(bottom["box"], box)
            for length, found in zip(document.overlay_size(), (box["right"] - box["left"],
                                                               box["bottom"] - box["top"])):
                self.assertAlmostEqual(length, found, places=2)

    def test_the_upper_layer_lets_the_lower_one_through(self):
        for _, _, _, _, _, (bottom, top) in overlays():
            self.assertEqual((1, 0.5), (bottom["opacity"], top["opacity"]))

    def test_the_text_after_stands_below(self):
        for _, name, row, _, cell, (_, top) in overlays():
            self.assertFalse(row.answer().endswith("`"), f"no text after {name}")
            self.assertGreaterEqual(cell["after"], top["box"]["bottom"] - PIXEL)

    def test_the_layers_stay_within_their_cell(self):
        for _, _, _, found, cell, (_, top) in overlays():
            self.assertGreaterEqual(top["box"]["top"], found["box"]["top"] - PIXEL)
            self.assertLessEqual(top["box"]["bottom"], found["box"]["bottom"] + PIXEL)
            self.assertLessEqual(top["box"]["right"], cell["box"]["right"] + PIXEL)
