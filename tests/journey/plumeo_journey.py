#!/usr/bin/env python3
"""What a user does with the example host, with real keys and clicks, and what is then seen.

Usage: plumeo_journey.py PLUMEO SCREENSHOTS [TEST...]. Pages are compared as pictures: the same page looks the
same however it was reached.
"""

import pathlib
import sys
import tempfile
import unittest

from desktop import Desktop, wait_until

PROGRAM, SCREENSHOTS = (pathlib.Path(argument).resolve() for argument in sys.argv[1:3])
PREVIEW = "Afdrukvoorbeeld Biomassaketelhuis De Veenhoek – verspreidingsberekening"

# The middles of the toolbar's parts, in pixels of 96 to the inch: its buttons are 22 wide, the page
# box 40, the arrow of the zoom button 13, and lines take 6.
TOOLBAR_MIDDLE = 14
SLUITEN, EERSTE, VORIGE, PAGE_BOX, VOLGENDE, LAATSTE, ZOOM, ZOOM_ARROW, AFDRUKKEN = (
    11, 39, 61, 92, 123, 145, 173, 190, 214)
TOOLBAR_HEIGHT = 28


class Journey(unittest.TestCase):
    """Plumeo's window on a desktop of its own."""

    width, height, dots_per_inch, scale = 1280, 1024, 96, 1
    suffix = ""

    def setUp(self):
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.folder = pathlib.Path(scratch.name)
        self.desktop = Desktop(SCREENSHOTS, self.width, self.height, self.dots_per_inch)
        self.addCleanup(self.desktop.close)
        self.program = self.start_plumeo()
        self.desktop.wait_for_window("Plumeo")

    def start_plumeo(self):
        """In Qt's own style, apart from the user's settings and printers."""
        self.desktop.environment |= {
            "QT_SCALE_FACTOR": str(self.scale), "QT_STYLE_OVERRIDE": "Fusion",
            "XDG_CONFIG_HOME": str(self.folder), "XDG_RUNTIME_DIR": str(self.folder),
            "CUPS_SERVER": "127.0.0.1:9"}
        return self.desktop.start(PROGRAM, cwd=self.folder)

    def screenshot(self, name):
        self.desktop.screenshot(name + self.suffix)

    def click_toolbar(self, middle):
        """And moves the pointer out of the way, to where nothing lies under it."""
        self.desktop.click(middle * self.scale, TOOLBAR_MIDDLE * self.scale)
        _, _, width, height = self.desktop.window_place()
        self.desktop.point(width - 3, height - 3)

    def pages(self):
        """How the pages look below the toolbar."""
        left, top, width, height = self.desktop.window_place()
        below = TOOLBAR_HEIGHT * self.scale
        return self.desktop.picture(left, top + below, width, height - below)

    def see_other_pages_than(self, *others):
        """Waits until the pages look like none of the others, and gives how they look then."""
        wait_until(lambda: self.pages() not in others, "other pages")
        self.desktop.settle()
        return self.pages()

    def see(self, pages):
        wait_until(lambda: self.pages() == pages, "pages that were seen before")

    def open_preview(self):
        """Gives how its first page looks."""
        self.desktop.key("alt+v")
        self.desktop.wait_for_window(PREVIEW)
        _, _, width, height = self.desktop.window_place()
        self.desktop.point(width - 3, height - 3)
        self.desktop.settle()
        return self.pages()

    def open_zoom_menu(self):
        before = self.pages()
        self.click_toolbar(ZOOM_ARROW)
        self.see_other_pages_than(before)  # for it hangs over them

    def open_dialog(self, button, title):
        self.click_toolbar(button)
        self.desktop.wait_for_window(title)

    def close_preview(self):
        self.desktop.key("Escape")
        self.desktop.wait_for_window("Plumeo")
        self.assertEqual(self.desktop.titles(), ["Plumeo"])

    def close_program(self):
        self.desktop.key("alt+F4")
        self.assertEqual(self.program.wait(10), 0)


class OnAnOrdinaryScreen(Journey):
    def test_the_preview_covers_the_window_and_gives_way_to_it_again(self):
        self.screenshot("plumeo")
        place = self.desktop.outer_place()
        self.open_preview()
        self.screenshot("voorbeeld")
        self.assertEqual(self.desktop.outer_place(), place)
        self.close_preview()
        self.close_program()

    def test_pages_are_turned_by_buttons_and_by_keys(self):
        first = self.open_preview()
        self.click_toolbar(VOLGENDE)
        second = self.see_other_pages_than(first)
        self.screenshot("voorbeeld_pagina_2")
        self.click_toolbar(VORIGE)
        self.see(first)
        self.click_toolbar(LAATSTE)
        last = self.see_other_pages_than(first, second)
        self.click_toolbar(VOLGENDE)
        self.desktop.settle()
        self.see(last)
        self.click_toolbar(EERSTE)
        self.see(first)
        self.desktop.key("Down")
        self.see(second)
        self.desktop.key("Up")
        self.see(first)
        self.click_toolbar(SLUITEN)
        self.desktop.wait_for_window("Plumeo")
        self.close_program()

    def test_the_zoom_button_and_its_menu_change_the_view(self):
        whole = self.open_preview()
        self.open_zoom_menu()
        self.desktop.screenshot_of_all("zoommenu")
        self.desktop.key("p")
        wide = self.see_other_pages_than(whole)
        self.screenshot("voorbeeld_paginabreedte")
        self.open_zoom_menu()
        self.desktop.key("t")
        two = self.see_other_pages_than(whole, wide)
        self.screenshot("voorbeeld_twee_paginas")
        self.click_toolbar(ZOOM)
        self.see(whole)
        self.click_toolbar(ZOOM)
        self.see_other_pages_than(whole, wide, two)
        self.screenshot("voorbeeld_100_procent")
        self.close_preview()
        self.close_program()

    def test_the_page_box_asks_for_a_page(self):
        first = self.open_preview()
        self.click_toolbar(VOLGENDE)
        second = self.see_other_pages_than(first)
        self.click_toolbar(VOLGENDE)
        third = self.see_other_pages_than(first, second)
        self.click_toolbar(EERSTE)
        self.see(first)
        self.open_dialog(PAGE_BOX, "Ga naar")
        self.desktop.type("3")
        self.screenshot("ga_naar")
        self.desktop.key("Return")
        self.desktop.wait_for_window(PREVIEW)
        self.see(third)
        self.open_dialog(PAGE_BOX, "Ga naar")
        self.desktop.key("alt+Down")
        self.desktop.screenshot_of_all("ga_naar_lijst")
        self.desktop.key("Escape")
        self.desktop.key("Escape")
        self.desktop.wait_for_window(PREVIEW)
        self.see(third)
        self.close_preview()
        self.close_program()

    def test_printing_asks_what_to_print_and_can_be_given_up(self):
        first = self.open_preview()
        self.open_dialog(AFDRUKKEN, "Afdrukken")
        self.screenshot("afdrukken")
        self.desktop.key("alt+p")
        self.screenshot("afdrukken_paginas")
        self.desktop.key("alt+n")
        self.desktop.wait_for_window("Pagina instellen")
        self.screenshot("pagina_instellen")
        self.desktop.key("Escape")
        self.desktop.wait_for_window("Afdrukken")
        self.desktop.key("Escape")
        self.desktop.wait_for_window(PREVIEW)
        self.see(first)
        self.close_preview()
        self.close_program()

    def test_the_engines_own_menu_opens_at_the_pointer(self):
        first = self.open_preview()
        _, _, width, height = self.desktop.window_place()
        self.desktop.click(width / 2, height / 2, button=3)
        self.see_other_pages_than(first)
        self.desktop.screenshot_of_all("zoommenu_van_het_blad")
        self.desktop.key("Escape")
        self.see(first)
        self.close_preview()
        self.close_program()

    def test_the_hosts_printer_dialog_can_be_given_up(self):
        self.desktop.key("alt+a")
        self.desktop.wait_for_window("Printerinstelling")
        self.screenshot("printerinstelling")
        self.desktop.key("Escape")
        self.desktop.wait_for_window("Plumeo")
        self.close_program()

    def test_the_report_is_saved_as_a_file(self):
        self.desktop.key("alt+p")
        self.desktop.wait_for_window("Rapport opslaan")
        self.screenshot("rapport_opslaan")
        self.desktop.key("ctrl+a")
        self.desktop.type(str(self.folder / "proef.pdf"))
        self.desktop.key("Return")
        self.desktop.wait_for_window("Plumeo")
        file = self.folder / "proef.pdf"
        wait_until(lambda: file.exists() and file.read_bytes()[:5] == b"%PDF-", "the file")
        self.screenshot("plumeo_na_opslaan")
        self.close_program()


class OnADenseScreen(Journey):
    width, height, dots_per_inch, scale = 2560, 2048, 192, 2
    suffix = "_192dpi"

    def test_every_window_shows_twice_as_large(self):
        self.screenshot("plumeo")
        self.assertEqual(self.desktop.window_place()[2:], (1720, 1280))
        first = self.open_preview()
        self.screenshot("voorbeeld")
        self.click_toolbar(VOLGENDE)
        second = self.see_other_pages_than(first)
        for button, title, size in ((PAGE_BOX, "Ga naar", (748, 182)),
                                    (AFDRUKKEN, "Afdrukken", (868, 306))):
            self.open_dialog(button, title)
            self.assertEqual(self.desktop.window_place()[2:], size)
            self.screenshot(title.lower().replace(" ", "_"))
            self.desktop.key("Escape")
            self.desktop.wait_for_window(PREVIEW)
            self.see(second)
        self.close_preview()
        self.desktop.key("alt+a")
        self.desktop.wait_for_window("Printerinstelling")
        self.assertEqual(self.desktop.window_place()[2:], (886, 530))
        self.screenshot("printerinstelling")
        self.desktop.key("Escape")
        self.desktop.wait_for_window("Plumeo")
        self.close_program()


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[3:], verbosity=2)
