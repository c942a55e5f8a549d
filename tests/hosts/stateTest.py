#!/usr/bin/python3
"""What belongs to the host is as it was after a call: the C hosts compare it around every call (see
hostState.h), here where the host has changed it before."""

import subprocess
import sys
import unittest

from driver import key
from hostCase import PREVIEW, HostTest, saved


class State(HostTest):
    def preview(self, host):
        tag = host.send("preview", self.document(), 1)
        host.application.window(PREVIEW)
        key("Escape")
        return host.answer(tag)

    def raise_signals(self, host):
        """How often the host's two handlers have run. The second one is told of every process that
        ends, those of the browser among them."""
        user_signals, child_signals = map(int, host.ask("raise").split())
        self.assertGreaterEqual(child_signals, user_signals)
        return user_signals

    def test_handlers_of_the_hosts_own(self):
        host = self.start("cHost")
        host.ask("handlers")
        self.assertEqual(self.raise_signals(host), 1)
        self.assert_edit_works(host)
        self.assertEqual(self.raise_signals(host), 2)
        self.assertEqual(self.preview(host), "0")
        self.assertEqual(self.raise_signals(host), 3)
        self.assert_edit_works(host)
        self.assertEqual(self.raise_signals(host), 4)

    def test_handlers_of_the_hosts_own_run_while_a_window_is_open(self):
        host = self.start("loopHost", "gtk")
        host.ask("handlers")
        tag, window = self.edit(host)
        self.assertEqual(self.raise_signals(host), 1)
        window.press_button("Preview Help File")
        host.application.window(PREVIEW)
        self.assertEqual(self.raise_signals(host), 2)
        key("Escape")
        window.wait_for("active")
        window.press_button("OK")
        self.assert_edited(host, tag, saved())
        self.assertEqual(self.raise_signals(host), 3)

    def locales(self):
        """The path of a folder with a German locale."""
        folder = self.folder / "locales"
        folder.mkdir()
        subprocess.run(["localedef", "-i", "de_DE", "-f", "UTF-8", folder / "de_DE.UTF-8"],
                       check=True, capture_output=True)
        return str(folder)

    def test_a_locale_with_other_numbers(self):
        host = self.start("cHost", LOCPATH=self.locales())
        self.assertEqual(host.ask("locale", "de_DE.UTF-8"), "de_DE.UTF-8 1,5")
        tag, window = self.edit(host)
        window.find("push button", "Title font larger").press()
        window.press_button("OK")
        self.assert_edited(host, tag, saved('value="old" titlefontsize="1"'))
        self.assertEqual(self.preview(host), "0")
        self.assertEqual(host.ask("locale", "now"), "de_DE.UTF-8 1,5")

    def test_a_locale_that_the_host_does_not_use_stays_unused(self):
        host = self.start("loopHost", "glib", LOCPATH=self.locales(), LC_ALL="de_DE.UTF-8")
        tag, window = self.edit(host)
        self.assertEqual(host.ask("locale", "now"), "C 1.5")
        window.press_button("OK")
        self.assert_edited(host, tag, saved())
        self.assertEqual(host.ask("locale", "now"), "C 1.5")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
