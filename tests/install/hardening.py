#!/usr/bin/env python3
"""The built files end a program whose memory is broken instead of letting it go on.

Usage: hardening.py JUMPS PROGRAM LIBRARY... ARCHIVE_OR_OBJECT..., where JUMPS is 1 when the compiler
can bound where jumps lead.
"""

import sys
import unittest

import elf

JUMPS, *FILES = sys.argv[1:]
LINKED = [file for file in FILES if not file.endswith((".a", ".o"))]
COMPILED = [file for file in FILES if file.endswith((".a", ".o"))]


def called_by(file, table="--dyn-syms"):
    return {symbol.name for symbol in elf.symbols(file, table) if not symbol.defined}


class BuiltFiles(unittest.TestCase):
    def for_each(self, files):
        self.assertTrue(files)
        for file in files:
            with self.subTest(file):
                yield file

    def test_watch_their_stack(self):
        for file in self.for_each(LINKED):
            self.assertIn("__stack_chk_fail", called_by(file))

    def test_check_subscripts(self):
        for file in self.for_each(LINKED):
            self.assertTrue(any(name.startswith("std::__glibcxx_assert_fail(")
                                for name in called_by(file)))

    def test_check_the_lengths_of_c_calls(self):
        # Only where the compiler knows a buffer's length and not what goes into it.
        called = {name for file in COMPILED for name in called_by(file, "--syms")}
        self.assertTrue(called & {"__memcpy_chk", "__memset_chk", "__memmove_chk"}, called)

    def test_let_nobody_write_where_calls_lead(self):
        for file in self.for_each(LINKED):
            self.assertIn("GNU_RELRO", elf.read("--program-headers", file))
            self.assertIn("BIND_NOW", elf.read("--dynamic", file))

    def test_stand_at_an_address_that_nobody_knows(self):
        for file in self.for_each(LINKED):
            self.assertRegex(elf.read("--file-header", file), r"Type: +DYN ")

    def test_say_where_jumps_may_lead(self):
        # Of each object: a linked file says it only when the C library's own objects do too.
        for file in self.for_each(COMPILED if JUMPS == "1" else []):
            for name, notes in elf.notes_of_objects(file).items():
                self.assertIn("x86 feature: IBT, SHSTK", notes, name)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
