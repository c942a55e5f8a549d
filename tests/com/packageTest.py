#!/usr/bin/python3
"""The package for Windows: what is in it, and that a user can install it, use it and remove it."""

import os
import sys
import unittest
import zipfile
from pathlib import Path

from comCase import ALL_USERS, ComTest, Process, registry, run, script, windows_path

PACKAGE = Path(os.environ["TAVISK_PACKAGE"])
NAME = ALL_USERS + "\\Tavisk.clsTavisk"
CLASS_IDS = ALL_USERS + "\\CLSID"
EDITOR = "Library Help XML Editor"
FILES = ["README.txt", "Tavisk.X.manifest", "Tavisk.dll", "Tavisk.tlb", "cabinet.png",
         "examples/door.xml", "examples/edit.js", "examples/edit.vbs", "examples/preview.vbs",
         "install.cmd", "licences/Tavisk.txt", "licences/gcc-runtime.txt",
         "licences/libjpeg-turbo.txt", "licences/libpng1.6.txt", "licences/libxml2.txt",
         "licences/mingw-w64.txt", "licences/wxwidgets3.2.txt", "licences/zlib.txt", "style.css",
         "uninstall.cmd"]
# A sentence that each licence cannot be without.
SENTENCES = {
    "Tavisk": "MIT License",
    "gcc-runtime": "GCC Runtime Library Exception",
    "libjpeg-turbo": "Independent JPEG Group",
    "libpng1.6": "PNG Reference Library",
    "libxml2": "Permission is hereby granted, free of charge",
    "mingw-w64": "Upstream-Name: mingw-w64",
    "wxwidgets3.2": "wxWindows Library Licence",
    "zlib": "Jean-loup Gailly",
}


class Package(ComTest):
    def setUp(self):
        super().setUp()
        with zipfile.ZipFile(PACKAGE) as package:
            self.names = package.namelist()
            package.extractall(self.folder)
        self.root = self.folder / PACKAGE.stem

    def command(self, name):
        return run("cmd", "/c", windows_path(self.root / name), check=False)

    def test_the_list(self):
        self.assertEqual(self.names, [f"{PACKAGE.stem}/{name}" for name in FILES])

    def test_the_licences_are_what_they_are_called(self):
        for name, sentence in SENTENCES.items():
            text = (self.root / "licences" / f"{name}.txt").read_text(encoding="utf-8")
            self.assertTrue(sentence in text, name)

    def test_it_is_installed_used_and_removed(self):
        before = registry(CLASS_IDS, self.folder)
        self.assertEqual(self.command("install.cmd"), (0, ["Tavisk.dll is registered."]))
        self.addCleanup(run, "regsvr32", "/s", "/u", windows_path(self.root / "Tavisk.dll"))
        self.assertIn(NAME.lower(), registry(NAME, self.folder))
        for example in ("edit.vbs", "edit.js"):
            with self.subTest(example=example):
                self.use(example)
        self.assertEqual(self.command("uninstall.cmd"), (0, ["Tavisk.dll is no longer registered."]))
        self.assertEqual(registry(NAME, self.folder), {})
        self.assertTrue(registry(CLASS_IDS, self.folder) == before, "classes differ")

    def use(self, example):
        document = self.root / "examples" / "door.xml"
        host = Process(*script(self.root / "examples" / example, document))
        self.driver.ask("press", EDITOR, "OK")
        self.assertEqual(host.end(), (0, []))
        # The values are the host's business.
        self.assertIn('<formula name="width" description="Width of the door" standard="1"/>',
                      document.read_text())

    def test_a_library_that_is_missing_is_told(self):
        (self.root / "Tavisk.dll").unlink()
        self.assertEqual(self.command("install.cmd"),
                         (1, ["Tavisk.dll could not be registered."]))
        self.assertEqual(self.command("uninstall.cmd"),
                         (1, ["The registration of Tavisk.dll could not be removed."]))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
