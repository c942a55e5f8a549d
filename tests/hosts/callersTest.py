#!/usr/bin/python3
"""Calls where they are not allowed: while another one runs, and from other threads."""

import sys
import unittest

from driver import wait
from hostCase import CALL_ERROR, PLAIN, HostTest, saved

BUSY = "5 Invalid procedure call or argument"
WRONG_THREAD = "361 Can't load or unload this object"


class Callers(HostTest):
    def setUp(self):
        super().setUp()
        self.other_out = self.folder / "other.xml"

    def assert_given_back(self):
        self.assertEqual(self.other_out.read_text(encoding="utf-8"), PLAIN)

    def test_nested_edit_is_told_and_leaves_the_open_editor_alone(self):
        host = self.start("loopHost", "gtk")
        tag, window = self.edit(host)
        window.find("check box", "Title bold").press()
        nested = host.send("edit", self.document(), self.other_out)
        host.application.dialog(CALL_ERROR).press_button("OK")
        self.assertEqual(host.answer(nested), BUSY)
        self.assert_given_back()
        self.assertTrue(window.find("check box", "Title bold").has("checked"))
        window.press_button("OK")
        self.assert_edited(host, tag, saved('value="old" style="1"'))

    def test_nested_preview_fails_without_a_window(self):
        host = self.start("loopHost", "gtk")
        tag, window = self.edit(host)
        self.assertEqual(host.ask("preview", self.document(), 1), BUSY)
        self.assertFalse((self.component / "temp.html").exists())
        window.press_button("OK")
        self.assert_edited(host, tag, saved())

    def test_calls_of_a_second_thread_end_at_once_without_a_window(self):
        host = self.start("loopHost", "gtk")
        tag, window = self.edit(host)
        self.assertEqual(host.ask("thread:edit", self.document(), self.other_out), BUSY)
        self.assert_given_back()
        self.assertEqual(host.ask("thread:preview", self.document(), 1), BUSY)
        self.assertEqual([shown.name for shown in host.application.windows()], [window.name])
        window.press_button("OK")
        self.assert_edited(host, tag, saved())

    def test_a_later_call_of_another_thread_fails(self):
        for name in ("cHost", "pythonHost.py"):
            with self.subTest(host=name):
                host = self.start(name)
                self.assert_edit_works(host)
                self.assertEqual(host.ask("thread:edit", self.document(), self.other_out),
                                 WRONG_THREAD)
                self.assert_given_back()
                self.assertEqual(host.ask("thread:preview", self.document(), 1), WRONG_THREAD)
                self.assert_edit_works(host)

    def test_a_thread_beside_the_hosts_running_loop_fails(self):
        for loop in ("gtk", "glib"):
            with self.subTest(loop=loop):
                host = self.start("loopHost", loop)
                self.assertEqual(host.ask("thread:edit", self.document(), self.other_out),
                                 WRONG_THREAD)
                self.assert_edit_works(host)

    def test_the_first_call_may_come_from_any_thread_of_a_host_without_windows(self):
        host = self.start("pythonHost.py")
        tag = host.send("thread:edit", self.document(), self.out)
        window = wait(lambda: next(host.application.windows(), None), "no window")
        window.press_button("OK")
        self.assert_edited(host, tag, saved())

    def test_a_host_may_unload_the_component_and_load_it_again(self):
        host = self.start("pythonHost.py")
        for _ in range(2):
            self.assert_edit_works(host)
            self.assertEqual(host.ask("unload"), "0")
        self.assert_edit_works(host)

    def test_null_pointers(self):
        host = self.start("cHost")
        self.assertEqual(host.ask("null"),
                         "5 5 5 5 5 5 no result Invalid procedure call or argument")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
