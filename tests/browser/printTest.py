"""Pages on paper."""

import base64
import functools
import subprocess
import unicodedata
import unittest

from example import squeezed
from reader import folder, on_examples, opened

WITHOUT_BREAKS = """
const rule = document.createElement('style');
rule.textContent = 'body > table { break-before: auto !important }';
document.head.append(rule);
"""


def paged(document):
    return document.pages() > 1


@functools.lru_cache(maxsize=None)
def sheets(document, breaks=True):
    """The texts of the sheets that a page prints on, without white space."""
    shown = opened(document.name)
    if not breaks:
        shown.execute_script(WITHOUT_BREAKS)
    printed = folder() / "printed.pdf"
    printed.write_bytes(base64.b64decode(shown.print_page()))
    text = subprocess.run(["pdftotext", "-raw", "-enc", "UTF-8", str(printed), "-"],
                          capture_output=True, encoding="utf-8", timeout=120, check=True).stdout
    # Fonts may join letters; a form feed ends each sheet.
    return [squeezed(page) for page in unicodedata.normalize("NFKC", text).split("\f")[:-1]]


def texts(document, page):
    """What can be read on a page of the document, cell by cell."""
    for row in document.rows:
        if row.page == page and not row.is_gap():
            cells = [squeezed(row.title() or ""), document.shown(row.answer() or "")]
            yield from filter(None, cells)


def start(document, page, printed, after):
    """The number of the sheet that begins as the page does, or nothing."""
    first = next(texts(document, page))
    return next((number for number, text in enumerate(printed)
                 if number > after and text.startswith(first)), None)


class Print(unittest.TestCase):
    @on_examples(paged)
    def test_a_new_sheet_begins_with_the_first_row_after_a_page_break(self, document):
        printed = sheets(document)
        begin = 0
        for page in range(1, document.pages()):
            end = start(document, page, printed, begin)
            self.assertIsNotNone(end, f"no sheet begins with page {page + 1} of the document")
            # Whatever stands on the page before is printed before.
            before = "".join(printed[begin:end])
            for text in texts(document, page - 1):
                self.assertIn(text, before)
            begin = end

    @on_examples(paged)
    def test_it_is_the_break_that_makes_the_sheet_begin(self, document):
        printed = sheets(document, breaks=False)
        starts = [start(document, page, printed, 0) for page in range(1, document.pages())]
        self.assertIn(None, starts)

    @on_examples()
    def test_the_first_sheet_is_headed_by_the_code(self, document):
        self.assertIn(squeezed(document.code()), sheets(document)[0])
