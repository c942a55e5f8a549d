#!/usr/bin/python3
"""What the component finds around it: displays, other toolkits, its folder."""

import ctypes.util
import os
import subprocess
import sys
import unittest

from driver import key
from hostCase import LIBRARY, PLAIN, PREVIEW, HostTest

NO_WINDOW = "361 Can't load or unload this object"


class Display(HostTest):
    def assert_no_window(self, host):
        self.assertEqual(host.ask("edit", self.document(), self.out), NO_WINDOW)
        self.assertEqual(self.out.read_text(encoding="utf-8"), PLAIN)
        self.assertEqual(host.ask("preview", self.document(), 1), NO_WINDOW)

    def test_none_and_then_one(self):
        host = self.start("cHost", DISPLAY=None, WAYLAND_DISPLAY=None)
        self.assert_no_window(host)
        self.assert_no_window(host)
        host.ask("display", os.environ["DISPLAY"])
        self.assert_edit_works(host)

    def test_one_that_does_not_answer(self):
        host = self.start("cHost", DISPLAY=":4321", WAYLAND_DISPLAY=None)
        self.assert_no_window(host)
        host.ask("display", os.environ["DISPLAY"])
        self.assert_edit_works(host)


class OtherToolkit(HostTest):
    def test_another_version_of_gtk_is_no_end_of_the_process(self):
        found = [name for name in map(ctypes.util.find_library, ("gtk-x11-2.0", "gtk-4")) if name]
        if not found:
            self.skipTest("no other version of GTK is installed")
        for name in found:
            with self.subTest(library=name):
                host = self.start("pythonHost.py")
                self.assertEqual(host.ask("load", name), "0")
                self.assertEqual(host.ask("edit", self.document(), self.out), NO_WINDOW)
                self.assertEqual(self.out.read_text(encoding="utf-8"), PLAIN)


class Folder(HostTest):
    """Where the page, the pictures and the two files that ship with the component are."""

    def preview(self, host):
        tag = host.send("preview", self.document(), 1)
        host.application.window(PREVIEW)
        key("Escape")
        self.assertEqual(host.answer(tag), "0")

    @staticmethod
    def names(folder):
        return sorted(path.name for path in folder.iterdir())

    def test_is_that_of_the_library(self):
        self.preview(self.start("cHost"))
        self.assertEqual(self.names(self.component),
                         ["cabinet.png", LIBRARY.name, "style.css", "temp.html", "temp_images"])
        self.assertFalse((self.home / "data" / "tavisk").exists())

    def test_is_the_users_where_the_library_may_not_be_written_beside(self):
        before = self.names(self.component)
        host = self.start("cHost", before=self.with_locked_component())
        for _ in range(2):
            self.preview(host)
            self.assert_edit_works(host)
        own = self.home / "data" / "tavisk"
        self.assertEqual(self.names(own), ["cabinet.png", "style.css", "temp.html", "temp_images"])
        for name in ("cabinet.png", "style.css"):
            self.assertEqual((own / name).read_bytes(), (self.component / name).read_bytes(), name)
        self.assertEqual(self.names(self.component), before)

    def test_in_the_users_home_without_a_folder_for_data(self):
        host = self.start("cHost", before=self.with_locked_component(), XDG_DATA_HOME=None)
        self.preview(host)
        self.assertTrue((self.home / ".local" / "share" / "tavisk" / "temp.html").exists())

    def test_nowhere_is_an_error(self):
        host = self.start("cHost", before=self.with_locked_component(), XDG_DATA_HOME=None,
                          HOME="relative")
        self.assertEqual(host.ask("preview", self.document(), 1), "76 Path not found")

    def test_stays_found_when_the_host_changes_its_own_folder(self):
        self.library = "./" + LIBRARY.name
        host = self.start("pythonHost.py", before=["env", "--chdir", self.component])
        self.assertEqual(host.ask("folder", self.folder), "0")
        self.preview(host)
        self.assertTrue((self.component / "temp.html").exists())

    def with_locked_component(self):
        """What to start a host with so that it may not write there. File modes do not count for the
        superuser, who can have the folder mounted so."""
        if os.geteuid() != 0:
            self.component.chmod(0o555)
            self.addCleanup(self.component.chmod, 0o755)
            return []
        lock = 'mount --bind "$0" "$0" && mount -o remount,bind,ro "$0" && exec "$@"'
        words = ["unshare", "--mount", "sh", "-c", lock, self.component]
        if subprocess.run([*words, "true"], capture_output=True, check=False).returncode != 0:
            self.skipTest("no right to mount a folder")
        return words


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
