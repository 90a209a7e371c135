"""The drawing host: its scripts, its runs, and what its words mean."""

import contextlib
import fcntl
import os
import re
import select
import signal
import subprocess
import tempfile

from failure import DRAWING, INTERNAL, NOTHING, OUTPUT, PRICES, Failure
from interruption import end_with_parent, waiting
from references import why_none
from windows_names import own_paths, windows_path


SEEN_ANYWHERE = "7"  # white on black, and black on white
STEP = 0.1  # seconds between two calls of who watches
TABLE_PLACE = ("beside", "move beside-end", "pick beside-end")


def price_script(work, prices, hide_prices, following=None):
    """The lines that price the open drawing. The page shows it as it looked before the table went into it. The host begins to
    read the drawing `following` when it only has pictures left to make."""
    ahead = ["READAHEAD", windows_path(following)] if following else []
    return ["REGEN", "PAGEVIEW", "SETVAR", "ADDEDCOLOR", SEEN_ANYWHERE,
            "QXBOMC", windows_path(prices) if prices else "^C", "ALL", "",
            f'@tick "Show Price" {"off" if hide_prices else "on"}', f'@picture "{windows_path(work.file("dialog.png"))}"',
            '@press "Save to file"', windows_path(work.file("report.txt")), '@press "Insert"', *TABLE_PLACE,
            "SAVEAS", windows_path(work.file("drawing.dxf")), *ahead, "PNGOUT", windows_path(work.file("drawing.png")),
            "-PAGEOUT", windows_path(work.file("report.html")), windows_path(work.file("drawing.png")),
            "PNGDETAIL", "Last", windows_path(work.file("table.png")),
            "PNGDETAIL", "Most", windows_path(work.file("drawing-detail.png"))]


def values_for(folder, work, converted, arguments):
    """What the module is asked for beside its dialog, in the host's environment; without `work` a script names the files. The
    results come from `folder`, or from folders within it."""
    values = {"CORVANES_NOTES": "1", "CORVANES_DELIVERED_LATER": windows_path(folder)}
    if work:
        values["CORVANES_JSON"] = windows_path(work.file("report.json"))
    if converted:
        values["CORVANES_SOURCE"] = windows_path(converted.told)
    return values | {"CORVANES_DYNAMIC_NAMES": "1"} if arguments.dynamic_names else values


@contextlib.contextmanager
def turn_of(session):
    """Runs of one desktop take turns: of two dialogs only one is active, and the other may lose a click."""
    with open(os.path.join(session.environment["WINEPREFIX"], ".pricing"), "wb") as turn:
        with waiting():
            fcntl.flock(turn, fcntl.LOCK_EX)
        yield


def ends_within(seconds, process):
    """Waits for the end of a process, but not longer than told. Popen.wait() would look for it now and then only."""
    try:
        descriptor = os.pidfd_open(process.pid)
    except OSError:  # an older system
        with waiting(), contextlib.suppress(subprocess.TimeoutExpired):
            process.wait(seconds)
    else:
        try:
            with waiting():
                select.select([descriptor], [], [], seconds)
        finally:
            os.close(descriptor)
    return process.poll() is not None


def settings_file():
    """Where the host's window keeps its settings: among the person's own, not in the Wine prefix."""
    home = os.environ.get("XDG_CONFIG_HOME") or os.path.join(os.path.expanduser("~"), ".config")
    file = os.path.join(home, "corvanes", "window.set")
    return {"CORVANES_SETTINGS": windows_path(file)} if os.path.isabs(file) else {}


class Host:
    """Runs of the host on one drawing, or on those of a script; `path` is the file that it opens for the drawing."""

    def __init__(self, root, session, drawing=None, path=None):
        folder = os.path.join(root, "build", "windows", "bin")
        self.converter = os.path.join(root, "tools", "dwg2dxf")
        self.session, self.drawing, self.path = session, drawing, path or drawing
        opened = [windows_path(self.path)] if drawing else []
        self.command = [os.path.join(root, "tools", "wine"), os.path.join(folder, "drawinghost.exe"), *opened,
                        "--load", windows_path(os.path.join(folder, "Corvanes.arx")), "--load", "Page.arx"]

    def run(self, said, *options, watch=None, **values):
        """The exit status, and what the host said on standard error, which goes to the file `said` (no pipe: Wine's desktop,
        which the host starts, would keep that open). `values` go into the host's environment. `watch` is called now and then
        while the host runs. With a script the host ends with this program; a person's window stays."""
        process = subprocess.Popen([*self.command, *options], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=said,
                                   start_new_session=True, preexec_fn=end_with_parent if "--script" in options else None,
                                   env=self.session.environment | {"DRAWINGHOST_DWG_CONVERTER": self.converter} | values)
        try:
            while watch and not ends_within(STEP, process):
                watch()
            with waiting():
                process.wait()
        finally:
            if process.poll() is None:  # Ctrl-C: Wine's programs do not hear it
                os.kill(process.pid, signal.SIGKILL)
                process.wait()
        said.seek(0)
        return process.returncode, said.read().decode("utf-8", "replace").replace("\r", "")

    def show(self):
        """The host's window, until the person closes it."""
        with tempfile.TemporaryFile() as said:
            status, words = self.run(said, "--load", "Layers.arx", CORVANES_NOTES="1", **settings_file())
        if status != 0:
            raise self.failure(last_line(words))

    def price(self, work, prices, arguments, converted=None):
        """Makes the results in the work folder."""
        lines = [*price_script(work, prices, arguments.hide_prices), "QUIT"]
        with turn_of(self.session):
            with open(work.file("host.scr"), "w", encoding="utf-8") as script:
                script.write("\n".join(lines) + "\n")
            with open(work.file("host.log"), "w+b") as said:
                status, words = self.run(said, "--script", windows_path(script.name), "--hidden", "--verbose",
                                         **values_for(work.path, work, converted, arguments))
        if status != 0:
            raise self.pricing_failure(last_line(words), work, prices)

    def failure(self, reason):
        """What the host's last words mean wherever they were said."""
        if reason.startswith("drawinghost: "):
            reason = reason.partition(" ")[2]
            own = os.path.realpath(self.path)
            if reason.startswith(own):
                return Failure(DRAWING, os.path.realpath(self.drawing) + reason[len(own):])
            return Failure(INTERNAL, reason)
        return Failure(INTERNAL, reason)

    def pricing_failure(self, reason, work, prices):
        if not work.is_there():
            return Failure(OUTPUT, f"{work.out}: the folder is gone")
        if "no dialog is open" in reason:
            return Failure(NOTHING, f"{self.drawing}: {why_none(self.path)}")
        alert = re.search(r'(?:an alert waits for an answer|this line does not drive): "(File .*)"$', reason)
        if alert and prices and alert.group(1).startswith("File " + os.path.realpath(prices)):
            return Failure(PRICES, alert.group(1))
        what = alert.group(1) if alert else reason.partition(": ")[2]
        own = os.path.realpath(self.path)
        if what.startswith(own):
            return Failure(DRAWING, os.path.realpath(self.drawing) + what[len(own):])
        if work.path in what:
            # The person knows the output folder only, and not the script.
            return Failure(OUTPUT, what.replace(work.path, work.out))
        return self.failure(reason)


def last_line(words):
    """The last line that the host said, with the machine's own paths. What its command line shows may have no line end."""
    lines = [line for line in words.split("\n") if line]
    if not lines:
        return "the drawing host ended with an error"
    line = own_paths(lines[-1])
    script = re.search(r".*(script /.*\.scr:\d+: .*)", line)
    return script.group(1) if script else line
