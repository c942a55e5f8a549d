"""Columns, pages and gaps on the screen."""

import unittest

from reader import PIXEL, examples, on_examples, rows_of, seen


def has_gaps(document):
    return any(row.is_gap() for row in document.rows)


def columns_of(document):
    """The rows seen, by page and column."""
    found = {}
    for row in seen(document.name)["rows"]:
        found.setdefault((row["page"], row["column"]), []).append(row)
    return found


def height(found):
    return found["box"]["bottom"] - found["box"]["top"]


class Columns(unittest.TestCase):
    @on_examples(lambda document: any(row.column for row in document.rows))
    def test_columns_stand_beside_each_other(self, document):
        found = columns_of(document)
        for (page, column), rows in found.items():
            left = found.get((page, column - 1))
            if left is None:
                continue
            edge = max(cell["box"]["right"] for row in left for cell in row["cells"])
            for row in rows:
                self.assertGreaterEqual(row["box"]["left"], edge - PIXEL)
            self.assertAlmostEqual(left[0]["box"]["top"], rows[0]["box"]["top"], delta=PIXEL)

    @on_examples()
    def test_rows_of_a_column_stand_below_each_other(self, document):
        for rows in columns_of(document).values():
            for upper, lower in zip(rows, rows[1:]):
                self.assertAlmostEqual(upper["box"]["left"], lower["box"]["left"], delta=PIXEL)
                self.assertLessEqual(upper["box"]["bottom"], lower["box"]["top"] + PIXEL)

    @on_examples(lambda document: document.pages() > 1)
    def test_a_page_stands_below_the_page_before(self, document):
        pages = seen(document.name)["pages"]
        self.assertEqual(document.pages(), len(pages))
        for upper, lower in zip(pages, pages[1:]):
            self.assertLess(upper["bottom"], lower["top"])

    @on_examples()
    def test_nothing_sticks_out_of_its_column_or_the_window(self, document):
        found = seen(document.name)
        edges = {(column["page"], column["column"]): column["box"]["right"]
                 for column in found["columns"]}
        self.assertLessEqual(max(edges.values()), found["width"] + PIXEL)
        for row in found["rows"]:
            for cell in row["cells"]:
                for box in [cell["box"]] + [picture["box"] for picture in cell["pictures"]]:
                    self.assertLessEqual(box["right"], edges[row["page"], row["column"]] + PIXEL)


class Gaps(unittest.TestCase):
    def test_are_as_many_rows_high_as_asked(self):
        lengths = set()
        for document in examples(has_gaps):
            for rows in columns_of(document).values():
                lengths |= self.check_column(rows)
        self.assertLessEqual({1, 2, 3}, lengths, "the examples lack gaps of these lengths")

    def check_column(self, rows):
        """Checks every gap between two rows with text; the lengths that were met, in rows."""
        lengths, above, gap = set(), None, []
        for row in rows:
            if row["cells"][0]["look"] is None:
                gap.append(row)
                continue
            if gap and above is not None:
                self.assertAlmostEqual(len(gap) * height(gap[0]),
                                       row["box"]["top"] - above["box"]["bottom"], delta=PIXEL)
                lengths.add(len(gap))
            above, gap = row, []
        return lengths

    def test_a_row_of_a_gap_is_as_high_as_a_row_of_one_line(self):
        gaps, lines = [], []
        for document in examples(has_gaps):
            for row, found in rows_of(document):
                if row.is_gap():
                    gaps.append(height(found))
                elif (len(found["cells"]) == 2
                      and all(row.style(which)["size"] == 0 for which in ("title", "answer"))):
                    lines.append(height(found))
        self.assertAlmostEqual(min(gaps), max(gaps), delta=PIXEL)
        # A row of heading and answer has a thin rule, a gap has none.
        self.assertAlmostEqual(min(lines), min(gaps), delta=1 + PIXEL)
