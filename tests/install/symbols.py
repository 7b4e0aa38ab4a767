#!/usr/bin/env python3
"""The shared libraries show the public classes and functions and nothing else.

Usage: symbols.py LIBPAGIVO ARCHIVE [LIBPAGIVO_QT]
"""

import pathlib
import re
import sys
import unittest

import elf

ROOT = pathlib.Path(__file__).resolve().parents[2]
LIBRARY, ARCHIVE, *WINDOWS = sys.argv[1:]


def listed(heading):
    """The names under a heading of public_symbols.txt."""
    text = pathlib.Path(__file__).with_name("public_symbols.txt").read_text()
    names, = re.findall(rf"^# {re.escape(heading)}\n((?:[^#\n].*\n)+)", text, flags=re.M)
    return names.splitlines()


def shown(library):
    """The names that a library shows, by version."""
    versions = {}
    for symbol in elf.symbols(library):
        if symbol.defined:
            versions.setdefault(symbol.version, set()).add(symbol.name)
    return versions


def marked():
    """The names of the classes and functions that the sources mark with PAGIVO_EXPORT."""
    headers = [*ROOT.glob("include/**/*.h"), *ROOT.glob("src/**/*.h")]
    text = "\n".join(header.read_text() for header in headers)
    return set(re.findall(r"class PAGIVO_EXPORT (\w+)", text)) | set(
        re.findall(r"PAGIVO_EXPORT [^;{(]*?\b(operator|\w+)(?:<=>)?[(;]", text))


class SharedLibraries(unittest.TestCase):
    maxDiff = None

    def test_show_hosts_what_is_listed(self):
        self.assertEqual(sorted(shown(LIBRARY)["PAGIVO_1"]), listed("libpagivo.so.1"))

    def test_show_hosts_the_windows_in_qt(self):
        for windows in WINDOWS:
            self.assertEqual({version: sorted(names) for version, names in shown(windows).items()},
                             {"PAGIVO_QT_1": listed("libpagivo-qt.so.1")})

    def test_show_the_windows_in_qt_no_more_than_they_use(self):
        versions = shown(LIBRARY)
        del versions["PAGIVO_1"]
        (version, names), = versions.items()
        self.assertRegex(version, r"^PAGIVO_\d+\.\d+\.\d+_PRIVATE$")
        for windows in WINDOWS:
            used = {symbol.name for symbol in elf.symbols(windows)
                    if not symbol.defined and symbol.version == version}
            self.assertEqual(names, used)

    def test_are_made_of_objects_that_hide_what_is_not_marked(self):
        names = {symbol.name for symbol in elf.symbols(ARCHIVE, "--syms")
                 if symbol.defined and symbol.visibility != "HIDDEN"}
        own = {match.group(1) for match in
               (re.match(r"(?:[a-z ]+ for )?pagivo::(\w+)", name) for name in names) if match}
        self.assertLessEqual({"PgPrint", "Object", "Error"}, own)
        self.assertEqual(own - marked(), set())


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
