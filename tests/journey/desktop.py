"""A desktop of its own for a test: an X server without a screen, a window manager, and a user.

Needs xvfb, x11-utils, openbox, xdotool and ImageMagick. Everything started here is stopped by close().
"""

import os
import pathlib
import re
import subprocess
import tempfile
import time

import processes
from screen import Screen


class NotSeen(AssertionError):
    """Something that should have come on the screen did not come in time."""


def wait_until(seen, what, seconds=20):
    """Returns what seen() gives as soon as that is something; it is asked every few hundredths."""
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        result = seen()
        if result:
            return result
        time.sleep(0.03)
    raise NotSeen(f"not seen within {seconds} s: {what}")


class Desktop:
    def __init__(self, folder, width, height, dots_per_inch=96):
        """Screenshots go to the folder. The X server chooses a free display itself."""
        self.folder = pathlib.Path(folder)
        self.folder.mkdir(parents=True, exist_ok=True)
        self.started = []
        self.screen = None
        self._server_folder = tempfile.TemporaryDirectory()
        self.environment = {name: value for name, value in os.environ.items()
                            if name not in ("WAYLAND_DISPLAY", "QT_QPA_PLATFORM")}
        try:
            self._start_server(width, height, dots_per_inch)
            self._start_window_manager()
        except BaseException:
            self.close()
            raise

    def close(self):
        processes.stop(*self.started)
        self.started.clear()
        if self.screen:
            self.screen.close()
        self._server_folder.cleanup()

    def start(self, *command, **options):
        process = processes.start(command, env=self.environment, **options)
        self.started.append(process)
        return process

    def _start_server(self, width, height, dots_per_inch):
        reading, writing = os.pipe()
        self.start("Xvfb", "-displayfd", writing, "-screen", "0", f"{width}x{height}x24",
                   "-dpi", dots_per_inch, "-nolisten", "tcp", "-noreset",
                   "-fbdir", self._server_folder.name, "-nocursor",
                   pass_fds=[writing], stderr=subprocess.DEVNULL)
        os.close(writing)
        with os.fdopen(reading) as pipe:
            display = pipe.readline().strip()
        if not display:
            raise NotSeen("the X server did not start")
        self.environment["DISPLAY"] = ":" + display
        self.screen = Screen(f"{self._server_folder.name}/Xvfb_screen0")

    def _start_window_manager(self):
        self.start("openbox", "--sm-disable", stdout=subprocess.DEVNULL,
                   stderr=subprocess.DEVNULL)
        wait_until(lambda: "window id" in self.run("xprop", "-root", "_NET_SUPPORTING_WM_CHECK"),
                   "the window manager")

    def run(self, *command):
        """What a command writes; nothing when it fails."""
        done = subprocess.run([str(word) for word in command], env=self.environment,
                              capture_output=True, text=True, timeout=20, check=False)
        return done.stdout if done.returncode == 0 else ""

    # --- Windows ---------------------------------------------------------------------------

    def titles(self):
        """The titles of the windows on the screen, the frontmost one last."""
        stack = self.run("xprop", "-root", "_NET_CLIENT_LIST_STACKING").partition("#")[2]
        return [self.run("xdotool", "getwindowname", window.strip()).rstrip("\n")
                for window in stack.split(",") if window.strip()]

    def active_window(self):
        return self.run("xdotool", "getactivewindow").strip()

    def active_title(self):
        return self.run("xdotool", "getactivewindow", "getwindowname").rstrip("\n")

    def wait_for_window(self, title):
        """Until the window with this title has the keyboard; it may not be painted yet."""
        wait_until(lambda: self.active_title() == title, f'window "{title}"')

    def window_place(self):
        """Left, top, width and height of the active window's client area, in pixels."""
        # xdotool's own answer counts the frame twice.
        about = self.run("xwininfo", "-id", self.active_window())
        return tuple(int(re.search(rf"{what}: +(-?\d+)", about).group(1)) for what in
                     ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height"))

    def outer_place(self):
        """The same with the window's frame."""
        extents = self.run("xprop", "-id", self.active_window(), "_NET_FRAME_EXTENTS")
        before, after, above, below = map(int, extents.partition("=")[2].split(","))
        left, top, width, height = self.window_place()
        return (left - before, top - above, width + before + after, height + above + below)

    # --- The user --------------------------------------------------------------------------

    def key(self, *names):
        self.run("xdotool", "key", "--clearmodifiers", *names)

    def type(self, text):
        self.run("xdotool", "type", text)

    def point(self, x, y):
        """Moves the pointer to a place in the active window, in pixels from its client area's
        top left."""
        left, top, _, _ = self.window_place()
        self.run("xdotool", "mousemove", round(left + x), round(top + y))

    def click(self, x, y, button=1):
        self.point(x, y)
        self.run("xdotool", "click", button)

    # --- The screen ------------------------------------------------------------------------

    def picture(self, *place):
        """The screen, or a rectangle of it, as a text that is equal when it looks the same."""
        return self.screen.fingerprint(*(place or (0, 0, self.screen.width, self.screen.height)))

    def settle(self, seconds=5):
        """Waits until the screen has not changed for a while."""
        end = time.monotonic() + seconds
        before, since = self.picture(), time.monotonic()
        while time.monotonic() < min(end, since + 0.15):
            time.sleep(0.03)
            now = self.picture()
            if now != before:
                before, since = now, time.monotonic()

    def screenshot(self, name):
        """Of the active window with its frame, as NAME.png."""
        self.settle()
        self.run("import", "-silent", "-frame", "-window", self.active_window(),
                 self.folder / f"{name}.png")

    def screenshot_of_all(self, name):
        self.settle()
        self.run("import", "-silent", "-window", "root", self.folder / f"{name}.png")
