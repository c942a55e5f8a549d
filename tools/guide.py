#!/usr/bin/python3
"""Makes the pictures of docs/authors.md: works in the editor by mouse and keyboard, as the guide
describes it, with a screenshot of each step. Needs a display of its own: run it by
tools/withDisplay.sh.

    guide.py BUILD DOCUMENT OUT        BUILD holds the command; OUT receives guide-STEP.png, and
                                       editor.png for the README
"""

import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

from tour import PREVIEW, ROOT, TITLE, arguments_of, driver, key_of, look

MARK = "#D9480F"
AROUND = 4


def box_of(control):
    box = control.node.get_extents(driver.Atspi.CoordType.SCREEN)
    return box.x, box.y, box.width, box.height


def around(*controls, margin=0):
    boxes = [box_of(control) for control in controls]
    left, top = (min(box[side] for box in boxes) - margin for side in (0, 1))
    right, bottom = (max(box[side] + box[side + 2] for box in boxes) + margin for side in (0, 1))
    return left, top, right - left, bottom - top


class Book:
    """Pictures of parts of the screen, with frames around what they are about."""

    def __init__(self, folder, editor):
        self.folder = folder
        self.editor = editor

    def take(self, name, area=None, marks=(), window=None):
        """`area` is the part that is kept; without it, all but the empty screen. `window` is what has
        to be seen, if it is not the editor."""
        picture = self.folder / f"{name}.png"
        look(picture, window or self.editor)
        words = ["convert", picture, "-fill", "none", "-stroke", MARK, "-strokewidth", "3"]
        for mark in marks:
            x, y, width, height = mark if isinstance(mark, tuple) else around(mark, margin=AROUND)
            words += ["-draw", f"roundrectangle {x},{y} {x + width},{y + height} 6,6"]
        x, y, width, height = area or (0, 0, 0, 0)
        words += ["-crop", f"{width}x{height}+{x}+{y}"] if area else ["-trim"]
        subprocess.run([*map(str, words), "+repage", "-strip", "+dither", "-colors", "255",
                        f"png8:{picture}"], check=True)
        print(f"{name}: {picture}")


class Author:
    """What an author does in the window."""

    def __init__(self, process):
        self.windows = driver.Application(process)
        self.editor = self.windows.window(TITLE)
        self.text = self.editor.find("text", "Information Text")

    def find(self, role, name):
        return self.editor.find(role, name)

    def button(self, name):
        return self.find("push button", name)

    def row(self, name):
        return self.find("table cell", name)

    def row_box(self, name):
        """The whole row, as wide as the tree."""
        x, _, width, _ = box_of(self.find("scroll pane", "Help nodes"))
        _, y, _, height = box_of(self.row(name))
        return x + AROUND, y, width - 2 * AROUND, height

    @property
    def upper(self):
        """The window without its formatting."""
        x, y, width, _ = box_of(self.editor.find_all("menu bar")[0])
        _, top, _, height = box_of(self.find("panel", "Editing"))
        return x, y, width, top + height + AROUND - y

    @property
    def tree(self):
        x, y, _, _ = box_of(self.find("panel", "Commands for nodes"))
        return x, y, 350, 400

    def select(self, name):
        self.row(name).click()
        driver.wait(lambda: name in key_of(self.editor), f"{name!r} is not shown")

    def open_row(self, name):
        self.select(name)
        driver.key("Right")

    def type(self, text):
        before = self.text.text
        driver.type_text(text)
        driver.wait(lambda: len(self.text.text) == len(before) + len(text), "the text is not there")

    def choose(self, box, entry):
        self.find("combo box", box).click()
        driver.wait(lambda: len(list(self.windows.windows())) > 1, "the list does not open")
        for _ in range(50):
            if self.chosen(entry):
                break
            driver.key("Down")
        driver.key("Return")
        driver.wait(lambda: len(list(self.windows.windows())) == 1, "the list does not close")

    def chosen(self, entry):
        return any(cell.has("selected") or cell.has("focused")
                   for window in self.windows.windows() for cell in window.find_all("table cell", entry)
                   if cell.has("showing"))

    def dialog(self):
        """The one window besides the editor."""
        return self.windows.other_than(self.editor)

    def closed(self):
        driver.wait(lambda: len(list(self.windows.windows())) == 1, "the dialog stays open")
        self.editor.wait_for("active")

    def asked(self, question):
        """Waits until an input box asks it."""
        self.windows.dialog(question)

    def answer(self, text):
        """To an input box that has just come up."""
        self.dialog()
        driver.key("ctrl+a")
        driver.type_text(text)


def write(author, book):
    """Opening, selecting, writing, formulas."""
    editor = author.editor
    editing = author.find("panel", "Editing")
    book.take("guide-open", marks=[author.find("scroll pane", "Help nodes"), editing,
                             author.find("panel", "Basic Appearance")])
    author.open_row("Fitting")
    author.select("Legs")
    upper = author.upper
    book.take("guide-select", upper, [author.row_box("Legs"), author.text])

    author.text.click()
    author.text.wait_for("focused")
    driver.key("ctrl+End")
    author.type(" Then level the unit. Its total height is ")
    book.take("guide-write", upper, [author.text])

    author.choose("Formulas", "total height")
    author.button("Insert formula at cursor").click()
    driver.wait(lambda: "`total height`" in author.text.text, "no token")
    author.text.click()
    driver.key("ctrl+End")
    author.type(" mm.")
    book.take("guide-formula", upper, [author.find("combo box", "Formulas"),
                                 author.button("Insert formula at cursor")])
    editor.press_button("Add formula")
    author.answer("net weight")
    book.take("guide-formula-new", upper, [author.button("Add formula")])
    driver.key("Return")
    author.asked("Please enter a description for this formula")
    author.answer("Weight of the unit in kilograms")
    driver.key("Return")
    author.windows.dialog("Formula added successfully").press_button("OK")
    author.closed()


def format_text(author, book):
    author.button("Title font larger").click()
    for name in ("Title bold", "Answer italic"):
        author.find("check box", name).click()
        author.find("check box", name).wait_for("checked")
    author.button("Gap above larger").click()
    driver.wait(lambda: author.editor.find_all("label", "Gap above: 1"), "no gap")
    panel = author.find("panel", "Basic Appearance")
    book.take("guide-format", around(panel, margin=6))


def nodes(author, book):
    """Adding, moving, renaming."""
    author.select("Fitting")
    author.button("New Child Node").click()
    author.answer("Care")
    book.take("guide-node-name", author.upper, [author.button("New Child Node")])
    driver.key("Return")
    author.closed()
    driver.wait(lambda: "Care" in key_of(author.editor), "no new node")
    for _ in range(2):
        author.button("Move Up").click()
    below = author.row("Load")
    driver.wait(lambda: box_of(author.row("Care"))[1] < box_of(below)[1], "the node stays")
    book.take("guide-node-move", author.tree, [author.button("Move Up"), author.row_box("Care")])
    author.row("Care").click()
    driver.key("F2")
    author.answer("Care and cleaning")
    book.take("guide-node-rename", author.upper)
    driver.key("Return")
    author.closed()
    author.row("Care and cleaning")


def pictures(author, book, file):
    author.open_row("Hardware")
    author.select("Hinges")
    author.choose("Pictures", "~hinge")
    book.take("editor")
    upper = author.upper
    author.select("Care and cleaning")
    author.choose("Pictures", "~oak")
    author.button("Insert picture at end").click()
    driver.wait(lambda: "`~oak`" in author.text.text, "no picture token")
    book.take("guide-picture", upper, [author.find("combo box", "Pictures"),
                                 author.button("Insert picture at end"),
                                 author.find("image", "Picture preview")])
    author.select("Pipes and sockets")
    author.choose("Pictures", "~pipe zone")
    book.take("guide-overlay", upper, [author.button("Insert picture as overlay at end")])

    author.button("Add image").click()
    author.dialog()
    driver.type_text(str(file))
    driver.key("Return")
    author.asked("Please enter a name for the new image")
    author.answer("whole unit")
    book.take("guide-picture-name", upper, [author.button("Add image")])
    driver.key("Return")
    box = author.windows.dialog("Image added successfully")
    box.press_button("OK")
    author.closed()


def leave(author, book):
    """Preview, refresh, closing."""
    author.button("Preview Help File").click()
    preview = author.windows.window(PREVIEW)
    driver.wait(lambda: preview.find_all("heading"), "the page has no heading")
    book.take("guide-preview", window=preview)
    driver.key("Escape")
    driver.wait(lambda: not driver.visible_x_windows(PREVIEW), "the preview is still there")
    author.editor.wait_for("active")
    author.button("Cancel").click()
    author.windows.dialog("Would you like to save your changes?")
    book.take("guide-close", marks=[author.button(name) for name in
                                    ("Refresh Formula Values", "Cancel", "OK")])
    driver.key("Escape")
    author.closed()
    author.editor.press_button("OK")


def main():
    arguments = arguments_of(__doc__)
    with tempfile.TemporaryDirectory() as folder:
        copy = Path(folder) / arguments.document.name
        shutil.copyfile(arguments.document, copy)
        file = Path(folder) / "unit.png"
        shutil.copyfile(ROOT / "assets" / "cabinet.png", file)
        with subprocess.Popen([arguments.build / "tavisk", "edit", copy]) as process:
            try:
                author = Author(process)
                book = Book(arguments.out, author.editor)
                write(author, book)
                format_text(author, book)
                nodes(author, book)
                pictures(author, book, file)
                leave(author, book)
                if process.wait(driver.DEADLINE_SECONDS) != 0:
                    sys.exit("guide.py: the editor ended with an error")
            finally:
                process.kill()


if __name__ == "__main__":
    main()
