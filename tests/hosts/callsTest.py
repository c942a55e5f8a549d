#!/usr/bin/python3
"""Edits and previews through one host program, with the windows driven from outside:
callsTest.py HOST [WORDS...]"""

import sys
import unittest

from driver import close_by_window_manager, key, type_text, wait, x_window
from hostCase import (CALL_ERROR, EDITOR, LOADED, PLAIN, PREVIEW, SAVE_QUESTION, HostTest, saved)

HOST = sys.argv[1:] or ["cHost"]
HAS_UTF16 = HOST[0] != "cppHost"

NO_CABINET = "<cabinetinfo/>"
FORMULA = ('<cabinetinfo><cabinet><Front value="is `f`"/></cabinet>'
           '<formula name="f" value="5"/></cabinetinfo>')


class CallTest(HostTest):
    def setUp(self):
        super().setUp()
        self.host = self.start(*HOST)
        self.windows = self.host.application


class Edit(CallTest):
    def test_ok_on_an_untouched_document_asks_nothing(self):
        tag, window = self.edit(self.host)
        window.press_button("OK")
        self.assert_edited(self.host, tag, saved())

    def test_a_box_ticked_by_name(self):
        tag, window = self.edit(self.host)
        window.find("check box", "Title bold").press()
        window.find("check box", "Title bold").wait_for("checked")
        window.press_button("OK")
        self.assert_edited(self.host, tag, saved('value="old" style="1"'))

    def test_an_answer_typed_with_a_token(self):
        tag, window = self.edit(self.host)
        text = window.find("text", "Information Text")
        text.focus()
        key("ctrl+End")
        type_text(" and `code`")
        wait(lambda: text.text == "old and `code`", "the typed text")
        window.press_button("OK")
        self.assert_edited(self.host, tag, saved('value="old and `code`"'))

    def test_cancel_and_no(self):
        tag, window = self.edit(self.host)
        window.find("check box", "Title bold").press()
        window.press_button("Cancel")
        self.windows.dialog(SAVE_QUESTION).press_button("No")
        self.assert_edited(self.host, tag, LOADED)

    def test_cancel_and_yes(self):
        tag, window = self.edit(self.host)
        window.find("check box", "Title bold").press()
        window.press_button("Cancel")
        self.windows.dialog(SAVE_QUESTION).press_button("Yes")
        self.assert_edited(self.host, tag, saved('value="old" style="1"'))

    def test_closed_by_the_window_manager_and_kept_open(self):
        tag, window = self.edit(self.host)
        window.find("check box", "Title bold").press()
        close_by_window_manager(EDITOR)
        question = self.windows.dialog(SAVE_QUESTION)
        x_window("Exiting...")
        question.press_button("Cancel")
        question.wait_for("showing", False)
        self.assertTrue(window.find("check box", "Title bold").has("checked"))
        window.press_button("OK")
        self.assert_edited(self.host, tag, saved('value="old" style="1"'))

    def test_refresh_marks_the_node(self):
        tag, window = self.edit(self.host)
        window.press_button("Refresh Formula Values")
        self.assert_edited(self.host, tag,
                           saved(location='<location value="cabinet=&gt;Front"/>'))

    def test_a_rejected_document_takes_two_boxes_and_comes_back(self):
        tag = self.host.send("edit", self.document(NO_CABINET), self.out)
        self.windows.dialog("No cabinet data found...").press_button("OK")
        self.windows.dialog(CALL_ERROR).press_button("OK")
        self.assert_rejected(tag)
        self.assert_edit_works(self.host)

    def assert_rejected(self, tag):
        # The class keeps the text to itself; the number tells enough.
        self.assertEqual(self.host.answer(tag).split()[0], "364")
        self.assertEqual(self.out.read_text(encoding="utf-8"), NO_CABINET)

    def test_a_second_call_works_as_the_first(self):
        for style in ("1", "4"):
            tag, window = self.edit(self.host)
            window.find("check box", {"1": "Title bold", "4": "Title underline"}[style]).press()
            window.press_button("OK")
            self.assert_edited(self.host, tag, saved(f'value="old" style="{style}"'))

    def test_from_the_preview_button_and_back(self):
        tag, window = self.edit(self.host, FORMULA)
        window.press_button("Preview Help File")
        self.windows.window(PREVIEW)
        key("Escape")
        window.wait_for("active")
        self.assertIn("is 5", (self.component / "temp.html").read_text(encoding="cp1252"))
        window.press_button("Cancel")
        self.windows.dialog(SAVE_QUESTION).press_button("No")
        self.assert_edited(self.host, tag, FORMULA)

    @unittest.skipUnless(HAS_UTF16, "the class takes UTF-8")
    def test_utf16(self):
        document = self.document(PLAIN.replace("old", "\u00e4\U0001f6aa"), "utf-16-le")
        tag = self.host.send("edit16", document, self.out)
        window = self.windows.window(EDITOR)
        self.assertEqual(window.find("text", "Information Text").text, "\u00e4\U0001f6aa")
        window.press_button("OK")
        self.assertEqual(self.host.answer(tag), "0")
        self.assertEqual(self.out.read_text(encoding="utf-16-le"),
                         saved('value="\u00e4\U0001f6aa"'))

    @unittest.skipUnless(HAS_UTF16, "the class takes UTF-8")
    def test_a_lone_surrogate_is_rejected_and_comes_back(self):
        document = self.document(PLAIN)
        lone = PLAIN.encode("utf-16-le").replace("old".encode("utf-16-le"), b"\x00\xd8")
        document.write_bytes(lone)
        tag = self.host.send("edit16", document, self.out)
        self.windows.dialog("The text is not valid Unicode\nline 2").press_button("OK")
        self.windows.dialog(CALL_ERROR).press_button("OK")
        self.assertEqual(self.host.answer(tag), "364 Object was unloaded")
        self.assertEqual(self.out.read_bytes(), lone)


class Preview(CallTest):
    def page(self):
        return (self.component / "temp.html").read_text(encoding="cp1252")

    def preview(self, text, evaluate, command="preview", encoding="utf-8"):
        tag = self.host.send(command, self.document(text, encoding), evaluate)
        self.windows.window(PREVIEW)
        key("Escape")
        self.assertEqual(self.host.answer(tag), "0")

    def test_the_page_without_and_with_values(self):
        self.preview(FORMULA, "0")
        self.assertIn("is `f`", self.page())
        self.preview(FORMULA, "1")
        self.assertIn("is 5", self.page())
        self.assert_edit_works(self.host)

    @unittest.skipUnless(HAS_UTF16, "the class takes UTF-8")
    def test_utf16(self):
        self.preview(FORMULA.replace("is", "\u00e4"), "1", "preview16", "utf-16-le")
        self.assertIn("\u00e4 5", self.page())

    def test_a_rejected_document_takes_one_box(self):
        tag = self.host.send("preview", self.document(NO_CABINET), "1")
        self.windows.dialog("No cabinet data found...").press_button("OK")
        self.assertEqual(self.host.answer(tag), "364 Object was unloaded")
        self.assertFalse((self.component / "temp.html").exists())

    def test_an_error_is_the_hosts(self):
        outside_the_code_page = FORMULA.replace("is", "\u0142")
        tag = self.host.send("preview", self.document(outside_the_code_page), "1")
        self.assertEqual(self.host.answer(tag), "5 Invalid procedure call or argument")
        self.preview(FORMULA, "1")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
