#!/usr/bin/python3
"""What an ordinary user does with the installed packages, on a display: in a clean root, where
nothing of the project is there but its packages and, for reading, its sources."""

import shutil
import subprocess
import sys
import unittest
from pathlib import Path

SOURCE = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(SOURCE / "tests" / "hosts"))
from driver import Application, key, wait  # noqa: E402
from gi.repository import Gio  # noqa: E402
from hostCase import EDITOR, PREVIEW  # noqa: E402

HOME = Path.home()
PAGES = HOME / ".local" / "share" / "tavisk"
DEADLINE_SECONDS = 60


class Launched:
    """A process that somebody else started."""

    def __init__(self, pid):
        self.pid = pid
        self.returncode = None

    def poll(self):
        return None if Path(f"/proc/{self.pid}").exists() else "an unknown code"


class User(unittest.TestCase):
    def setUp(self):
        self.file = HOME / "door.xml"
        shutil.copy(SOURCE / "examples" / "door.xml", self.file)

    def started(self, *words):
        process = subprocess.Popen(list(map(str, words)), stdout=subprocess.PIPE,
                                   stderr=subprocess.PIPE, text=True)
        self.addCleanup(process.__exit__, None, None, None)
        self.addCleanup(process.kill)
        return process, Application(process)

    def assert_ends_well(self, process):
        out, err = process.communicate(timeout=DEADLINE_SECONDS)
        self.assertEqual((process.returncode, out, err), (0, "", ""))

    def edit(self, windows):
        window = windows.window(EDITOR)
        window.find("table cell", "Hinges").click()
        wait(lambda: window.find("text", "Information Text").text.startswith("Two hinges"),
             "the node is not shown")
        window.find("check box", "Title bold").press()
        window.press_button("OK")

    def assert_edited(self):
        self.assertIn('<Hinges value="Two hinges up to 900 mm, three above." ',
                      self.file.read_text(encoding="utf-8"))
        self.assertIn('style="1"', self.file.read_text(encoding="utf-8").partition("<Hinges")[2]
                      .partition("/>")[0])

    def close_page(self, windows):
        windows.window(PREVIEW)
        key("Escape")

    def assert_page(self, title):
        page = (PAGES / "temp.html").read_text(encoding="cp1252")
        self.assertIn("A door, 450 mm wide and 720 mm high.", page)
        self.assertIn(title, page)

    def test_edit_and_preview(self):
        process, windows = self.started("tavisk", "edit", self.file)
        self.edit(windows)
        self.assert_ends_well(process)
        self.assert_edited()
        shutil.copy(SOURCE / "examples" / "door.xml", self.file)
        process, windows = self.started("tavisk", "preview", self.file, "--evaluate")
        self.close_page(windows)
        self.assert_ends_well(process)
        self.assert_page("D45")

    def test_the_desktop_opens_a_document(self):
        document = self.file.rename(self.file.with_suffix(".cabinetinfo"))
        file = Gio.File.new_for_path(str(document))
        kind = file.query_info("standard::content-type", 0, None).get_content_type()
        self.assertEqual(kind, "application/vnd.tavisk.help+xml")
        editor = Gio.AppInfo.get_default_for_type(kind, False)
        self.assertEqual(editor.get_id(), "tavisk.desktop")
        launched = []
        context = Gio.AppLaunchContext()
        context.connect("launched", lambda _, __, data: launched.append(data["pid"]))
        editor.launch_uris([file.get_uri()], context)
        self.edit(Application(Launched(*launched)))
        self.file = document
        wait(lambda: 'style="1"' in document.read_text(encoding="utf-8").partition("<Hinges")[2],
             "the document is not written")
        self.assert_edited()

    def host(self, program):
        process, windows = self.started(program, self.file)
        self.edit(windows)
        self.close_page(windows)
        self.assert_ends_well(process)
        self.assert_edited()
        self.assert_page("D45")

    def test_a_host_in_c(self):
        flags = subprocess.run(["pkg-config", "--cflags", "--libs", "tavisk", "libxml-2.0"],
                               check=True, capture_output=True, text=True).stdout.split()
        # The tree is where compilers look anyway.
        self.assertEqual([flag for flag in flags if "tavisk" in flag], ["-ltavisk"])
        program = HOME / "hosts" / "edit"
        program.parent.mkdir(exist_ok=True)
        subprocess.run(["cc", SOURCE / "examples" / "c" / "edit.c", "-o", program, *flags],
                       check=True)
        self.host(program)

    def test_a_host_in_cpp(self):
        build = HOME / "hosts" / "cpp"
        for words in (["-S", SOURCE / "examples" / "cpp", "-B", build], ["--build", build]):
            subprocess.run(["cmake", *words], check=True, stdout=subprocess.DEVNULL)
        self.host(build / "edit")


if __name__ == "__main__":
    unittest.main(verbosity=2)
