"""Headings and answers: where they stand, what they say, how they look."""

import unittest

from example import squeezed, text_of
from reader import examples, on_examples, rows_of, seen


class Heading(unittest.TestCase):
    @on_examples()
    def test_the_page_is_headed_by_the_code(self, document):
        found = seen(document.name)
        self.assertEqual(1, found["headings"])
        self.assertEqual(document.code(), found["heading"]["text"])
        for row in found["rows"]:
            self.assertLessEqual(found["heading"]["box"]["bottom"], row["box"]["top"])


class Rows(unittest.TestCase):
    @on_examples()
    def test_every_node_has_its_row_in_its_column_and_page(self, document):
        for row, found in rows_of(document):
            self.assertEqual((row.page, row.column), (found["page"], found["column"]))

    @on_examples()
    def test_rows_hold_heading_and_answer(self, document):
        for row, found in rows_of(document):
            self.assertEqual(expected_cells(row, document.shown), texts(found))

    @on_examples()
    def test_without_evaluation_the_tokens_stand_there_as_written(self, document):
        for row, found in rows_of(document, evaluated=False):
            self.assertEqual(expected_cells(row, text_of), texts(found))
            self.assertFalse(any(cell["pictures"] for cell in found["cells"]))

    @on_examples()
    def test_values_of_formulas_can_be_read(self, document):
        met = 0
        for row, found in rows_of(document):
            if row.is_gap() or row.answer() is None:
                continue
            text = squeezed(found["cells"][-1]["text"])
            self.assertNotIn("`", text)
            for name, value in document.formulas:
                if f"`{name}`" in row.answer():
                    self.assertIn(squeezed(document.filled(value)), text)
                    met += 1
        self.assertGreater(met, 0)

    @on_examples()
    def test_a_cell_alone_in_its_row_is_as_wide_as_two(self, document):
        for _, found in rows_of(document):
            cells = found["cells"]
            if len(cells) == 1:
                self.assertEqual(2, cells[0]["span"])
            else:
                self.assertEqual([1, 1], [cell["span"] for cell in cells])
                self.assertLessEqual(cells[0]["box"]["right"], cells[1]["box"]["left"] + 0.5)


class Look(unittest.TestCase):
    def test_texts_have_their_colour(self):
        self.assert_all(lambda wanted, found, sizes: (wanted["color"], found["color"]))

    def test_texts_are_bold_where_asked(self):
        self.assert_all(lambda wanted, found, sizes: (wanted["bold"], found["bold"]))

    def test_texts_are_italic_where_asked(self):
        self.assert_all(lambda wanted, found, sizes: (wanted["italic"], found["italic"]))

    def test_texts_are_underlined_where_asked(self):
        self.assert_all(lambda wanted, found, sizes: (wanted["underlined"], found["underlined"]))

    def test_texts_have_their_size(self):
        # The page counts sizes from 3, the size of ordinary text, within 1 and 7.
        self.assert_all(lambda wanted, found, sizes: (
            sizes[min(max(3 + wanted["size"], 1), 7) - 1], found["pixels"]))

    def assert_all(self, pair):
        wishes = set()
        for wanted, found, sizes in styles():
            wish, sight = pair(wanted, found, sizes)
            self.assertEqual(wish, sight, f"{wanted} looks like {found}")
            wishes.add(wish)
        self.assertGreater(len(wishes), 1, "all examples look alike")

    def test_larger_sizes_are_larger(self):
        pixels = {}
        for wanted, found, _ in styles():
            pixels.setdefault(wanted["size"], set()).add(found["pixels"])
        ordered = [pixels[size] for size in sorted(pixels)]
        self.assertGreaterEqual(len(ordered), 5, "the examples use too few sizes")
        for smaller, larger in zip(ordered, ordered[1:]):
            self.assertLess(max(smaller), min(larger))


def styles():
    """Every title and answer: what is wanted, what is seen, and the sizes that there are."""
    for document in examples():
        sizes = seen(document.name)["sizes"]
        for row, found in rows_of(document):
            cells = list(found["cells"])
            for which in ("title", "answer"):
                if not row.is_gap() and getattr(row, which)() is not None:
                    yield row.style(which), cells.pop(0)["look"], sizes


def expected_cells(row, reading):
    """The texts of a row's cells; `reading` says what is to be read of an answer."""
    if row.is_gap():
        return [""]
    cells = []
    if row.title() is not None:
        cells.append(squeezed(row.title()))
    if row.answer() is not None:
        cells.append(reading(row.answer()))
    return cells


def texts(found):
    return [squeezed(cell["text"]) for cell in found["cells"]]
