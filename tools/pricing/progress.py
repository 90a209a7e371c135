"""Shows what a run is doing on the last line of the terminal, where standard error is one."""

import contextlib
import os
import re
import shutil
import sys
import threading

STAGES = {"QXBOMC": "Counting", "SAVEAS": "Saving", "PNGOUT": "Drawing the picture", "PAGEVIEW": "Drawing the page"}
STEP = 0.1  # seconds between two looks
LONGEST_LINE = 4096  # bytes from the end of a file that are read


def last_bytes(path):
    try:
        with open(path, "rb") as file:
            file.seek(max(0, os.fstat(file.fileno()).st_size - LONGEST_LINE))
            return file.read()
    except OSError:
        return b""


def of_build(said):
    """The last step that the build printed, as "[12/80]"."""
    steps = re.findall(rb"\[\d+/\d+\]", said)
    return f"Building {steps[-1].decode()}" if steps else "Building"


def of_host(said):
    """The last command at the host's command line."""
    commands = re.findall(rb"Command: (\w+)", said)
    return STAGES.get(commands[-1].decode(), "Pricing") if commands else "Opening the drawing"


class Progress:
    def __init__(self, wanted):
        self.terminal = sys.stderr if wanted and sys.stderr.isatty() else None

    @contextlib.contextmanager
    def following(self, path, stage_of):
        """A context: while the caller works, shows the stage that a growing file tells of."""
        if self.terminal is None:
            yield
            return
        done = threading.Event()
        thread = threading.Thread(target=self.follow, args=(path, stage_of, done), daemon=True)
        thread.start()
        try:
            yield
        finally:
            done.set()
            thread.join()
            self.show("")

    def follow(self, path, stage_of, done):
        shown = None
        while True:
            stage = stage_of(last_bytes(path)) + "..."
            if stage != shown:
                self.show(stage)
                shown = stage
            if done.wait(STEP):
                return

    def show(self, words):
        with contextlib.suppress(OSError):  # a lost progress line is no failure
            self.terminal.write("\r\x1b[K" + words[:shutil.get_terminal_size().columns - 1])
            self.terminal.flush()
