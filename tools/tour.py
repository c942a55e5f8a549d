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
MOST_LOOKS = 20


class Album:
    """Numbered pictures of the screen."""

    def __init__(self, folder):
        self.folder = folder
        self.count = 0

    def take(self, name):
        self.count += 1
        path = self.folder / f"{self.count:02}-{name}.png"
        look(path)
        print(f"{name}: {path}")


def look(path):
    """The screen when it has come to rest."""
    before = None
    for _ in range(MOST_LOOKS):
        subprocess.run(["import", "-window", "root", path], check=True)
        now = path.read_bytes()
        if now == before:
            return
        before = now


def tour(process, album):
    windows = driver.Application(process)
    editor = windows.window(TITLE)
    album.take("open")

    editor.find("table cell", "About this unit").click()
    text = editor.find("text", "Information Text")
    driver.wait(lambda: "About this unit" in key_of(editor), "the node is not shown")
    album.take("select")

    bold = editor.find("check box", "Answer bold")
    bold.click()
    bold.wait_for("checked")
    album.take("bold")

    text.click()
    text.wait_for("focused")
    driver.key("ctrl+End")
    driver.xdotool("type", "The door is `width` mm wide.")
    driver.wait(lambda: text.text.endswith("mm wide."), "the text has not arrived")
    album.take("type")

    pictures = editor.find("combo box", "Pictures")
    pictures.click()
    driver.wait(lambda: len(list(windows.windows())) > 1, "the list does not open")
    driver.key("Return")
    driver.wait(lambda: len(list(windows.windows())) == 1, "the list does not close")
    editor.find("push button", "Insert picture at end").click()
    driver.wait(lambda: "`~" in text.text, "no picture token")
    album.take("picture")

    editor.find("push button", "Preview Help File").click()
    preview = windows.window(PREVIEW)
    driver.wait(lambda: preview.find_all("heading"), "the page has no heading")
    album.take("preview")
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
