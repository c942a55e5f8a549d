"""What the tests share: one browser, each example rendered once and read once."""

import functools
import os
import pathlib
import subprocess
import tempfile

import screenshot
from example import Example, names

PROBE = (pathlib.Path(__file__).resolve().parent / "probe.js").read_text(encoding="utf-8")
COMMAND_SECONDS = 120
PIXEL = 0.6  # browsers place boxes on fractions of pixels

_folder = None
_browser = None


def run(*arguments):
    """Runs the command; its status, output and complaints."""
    return subprocess.run([os.environ["TAVISK"], *map(str, arguments)], capture_output=True,
                          encoding="utf-8", timeout=COMMAND_SECONDS, check=False)


def browser():
    global _browser
    if _browser is None:
        # Wide enough for two columns with pictures at their full size.
        _browser = screenshot.started(width=1600)
    return _browser


def folder():
    """Where this run keeps its pages."""
    global _folder
    if _folder is None:
        _folder = tempfile.TemporaryDirectory(prefix="tavisk-pages-")
    return pathlib.Path(_folder.name)


def close():
    if _browser is not None:
        _browser.quit()
    if _folder is not None:
        _folder.cleanup()


@functools.lru_cache(maxsize=None)
def example(name):
    return Example(name)


@functools.lru_cache(maxsize=None)
def page(name, evaluated=True):
    """Renders an example; the path of its page."""
    target = folder() / (name if evaluated else name + "-raw")
    done = run("render", example(name).path, "--folder", target,
               *(["--evaluate"] if evaluated else []))
    if done.returncode != 0:
        raise AssertionError(f"rendering {name} ended with {done.returncode}: {done.stderr}")
    return target / "temp.html"


def opened(name, evaluated=True):
    """The browser with the page of an example."""
    screenshot.open_page(browser(), page(name, evaluated))
    return browser()


@functools.lru_cache(maxsize=None)
def seen(name, evaluated=True):
    """What a reader sees of the page of an example."""
    return opened(name, evaluated).execute_script(PROBE)


def examples(wanted=lambda document: True):
    """The examples that are wanted; there has to be one."""
    chosen = [document for document in map(example, names()) if wanted(document)]
    if not chosen:
        raise AssertionError("no example shows this")
    return chosen


def on_examples(wanted=lambda document: True):
    """Runs a test on every example that is wanted."""
    def wrap(test):
        @functools.wraps(test)
        def run_all(self):
            for document in examples(wanted):
                with self.subTest(example=document.name):
                    test(self, document)
        return run_all
    return wrap


def rows_of(document, evaluated=True):
    """Rows that have to be there beside rows that are there."""
    found = seen(document.name, evaluated)["rows"]
    if len(found) != len(document.rows):
        raise AssertionError(f"{len(found)} rows on the page, not {len(document.rows)}")
    return list(zip(document.rows, found))
