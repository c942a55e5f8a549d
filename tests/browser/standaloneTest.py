"""The page as one file: what a reader sees of it is what the page in its folder shows."""

import copy
import functools
import shutil
import tempfile
import unittest
from pathlib import Path

import screenshot
from example import squeezed
from reader import PROBE, browser, folder, on_examples, opened, run, seen

ELSEWHERE = """
return [...document.querySelectorAll('[src], link[href]')]
    .map(element => element.getAttribute('src') ?? element.getAttribute('href'))
    .filter(address => !address.startsWith('data:image/'));
"""


def alone(page):
    """A copy of the page in a folder of its own."""
    place = Path(tempfile.mkdtemp(dir=folder()))
    return Path(shutil.copy(page, place / "moved.html"))


@functools.lru_cache(maxsize=None)
def standalone(name, path):
    page = folder() / f"{name}-alone.html"
    done = run("render", path, "--standalone", "-o", page, "--evaluate")
    if done.returncode != 0 or done.stderr:
        raise AssertionError(f"rendering {name} ended with {done.returncode}: {done.stderr}")
    return alone(page)


def written(document):
    """The page of a document that is given as text."""
    place = Path(tempfile.mkdtemp(dir=folder()))
    (place / "a.xml").write_text(document, encoding="utf-8")
    done = run("render", place / "a.xml", "--standalone", "-o", place / "a.html", "--evaluate")
    if done.returncode != 0:
        raise AssertionError(done.stderr)
    return place / "a.html"


def comparable(shown):
    """Pictures are told by their sizes, which are those of their data."""
    shown = copy.deepcopy(shown)
    for row in shown["rows"]:
        for cell in row["cells"]:
            cell["text"] = squeezed(cell["text"])
            for picture in cell["pictures"]:
                del picture["source"], picture["address"]
    return shown


class Standalone(unittest.TestCase):
    maxDiff = 4000

    def open(self, page):
        screenshot.open_page(browser(), page)
        return browser()

    @on_examples()
    def test_shows_what_the_page_in_its_folder_shows(self, document):
        with_files = comparable(seen(document.name))
        page = self.open(standalone(document.name, document.path))
        self.assertEqual(with_files, comparable(page.execute_script(PROBE)))

    @on_examples()
    def test_all_pictures_are_loaded(self, document):
        page = self.open(standalone(document.name, document.path))
        sizes = page.execute_script("return [...document.images].map(i => i.naturalWidth)")
        self.assertTrue(all(sizes), sizes)

    @on_examples()
    def test_nothing_refers_to_another_file(self, document):
        page = self.open(standalone(document.name, document.path))
        self.assertEqual([], page.execute_script(ELSEWHERE))
        self.assertEqual(1, page.execute_script("return document.styleSheets.length"))

    @on_examples()
    def test_looks_the_same(self, document):
        width = 1200
        # The other tests measure in the window's own size.
        self.addCleanup(browser().execute_cdp_cmd, "Emulation.clearDeviceMetricsOverride", {})
        before = screenshot.taken(opened(document.name), width)
        after = screenshot.taken(self.open(standalone(document.name, document.path)), width)
        self.assertEqual(before, after)

    def test_holds_every_character(self):
        page = self.open(written("<cabinetinfo><cabinet><A value='\u0142 \u4e2d \U0001f600'/>"
                                 "</cabinet></cabinetinfo>"))
        self.assertEqual("UTF-8", page.execute_script("return document.characterSet"))
        self.assertIn("\u0142 \u4e2d \U0001f600", page.execute_script(
            "return document.body.textContent"))

    def test_scripts_do_not_run(self):
        page = self.open(written(
            "<cabinetinfo><cabinet><A value='&lt;script&gt;document.title=\"ran\"&lt;/script&gt;"
            "&lt;img src=\"data:,\" onerror=\"document.title=&quot;ran&quot;\"&gt;"
            "`@none.png`'/></cabinet></cabinetinfo>"))
        self.assertEqual("", page.title)
