#!/usr/bin/python3
"""A host in Python: pythonHost.py LIBRARY. Speaks as calls.h says. The component is loaded at the
first command, but "load NAME -" loads another library first, and "folder NAME -", once the component
is loaded, changes the current folder, and "unload - -" gives the component back to the system."""

import _ctypes
import ctypes
import os
import sys
import threading
from pathlib import Path

String = ctypes.c_void_p  # kept as it came, because it is given back


class Component:
    def __init__(self, file):
        self.library = ctypes.CDLL(file)
        strings = [ctypes.POINTER(String), ctypes.POINTER(String)]
        for edit in (self.library.tavisk_edit_xml, self.library.tavisk_edit_xml_utf16):
            edit.argtypes = [ctypes.c_char_p, *strings]
        for preview in (self.library.tavisk_preview_xml, self.library.tavisk_preview_xml_utf16):
            preview.argtypes = [ctypes.c_char_p, ctypes.c_int, ctypes.POINTER(String)]
        self.library.tavisk_free.argtypes = [String]
        self.library.tavisk_free.restype = None

    def taken(self, string):
        text = ctypes.string_at(string) if string else b""
        self.library.tavisk_free(string)
        return text

    def taken_utf16(self, string):
        units = ctypes.cast(string, ctypes.POINTER(ctypes.c_uint16))
        length = next(index for index in range(1 << 30) if units[index] == 0)
        text = ctypes.string_at(string, 2 * length)
        self.library.tavisk_free(string)
        return text

    def call(self, command, file, argument):
        xml = Path(file).read_bytes() + b"\0"  # with the one that comes anyway: a UTF-16 end
        result, error = String(), String()
        if command == "edit":
            number = self.library.tavisk_edit_xml(xml, result, error)
            Path(argument).write_bytes(self.taken(result))
        elif command == "edit16":
            number = self.library.tavisk_edit_xml_utf16(xml, result, error)
            Path(argument).write_bytes(self.taken_utf16(result))
        elif command == "preview":
            number = self.library.tavisk_preview_xml(xml, int(argument), error)
        else:
            number = self.library.tavisk_preview_xml_utf16(xml, int(argument), error)
        return f"{number} {self.taken(error).decode()}".strip()


def main():
    component = None
    for line in sys.stdin:
        tag, command, file, argument = line.split()
        if command == "load":
            ctypes.CDLL(file)
            print(tag, "0", flush=True)
            continue
        component = component or Component(sys.argv[1])
        if command == "folder":
            os.chdir(file)
            print(tag, "0", flush=True)
            continue
        if command == "unload":
            _ctypes.dlclose(component.library._handle)
            component = None
            print(tag, "0", flush=True)
            continue
        command, threaded = command.removeprefix("thread:"), command.startswith("thread:")

        def perform():
            print(tag, component.call(command, file, argument), flush=True)

        if threaded:
            thread = threading.Thread(target=perform)
            thread.start()
            thread.join()
        else:
            perform()


if __name__ == "__main__":
    main()
