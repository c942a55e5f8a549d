#!/usr/bin/python3
"""Pictures of a tour show something: a window without a page is not one to go on from."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path
from types import SimpleNamespace

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "tools"))
sys.dont_write_bytecode = True
import tour  # noqa: E402

SCREEN = "400x300"
BOX = SimpleNamespace(x=100, y=50, width=200, height=200)
WINDOW = SimpleNamespace(node=SimpleNamespace(get_extents=lambda _: BOX), described="window")
FRAME = ["-fill", "white", "-stroke", "navy", "-draw", "rectangle 100,50 299,249"]


class Blank(unittest.TestCase):
    def is_blank(self, *drawn):
        with tempfile.TemporaryDirectory() as folder:
            picture = Path(folder) / "screen.png"
            subprocess.run(["convert", "-size", SCREEN, "plasma:red-blue", *FRAME, *drawn, picture],
                           check=True)
            return tour.is_blank(picture, WINDOW)

    def test_a_window_with_nothing_but_its_frame_is(self):
        self.assertTrue(self.is_blank())

    def test_a_window_with_a_line_of_text_is_not(self):
        self.assertFalse(self.is_blank("-stroke", "none", "-fill", "black", "-annotate", "+150+140",
                                       "The door is 600 mm wide."))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
