#!/usr/bin/python3
"""The smallest hosts for Windows, used as by a user who refreshes the formula values."""

import sys
import unittest

from comCase import HERE, ComTest, Process, script

sys.path.insert(0, str(HERE.parent / "docs"))
from documents import Document  # noqa: E402

EXAMPLES = HERE.parents[1] / "examples"
EDITOR = "Library Help XML Editor"
PREVIEW = "Help Preview"
CALL_ERROR = "DLL call returned due to error."
NO_CABINET = "No cabinet data found..."
HANDLE = "The handle is on the side without hinges."

DOOR = (EXAMPLES / "door.xml").read_text(encoding="utf-8")
MARK = '<location value="cabinet=&gt;Handle"/>'
AT_HANDLE = DOOR.replace("</cabinetinfo>", MARK + "</cabinetinfo>")
# The formulas are written anew, without values, and those of the two fixed names last.
FORMULAS = ('<formula name="width" description="Width of the door" standard="1"/>'
            '<formula name="height" description="Height of the door" standard="1"/>'
            '<formula name="code" standard="1"/><formula name="type" standard="1"/>'
            '</cabinetinfo>')
# It is marked, too: a host that asks for the mark alone would call again for ever.
REJECTED = f"<cabinetinfo>{MARK}</cabinetinfo>"


class Examples(ComTest):
    def setUp(self):
        super().setUp()
        self.registered()
        self.file = self.folder / "door.xml"

    def start(self, example, text):
        self.file.write_text(text, encoding="utf-8")
        return Process(*script(EXAMPLES / "windows" / example, self.file))

    def refresh(self, example):
        host = self.start(example, AT_HANDLE.replace('value="450"', 'value="1"'))
        self.driver.ask("text", EDITOR, HANDLE)
        self.driver.ask("remember", EDITOR)
        self.driver.ask("press", EDITOR, "Refresh Formula Values")
        self.driver.ask("another", EDITOR)

        self.driver.ask("text", EDITOR, HANDLE)
        self.driver.ask("press", EDITOR, "Preview Help File")
        self.driver.ask("window", PREVIEW)
        self.driver.ask("close", PREVIEW)
        self.driver.ask("enabled", EDITOR, 1)
        page = (self.component / "temp.html").read_text(encoding="cp1252")
        self.assertIn("A door, 450 mm wide and 720 mm high.", page)

        self.driver.ask("press", EDITOR, "OK")
        self.assertEqual(host.end(), (0, []))
        text = self.file.read_text(encoding="utf-8")
        self.assertNotIn("location", text)
        self.assertEqual(text[text.index("<formula"):].rstrip(), FORMULAS)

    def reject(self, example):
        host = self.start(example, REJECTED)
        self.driver.ask("press", NO_CABINET, "OK")
        self.driver.ask("press", CALL_ERROR, "OK")
        self.assertEqual(host.end(), (0, []))
        self.assertEqual(self.file.read_text(encoding="utf-8"), REJECTED)

    def test_vbscript_goes_through_the_refresh_cycle(self):
        self.refresh("edit.vbs")

    def test_jscript_goes_through_the_refresh_cycle(self):
        self.refresh("edit.js")

    def test_vbscript_leaves_a_rejected_document_as_it_is(self):
        self.reject("edit.vbs")

    def test_jscript_leaves_a_rejected_document_as_it_is(self):
        self.reject("edit.js")

    def test_preview(self):
        host = self.start("preview.vbs", DOOR)
        self.driver.ask("window", PREVIEW)
        self.driver.ask("close", PREVIEW)
        self.assertEqual(host.end(), (0, []))
        page = (self.component / "temp.html").read_text(encoding="cp1252")
        self.assertIn("A door, 450 mm wide and 720 mm high.", page)

    def test_the_one_in_the_readme(self):
        [block] = [block for block in Document(HERE.parents[1] / "README.md").blocks
                   if block.said("file") == "host.vbs"]
        example = self.folder / "host.vbs"
        example.write_text(block.text, encoding="ascii")
        self.file.write_text(DOOR, encoding="utf-8")
        host = Process(*script(example, self.file))
        self.driver.ask("press", EDITOR, "OK")
        self.assertEqual(host.end(), (0, []))
        self.assertIn(FORMULAS, self.file.read_text(encoding="utf-8"))

    def test_a_preview_tells_what_went_wrong(self):
        host = self.start("preview.vbs", DOOR.replace("450", "\u0142"))
        self.assertEqual(host.end(),
                         (1, ["Error 5 of Tavisk: Invalid procedure call or argument"]))


if __name__ == "__main__":
    unittest.main(verbosity=2)
