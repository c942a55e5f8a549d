"""The command and the tool that takes pictures, on the same documents."""

import json
import struct
import subprocess
import sys
import unittest

import screenshot
from example import EXAMPLES
from reader import browser, folder, on_examples, opened, page, run


def findings(path):
    """The exit status of a check, and what it found."""
    done = run("check", path, "--json")
    return done.returncode, json.loads(done.stdout)["findings"]


class Check(unittest.TestCase):
    @on_examples()
    def test_the_examples_are_clean(self, document):
        self.assertEqual((0, []), findings(document.path))

    def test_every_flaw_is_found_and_nothing_else(self):
        self.assert_flaws(EXAMPLES / "flawed.xml",
                          {"Unknown formula", "Unknown picture", "Unknown overlay",
                           "Odd backquote", "Colour", "Size", "Style", "Gap", "Flag", "Twin"},
                          {"never shown", "no data"})

    def test_flaws_that_stop_the_page_are_found(self):
        self.assert_flaws(EXAMPLES / "flawed" / "no-page.xml", {"Foreign character", "Too long"},
                          set())

    def assert_flaws(self, path, nodes, pictures):
        """The documents name their flawed nodes and pictures after their flaws."""
        status, found = findings(path)
        self.assertEqual(1, status)
        keys = [finding["key"] for finding in found]
        self.assertEqual(nodes, {key.split("=>")[-1] for key in keys if "=>" in key})
        others = [key for key in keys if "=>" not in key]
        self.assertEqual(len(pictures), len(others))
        for name in pictures:
            self.assertTrue(any(name in key for key in others), name)


class Screenshot(unittest.TestCase):
    def test_shows_the_whole_page_in_the_width_that_was_asked(self):
        taken = folder() / "taken.png"
        for width in (800, 1300):
            done = take(page("base-cabinet"), taken, "--width", width)
            self.assertEqual((0, ""), (done.returncode, done.stderr))
            head = taken.read_bytes()[:24]
            self.assertEqual(b"\x89PNG\r\n\x1a\n", head[:8])
            self.assertEqual((width, page_height(width)), struct.unpack(">II", head[16:]))

    def test_a_missing_page_is_said(self):
        done = take(folder() / "none.html", folder() / "none.png")
        self.assertEqual(2, done.returncode)
        self.assertIn("none.html", done.stderr)


def take(*arguments):
    return subprocess.run([sys.executable, screenshot.__file__, *map(str, arguments)],
                          capture_output=True, encoding="utf-8", timeout=120, check=False)


def page_height(width):
    """How high the page is in a window of this width."""
    opened("base-cabinet")
    metrics = {"width": width, "height": 800, "deviceScaleFactor": 1, "mobile": False}
    browser().execute_cdp_cmd("Emulation.setDeviceMetricsOverride", metrics)
    try:
        return browser().execute_script("return document.documentElement.scrollHeight")
    finally:
        browser().execute_cdp_cmd("Emulation.clearDeviceMetricsOverride", {})
