#!/usr/bin/env python3
"""What a host's process loads when it starts.

Usage: loading.py LIBRARY...
"""

import re
import subprocess
import sys
import unittest

import elf

FILES = sys.argv[1:]
LATE = ["libcups", "libgnutls", "librsvg", "libgdk_pixbuf", "libxml2", "libcairo"]
MOST = 22  # libraries, the system's own among them; with the late ones there were 75


class Loading(unittest.TestCase):
    def test_leaves_the_late_libraries_alone(self):
        self.assertTrue(FILES)
        for file in FILES:
            needed = re.findall(r"\(NEEDED\).*\[(.*)\]", elf.read("--dynamic", file))
            self.assertTrue(needed)
            with self.subTest(file):
                self.assertFalse([name for name in needed if name.startswith(tuple(LATE))])

    def test_takes_few_libraries(self):
        loaded = subprocess.run(["ldd", FILES[0]], check=True, text=True, capture_output=True).stdout
        self.assertLessEqual(len(loaded.splitlines()), MOST)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
