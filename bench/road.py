"""Times the whole road, from a drawing's file to the saved report, from outside. bench/all and bench/growth use it."""

import functools
import os
import pathlib
import subprocess
import tempfile
import time

ROOT = pathlib.Path(__file__).resolve().parents[1]
PYTHON = "/usr/bin/python3"  # the one that has ezdxf


def windows_path(path):
    return "Z:" + str(pathlib.Path(path).resolve()).replace("/", "\\")


def timed(command, **options):
    """Wall time in seconds and peak memory in MB of a command that must succeed."""
    start = time.perf_counter()
    with tempfile.TemporaryFile() as said:  # not a closed pipe: some programs stop when nobody reads
        process = subprocess.Popen(command, stdout=said, **options)
        _, status, usage = os.wait4(process.pid, 0)
    process.returncode = os.waitstatus_to_exitcode(status)
    if process.returncode != 0:
        raise SystemExit(f"{command[0]} ended with {process.returncode}")
    return time.perf_counter() - start, usage.ru_maxrss / 1024


class Road:
    """Runs a finished Windows build; needs the environment of tools/session."""

    def __init__(self, build):
        self.bin = pathlib.Path(build) / "bin"
        self.work = tempfile.TemporaryDirectory()
        self.folder = pathlib.Path(self.work.name)

    def host(self, drawing, lines, rounds, shown, **values):
        """The best of some runs of the host with a script, with or without the drawing in its window, and with more values
        in its environment."""
        script = self.folder / "road.scr"
        script.write_text("\n".join(lines + ["QUIT"]) + "\n", encoding="utf-8")
        command = [str(ROOT / "tools" / "wine"), str(self.bin / "drawinghost.exe"), windows_path(drawing), "--load",
                   windows_path(self.bin / "Corvanes.arx"), "--script", windows_path(script)]
        command += [] if shown else ["--hidden"]
        return min(timed(command, stderr=subprocess.DEVNULL, env=os.environ | values) for _ in range(rounds))

    def report(self, drawing, prices=None, rounds=5, shown=False, **values):
        """The best of some runs that open a drawing, count everything, show the dialog, save the report and close."""
        report = self.folder / "report.txt"
        lines = ["QXBOMC", windows_path(prices) if prices else "^C", "ALL", "", '@press "Save to file"',
                 windows_path(report), '@press "Close"']
        best = None
        for _ in range(rounds):
            report.unlink(missing_ok=True)  # else the host asks whether to replace it
            run = self.host(drawing, lines, 1, shown, **values)
            best = min(best or run, run)
        return best

    def start(self, rounds=5):
        """The host alone with a small drawing."""
        return self.host(ROOT / "samples" / "house_plan.dxf", [], rounds, False)

    def references(self, count):
        """The path of a drawing of `count` references of 200 blocks."""
        drawing = self.folder / f"{count}.dxf"
        if not drawing.exists():
            subprocess.run([PYTHON, ROOT / "bench" / "generate_inserts.py", drawing, str(count)], check=True)
        return drawing

    def drawings(self, number, count):
        """The path of a folder of as many drawings of `count` references each."""
        folder = self.folder / f"{number} of {count}"
        folder.mkdir()
        for place in range(number):
            os.link(self.references(count), folder / f"{place:02d}.dxf")
        return folder

    def price_list(self, lines):
        """The path of a price list of that many lines; a hundred of them price blocks of references()."""
        prices = self.folder / f"{lines}.prc"
        every = max(1, lines // 100)
        with open(prices, "wb") as out:
            for i in range(lines):
                name = f"block_{i // every:04d}" if i % every == 0 else f"UNUSED BLOCK {i}"
                out.write(f"{name}|{i % 1000}.{i % 100:02d}|תיאור מספר {i}\r\n".encode("cp1255"))
        return prices


class WholeCommand:
    """./run as a person types it, in a session of its own and with all results."""

    def __init__(self):
        self.work = tempfile.TemporaryDirectory()
        folder = pathlib.Path(self.work.name)
        self.out = folder / "bill"
        self.environment = {name: value for name, value in os.environ.items() if name not in ("CORVANES_SESSION", "WINEPREFIX")}
        self.environment["CORVANES_PREFIX"] = str(folder / "wine")  # others are made beside it
        self.run(1, ROOT / "samples" / "house_plan.dxf")  # makes the prefix

    def run(self, rounds, drawing):
        """Wall time and peak memory of the best of some runs."""
        prices = ROOT / "samples" / "house_prices.prc"
        command = [str(ROOT / "run"), str(drawing), str(prices), "--quiet", "--out", str(self.out)]
        best = None
        for _ in range(rounds):
            time.sleep(1)  # the session of the last one ends first, as it does before a person types again
            run = timed(command, env=self.environment)
            best = min(best or run, run)
        return best


@functools.lru_cache
def ezdxf_count(drawing):
    """Seconds and MB that an ezdxf script takes to count the references."""
    return timed([PYTHON, str(ROOT / "bench" / "count_inserts.py"), str(drawing)])
