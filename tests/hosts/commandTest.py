#!/usr/bin/python3
"""`tavisk edit` and `tavisk preview` with the real component, as a user at a terminal sees them; the
environment's TAVISK is the program."""

import os
import subprocess
import sys
import unittest

from driver import DEADLINE_SECONDS, Application, key
from hostCase import (CALL_ERROR, EDITOR, LOADED, PLAIN, PREVIEW, SAVE_QUESTION, HostTest,
                      link_or_copy, saved)

NO_DISPLAY = ("Run-time error '361': Can't load or unload this object\n"
              "A window needs a display: is DISPLAY or WAYLAND_DISPLAY set?\n")


class CommandTest(HostTest):
    def setUp(self):
        super().setUp()
        self.program = self.component / "tavisk"
        link_or_copy(os.environ["TAVISK"], self.program)
        self.file = self.document()

    def run_it(self, *arguments, data=None, **environment):
        """The running command and its windows."""
        process = subprocess.Popen(
            [str(self.program), *map(str, arguments)], stdin=subprocess.PIPE,
            stdout=subprocess.PIPE, stderr=subprocess.PIPE,
            env=self.environment(LD_LIBRARY_PATH=None, **environment))
        self.addCleanup(process.kill)
        if data is not None:
            process.stdin.write(data)
            process.stdin.close()
            process.stdin = None
        return process, Application(process)

    def ended(self, process):
        out, err = process.communicate(timeout=DEADLINE_SECONDS)
        return process.returncode, out.decode(), err.decode()

    def stamp(self):
        """Changes whenever the file is written, even with the same bytes."""
        status = self.file.stat()
        return status.st_ino, status.st_mtime_ns, self.file.read_bytes()


class Edit(CommandTest):
    def test_what_was_edited_is_in_the_file(self):
        process, windows = self.run_it("edit", self.file)
        window = windows.window(EDITOR)
        window.find("check box", "Title bold").press()
        window.press_button("OK")
        self.assertEqual(self.ended(process), (0, "", ""))
        self.assertEqual(self.file.read_text(encoding="utf-8"), saved('value="old" style="1"'))

    def test_utf16_comes_back_as_utf8(self):
        self.file.write_bytes(("\ufeff" + PLAIN).encode("utf-16-le"))
        process, windows = self.run_it("edit", self.file)
        windows.window(EDITOR).press_button("OK")
        self.assertEqual(self.ended(process), (0, "", ""))
        self.assertEqual(self.file.read_text(encoding="utf-8"), saved())

    def test_no_leaves_the_file_alone(self):
        before = self.stamp()
        process, windows = self.run_it("edit", self.file)
        window = windows.window(EDITOR)
        window.find("check box", "Title bold").press()
        window.press_button("Cancel")
        windows.dialog(SAVE_QUESTION).press_button("No")
        self.assertEqual(self.ended(process), (0, "", ""))
        self.assertEqual(self.stamp(), before)

    def test_no_writes_the_output_that_was_asked_for(self):
        process, windows = self.run_it("edit", self.file, "-o", self.out)
        windows.window(EDITOR).press_button("Cancel")
        windows.dialog(SAVE_QUESTION).press_button("No")
        self.assertEqual(self.ended(process), (0, "", ""))
        self.assertEqual(self.out.read_text(encoding="utf-8"), LOADED)

    def test_standard_streams(self):
        process, windows = self.run_it("edit", "-", data=PLAIN.encode())
        windows.window(EDITOR).press_button("OK")
        self.assertEqual(self.ended(process), (0, saved(), ""))

    def test_a_rejected_document_is_told_in_windows_and_is_exit_3(self):
        self.file.write_text("<cabinetinfo/>", encoding="utf-8")
        before = self.stamp()
        process, windows = self.run_it("edit", self.file)
        windows.dialog("No cabinet data found...").press_button("OK")
        windows.dialog(CALL_ERROR).press_button("OK")
        self.assertEqual(self.ended(process), (3, "", "tavisk: the document was rejected\n"))
        self.assertEqual(self.stamp(), before)

    def test_without_a_display(self):
        before = self.stamp()
        process, _ = self.run_it("edit", self.file, DISPLAY=None, WAYLAND_DISPLAY=None)
        self.assertEqual(self.ended(process), (4, "", NO_DISPLAY))
        self.assertEqual(self.stamp(), before)


class Preview(CommandTest):
    def test_shows_the_page(self):
        process, windows = self.run_it("preview", self.file, "--evaluate")
        windows.window(PREVIEW)
        key("Escape")
        self.assertEqual(self.ended(process), (0, "", ""))
        self.assertIn("old", (self.component / "temp.html").read_text(encoding="cp1252"))

    def test_without_a_display(self):
        process, _ = self.run_it("preview", self.file, DISPLAY=None, WAYLAND_DISPLAY=None)
        self.assertEqual(self.ended(process), (4, "", NO_DISPLAY))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
