#!/usr/bin/env python3
"""What arrives at the printers when users print, from the first click to the last page.

Usage: printing_journey.py PLUMEO OFFICE PRINT_SERVER SCREENSHOTS [TEST...]
"""

import subprocess
import tempfile

import journey
from desktop import wait_until
from journey import AFDRUKKEN, PAGE_BOX, Journey
from print_server import Page, PrintServer

# Papers, in hundredths of a millimetre.
A3, A4, A5 = (29700, 42000), (21000, 29700), (14800, 21000)
HUNDREDTHS_PER_POINT = 2540 / 72

# The middles of what is clicked in the print dialog, in twips.
HUIDIGE_PAGINA, OK = (600, 966), (3225, 2025)


class PrintingJourney(Journey):
    document = None  # its title

    @classmethod
    def setUpClass(cls):
        cls.server = PrintServer(cls.print_server_program)
        cls.addClassCleanup(cls.server.close)
        cls.print_server = cls.server.address

    def setUp(self):
        self.server.forget()
        super().setUp()

    def click_twips(self, left, top):
        self.desktop.click(left / 15 * self.scale, top / 15 * self.scale)

    def ask_for_pages_2_to_4_twice(self):
        """In either dialog, for they have these keys in common."""
        self.desktop.key("alt+p")
        for box, entry in (("v", "2"), ("t", "4"), ("x", "2")):
            self.desktop.key("alt+" + box)
            self.desktop.type(entry)

    def await_jobs(self, printer, count):
        wait_until(lambda: len(self.server.jobs(printer)) >= count, f"{count} jobs on {printer}", 60)

    def expect_received(self, printer, jobs, paper=A4):
        """Each of the jobs that the printer has received is a list of pages."""
        self.server.await_rest()
        received = self.server.jobs(printer)
        self.assertEqual(len(received), len(jobs))
        for job, pages in zip(received, jobs):
            self.assertEqual((job.title, job.copies), (self.document, 1))
            self.assertIn("media-size={{x-dimension={} y-dimension={}}}".format(*paper), job.media)
            self.expect_pages(self.server.pages(job.file), pages)

    def expect_pages(self, received, pages):
        self.assertEqual([page.text for page in received], [page.text for page in pages])
        for page, expected in zip(received, pages):
            self.assertAlmostEqual(page.width, expected.width, delta=1)
            self.assertAlmostEqual(page.height, expected.height, delta=1)


class Plumeo(PrintingJourney):
    """The example's report, which is the same at every button."""

    document = "Biomassaketelhuis De Veenhoek – verspreidingsberekening"

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.report = cls.pages_of_the_report()

    @classmethod
    def pages_of_the_report(cls):
        with tempfile.TemporaryDirectory() as folder:
            file = f"{folder}/rapport.pdf"
            subprocess.run([cls.plumeo, "--pdf", file], check=True, stdout=subprocess.DEVNULL)
            return cls.server.pages(file)

    def test_pages_2_to_4_twice_are_two_jobs_of_three_pages(self):
        first = self.open_preview()
        self.open_dialog(AFDRUKKEN, "Afdrukken")
        self.ask_for_pages_2_to_4_twice()
        self.screenshot("afdrukken_2_tot_en_met_4")
        self.desktop.key("Return")
        self.await_jobs(PrintServer.COLOR, 2)
        self.desktop.wait_for_window(self.preview)
        self.see(first)
        self.close_preview()
        self.close_host()
        self.expect_received(PrintServer.COLOR, [self.report[1:4]] * 2)
        self.expect_received(PrintServer.DRAWING, [])

    def test_the_current_page_is_a_job_of_one_page(self):
        first = self.open_preview()
        self.open_dialog(PAGE_BOX, "Ga naar")
        self.desktop.type("6")
        self.desktop.key("Return")
        self.desktop.wait_for_window(self.preview)
        shown = self.see_other_pages_than(first)
        self.open_dialog(AFDRUKKEN, "Afdrukken")
        self.click_twips(*HUIDIGE_PAGINA)
        self.screenshot("afdrukken_huidige_pagina")
        self.click_twips(*OK)
        self.await_jobs(PrintServer.COLOR, 1)
        self.desktop.wait_for_window(self.preview)
        self.see(shown)
        self.close_preview()
        self.close_host()
        self.expect_received(PrintServer.COLOR, [self.report[5:6]])

    def test_the_hosts_dialog_prints_on_the_other_printer(self):
        self.desktop.key("alt+a")
        self.desktop.wait_for_window("Printerinstelling")
        self.screenshot("printerinstelling_standaardprinter")
        self.desktop.key("Down")
        self.ask_for_pages_2_to_4_twice()
        self.screenshot("printerinstelling_andere_printer")
        self.desktop.key("Return")
        self.await_jobs(PrintServer.DRAWING, 2)
        self.desktop.wait_for_window(self.title)
        self.screenshot("plumeo_na_afdrukken")
        self.close_host()
        self.expect_received(PrintServer.DRAWING, [self.report[1:4]] * 2)
        self.expect_received(PrintServer.COLOR, [])


class Office(PrintingJourney):
    """A host whose next document has what was set up for the one before it."""

    title = "Kantoor"
    preview = "Afdrukvoorbeeld Brief"
    document = "Brief"

    def host_program(self):
        return self.office

    def letter(self, paper):
        """Its pages on a paper."""
        width, height = (side / HUNDREDTHS_PER_POINT for side in paper)
        return [Page(width, height, f"Blad {number}") for number in range(1, 6)]

    def print_pages_2_to_4_twice_from_a_preview(self, printer):
        """And closes the host."""
        self.open_preview()
        self.open_dialog(AFDRUKKEN, "Afdrukken")
        self.ask_for_pages_2_to_4_twice()
        self.desktop.key("Return")
        self.await_jobs(printer, 2)
        self.desktop.wait_for_window(self.preview)
        self.close_preview()
        self.close_host()

    def test_changed_paper_is_that_of_the_next_document(self):
        self.open_preview()
        self.open_dialog(AFDRUKKEN, "Afdrukken")
        self.desktop.key("alt+n")
        self.desktop.wait_for_window("Pagina instellen")
        self.screenshot("pagina_instellen_a4")
        self.desktop.type("A5")
        self.screenshot("pagina_instellen_a5")
        self.desktop.key("Return")
        self.desktop.wait_for_window("Afdrukken")
        self.click_twips(*OK)
        self.await_jobs(PrintServer.COLOR, 1)
        self.desktop.wait_for_window(self.preview)
        self.close_preview()
        self.expect_received(PrintServer.COLOR, [self.letter(A4)])
        self.server.forget()
        self.print_pages_2_to_4_twice_from_a_preview(PrintServer.COLOR)
        self.expect_received(PrintServer.COLOR, [self.letter(A5)[1:4]] * 2, paper=A5)
        self.expect_received(PrintServer.DRAWING, [])

    def test_the_engines_printer_setup_chooses_printer_and_paper(self):
        self.desktop.key("alt+p")
        self.desktop.wait_for_window("Printer instellen")
        self.screenshot("printer_instellen")
        self.desktop.key("Down")
        self.desktop.key("alt+f")
        self.desktop.type("A3")
        self.screenshot("printer_instellen_andere_printer")
        self.desktop.key("Return")
        self.desktop.wait_for_window(self.title)
        self.print_pages_2_to_4_twice_from_a_preview(PrintServer.DRAWING)
        self.expect_received(PrintServer.DRAWING, [self.letter(A3)[1:4]] * 2, paper=A3)
        self.expect_received(PrintServer.COLOR, [])


if __name__ == "__main__":
    journey.main("plumeo", "office", "print_server_program", "screenshots")
