"""Works the host's window on an X display as a person does: with mouse and keyboard, and by looking at what is shown."""

import os
import pathlib
import re
import shutil
import struct
import subprocess
import sys
import tempfile
import time
import unittest

from host import ROOT, windows_path

PATIENCE = 60  # seconds, for anything that is to appear
# The American keycodes of characters that the Hebrew layout has on other keys. xdotool would find the Hebrew ones first, and
# change layouts to type, which the program may notice too late.
OWN_KEYS = {",": 59, "'": 48, "/": 61, ";": 47}


def xdotool(*words):
    done = subprocess.run(["xdotool", *map(str, words)], capture_output=True, text=True, check=False)
    return done.stdout.strip()


def seen(there, seconds):
    """The first true value that `there` returns within a time, or None."""
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        if value := there():
            return value
        time.sleep(0.02)
    return None


def wait_until(there, what):
    """The first true value that `there` returns. If none comes, it fails and leaves a picture of the display."""
    if value := seen(there, PATIENCE):
        return value
    handle, picture = tempfile.mkstemp(prefix="never_came_", suffix=".xwd")
    os.write(handle, dump("-root"))
    os.close(handle)
    raise AssertionError(f"{what}: it never came ({picture} shows the display)")


def dump(*of):
    """The picture of a window (-id WINDOW, or -root) in the format of xwd; empty when the window is gone."""
    return subprocess.run(["xwd", "-silent", *map(str, of)], capture_output=True, check=False).stdout


class Picture:
    """The pixels of a window, row by row, from a dump in the format of xwd."""

    def __init__(self, dump):
        header = struct.unpack(">25I", dump[:100])
        size, self.width, self.height, stride, colours = header[0], header[4], header[5], header[12], header[19]
        data = dump[size + 12 * colours:]
        self.rows = [data[stride * y:stride * y + 4 * self.width] for y in range(self.height)]

    def share(self, colour, y):
        """The part of a row that has a colour, from 0 to 1."""
        row = self.rows[y]
        return sum(row[4 * x:4 * x + 3] == colour for x in range(self.width)) / self.width

    def part(self, left, top, right, bottom):
        return [row[4 * left:4 * right] for row in self.rows[top:bottom]]


class Desktop:
    """A running host. With --verbose it repeats its command line on standard error, which this reads."""

    caption_height, frame_width, command_line_height = 42, 4, 125  # of the main window with its menu, in pixels
    next_click = 0  # when a caption may be clicked next, by time.monotonic()
    caption_row, active_caption = 6, bytes((0xFA, 0x96, 0x32))  # of any window: above its title; blue, green, red

    def __init__(self, host, module, drawing, folder, *options):
        xdotool("mousemove", 4000, 4000)  # into the far corner, where no window comes up under the pointer
        self.heard = folder / "said"
        self.read_to = 0
        with open(self.heard, "wb") as said:
            self.process = subprocess.Popen(
                [ROOT / "tools" / "wine", host, windows_path(drawing), "--load", windows_path(module), "--verbose", *options],
                stderr=said, cwd=folder, env=os.environ | {"CORVANES_SETTINGS": windows_path(folder / "window.set")})
        self.hear("Command: ")
        self.window = wait_until(lambda: xdotool("search", "--onlyvisible", "--name", " - Drawing Host$"), "the window")
        self.look_at_window()

    def look_at_window(self):
        shape = dict(re.findall(r"(\w+)=(-?\d+)", xdotool("getwindowgeometry", "--shell", self.window)))
        self.left, self.top, self.width, self.height = (int(shape[name]) for name in ("X", "Y", "WIDTH", "HEIGHT"))

    def quit(self):
        """Leaves the host by its command, and waits for the end of its process."""
        self.type("quit")
        try:
            wait_until(lambda: self.process.poll() is not None, "the end of the host")
        except AssertionError as problem:
            raise AssertionError(f"{problem} after {self.last_words()!r}") from None

    def end(self):
        if self.process.poll() is None:
            self.process.terminate()
        self.process.wait()

    # Ears.

    def hear(self, words):
        """Waits for words at the command line; returns all that was said since the last time, up to their end."""

        def found():
            text = self.heard.read_bytes().decode("utf-8", errors="replace").replace("\r", "")
            place = text.find(words, self.read_to)
            return None if place < 0 else (text, place + len(words))

        try:
            text, end = wait_until(found, repr(words))
        except AssertionError as silence:
            raise AssertionError(f"{silence} after {self.last_words()!r}; exit status {self.process.poll()}") from None
        said = text[self.read_to:end]
        self.read_to = end
        return said

    def last_words(self):
        return self.heard.read_bytes().decode("utf-8", errors="replace")[-200:]

    # Hands.

    def face(self, title):
        """Waits for a window and makes keys go to it. X must send keys there, and Wine must hold the window active, which its
        caption shows; one can be true without the other. A click on the caption makes both true."""

        def ready():
            window = xdotool("search", "--onlyvisible", "--name", title)
            seen = dump("-id", window) if window else b""
            if not seen:
                return None
            active = Picture(seen).share(self.active_caption, self.caption_row) > 0.5
            if active and xdotool("getwindowfocus") == window:
                return window
            if active:
                xdotool("windowfocus", window)
            else:
                self.click_caption(window)
            return None

        wait_until(ready, f"the window {title!r}")

    def click_caption(self, window):
        """Clicks, and puts the pointer back. Waits so that two clicks do not make a double click, which would maximise the
        window."""
        if time.monotonic() < self.next_click:
            return
        self.next_click = time.monotonic() + 1
        before = dict(re.findall(r"([XY])=(\d+)", xdotool("getmouselocation", "--shell")))
        shape = dict(re.findall(r"(\w+)=(-?\d+)", xdotool("getwindowgeometry", "--shell", window)))
        xdotool("mousemove", int(shape["X"]) + int(shape["WIDTH"]) // 2, int(shape["Y"]) + self.caption_row, "click", 1,
                "mousemove", before["X"], before["Y"])

    def key(self, *names, title=" - Drawing Host$"):
        self.face(title)
        xdotool("key", *names)

    def type(self, text, title=" - Drawing Host$"):
        """Types a line and Return."""
        self.face(title)
        for part in filter(None, re.split("([,'/;])", text)):
            xdotool("key", OWN_KEYS[part]) if part in OWN_KEYS else xdotool("type", "--delay", "1", part)
        xdotool("key", "Return")

    def run(self, *lines):
        """Types a command and its answers; returns what was said until the next command may be typed."""
        for line in lines:
            self.type(line)
        return self.hear("\nCommand: ")

    def screen(self, at):
        return self.left + self.frame_width + at[0], self.top + self.caption_height + at[1]

    def move(self, at):
        """Moves the pointer to a pixel of the drawing view."""
        xdotool("mousemove", *self.screen(at))

    def click(self, at, button=1):
        self.move(at)
        xdotool("click", button)

    def drag(self, start, end, button):
        xdotool("mousemove", *self.screen(start), "mousedown", button, "mousemove", *self.screen(end), "mouseup", button)

    def rest(self):
        """Takes the pointer off the drawing."""
        xdotool("mousemove", self.left + self.width // 2, self.top + self.height - 60)

    # Eyes.

    def picture(self):
        """The drawing as the window shows it."""
        return Picture(dump("-id", self.window)).part(
            self.frame_width, self.caption_height, self.width - self.frame_width,
            self.height - self.frame_width - self.command_line_height)

    def settled_picture(self):
        """The drawing at the prompt for commands, once two pictures agree: it is then painted, and the pointer's cross is
        gone."""
        self.rest()
        self.run("")  # by then the host has handled all earlier input
        last = None

        def settled():
            nonlocal last
            before, last = last, self.picture()
            white = [row.count(b"\xFF\xFF\xFF\x00") for row in last]
            crossed = white[0] > 0 or max(white) > 0.9 * len(last[0]) / 4  # no drawing here reaches the top
            return last if last == before and len(set(last)) > 1 and not crossed else None

        return wait_until(settled, "a picture that stays")

    def points(self, *pixels):
        """The places in the drawing under pixels of the view, as the command line prints picked points."""
        found = []
        for pixel in pixels:
            self.type("zoom")
            self.hear("<Extents>: ")
            self.click(pixel)
            said = self.hear("opposite corner: ")
            self.key("Escape")
            self.hear("\nCommand: ")
            found.append(tuple(map(float, said.split("\n")[0].split(",")[:2])))
        return found


class DesktopTest(unittest.TestCase):
    """A test case with a folder for the drawing, the module and its settings."""

    host = module = None

    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.folder)

    def open(self, drawing, *options):
        """Starts the host with a drawing of the folder."""
        self.desktop = Desktop(self.host, shutil.copy(self.module, self.folder), self.folder / drawing, self.folder, *options)
        self.addCleanup(self.desktop.end)
        return self.desktop


def main():
    """Runs the tests of the program: PROGRAM DRAWINGHOST.exe MODULE.arx [TEST...]."""
    if "CORVANES_SESSION" not in os.environ:
        os.execv(ROOT / "tools" / "session", [str(ROOT / "tools" / "session"), *sys.argv])
    DesktopTest.host, DesktopTest.module = map(pathlib.Path, sys.argv[1:3])
    unittest.main(argv=sys.argv[:1] + sys.argv[3:], verbosity=2)
