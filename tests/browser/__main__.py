"""Runs the browser tests: python3 tests/browser [PATH OF tavisk]; else TAVISK names the command."""

import os
import pathlib
import shutil
import sys
import unittest

sys.dont_write_bytecode = True

HERE = pathlib.Path(__file__).resolve().parent
sys.path[:0] = [str(HERE), str(HERE.parent.parent / "tools")]

import screenshot  # noqa: E402


def missing():
    """What the tests need and the machine lacks; one line each."""
    try:
        screenshot.requirements()
    except screenshot.BrowserMissing as error:
        yield str(error)
    if shutil.which("pdftotext") is None:
        yield "no pdftotext: apt-get install poppler-utils"
    command = os.environ.get("TAVISK", "")
    if not os.access(command, os.X_OK):
        yield f"no command tavisk at '{command}': name it in TAVISK or as the first argument"


def main():
    if len(sys.argv) > 1:
        os.environ["TAVISK"] = str(pathlib.Path(sys.argv[1]).resolve())
    lacking = list(missing())
    for line in lacking:
        print(f"FAILED: {line}", file=sys.stderr)
    if lacking:
        return 1
    tests = unittest.defaultTestLoader.discover(str(HERE), pattern="*Test.py")
    if tests.countTestCases() == 0:
        print("FAILED: no tests found", file=sys.stderr)
        return 1
    from reader import browser, close
    try:
        browser()  # one that does not start says so once, not in every test
        result = unittest.TextTestRunner(verbosity=2).run(tests)
    finally:
        close()
    return 0 if result.wasSuccessful() else 1


if __name__ == "__main__":
    sys.exit(main())
