#!/usr/bin/env python3
"""Hosts that are built and run from an installation, with the texts of the documents as they stand.

Usage: installation.py BUILD SHARED FLAGS [TEST...], where SHARED is 1 when the build has shared
libraries, and FLAGS are what its hosts are compiled with.
"""

import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

from documents import ROOT, blocks

sys.path.append(str(ROOT / "tests" / "journey"))
from desktop import Desktop  # noqa: E402

BUILD, SHARED, FLAGS = sys.argv[1:4]
INSTALL, = blocks("README.md", "Installing")["sh"]
FIRST_PROGRAM = blocks("README.md", "A first program")
WINDOW_PROGRAM = blocks("docs/windows.md", "What a host does")


class Installation(unittest.TestCase):
    """In a home folder to which the installation has been moved."""

    @classmethod
    def setUpClass(cls):
        cls.home = cls.make_folder() / "home"
        before = cls.home.with_name("before")
        (cls.home / "bin").mkdir(parents=True)
        cls.environment = os.environ | {
            "CXX": cls.make_compiler(), "PATH": f"{cls.home}/bin:{os.environ['PATH']}",
            "CUPS_SERVER": "127.0.0.1:9"}  # nobody answers there
        for name in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "PKG_CONFIG_PATH",
                     "LD_LIBRARY_PATH"):
            cls.environment.pop(name, None)
        install = INSTALL.splitlines()[-1].replace("build/release", BUILD)
        cls.run_in(ROOT, install, check=True, HOME=str(before))
        (before / "pagivo").rename(cls.home / "pagivo")

    @classmethod
    def make_folder(cls, **files):
        """With files whose names have an underscore for the point."""
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        for name, text in files.items():
            (pathlib.Path(folder.name) / name.replace("_", ".")).write_text(text)
        return pathlib.Path(folder.name)

    @classmethod
    def make_compiler(cls):
        """A g++ that compiles hosts as the build was, where that takes flags."""
        compiler = cls.home / "bin" / "g++"
        compiler.write_text(f'#!/bin/sh\nexec /usr/bin/g++ {FLAGS} "$@"\n')
        compiler.chmod(0o755)
        return str(compiler)

    @classmethod
    def run_in(cls, folder, commands, check=False, **environment):
        """What the commands do as a user's shell runs them."""
        done = subprocess.run(
            ["bash", "-euc", commands], cwd=folder, capture_output=True, text=True, timeout=300,
            check=False, env=cls.environment | {"HOME": str(cls.home)} | environment)
        if check and done.returncode != 0:
            raise AssertionError(f"{commands}\n{done.stdout}\n{done.stderr}")
        return done


class Hosts(Installation):
    """A document's program, built both ways in both forms."""

    program = None

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.hosts = []
        for shared in (False, True) if SHARED == "1" else (False,):
            cls.build_with_cmake(shared)
            cls.build_with_pkg_config(shared)

    @classmethod
    def build_with_cmake(cls, shared):
        lists = cls.program["cmake"][0]
        if shared:
            lists = re.sub(r"REQUIRED( COMPONENTS Qt)?\)", lambda match: "REQUIRED " + (
                match[1] or " COMPONENTS").strip() + " Shared)", lists)
        folder = cls.make_folder(main_cpp=cls.program["cpp"][0], CMakeLists_txt=lists)
        *build, run = FIRST_PROGRAM["sh"][0].splitlines()
        cls.take_host(folder, "\n".join(build), run, shared)

    @classmethod
    def build_with_pkg_config(cls, shared):
        folder = cls.make_folder(main_cpp=cls.program["cpp"][0])
        *build, run = cls.program["sh"][-1].splitlines()
        build = "\n".join(build)
        if shared:
            build = re.sub(r"--libs ([\w-]+)", r"--libs \1-shared", build)
            run = f'export LD_LIBRARY_PATH="$HOME/pagivo/lib"\n{run}'
        cls.take_host(folder, build, run, shared)

    @classmethod
    def take_host(cls, folder, build, run, shared):
        cls.run_in(folder, build, check=True)
        cls.hosts.append((folder, run, shared))

    def each_host(self):
        """Each host's folder and the command that runs it there."""
        for folder, run, shared in self.hosts:
            with self.subTest(run=run, shared=shared):
                yield folder, run

    def test_links_the_form_that_it_asks_for(self):
        for folder, run, shared in self.hosts:
            with self.subTest(run=run, shared=shared):
                needs = self.run_in(folder, f"readelf -d {run.splitlines()[-1]}", check=True).stdout
                self.assertEqual("libpagivo.so.1" in needs, shared)


class FirstProgram(Hosts):
    program = FIRST_PROGRAM

    def test_writes_its_document(self):
        for folder, run in self.each_host():
            self.run_in(folder, run, check=True)
            text = self.run_in(folder, "pdftotext eerste.pdf -", check=True).stdout
            self.assertEqual(text.split(), ["Goedemorgen"])
            (folder / "eerste.pdf").unlink()

    def test_reports_an_error_in_dutch_and_ends(self):
        for folder, run in self.each_host():
            (folder / "eerste.pdf").mkdir()
            done = self.run_in(folder, run)
            self.assertEqual(done.returncode, 1)
            self.assertIn("eerste.pdf", done.stderr)
            (folder / "eerste.pdf").rmdir()


class WindowProgram(Hosts):
    program = WINDOW_PROGRAM

    def test_shows_its_document_until_the_user_closes_the_preview(self):
        for folder, run in self.each_host():
            desktop = Desktop(folder, 1280, 1024)
            try:
                desktop.environment = self.environment | {
                    "HOME": str(self.home), "DISPLAY": desktop.environment["DISPLAY"]}
                host = desktop.start("bash", "-euc", run, cwd=folder)
                desktop.wait_for_window("Afdrukvoorbeeld Eerste document")
                desktop.key("Escape")
                self.assertEqual(host.wait(20), 0)
            finally:
                desktop.close()

    def test_says_in_dutch_that_there_is_no_display(self):
        for folder, run in self.each_host():
            done = self.run_in(folder, run)
            self.assertEqual(done.returncode, 1)
            self.assertIn("Er is geen beeldscherm", done.stderr)


class FoundPackage(Installation):
    def configure(self, lists, options="", **environment):
        folder = self.make_folder(
            CMakeLists_txt=f"cmake_minimum_required(VERSION 3.25)\nproject(Host LANGUAGES CXX)\n{lists}")
        return self.run_in(
            folder, f'cmake -B build -DCMAKE_PREFIX_PATH="$HOME/pagivo" {options}', **environment)

    def expect_configured(self, *arguments, **environment):
        done = self.configure(*arguments, **environment)
        self.assertEqual(done.returncode, 0, done.stderr)

    def expect_refused(self, why, *arguments):
        done = self.configure(*arguments)
        self.assertNotEqual(done.returncode, 0)
        self.assertIn(why, " ".join(done.stderr.split()))


class Package(FoundPackage):
    def test_is_built_without_the_packages_of_the_tests(self):
        folder = self.make_folder()
        missing = "".join(f" -DCMAKE_DISABLE_FIND_PACKAGE_{name}=ON"
                          for name in ("GTest", "benchmark", "Python3"))
        self.run_in(ROOT, f"{INSTALL.splitlines()[0]} -B {folder} {missing}", check=True)
        self.assertNotIn("pagivo_tests", (folder / "build.ninja").read_text())

    def test_looks_for_qt_only_when_asked(self):
        self.expect_configured(
            "find_package(Pagivo REQUIRED)\n"
            "if(DEFINED Qt6_FOUND OR TARGET Qt6::Core OR TARGET Pagivo::Qt)\n"
            "  message(FATAL_ERROR unasked)\nendif()\n")

    def test_says_that_qt_is_missing(self):
        self.expect_refused("no Qt", "find_package(Pagivo REQUIRED COMPONENTS Qt)\n",
                            "-DCMAKE_DISABLE_FIND_PACKAGE_Qt6=ON")


class SharedPackage(FoundPackage):
    def test_needs_nothing_of_what_it_stands_on(self):
        self.expect_configured("find_package(Pagivo REQUIRED COMPONENTS Shared)\n",
                               PKG_CONFIG_LIBDIR="/nowhere")

    def test_is_no_second_form_in_one_host(self):
        self.expect_refused("other form", "find_package(Pagivo REQUIRED)\n"
                            "find_package(Pagivo REQUIRED COMPONENTS Shared)\n")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[4:], verbosity=2)
