#!/usr/bin/python3
"""The smallest hosts, used as by a user who refreshes the formula values: refreshTest.py HOST"""

import os
import sys
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tests" / "hosts"))
from driver import close_by_window_manager, key, visible_x_windows, wait  # noqa: E402
from hostCase import CALL_ERROR, EDITOR, PREVIEW, SANITIZED, Host, HostTest, sanitizer  # noqa: E402

EXAMPLES = ROOT / "examples"
NAME = sys.argv.pop(1)

DOOR = (EXAMPLES / "door.xml").read_text(encoding="utf-8")
DECLARATION = '<?xml version="1.0"?>\n'
# The formulas are written anew, without values, and those of the two fixed names last. Selecting
# "Handle" clears the boxes that the node before it had ticked, which is written.
SAVED = """<cabinetinfo><cabinet>\
<code value="`code`" titlehidden="1" answerhidden="1"/>\
<Overview value="A door, `width` mm wide and `height` mm high." titlefontsize="1" style="1"/>\
<Hinges value="Two hinges up to 900 mm, three above."/>\
<Handle value="The handle is on the side without hinges." spacebefore="1" titlehidden="0" \
answerhidden="0"/></cabinet>\
<formula name="width" description="Width of the door" standard="1"/>\
<formula name="height" description="Height of the door" standard="1"/>\
<formula name="code" standard="1"/><formula name="type" standard="1"/>\
</cabinetinfo>"""
# It is marked, too: a host that asks for the mark alone would call again for ever.
REJECTED = '<cabinetinfo><location value="cabinet=&gt;Handle"/></cabinetinfo>'


class ExampleTest(HostTest):
    """How one of the hosts is started, brought to open the editor, and ended."""

    # What it answers to a rejected document.
    FAILURE = 1
    REASON = "Object was unloaded"
    # Whether it is built like the component.
    OWN_BUILD = True

    def command(self):
        raise NotImplementedError

    def begin(self, host):
        """Brings the host to open the editor."""

    def leave(self, host):
        """After the editor was closed."""

    def started(self, text):
        self.file = self.folder / "door.xml"
        self.file.write_text(text, encoding="utf-8")
        own = {"TAVISK_LIBRARY": str(self.library)}
        if SANITIZED and not self.OWN_BUILD:
            # The sanitizer wants to be there first; what the host loses is its own business.
            own |= {"LD_PRELOAD": sanitizer(), "ASAN_OPTIONS": "detect_leaks=0"}
        host = Host([*self.command(), self.file], self.environment(**own), self.folder)
        self.addCleanup(host.process.stdout.close)
        self.addCleanup(host.process.kill)
        self.begin(host)
        return host

    def test_the_refresh_cycle(self):
        host = self.started(DOOR.replace('value="450"', 'value="1"'))
        editor = host.application.window(EDITOR)
        editor.find("table cell", "Handle").click()
        wait(lambda: "handle" in self.answer(editor), "the node is not shown")
        before = visible_x_windows(EDITOR)
        editor.press_button("Refresh Formula Values")
        wait(lambda: visible_x_windows(EDITOR) not in ([], before), "no second window")

        editor = host.application.window(EDITOR)
        self.assertEqual(self.answer(editor), "The handle is on the side without hinges.")
        editor.press_button("Preview Help File")
        host.application.window(PREVIEW)
        key("Escape")
        editor.wait_for("active")
        page = (self.component / "temp.html").read_text(encoding="cp1252")
        self.assertIn("A door, 450 mm wide and 720 mm high.", page)

        editor.press_button("OK")
        self.leave(host)
        self.assertEqual(host.end(), (0, ""))
        text = self.file.read_text(encoding="utf-8")
        self.assertEqual(text.removeprefix(DECLARATION), SAVED)

    def test_a_rejected_document_stays_as_it_is(self):
        host = self.started(REJECTED)
        host.application.dialog("No cabinet data found...").press_button("OK")
        host.application.dialog(CALL_ERROR).press_button("OK")
        if self.FAILURE == 0:
            self.leave(host)
        code, errors = host.end()
        self.assertEqual(code, self.FAILURE)
        self.assertIn(self.REASON, errors)
        self.assertEqual(self.file.read_text(encoding="utf-8"), REJECTED)

    @staticmethod
    def answer(editor):
        return editor.find("text", "Information Text").text


class WithPage(ExampleTest):
    """Shows the page after the last edit."""

    OWN_BUILD = False

    def leave(self, host):
        host.application.window(PREVIEW)
        key("Escape")


class Python(WithPage):
    def command(self):
        return [sys.executable, EXAMPLES / "python" / "edit.py"]


class C(WithPage):
    def command(self):
        return [Path(os.environ["TAVISK_HOSTS"]) / "c" / "edit"]


class Cpp(WithPage):
    REASON = "error 364"

    def command(self):
        return [Path(os.environ["TAVISK_HOSTS"]) / "cpp" / "edit"]


class Gtk(ExampleTest):
    FAILURE = 0  # its window goes on

    def command(self):
        return [Path(os.environ["TAVISK_HOSTS"]) / "gtkExample"]

    def begin(self, host):
        host.application.window("Door").press_button("Edit help")

    def leave(self, host):
        host.application.window("Door").find("push button", "Edit help").wait_for("sensitive")
        close_by_window_manager("Door")


del HostTest
TESTED = {"python": Python, "c": C, "cpp": Cpp, "gtk": Gtk}[NAME]


def load_tests(loader, *_):
    return loader.loadTestsFromTestCase(TESTED)


if __name__ == "__main__":
    unittest.main(verbosity=2)
