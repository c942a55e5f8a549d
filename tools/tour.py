#!/usr/bin/python3
"""Opens the editor on a copy of a document and works in it by mouse and keyboard, with a screenshot
of each step. Needs a display of its own: run it by tools/withDisplay.sh.

    tour.py BUILD DOCUMENT OUT        BUILD holds the command; OUT receives NN-step.png
"""

import argparse
import shutil
import subprocess
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "tests" / "hosts"))
import driver  # noqa: E402

TITLE = "Library Help XML Editor"
PREVIEW = "Help Preview"
# A blank area has one colour, or two where light falls on its edge.
BLANK_COLOURS = 8


class Album:
    """Numbered pictures of the screen."""

    def __init__(self, folder):
        self.folder = folder
        self.count = 0

    def take(self, name, window):
        self.count += 1
        path = self.folder / f"{self.count:02}-{name}.png"
        look(path, window)
        print(f"{name}: {path}", flush=True)


def look(path, window):
    """The screen when it has come to rest and the window has been drawn. What a screen reader knows
    of a window can be there before its picture is, a browser's page above all."""
    before = None

    def is_ready():
        nonlocal before
        last = before
        subprocess.run(["import", "-window", "root", path], check=True)
        before = path.read_bytes()
        return before == last and not is_blank(path, window)

    driver.wait(is_ready, f"nothing to be seen in {window.described}, or it never rests: {path}")


def is_blank(picture, window):
    """Whether the window's inner three quarters have hardly a colour."""
    box = window.node.get_extents(driver.Atspi.CoordType.SCREEN)
    crop = f"{box.width * 3 // 4}x{box.height * 3 // 4}+{box.x + box.width // 8}+{box.y + box.height // 8}"
    colours = subprocess.run(["convert", picture, "-crop", crop, "-format", "%k", "info:"],
                             capture_output=True, text=True, check=True).stdout
    return int(colours) <= BLANK_COLOURS


def tour(process, album):
    windows = driver.Application(process)
    editor = windows.window(TITLE)
    album.take("open", editor)

    editor.find("table cell", "About this unit").click()
    text = editor.find("text", "Information Text")
    driver.wait(lambda: "About this unit" in key_of(editor), "the node is not shown")
    album.take("select", editor)

    bold = editor.find("check box", "Answer bold")
    bold.click()
    bold.wait_for("checked")
    album.take("bold", editor)

    text.click()
    text.wait_for("focused")
    driver.key("ctrl+End")
    driver.xdotool("type", "The door is `width` mm wide.")
    driver.wait(lambda: text.text.endswith("mm wide."), "the text has not arrived")
    album.take("type", editor)

    pictures = editor.find("combo box", "Pictures")
    pictures.click()
    driver.wait(lambda: len(list(windows.windows())) > 1, "the list does not open")
    driver.key("Return")
    driver.wait(lambda: len(list(windows.windows())) == 1, "the list does not close")
    editor.find("push button", "Insert picture at end").click()
    driver.wait(lambda: "`~" in text.text, "no picture token")
    album.take("picture", editor)

    editor.find("push button", "Preview Help File").click()
    preview = windows.window(PREVIEW)
    driver.wait(lambda: preview.find_all("heading"), "the page has no heading")
    album.take("preview", preview)
    driver.key("Escape")
    driver.wait(lambda: not driver.visible_x_windows(PREVIEW), "the preview is still there")

    editor.press_button("OK")
    if process.wait(driver.DEADLINE_SECONDS) != 0:
        sys.exit("tour.py: the editor ended with an error")


def key_of(editor):
    return " ".join(label.name for label in editor.find_all("label") if label.name)


def arguments_of(about):
    parser = argparse.ArgumentParser(description=about.split("\n\n")[0])
    parser.add_argument("build", type=Path)
    parser.add_argument("document", type=Path)
    parser.add_argument("out", type=Path)
    arguments = parser.parse_args()
    arguments.out.mkdir(parents=True, exist_ok=True)
    return arguments


def main():
    arguments = arguments_of(__doc__)
    copy = arguments.out / arguments.document.name
    shutil.copyfile(arguments.document, copy)
    with subprocess.Popen([arguments.build / "tavisk", "edit", copy]) as process:
        try:
            tour(process, Album(arguments.out))
        finally:
            process.kill()
    print(f"edited document: {copy}")


if __name__ == "__main__":
    main()
