#!/usr/bin/python3
"""The class factory, registration for the user, and hosts that find the component by it."""

import os
import subprocess
import sys
import unittest
from pathlib import Path

from driver import key
from hostCase import (CALL_ERROR, EDITOR, PLAIN, PREVIEW, SANITIZED, Host, HostTest, sanitizer,
                      saved)

EXAMPLES = Path(__file__).resolve().parents[2] / "examples"
OUTSIDE_THE_CODE_PAGE = '<cabinetinfo><cabinet><Front value="\u0142"/></cabinet></cabinetinfo>'
NO_CABINET = "<cabinetinfo/>"


class ComTest(HostTest):
    def setUp(self):
        super().setUp()
        self.registration = self.home / "data" / "tavisk" / "libtavisk.path"

    def registered(self):
        """A host that has registered this component and uses what it finds."""
        host = self.start("comHost")
        self.assertEqual(host.ask("load", self.library), "0")
        self.assertEqual(host.ask("register"), "0")
        return self.start("comHost")

    def text(self):
        return self.out.read_text(encoding="utf-16-le")

    def edit16(self, host, text=PLAIN):
        tag = host.send("edit", self.document(text, "utf-16-le"), self.out)
        return tag, host.application.window(EDITOR)


class Calls(ComTest):
    def setUp(self):
        super().setUp()
        self.host = self.registered()
        self.windows = self.host.application

    def test_edit(self):
        for _ in range(2):
            tag, window = self.edit16(self.host, PLAIN.replace("old", "\u00e4\U0001f6aa"))
            window.press_button("OK")
            self.assertEqual(self.host.answer(tag), "0")
            self.assertEqual(self.text(), saved('value="\u00e4\U0001f6aa"'))

    def test_a_rejected_document_is_no_failure_and_comes_back(self):
        tag = self.host.send("edit", self.document(NO_CABINET, "utf-16-le"), self.out)
        self.windows.dialog("No cabinet data found...").press_button("OK")
        self.windows.dialog(CALL_ERROR).press_button("OK")
        self.assertEqual(self.host.answer(tag), "0")
        self.assertEqual(self.text(), NO_CABINET)

    def test_preview_gives_an_empty_variant_and_stays_loaded(self):
        self.assertEqual(self.host.ask("idle"), "yes")
        tag = self.host.send("preview", self.document(PLAIN, "utf-16-le"), 1)
        self.windows.window(PREVIEW)
        key("Escape")
        self.assertEqual(self.host.answer(tag), "0 empty")
        self.assertEqual(self.host.ask("idle"), "no")
        tag, window = self.edit16(self.host)
        window.press_button("OK")
        self.assertEqual(self.host.answer(tag), "0")
        self.assertEqual(self.host.ask("idle"), "yes")

    def test_a_preview_that_fails_tells_the_number(self):
        document = self.document(OUTSIDE_THE_CODE_PAGE, "utf-16-le")
        self.assertEqual(self.host.ask("preview", document, 1), "800a0005 empty")

    def test_a_rejected_preview_tells_the_number(self):
        tag = self.host.send("preview", self.document(NO_CABINET, "utf-16-le"), 1)
        self.windows.dialog("No cabinet data found...").press_button("OK")
        self.assertEqual(self.host.answer(tag), "800a016c empty")


class Factory(ComTest):
    def setUp(self):
        super().setUp()
        self.host = self.start("comHost")
        self.assertEqual(self.host.ask("load", self.library), "0")

    def test_what_it_refuses(self):
        unknown_class, no_interface, pointer, no_part = ("80040111", "80004002", "80004003",
                                                         "80040110")
        self.assertEqual(self.host.ask("factory").split(),
                         [unknown_class, no_interface, pointer, no_part, no_interface, pointer,
                          no_interface, no_interface, pointer, "80004001", pointer])

    def test_references_are_counted(self):
        self.assertEqual(self.host.ask("count"), "0 same 3 2 1 0")

    def test_objects_and_locks_keep_it_loaded(self):
        for what in ("object", "lock"):
            with self.subTest(what=what):
                self.assertEqual(self.host.ask("idle"), "yes")
                self.host.ask(what, "on")
                self.assertEqual(self.host.ask("idle"), "no")
                self.host.ask(what, "off")
                self.assertEqual(self.host.ask("idle"), "yes")

    def test_two_locks_take_two_releases(self):
        for state, idle in (("on", "no"), ("on", "no"), ("off", "no"), ("off", "yes")):
            self.assertEqual(self.host.ask("lock", state), "0")
            self.assertEqual(self.host.ask("idle"), idle)

    def test_a_lock_too_few_is_not_remembered(self):
        self.host.ask("lock", "off")
        self.host.ask("lock", "on")
        self.assertEqual(self.host.ask("idle"), "no")


class Registration(ComTest):
    def setUp(self):
        super().setUp()
        self.host = self.start("comHost")
        self.assertEqual(self.host.ask("load", self.library), "0")

    def names(self):
        return sorted(str(path.relative_to(self.home)) for path in self.home.rglob("*"))

    def test_one_file_comes_and_goes(self):
        (self.home / "data").mkdir()
        before = self.names()
        for _ in range(2):
            self.assertEqual(self.host.ask("register"), "0")
        self.assertEqual(self.names(), [*before, "data/tavisk", "data/tavisk/libtavisk.path"])
        self.assertEqual(self.registration.read_text(), f"{self.library}\n")
        for _ in range(2):
            self.assertEqual(self.host.ask("unregister"), "0")
            self.assertEqual(self.names(), before)

    def test_what_lies_beside_it_stays(self):
        self.host.ask("register")
        beside = self.registration.with_name("temp.html")
        beside.touch()
        self.assertEqual(self.host.ask("unregister"), "0")
        self.assertEqual(list(beside.parent.iterdir()), [beside])

    def test_another_librarys_stays(self):
        self.host.ask("register")
        self.registration.write_text("/elsewhere/libtavisk.so\n")
        self.assertEqual(self.host.ask("unregister"), "0")
        self.assertEqual(self.registration.read_text(), "/elsewhere/libtavisk.so\n")
        self.assertEqual(self.host.ask("register"), "0")
        self.assertEqual(self.registration.read_text(), f"{self.library}\n")

    def test_no_folder_for_data_is_an_error(self):
        host = self.start("comHost", XDG_DATA_HOME=None, HOME="relative")
        self.assertEqual(host.ask("load", self.library), "0")
        self.assertEqual(host.ask("register"), "800a004c")
        self.assertEqual(host.ask("unregister"), "800a004c")

    def test_a_file_in_the_folders_place_is_an_error(self):
        self.registration.parent.parent.mkdir()
        self.registration.parent.touch()
        self.assertEqual(self.host.ask("register"), "800a004c")


class Examples(ComTest):
    def test_a_host_that_finds_the_registered_component(self):
        self.registered()
        document = self.document(PLAIN)
        host = self.example([self.compiled(EXAMPLES / "cpp" / "registered.cpp"), document])
        host.application.window(EDITOR).press_button("OK")
        self.assertEqual(host.end(), (0, ""))
        self.assertEqual(document.read_text(), saved())

    def example(self, words):
        preload = {"LD_PRELOAD": sanitizer(), "ASAN_OPTIONS": "detect_leaks=0"} if SANITIZED else {}
        return Host(words, self.environment(**preload), self.folder)

    def compiled(self, source):
        program = self.folder / source.stem
        include = EXAMPLES.parent / "include"
        subprocess.run([os.environ.get("CXX", "c++"), "-std=c++20", "-Wall", "-Wextra", "-Werror",
                        f"-I{include}", "-o", program, source], check=True)
        return program


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
