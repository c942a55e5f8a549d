#!/usr/bin/python3
"""Hosts with an event loop of their own: what comes to them while a window of the component is
open, and that their loop goes on afterwards."""

import sys
import unittest

from driver import DEADLINE_SECONDS, key, wait
from hostCase import CALL_ERROR, PLAIN, PREVIEW, SAVE_QUESTION, HostTest, saved

REJECTED = "<cabinetinfo/>"


class LoopTest(HostTest):
    LOOP = "gtk"

    def setUp(self):
        super().setUp()
        self.host = self.start("loopHost", self.LOOP)

    def ticks(self):
        return int(self.host.ask("ticks"))

    def assert_timer_runs(self):
        before = self.ticks()
        wait(lambda: self.ticks() > before, "the host's timer stands still")

    def open_input_box(self, window):
        window.press_button("Add formula")
        self.host.application.other_than(window)


class Gtk(LoopTest):
    """A host inside gtk_main."""

    def test_the_hosts_timer_runs_while_and_after_an_edit(self):
        tag, window = self.edit(self.host)
        self.assert_timer_runs()
        window.press_button("OK")
        self.assert_edited(self.host, tag, saved())
        self.assert_timer_runs()

    def test_dialogs_inside_leave_the_hosts_loop_running(self):
        tag, window = self.edit(self.host)
        self.open_input_box(window)
        self.assert_timer_runs()
        key("Escape")
        window.wait_for("active")
        window.press_button("Cancel")
        self.host.application.dialog(SAVE_QUESTION).press_button("Cancel")
        window.press_button("Preview Help File")
        self.host.application.window(PREVIEW)
        self.assert_timer_runs()
        key("Escape")
        window.wait_for("active")
        window.press_button("OK")
        self.assert_edited(self.host, tag, saved())
        self.assert_timer_runs()

    def test_boxes_before_and_after_the_window_leave_the_hosts_loop_running(self):
        tag = self.host.send("edit", self.document(REJECTED), self.out)
        for text in ("No cabinet data found...", CALL_ERROR):
            box = self.host.application.dialog(text)
            self.assert_timer_runs()
            box.press_button("OK")
        self.assertEqual(self.host.answer(tag), "364 Object was unloaded")
        self.assert_timer_runs()

    def test_a_host_that_quits_meanwhile_has_quit_afterwards(self):
        tag, window = self.edit(self.host)
        window.press_button("Preview Help File")
        self.host.application.window(PREVIEW)
        self.assertEqual(self.host.ask("quit"), "0")
        key("Escape")
        window.wait_for("active")
        window.press_button("OK")
        self.assert_edited(self.host, tag, saved())
        self.assertEqual(self.host.process.wait(DEADLINE_SECONDS), 0)

    def test_a_host_that_is_never_idle(self):
        self.assertEqual(self.host.ask("busy"), "0")
        tag, window = self.edit(self.host)
        window.find("check box", "Title bold").press()
        self.open_input_box(window)
        key("Escape")
        window.wait_for("active")
        window.press_button("Cancel")
        self.host.application.dialog(SAVE_QUESTION).press_button("Yes")
        self.assert_edited(self.host, tag, saved('value="old" style="1"'))


class Glib(Gtk):
    """A host inside a loop that knows nothing of windows."""

    LOOP = "glib"


class HostWindow(LoopTest):
    def test_takes_no_input_meanwhile(self):
        self.host.ask("window")
        button = self.host.application.window("Host window").find("push button", "Host button")
        button.click()
        wait(lambda: self.host.ask("clicks") == "1", "the host's button takes no click")
        tag, window = self.edit(self.host)
        button.click()
        self.assert_timer_runs()
        window.press_button("OK")
        self.assert_edited(self.host, tag, saved())
        self.assertEqual(self.host.ask("clicks"), "1")
        button.click()
        wait(lambda: self.host.ask("clicks") == "2", "the host's button takes no click afterwards")


class Toolkit(HostTest):
    """A host with the same toolkit as the component."""

    OWN = "own application, own log, own asserts, own frame, 0 asserts, 0 lines"

    def test_its_application_is_as_it_was_and_ends_with_its_own_frame(self):
        host = self.start("wxHost")
        self.assertEqual(host.ask("own"), self.OWN)
        for style, box in (("1", "Title bold"), ("2", "Title italic")):
            tag, window = self.edit(host)
            window.find("check box", box).press()
            window.press_button("Cancel")
            host.application.dialog(SAVE_QUESTION).press_button("Yes")
            self.assert_edited(host, tag, saved(f'value="old" style="{style}"'))
            self.assertEqual(host.ask("own"), self.OWN)
        host.answer(self.preview(host))
        self.assertEqual(host.ask("own"), self.OWN)
        self.assertEqual(host.ask("quit"), "0")
        self.assertEqual(host.process.wait(DEADLINE_SECONDS), 0)

    def test_an_application_without_windows_goes_on_after_ours(self):
        host = self.start("wxHost", "frameless")
        self.assertEqual(host.ask("own"), self.OWN)
        for _ in range(2):
            self.assert_edit_works(host)
            self.assertEqual(host.ask("own"), self.OWN)

    def preview(self, host):
        tag = host.send("preview", self.document(PLAIN), 1)
        host.application.window(PREVIEW)
        key("Escape")
        return tag


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
