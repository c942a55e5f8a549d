"""Drives the windows of another process from outside, as a user with a screen reader, keyboard and
mouse does: through the accessibility bus by role and name, and through the X server.

Waiting is for events of the bus; the deadline is only there so that a failing test ends.
"""

import os
import re
import shutil
import subprocess
import tempfile
import time
from pathlib import Path

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

DEADLINE_SECONDS = 30
# Some changes, the end of a process among them, come without an event of the bus.
LOOK_AGAIN_MS = 50

EVENTS = ("window:", "object:state-changed:", "object:children-changed:",
          "object:property-change", "object:text-changed:")

_listener = None


class NotFound(AssertionError):
    """What was waited for did not come."""


def _listen():
    global _listener
    if _listener is None:
        Atspi.init()
        _listener = Atspi.EventListener.new(lambda event: None)
        for event in EVENTS:
            _listener.register(event)


def wait(condition, what):
    """The first true answer of `condition`, asked again after every event."""
    _listen()
    context = GLib.MainContext.default()
    end = time.monotonic() + DEADLINE_SECONDS
    again = GLib.timeout_add(LOOK_AGAIN_MS, lambda: True)
    try:
        while True:
            if answer := condition():
                return answer
            if time.monotonic() > end:
                raise NotFound(f"{what}\n{describe_all()}")
            context.iteration(True)
    finally:
        GLib.source_remove(again)


def temporary_folder(test):
    """A folder that goes with the test, when what a browser engine leaves running for a moment no
    longer writes in it."""
    folder = Path(os.path.realpath(tempfile.mkdtemp(prefix="tavisk-")))

    def is_removed():
        shutil.rmtree(folder, ignore_errors=True)
        return not folder.exists()

    test.addCleanup(wait, is_removed, f"{folder} cannot be removed")
    return folder


def _asked(question, otherwise=None):
    """What may end while it is asked counts as not there."""
    try:
        return question()
    except GLib.Error:
        return otherwise


def _children(node):
    count = _asked(node.get_child_count, 0)
    for index in range(count):
        child = _asked(lambda: node.get_child_at_index(index))
        if child is not None:
            yield child


def _below(node):
    for child in _children(node):
        yield child
        yield from _below(child)


def describe_all():
    lines = []

    def add(node, depth):
        role, name = _asked(node.get_role_name), _asked(node.get_name)
        lines.append(f"{'  ' * depth}{role} {name!r}")
        for child in _children(node):
            add(child, depth + 1)

    add(Atspi.get_desktop(0), 0)
    return "\n".join(lines)


class Control:
    """Something in a window, found again by nobody: it is good while the window is there."""

    def __init__(self, node):
        self.node = node
        self.described = f"{_asked(node.get_role_name)} {_asked(node.get_name)!r}"

    @property
    def name(self):
        return self.node.get_name()

    def has(self, state):
        """`state` as in "focused"."""
        kind = getattr(Atspi.StateType, state.upper())
        return bool(_asked(lambda: self.node.get_state_set().contains(kind)))

    def wait_for(self, state, value=True):
        wait(lambda: self.has(state) == value, f"{self.described}: {state} is not {value}")

    def press(self):
        """Button, check box, menu entry. A window that it opens may keep the answer back."""
        wait(lambda: self.has("sensitive"), f"{self.described} takes no input")
        _asked(lambda: Atspi.Action.do_action(self.node, 0))

    @property
    def text(self):
        length = self.node.get_character_count()
        return Atspi.Text.get_text(self.node, 0, length)

    def focus(self):
        self.node.grab_focus()
        self.wait_for("focused")

    def middle(self):
        box = self.node.get_extents(Atspi.CoordType.SCREEN)
        return box.x + box.width // 2, box.y + box.height // 2

    def click(self, button=1):
        """By the mouse."""
        x, y = self.middle()
        xdotool("mousemove", x, y, "click", button)

    # ---- what lies inside

    def find_all(self, role, name=None):
        """`role` as the bus names it: "push button", "check box", "text", "table cell"."""
        return [Control(node) for node in _below(self.node)
                if _asked(node.get_role_name) == role
                and (name is None or _asked(node.get_name) == name)]

    def find(self, role, name=None):
        what = f"no {role} named {name!r} in {self.described}"
        return wait(lambda: self.find_all(role, name), what)[0]

    def press_button(self, name):
        self.find("push button", name).press()


class Application:
    """The windows of one process."""

    def __init__(self, process):
        self.process = process

    def windows(self):
        """Those that are shown; one that has just come up may not be on the screen yet."""
        _listen()
        desktop = Atspi.get_desktop(0)
        desktop.clear_cache()
        for application in _children(desktop):
            if _asked(application.get_process_id) == self.process.pid:
                yield from (window for window in map(Control, _children(application))
                            if window.has("showing"))

    def _wait(self, matching, what):
        def seen():
            if self.process.poll() is not None:
                raise NotFound(f"{what}: the host has ended with {self.process.returncode}")
            return next(filter(matching, self.windows()), None)

        window = wait(seen, what)
        window.wait_for("active")
        return window

    # These wait until it has the focus. In what is not on the screen yet, a click misses; and if it
    # is closed before, the window behind it may pass for the active one while it is none.

    def window(self, name):
        return self._wait(lambda window: _asked(lambda: window.name) == name, f"no window {name!r}")

    def dialog(self, text):
        """A message box, by what it says."""
        return self._wait(lambda window: window.find_all("label", text), f"no box says {text!r}")

    def other_than(self, known):
        return self._wait(lambda window: window.node != known.node,
                          f"no window besides {known.described}")


# ---- the X server

def run(*words):
    subprocess.run(list(map(str, words)), check=True, capture_output=True,
                   timeout=DEADLINE_SECONDS)


def xdotool(*words):
    run("xdotool", *words)


def visible_x_windows(title):
    """Their identifiers."""
    found = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", f"^{re.escape(title)}$"],
                           capture_output=True, text=True, timeout=DEADLINE_SECONDS, check=False)
    return found.stdout.split()


def x_window(title):
    return wait(lambda: visible_x_windows(title), f"no window {title!r} on the screen")[0]


def key(*keys):
    """To the window that has the focus."""
    xdotool("key", "--clearmodifiers", *keys)


def type_text(text):
    xdotool("type", "--clearmodifiers", "--delay", 1, "--", text)


def close_by_window_manager(title):
    """As the cross in its frame does: the window is asked to close, wherever the focus is."""
    run("wmctrl", "-i", "-c", x_window(title))
