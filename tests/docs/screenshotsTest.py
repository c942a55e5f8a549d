#!/usr/bin/python3
"""The pictures in the documents are those that the present program gives. When it changes on
purpose, `make screenshots` makes them anew."""

import os
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from documents import ROOT

BUILD = Path(os.environ["TAVISK_BUILD"])
IMAGES = ROOT / "docs" / "images"
# Letters may be drawn a shade lighter elsewhere; a word that changes is more than that.
SHADE = "10%"
MOST_PIXELS = 60


def difference(one, other):
    """The number of pixels that differ; all of them when the sizes do."""
    done = subprocess.run(["compare", "-metric", "AE", "-fuzz", SHADE, one, other, "null:"],
                          capture_output=True, text=True, check=False)
    return float(done.stderr) if done.returncode in (0, 1) else float("inf")


class Screenshots(unittest.TestCase):
    def test_are_those_of_this_program(self):
        with tempfile.TemporaryDirectory() as folder:
            made = subprocess.run([ROOT / "tools" / "screenshots.sh", BUILD, folder],
                                  capture_output=True, text=True, check=False)
            self.assertEqual(made.returncode, 0, made.stderr)
            self.assertEqual(sorted(path.name for path in Path(folder).iterdir()),
                             sorted(path.name for path in IMAGES.iterdir()))
            for picture in sorted(IMAGES.iterdir()):
                with self.subTest(picture=picture.name):
                    self.assertLessEqual(difference(Path(folder) / picture.name, picture),
                                         MOST_PIXELS, "run `make screenshots` and look at it")

    def test_a_word_that_changes_is_seen(self):
        picture = IMAGES / "guide-format.png"
        with tempfile.TemporaryDirectory() as folder:
            changed = Path(folder) / "changed.png"
            subprocess.run(["convert", picture, "-fill", "black", "-annotate", "+300+100", "Word",
                            changed], check=True)
            self.assertGreater(difference(picture, changed), MOST_PIXELS)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
