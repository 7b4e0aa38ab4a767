"""A host's window and its preview, used as a user does on a desktop of its own.

Pages are compared as pictures: the same page looks the same however it was reached.
"""

import pathlib
import sys
import tempfile
import unittest

from desktop import Desktop, wait_until

# The middles of the toolbar's parts, in pixels of 96 to the inch: its buttons are 22 wide, the page
# box 40, the arrow of the zoom button 13, and lines take 6.
TOOLBAR_MIDDLE = 14
SLUITEN, EERSTE, VORIGE, PAGE_BOX, VOLGENDE, LAATSTE, ZOOM, ZOOM_ARROW, AFDRUKKEN = (
    11, 39, 61, 92, 123, 145, 173, 190, 214)
TOOLBAR_HEIGHT = 28


class Journey(unittest.TestCase):
    """Plumeo's window, or that of another host whose Alt+V opens the preview."""

    plumeo = office = print_server_program = screenshots = None  # paths from the command line
    title = "Plumeo"
    preview = "Afdrukvoorbeeld Biomassaketelhuis De Veenhoek – verspreidingsberekening"
    print_server = "127.0.0.1:9"  # nobody answers there
    width, height, dots_per_inch, scale = 1280, 1024, 96, 1
    suffix = ""
    arguments = ()  # of the host

    def setUp(self):
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.folder = pathlib.Path(scratch.name)
        self.desktop = Desktop(self.screenshots, self.width, self.height, self.dots_per_inch)
        self.addCleanup(self.desktop.close)
        self.host = self.start_host()
        self.wait_for_host()

    def wait_for_host(self):
        self.desktop.wait_for_window(self.title)

    def host_program(self):
        return self.plumeo

    def start_host(self):
        """In Qt's own style, apart from the user's settings and printers."""
        for name in ("LPDEST", "PRINTER", "CUPS_USER"):
            self.desktop.environment.pop(name, None)
        self.desktop.environment |= {
            "QT_SCALE_FACTOR": str(self.scale), "QT_STYLE_OVERRIDE": "Fusion",
            "HOME": str(self.folder), "XDG_CONFIG_HOME": str(self.folder),
            "XDG_RUNTIME_DIR": str(self.folder), "DBUS_SESSION_BUS_ADDRESS": "disabled:",
            "CUPS_SERVER": self.print_server}
        return self.desktop.start(self.host_program(), *self.arguments, cwd=self.folder)

    def screenshot(self, name):
        self.desktop.screenshot(name + self.suffix)

    def click_toolbar(self, middle):
        """And moves the pointer out of the way, to where nothing lies under it."""
        self.desktop.click(middle * self.scale, TOOLBAR_MIDDLE * self.scale)
        self.point_at_nothing()

    def point_at_nothing(self):
        _, _, width, height = self.desktop.window_place()
        self.desktop.point(width - 3, height - 3)

    def pages(self):
        """How the pages look below the toolbar, within the line that marks the focus."""
        left, top, width, height = self.desktop.window_place()
        above, edge = TOOLBAR_HEIGHT * self.scale, 3 * self.scale
        return self.desktop.picture(left + edge, top + above + edge,
                                    width - 2 * edge, height - above - 2 * edge)

    def see_other_pages_than(self, *others):
        """Waits until the pages look like none of the others, and gives how they look then."""
        wait_until(lambda: self.pages() not in others, "other pages")
        self.desktop.settle()
        return self.pages()

    def see(self, pages):
        wait_until(lambda: self.pages() == pages, "pages that were seen before")

    def open_preview(self):
        """Gives how its first page looks. The preview covers the host's window."""
        host = self.pages()
        self.desktop.key("alt+v")
        self.desktop.wait_for_window(self.preview)
        self.point_at_nothing()
        return self.see_other_pages_than(host)

    def open_zoom_menu(self):
        before = self.pages()
        self.click_toolbar(ZOOM_ARROW)
        self.see_other_pages_than(before)  # for it hangs over them

    def open_dialog(self, button, title):
        self.click_toolbar(button)
        self.desktop.wait_for_window(title)

    def close_preview(self):
        self.desktop.key("Escape")
        self.desktop.wait_for_window(self.title)
        wait_until(lambda: self.desktop.titles() == [self.title], "the host's window alone")

    def close_host(self):
        self.desktop.key("alt+F4")
        self.assertEqual(self.host.wait(10), 0)


def main(*names):
    """Runs the journeys, or those that the command line names after the paths that it begins with.
    The journeys get these paths under the given names."""
    for name, path in zip(names, sys.argv[1:]):
        setattr(Journey, name, pathlib.Path(path).resolve())
    unittest.main(argv=sys.argv[:1] + sys.argv[1 + len(names):], verbosity=2)
