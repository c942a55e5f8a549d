#!/usr/bin/python3
"""Compares what becomes of documents here and on the other system, byte for byte: the build folders
are the environment's TAVISK_NATIVE and TAVISK_BUILD, TAVISK_RUN runs the latter's programs."""

import os
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
EXAMPLES = sorted(ROOT.glob("examples/**/*.xml"))
NATIVE = Path(os.environ["TAVISK_NATIVE"])
BUILD = Path(os.environ["TAVISK_BUILD"])
RUN = os.environ["TAVISK_RUN"].split(";")
RANDOM_DOCUMENTS = 2000


def native(program):
    return [str(NATIVE / program)]


def other(program):
    return [*RUN, str(BUILD / (program + ".exe"))]


def contents(folder, replaced):
    """Every file below, with its bytes; the folder's own name is as it is here."""
    return {str(file.relative_to(folder)): file.read_bytes().replace(*replaced)
            for file in sorted(folder.rglob("*")) if file.is_file()}


class SamePages(unittest.TestCase):
    maxDiff = 2000

    def setUp(self):
        temporary = tempfile.TemporaryDirectory(prefix="tavisk-")
        self.addCleanup(temporary.cleanup)
        self.folder = Path(temporary.name)

    def test_every_example_and_random_document(self):
        self.assertGreaterEqual(len(EXAMPLES), 7)
        results = [self.folder / "here", self.folder / "there"]
        runs = [subprocess.Popen([*program("tavisk_pages"), str(result), "1",
                                  str(RANDOM_DOCUMENTS), *map(str, EXAMPLES)])
                for program, result in zip((native, other), results)]
        self.assertEqual([run.wait(timeout=500) for run in runs], [0, 0])
        here, there = (result.read_bytes() for result in results)
        self.assertEqual(here.count(b"\n== seed "), 3 * RANDOM_DOCUMENTS)
        if here != there:
            at = next((i for i, (a, b) in enumerate(zip(here, there)) if a != b),
                      min(len(here), len(there)))
            begin = here.rfind(b"== ", 0, at)
            self.fail(f"{here[begin:begin + 40]!r}, byte {at}:\n here  {here[at - 60:at + 100]!r}\n"
                      f" there {there[at - 60:at + 100]!r}")

    def test_the_command_writes_the_same_files(self):
        for example in EXAMPLES:
            with self.subTest(example=example.name):
                found = []
                page = self.folder / "page"
                for program in (native, other):
                    run = subprocess.run([*program("tavisk"), "render", str(example), "--evaluate",
                                          "--folder", str(page)], capture_output=True,
                                         timeout=60, check=False)
                    saved = subprocess.run([*program("tavisk"), "save", str(example)],
                                           capture_output=True, timeout=60, check=False)
                    # A path from the root gets its drive there.
                    replaced = (b"Z:" + bytes(page), bytes(page))
                    files = contents(page, replaced) if page.exists() else None
                    shutil.rmtree(page, ignore_errors=True)
                    found.append((run.returncode, run.stdout, run.stderr, saved.returncode,
                                  saved.stdout, saved.stderr, files))
                self.assertEqual(found[0], found[1])


if __name__ == "__main__":
    unittest.main()
