#!/usr/bin/python3
"""Every command in the documents runs, in the order in which a reader meets it, and prints what is
shown. Each document has a copy of the sources' folders for itself and finds Tavisk installed. Windows
that open are closed as by a user: the editor by OK, a page by Escape."""

import contextlib
import os
import shutil
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path

from documents import ROOT, documents

sys.path.insert(0, str(ROOT / "tests" / "hosts"))
import driver  # noqa: E402

TREE = Path(os.environ["TAVISK_TREE"])  # what `cmake --install` leaves
LIBRARIES = Path(os.environ["TAVISK_LIBRARY_FOLDER"])
EDITOR = "Library Help XML Editor"
PREVIEW = "Help Preview"
COPIED = ("docs", "examples", "include")
MOST_LEFT_OUT = 6
# For a block; some of them compile.
MOST_SECONDS = 180


class Desktop(driver.Application):
    """The windows of all processes."""

    def __init__(self):
        super().__init__(process=None)

    def windows(self):
        driver._listen()
        desktop = driver.Atspi.get_desktop(0)
        desktop.clear_cache()
        for application in driver._children(desktop):
            yield from (window for window in map(driver.Control, driver._children(application))
                        if window.has("active"))

    def close_one(self):
        """The editor or a page, if there is one."""
        for window in self.windows():
            name = driver._asked(lambda shown=window: shown.name)
            if name not in (EDITOR, PREVIEW):
                continue
            before = driver.visible_x_windows(name)
            if name == EDITOR:
                window.press_button("OK")
            else:
                driver.key("Escape")
            driver.wait(lambda: driver.visible_x_windows(name) != before, f"{name} stays open")
            return


class Commands(unittest.TestCase):
    maxDiff = None

    @classmethod
    def setUpClass(cls):
        cls.desktop = Desktop()

    def environment(self, home):
        paths = {"PATH": TREE / "bin", "LD_LIBRARY_PATH": LIBRARIES,
                 "PKG_CONFIG_PATH": LIBRARIES / "pkgconfig", "CMAKE_PREFIX_PATH": TREE}
        joined = {name: os.pathsep.join(filter(None, [str(path), os.environ.get(name)]))
                  for name, path in paths.items()}
        own = {**os.environ, **joined, "HOME": str(home), "XDG_CACHE_HOME": str(home / "cache"),
               "LC_ALL": "C.UTF-8"}
        own.pop("XDG_DATA_HOME", None)
        return own

    def run_block(self, text, folder):
        """The exit code and everything that it prints."""
        with tempfile.TemporaryFile() as out:
            process = subprocess.Popen(["bash", "-e", "-o", "pipefail", "-c", text], cwd=folder,
                                       env=self.environment(folder.parent / "home"), stdout=out,
                                       stderr=subprocess.STDOUT, stdin=subprocess.DEVNULL)
            end = time.monotonic() + MOST_SECONDS

            def ended_or_late():
                self.desktop.close_one()
                return process.poll() is not None or time.monotonic() > end

            try:
                while not ended_or_late():
                    with contextlib.suppress(driver.NotFound):
                        driver.wait(ended_or_late, "")
                self.assertIsNotNone(process.poll(), f"does not end:\n{text}")
            finally:
                process.kill()
                process.wait()
            out.seek(0)
            return process.returncode, out.read().decode()

    def run_document(self, document):
        folder = driver.temporary_folder(self) / "tavisk"
        for name in COPIED:
            shutil.copytree(ROOT / name, folder / name)
        (folder.parent / "home").mkdir()
        printed = None
        for block in document.blocks:
            if name := block.said("file"):
                (folder / name).write_text(block.text, encoding="utf-8")
            if block.language == "output":
                self.assertEqual(printed, block.text, str(block))
            if block.language == "sh" and block.said("not run") is None:
                code, printed = self.run_block(block.text, folder)
                expected = block.said("exits with")
                wanted = int(expected.split(":")[0]) if expected else 0
                self.assertEqual(code, wanted, f"{block}\n{printed}")

    def test_few_are_left_out(self):
        left_out = [block for document in documents().values() for block in document.blocks
                    if block.said("not run") is not None]
        self.assertLessEqual(len(left_out), MOST_LEFT_OUT)
        for block in left_out:
            self.assertTrue(block.said("not run"), f"{block}: no reason")


def add_test(name, document):
    def test(self):
        self.run_document(document)

    setattr(Commands, "test_" + name.replace("/", "_").replace(".", "_"), test)


for path, found in documents().items():
    if any(block.language == "sh" for block in found.blocks):
        add_test(path, found)

if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
