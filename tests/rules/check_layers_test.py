#!/usr/bin/env python3
"""What tools/check_layers.py lets through and what it catches."""

import pathlib
import sys
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "tools"))
import check_layers


def faults(path, include):
    return list(check_layers.faults_of(path, f"// A file.\n#include {include}\n"))


class Layers(unittest.TestCase):
    def test_a_folder_may_include_itself_and_what_lies_below_it(self):
        self.assertEqual(faults("values/variant.cpp", '"values/conversions.h"'), [])
        self.assertEqual(faults("values/variant.cpp", '"system/regional_settings.h"'), [])
        self.assertEqual(faults("engine/native/printing/x.cpp", '"engine/native/spool/media.h"'), [])

    def test_a_folder_may_not_include_what_lies_above_it(self):
        self.assertEqual(faults("system/x.cpp", '"values/errors.h"'),
                         ["src/system/x.cpp:2: system may not include values (values/errors.h)"])
        for path, include in [("engine/native/printing/x.h", '"engine/native/spool/cups/x.h"'),
                              ("engine/native/printing/x.h", '"engine/native/pdf/pdf_writer.h"'),
                              ("engine/native/spool/x.h", '"engine/native/pdf/pdf_writer.h"'),
                              ("dialogs/x.cpp", '"engine/native/native_engine.h"'),
                              ("engine/native/pictures/x.cpp", '"engine/native/pictures/pixbuf/svg_work.h"'),
                              ("engine/native/document/x.cpp", '"engine/native/pictures/pixbuf/svg_work.h"'),
                              ("platform/x.cpp", '"preview/preview_form.h"')]:
            self.assertEqual(len(faults(path, include)), 1, (path, include))

    def test_public_headers_are_everybodys(self):
        self.assertEqual(faults("system/x.cpp", '"pagivo/error.h"'), [])

    def test_a_library_belongs_to_its_folder(self):
        self.assertEqual(faults("engine/native/spool/cups/x.cpp", "<cups/cups.h>"), [])
        self.assertEqual(faults("engine/native/spool/x.cpp", "<cups/cups.h>"),
                         ["src/engine/native/spool/x.cpp:2: <cups/cups.h> belongs to "
                          "engine/native/spool/cups"])


class SystemHeaders(unittest.TestCase):
    HEADERS = ["unistd.h", "fcntl.h", "sys/stat.h", "sys/socket.h", "cerrno", "errno.h", "poll.h",
               "locale.h", "clocale", "langinfo.h", "signal.h", "csignal", "dlfcn.h", "netdb.h",
               "netinet/in.h", "pthread.h"]
    WINDOWS = ["windows.h", "winbase.h", "winreg.h", "oleauto.h", "objbase.h", "shlobj.h", "io.h", "dwrite.h",
               "wincodec.h"]
    OTHERS = ["system/x.cpp", "values/x.cpp", "window/x.cpp", "api/x.cpp", "engine/native/x.cpp",
              "engine/native/fonts/x.cpp", "engine/native/pdf/x.cpp", "engine/native/printing/x.cpp"]

    def test_they_are_caught_everywhere_but_in_their_systems_folder(self):
        for header in self.HEADERS:
            self.assertEqual(faults("system/posix/x.cpp", f"<{header}>"), [], header)
            for path in self.OTHERS:
                self.assertEqual(len(faults(path, f"<{header}>")), 1, (path, header))

    def test_those_of_windows_are_caught_everywhere_but_in_its_own_folders(self):
        for path in ["system/windows/x.cpp", "engine/native/spool/windows/x.cpp",
                     "engine/native/fonts/directwrite/x.cpp", "engine/native/pictures/wic/x.cpp"]:
            self.assertEqual(faults(path, "<windows.h>"), [])
        for header in self.WINDOWS:
            for path in self.OTHERS + ["system/posix/x.cpp", "engine/native/spool/cups/x.cpp"]:
                self.assertEqual(len(faults(path, f"<{header}>")), 1, (path, header))

    def test_no_system_knows_another(self):
        self.assertEqual(len(faults("system/x.cpp", '"system/posix/x.h"')), 1)
        self.assertEqual(len(faults("system/windows/x.cpp", '"system/posix/x.h"')), 1)
        self.assertEqual(len(faults("system/windows/x.cpp", "<fcntl.h>")), 1)
        self.assertEqual(len(faults("system/posix/x.cpp", "<windows.h>")), 1)

    def test_what_holds_a_connection_has_sockets_and_no_more(self):
        for path in ["engine/native/spool/cups/x.cpp", "window/qt/x.cpp"]:
            self.assertEqual(faults(path, "<sys/socket.h>"), [])
            for header in ["unistd.h", "fcntl.h", "sys/stat.h", "langinfo.h", "csignal"]:
                self.assertEqual(len(faults(path, f"<{header}>")), 1, (path, header))

    def test_the_standard_librarys_are_everybodys(self):
        for header in ["locale", "cstdlib", "ctime", "sstream", "system_error"]:
            self.assertEqual(faults("values/x.cpp", f"<{header}>"), [], header)


if __name__ == "__main__":
    unittest.main()
