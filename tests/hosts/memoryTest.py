#!/usr/bin/python3
"""Fifty edits in one host: what they cost is given back. In a build with sanitizers the host is also
asked at its end whether anything was lost; toolkit.supp lists what the toolkit loses."""

import sys
import unittest

from hostCase import HostTest

EDITS = 60
# One call makes all of them, and sanitizers on a busy machine take their time.
SECONDS = 240
# Caches of the toolkit grow by leaps; what one edit holds (a tree, a window) is several times this.
BYTES_PER_EDIT = 2000
WITH_PICTURE = ('<cabinetinfo><cabinet><Front value="old `code`"/><Back/></cabinet>'
                '<image name="generated_cabinet_picture" extension="png">AAAA</image></cabinetinfo>')


class Memory(HostTest):
    LEAKS = True

    def test_fifty_edits_leave_nothing_behind(self):
        host = self.start("loopHost", "glib")
        call = host.send("many", self.document(WITH_PICTURE), EDITS)
        early, late = map(int, host.answer(call, SECONDS).split())
        growth = (late - early) / (EDITS - EDITS // 4)
        print(f"{growth:.0f} bytes per edit", file=sys.stderr)
        self.assertLess(growth, BYTES_PER_EDIT)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
