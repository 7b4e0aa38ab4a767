#!/usr/bin/env python3
"""What a user does with the example host, with real keys and clicks, and what is then seen.

Usage: plumeo_journey.py PLUMEO OFFICE SCREENSHOTS [TEST...]
"""

import journey
from desktop import wait_until
from journey import (AFDRUKKEN, EERSTE, LAATSTE, PAGE_BOX, SLUITEN, VOLGENDE, VORIGE, ZOOM, Journey)


class OnAnOrdinaryScreen(Journey):
    def test_the_preview_covers_the_window_and_gives_way_to_it_again(self):
        self.screenshot("plumeo")
        place = self.desktop.outer_place()
        self.open_preview()
        self.screenshot("voorbeeld")
        self.assertEqual(self.desktop.outer_place(), place)
        self.close_preview()
        self.close_host()

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
        self.close_host()

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
        self.close_host()

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
        self.desktop.wait_for_window(self.preview)
        self.see(third)
        self.open_dialog(PAGE_BOX, "Ga naar")
        self.desktop.key("alt+Down")
        self.desktop.screenshot_of_all("ga_naar_lijst")
        self.desktop.key("Escape")
        self.desktop.key("Escape")
        self.desktop.wait_for_window(self.preview)
        self.see(third)
        self.close_preview()
        self.close_host()

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
        self.desktop.wait_for_window(self.preview)
        self.see(first)
        self.close_preview()
        self.close_host()

    def test_the_engines_own_menu_opens_at_the_pointer(self):
        first = self.open_preview()
        _, _, width, height = self.desktop.window_place()
        self.desktop.click(width / 2, height / 2, button=3)
        self.see_other_pages_than(first)
        self.desktop.screenshot_of_all("zoommenu_van_het_blad")
        self.desktop.key("Escape")
        self.see(first)
        self.close_preview()
        self.close_host()

    def test_the_hosts_printer_dialog_can_be_given_up(self):
        self.desktop.key("alt+a")
        self.desktop.wait_for_window("Printerinstelling")
        self.screenshot("printerinstelling")
        self.desktop.key("Escape")
        self.desktop.wait_for_window("Plumeo")
        self.close_host()

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
        self.close_host()


    def test_a_digit_asks_for_the_page_that_it_begins(self):
        first = self.open_preview()
        self.desktop.key("Next")
        second = self.see_other_pages_than(first)
        self.desktop.key("Home")
        self.see(first)
        self.desktop.type("2")
        self.desktop.wait_for_window("Ga naar")
        self.screenshot("ga_naar_2")
        self.desktop.key("Return")
        self.desktop.wait_for_window(self.preview)
        self.see(second)
        self.close_preview()
        self.close_host()

    def test_a_minimised_window_comes_back_with_the_hosts_window(self):
        host = self.desktop.active_window()
        self.open_preview()
        self.lose_and_find_again(host, self.preview)
        self.open_dialog(PAGE_BOX, "Ga naar")
        self.lose_and_find_again(host, "Ga naar")
        self.desktop.key("Escape")
        self.desktop.wait_for_window(self.preview)
        self.close_preview()
        self.close_host()

    def lose_and_find_again(self, host, title):
        """This window manager minimises windows that offer no button for it. When it gives the
        host's window the keyboard then, the minimised one comes back at once."""
        self.desktop.run("xdotool", "windowminimize", self.desktop.active_window())
        self.desktop.settle()
        self.desktop.run("xdotool", "windowactivate", host)
        self.desktop.wait_for_window(title)


class OnASmallScreen(Journey):
    width, height = 1024, 600
    suffix = "_1024x600"

    def test_every_window_lies_whole_on_the_screen(self):
        self.screenshot("plumeo")
        self.see_whole_window()
        self.open_preview()
        self.screenshot("voorbeeld")
        self.see_whole_window()
        for button, title in ((PAGE_BOX, "Ga naar"), (AFDRUKKEN, "Afdrukken")):
            self.open_dialog(button, title)
            self.see_whole_window()
            self.desktop.key("Escape")
            self.desktop.wait_for_window(self.preview)
        self.close_preview()
        self.close_host()

    def see_whole_window(self):
        left, top, width, height = self.desktop.outer_place()
        self.assertGreaterEqual(min(left, top), 0)
        self.assertLessEqual(left + width, self.width)
        self.assertLessEqual(top + height, self.height)


class RightAfterTheHostsWindow(Journey):
    """A host that shows its preview before its window is on the screen."""

    title, preview = "Kantoor", "Afdrukvoorbeeld Brief"
    arguments = ("meteen",)

    def host_program(self):
        return self.office

    def wait_for_host(self):
        self.desktop.wait_for_window(self.preview)

    def test_the_preview_covers_that_window(self):
        self.screenshot("voorbeeld_meteen")
        place = self.desktop.outer_place()
        self.close_preview()
        self.assertEqual(self.desktop.outer_place(), place)
        self.close_host()


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
            self.desktop.wait_for_window(self.preview)
            self.see(second)
        self.close_preview()
        self.desktop.key("alt+a")
        self.desktop.wait_for_window("Printerinstelling")
        self.assertEqual(self.desktop.window_place()[2:], (886, 530))
        self.screenshot("printerinstelling")
        self.desktop.key("Escape")
        self.desktop.wait_for_window("Plumeo")
        self.close_host()


if __name__ == "__main__":
    journey.main("plumeo", "office", "screenshots")
