"""The system that the tested programs are built for: the environment's TAVISK_RUN runs programs of
another one, its parts divided by ";"."""

import os
import unittest

RUN = [part for part in os.environ.get("TAVISK_RUN", "").split(";") if part]
WINDOWS = bool(RUN)
LIBRARY = "Tavisk.dll" if WINDOWS else "libtavisk.so.0"
SUFFIX = ".exe" if WINDOWS else ""


def skip_on_windows(reason):
    return unittest.skipIf(WINDOWS, reason)


def full_name(path):
    """An absolute path as the programs say it: under Wine the root is a drive."""
    return f"Z:{path}" if WINDOWS else f"{path}"
