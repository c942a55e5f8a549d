#!/usr/bin/python3
"""What registering writes, and that unregistering leaves nothing of it and everything else."""

import sys
import unittest

from comCase import ALL_USERS, PROGRAMS, THIS_USER, ComTest, registry, run, windows_path

CLASS = "CLSID\\{11ED3547-003A-435F-886D-A7AD9D4D48FC}"
INTERFACE = "Interface\\{5D9E4AC5-3BB4-40FA-80A8-D0B2FC55EEF5}"
TYPES = "TypeLib\\{0D318262-3965-4DAD-87FC-0BCCF9858EB9}"
# Where a build of the other word size has its class.
OTHER_SIZE = ALL_USERS + "\\Wow6432Node\\" + CLASS


def quoted(text):
    return '"' + text.replace("\\", "\\\\") + '"'


def entries(library):
    """What is written for a library, below the folder of classes."""
    title = quoted("Editor and preview of help documents")
    clsid = quoted(CLASS.partition("\\")[2])
    path = windows_path(library)
    types = quoted(TYPES.partition("\\")[2])
    return {
        CLASS: {"@": title},
        CLASS + "\\InprocServer32": {"@": quoted(path), '"ThreadingModel"': '"Apartment"'},
        CLASS + "\\ProgID": {"@": '"Tavisk.clsTavisk.1"'},
        CLASS + "\\Programmable": {"@": '""'},
        CLASS + "\\TypeLib": {"@": types},
        CLASS + "\\Version": {"@": '"1.0"'},
        CLASS + "\\VersionIndependentProgID": {"@": '"Tavisk.clsTavisk"'},
        INTERFACE: {"@": '"IclsTavisk"'},
        INTERFACE + "\\ProxyStubClsid32": {"@": '"{00020424-0000-0000-C000-000000000046}"'},
        INTERFACE + "\\TypeLib": {"@": types, '"Version"': '"1.0"'},
        "Tavisk.clsTavisk": {"@": title},
        "Tavisk.clsTavisk\\CLSID": {"@": clsid},
        "Tavisk.clsTavisk\\CurVer": {"@": '"Tavisk.clsTavisk.1"'},
        "Tavisk.clsTavisk.1": {"@": title},
        "Tavisk.clsTavisk.1\\CLSID": {"@": clsid},
        TYPES: {},
        TYPES + "\\1.0": {"@": '"Tavisk 1.0 Type Library"'},
        TYPES + "\\1.0\\0": {},
        TYPES + "\\1.0\\0\\win64": {"@": quoted(path)},
        TYPES + "\\1.0\\FLAGS": {"@": '"0"'},
        TYPES + "\\1.0\\HELPDIR": {"@": quoted(windows_path(library.parent))},
    }


def below(root, keys):
    return {(root + "\\" + key).lower(): values for key, values in keys.items()}


OWN_KEYS = [ALL_USERS + "\\" + key for key in
            (CLASS, INTERFACE, TYPES, "Tavisk.clsTavisk", "Tavisk.clsTavisk.1")] + [OTHER_SIZE]


class RegistryTest(ComTest):
    ROOTS = ()  # what is looked at

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        # A run that was broken off may have left something.
        for key in OWN_KEYS:
            run("reg", "delete", key, "/f", check=False)

    def setUp(self):
        super().setUp()
        self.before = self.now()

    def now(self):
        keys = {}
        for root in self.ROOTS:
            keys |= registry(root, self.folder)
        return keys

    def added(self):
        now = self.now()
        for key, values in self.before.items():
            self.assertEqual(now.get(key), values, key)
        return {key: values for key, values in now.items() if key not in self.before}


class Everything(RegistryTest):
    ROOTS = (ALL_USERS, THIS_USER)

    def test_for_all_users_and_back(self):
        self.registered()
        self.assertEqual(self.added(), below(ALL_USERS, entries(self.library)))
        self.unregister(self.library)
        self.assertEqual(self.now(), self.before)

    def test_for_this_user_when_all_users_are_refused(self):
        run(PROGRAMS / "refuseAllUsers.exe", "refuse")
        self.addCleanup(run, PROGRAMS / "refuseAllUsers.exe", "allow")
        self.registered()
        added = self.added()
        for container in ("CLSID", "Interface", "TypeLib"):
            self.assertEqual(added.pop((THIS_USER + "\\" + container).lower(), {}), {})
        self.assertEqual(added, below(THIS_USER, entries(self.library)))
        self.unregister(self.library)
        self.assertEqual(self.now(), self.before)

    def test_a_class_of_this_user_alone_is_created(self):
        self.skipTest("Wine looks for classes among those of all users only")


class OwnKeys(RegistryTest):
    """Reading all keys takes long."""
    ROOTS = OWN_KEYS

    def test_twice_is_as_once(self):
        self.registered()
        self.register(self.library)
        self.assertEqual(self.added(), below(ALL_USERS, entries(self.library)))
        self.unregister(self.library)
        self.unregister(self.library)
        self.assertEqual(self.now(), self.before)

    def test_another_copy_takes_over_and_is_left_alone(self):
        other = self.copy_to(self.folder / "other")
        self.registered()
        self.register(other)
        self.addCleanup(self.unregister, other)
        self.assertEqual(self.added(), below(ALL_USERS, entries(other)))
        self.unregister(self.library)
        self.assertEqual(self.added(), below(ALL_USERS, entries(other)))
        self.unregister(other)
        self.assertEqual(self.now(), self.before)

    def test_what_somebody_else_wrote_below_stays(self):
        self.registered()
        key = ALL_USERS + "\\" + CLASS
        self.addCleanup(run, "reg", "delete", key, "/f")
        run("reg", "add", key + "\\Other", "/ve", "/d", "theirs", "/f")
        run("reg", "add", key, "/v", "Note", "/d", "theirs", "/f")
        self.unregister(self.library)
        self.assertEqual(self.added(), below(ALL_USERS, {CLASS: {'"Note"': '"theirs"'},
                                                         CLASS + "\\Other": {"@": '"theirs"'}}))

    def test_a_value_that_somebody_else_changed_stays(self):
        self.registered()
        key = ALL_USERS + "\\Tavisk.clsTavisk\\CurVer"
        self.addCleanup(run, "reg", "delete", ALL_USERS + "\\Tavisk.clsTavisk", "/f")
        run("reg", "add", key, "/ve", "/d", "Tavisk.clsTavisk.2", "/f")
        self.unregister(self.library)
        self.assertEqual(self.added(), below(ALL_USERS, {
            "Tavisk.clsTavisk": {}, "Tavisk.clsTavisk\\CurVer": {"@": '"Tavisk.clsTavisk.2"'}}))

    def test_what_the_other_word_size_needs_stays(self):
        self.registered()
        run("reg", "add", OTHER_SIZE + "\\InprocServer32", "/ve", "/d", "Z:\\x86\\Tavisk.dll", "/f")
        self.addCleanup(run, "reg", "delete", OTHER_SIZE, "/f")
        self.unregister(self.library)
        added = self.added()
        for key in (OTHER_SIZE, OTHER_SIZE + "\\InprocServer32"):
            added.pop(key.lower())
        shared = {key: values for key, values in entries(self.library).items()
                  if key.startswith(("Tavisk", TYPES)) and not key.endswith(("\\0", "win64"))}
        self.assertEqual(added, below(ALL_USERS, shared))
        # The last one to go takes it along.
        self.register(self.library)
        run("reg", "delete", OTHER_SIZE + "\\InprocServer32", "/f")
        self.unregister(self.library)
        self.assertEqual(self.added(), {OTHER_SIZE.lower(): {}})


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
