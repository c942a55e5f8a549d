#!/usr/bin/python3
"""Programs and help documents that are shown are right: taken from a file, compiled, or checked.
Commands and what they print are tested by shownCommandsTest.py."""

import os
import re
import subprocess
import sys
import unittest

from documents import ROOT, documents

TAVISK = os.environ["TAVISK"]
MOST_UNCOMPILED = 1
COMMANDS = ("sh", "output")
# What shownCommandsTest.py or the tests of the Windows build compile and run under its name.
RUN = {"cpp", "c", "python", "vbs", "js"}


class Snippets(unittest.TestCase):
    def setUp(self):
        self.blocks = [block for document in documents().values() for block in document.blocks]

    def test_each_is_tested_somehow(self):
        for block in self.blocks:
            with self.subTest(block=str(block)):
                tested = (block.language in (*COMMANDS, "xml", "") or
                          block.said("from") is not None or
                          block.said("not compiled") is not None or
                          block.said("file") is not None and block.language in RUN)
                self.assertTrue(tested, f"a block of {block.language!r}")

    def test_parts_of_files_are_word_for_word(self):
        for block in self.blocks:
            if source := block.said("from"):
                with self.subTest(block=str(block)):
                    text = (ROOT / source).read_text(encoding="utf-8")
                    self.assertIn(block.text, text)

    def test_help_documents_are_without_flaws(self):
        schema = ROOT / "docs" / "tavisk.rng"
        for block in self.blocks:
            if block.language == "xml":
                with self.subTest(block=str(block)):
                    for words in ([TAVISK, "check", "-"],
                                  ["xmllint", "--noout", "--relaxng", schema, "-"]):
                        done = subprocess.run(words, input=block.text.encode(), check=False,
                                              capture_output=True)
                        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)

    def test_few_are_left_out(self):
        left_out = [block for block in self.blocks if block.said("not compiled") is not None]
        self.assertLessEqual(len(left_out), MOST_UNCOMPILED)

    def test_the_manifest_names_the_present_version(self):
        project = (ROOT / "CMakeLists.txt").read_text(encoding="utf-8")
        version = re.search(r"project\(Tavisk VERSION ([\d.]+)", project)[1]
        manifests = [block.text for block in self.blocks if block.language == "manifest"]
        self.assertTrue(manifests)
        for manifest in manifests:
            self.assertIn(f'name="Tavisk.X" version="{version}.0"', manifest)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
