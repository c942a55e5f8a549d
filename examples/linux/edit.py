#!/usr/bin/python3
"""The smallest host: opens the editor on a document and writes it back. edit.py DOCUMENT

The library has to be registered for the user once, by a call of its DllRegisterServer:
python3 -c 'import ctypes; ctypes.CDLL("./libtavisk.so").DllRegisterServer()'
"""

import ctypes
import os
import sys
from pathlib import Path

data = os.environ.get("XDG_DATA_HOME") or Path.home() / ".local" / "share"
library = ctypes.CDLL(Path(data, "tavisk", "libtavisk.path").read_text().rstrip("\n"))

document = Path(sys.argv[1])
result = ctypes.c_void_p()
error = library.tavisk_edit_xml(ctypes.c_char_p(document.read_bytes()), ctypes.byref(result), None)
if error == 0:
    document.write_bytes(ctypes.string_at(result))
library.tavisk_free(result)
sys.exit(error != 0)
