"""Tests of the module that need no display: python3 -m unittest (in this folder).

TAVISK_LIBRARY may name the library. Each test asks an interpreter of its own, because a library
stays in its process.
"""

import os
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

FOLDER = Path(__file__).resolve().parent
NO_DISPLAY = "361 Can't load or unload this object"
CAUGHT = "\nexcept tavisk.Error as e: print(e.number, e.text)"


class Interpreter(unittest.TestCase):
    def ask(self, code, folder=FOLDER, **environment):
        """What `code` prints."""
        own = {**os.environ, "PYTHONPATH": str(folder), "PYTHONDONTWRITEBYTECODE": "1",
               **environment}
        own = {name: value for name, value in own.items() if value is not None}
        for display in ("DISPLAY", "WAYLAND_DISPLAY"):
            own.pop(display, None)
        done = subprocess.run([sys.executable, "-c", "import tavisk\n" + code], env=own,
                              capture_output=True, text=True, check=False)
        self.assertEqual(done.returncode, 0, done.stderr)
        return done.stdout.strip()


class Module(Interpreter):
    def library(self):
        """The library's file."""
        return Path(self.ask("print(tavisk._library()._name)")).resolve()

    def test_the_version_has_three_numbers(self):
        self.assertRegex(self.ask("print(tavisk.version())"), r"^\d+\.\d+\.\d+$")

    def test_an_edit_without_a_display_is_an_error_with_number_and_text(self):
        self.assertEqual(self.ask("try: tavisk.edit_xml('<a/>')" + CAUGHT), NO_DISPLAY)

    def test_a_preview_without_a_display_is_an_error_with_number_and_text(self):
        self.assertEqual(self.ask("try: tavisk.preview_xml('<a/>')" + CAUGHT), NO_DISPLAY)

    def test_an_error_prints_both(self):
        self.assertEqual(self.ask("print(tavisk.Error(5, 'Text'))"), "5: Text")

    def test_half_a_surrogate_pair_is_the_librarys_business(self):
        self.assertEqual(self.ask("try: tavisk.edit_xml('<a>\\ud800</a>')" + CAUGHT), NO_DISPLAY)

    def test_a_nul_inside_is_a_value_error(self):
        self.assertEqual(self.ask("try: tavisk.edit_xml('<a/>\\0')\n"
                                  "except ValueError as e: print(e)"),
                         "a document has no NUL inside")

    def test_the_library_beside_the_module_is_found(self):
        with tempfile.TemporaryDirectory() as folder:
            shutil.copy(FOLDER / "tavisk.py", folder)
            beside = Path(folder) / "libtavisk.so.0"
            beside.symlink_to(self.library())
            self.assertEqual(self.ask("print(tavisk._library()._name)", folder,
                                      TAVISK_LIBRARY=None), str(beside))

    def test_the_registered_library_is_found(self):
        with tempfile.TemporaryDirectory() as data:
            file = Path(data, "tavisk", "libtavisk.path")
            file.parent.mkdir()
            file.write_text(f"{self.library()}\n", encoding="utf-8")
            self.assertEqual(self.ask("print(tavisk._library()._name)", TAVISK_LIBRARY=None,
                                      XDG_DATA_HOME=data), str(self.library()))

    def test_a_library_that_is_not_there_is_an_os_error(self):
        said = self.ask("try: tavisk.version()\nexcept OSError as e: print(e)",
                        TAVISK_LIBRARY="/nowhere/libtavisk.so")
        self.assertEqual(said, "/nowhere/libtavisk.so: cannot open shared object file: No such file or "
                               "directory; TAVISK_LIBRARY can name the library of Tavisk")


class Host(Interpreter):
    """What edit.py writes into a document."""

    def with_values(self, document):
        return self.ask(f"import edit; print(edit.with_values({document!r}), end='')")

    def test_every_formula_has_a_value(self):
        self.assertEqual(self.with_values('<cabinetinfo><formula name="width"/><formula name="x" '
                                          'value="old"/></cabinetinfo>'),
                         '<cabinetinfo><formula name="width" value="450" /><formula name="x" '
                         'value="?" /></cabinetinfo>')

    def test_line_breaks_comments_and_pictures_stay(self):
        document = ('<cabinetinfo><cabinet><!-- node --><A value="a&#10;b" /></cabinet><image '
                    'xmlns:dt="urn:schemas-microsoft-com:datatypes" dt:dt="bin.base64">AAAA</image>'
                    '</cabinetinfo>')
        kept = self.with_values(document)
        self.assertIn('<cabinet><!-- node --><A value="a&#10;b" /></cabinet>', kept)
        self.assertIn('<image dt:dt="bin.base64">AAAA</image>', kept)
        self.assertIn('xmlns:dt="urn:schemas-microsoft-com:datatypes"', kept)

    def test_formulas_that_would_hide_external_pictures_go(self):
        self.assertEqual(self.with_values('<cabinetinfo><formula name="@/a.png" standard="0"/>'
                                          '</cabinetinfo>'), "<cabinetinfo />")


if __name__ == "__main__":
    unittest.main(verbosity=2)
