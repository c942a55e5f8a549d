"""Edit and preview help documents with Tavisk from Python.

    import tavisk

    document = tavisk.edit_xml(document)            # opens the editor
    tavisk.preview_xml(document, evaluate=True)     # shows the page

One module, without dependencies: copy it where your program finds it. All calls come from one
thread; they show windows and return when the user has closed them. Other Python threads go on
meanwhile.

The library is looked for in this order:

    1. the file that the environment variable TAVISK_LIBRARY names
    2. beside this module
    3. the file that was registered for the user: $XDG_DATA_HOME/tavisk/libtavisk.path
    4. where the system keeps its libraries
"""

import ctypes
import functools
import os
import sys
from pathlib import Path

__all__ = ["Error", "edit_xml", "preview_xml", "version"]

_String = ctypes.c_void_p  # kept as it came, because it is given back


class Error(Exception):
    """A run-time error of the component, for example 364 "Object was unloaded" for a document that
    was rejected. The user has been told the reason of a rejected document."""

    def __init__(self, number: int, text: str) -> None:
        super().__init__(f"{number}: {text}")
        self.number = number
        self.text = text


def edit_xml(xml: str) -> str:
    """Opens the editor on a document and returns the document as its user left it.

    After "Refresh Formula Values" it carries an element "location": fill in the values of the
    formulas and call again. Raises Error; then the document that you have is still the right one.
    """
    result, error = _String(), _String()
    number = _library().tavisk_edit_xml(_bytes(xml), result, error)
    text = _taken(result)
    _raise(number, error)
    return text


def preview_xml(xml: str, evaluate: bool = False) -> None:
    """Writes the page of a document and shows it, with the values of the formulas and with pictures
    when `evaluate` is set. Raises Error."""
    error = _String()
    _raise(_library().tavisk_preview_xml(_bytes(xml), int(evaluate), error), error)


def version() -> str:
    """The library's, for example "1.0.0"."""
    text: bytes = _library().tavisk_version()
    return text.decode()


def _bytes(xml: str) -> bytes:
    if "\0" in xml:
        raise ValueError("a document has no NUL inside")
    return xml.encode("utf-8", "surrogatepass")


def _taken(string: _String) -> str:
    """The text of a string that the library handed out, which goes back to it."""
    text = ctypes.string_at(string).decode("utf-8", "surrogatepass") if string else ""
    _library().tavisk_free(string)
    return text


def _raise(number: int, error: _String) -> None:
    text = _taken(error)
    if number != 0:
        raise Error(number, text)


def _file() -> str:
    """The library's, or its name for the system to find."""
    if named := os.environ.get("TAVISK_LIBRARY"):
        return named
    name = "Tavisk.dll" if sys.platform == "win32" else "libtavisk.so.0"
    beside = Path(__file__).resolve().parent / name
    if beside.exists():
        return str(beside)
    data = os.environ.get("XDG_DATA_HOME") or os.path.expanduser("~/.local/share")
    registration = Path(data, "tavisk", "libtavisk.path")
    if registration.exists():
        return registration.read_text(encoding="utf-8").rstrip("\n")
    return name


@functools.cache
def _library() -> ctypes.CDLL:
    file = _file()
    try:
        library = ctypes.CDLL(file)
    except OSError as error:
        raise OSError(f"{error}; TAVISK_LIBRARY can name the library of Tavisk") from error
    string = ctypes.POINTER(_String)
    library.tavisk_edit_xml.argtypes = [ctypes.c_char_p, string, string]
    library.tavisk_preview_xml.argtypes = [ctypes.c_char_p, ctypes.c_int, string]
    library.tavisk_free.argtypes = [_String]
    library.tavisk_free.restype = None
    library.tavisk_version.restype = ctypes.c_char_p
    return library
