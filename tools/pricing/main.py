"""./run: prices a drawing and prints its bill of materials."""

import fcntl
import os
import signal
import subprocess
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from arguments import HELP, parse  # noqa: E402
from drawing_host import Host  # noqa: E402
from failure import DRAWING, INTERNAL, OUTPUT, USAGE, Failure  # noqa: E402
from inputs import check, check_input, check_name  # noqa: E402
from interruption import Stopped, catch, waiting  # noqa: E402
from session import Session  # noqa: E402
from work_folder import WorkFolder  # noqa: E402

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
RESULTS = ("report.txt", "drawing.dxf", "dialog.png", "drawing.png")


def progress(words):
    if sys.stderr.isatty():
        print(words, file=sys.stderr)


def build():
    """Brings the programs up to date; one run at a time."""
    check_name(ROOT, INTERNAL)
    folder = os.path.join(ROOT, "build")
    try:
        os.makedirs(folder, exist_ok=True)
        with open(os.path.join(folder, "run.lock"), "w") as lock, open(os.path.join(folder, "run.log"), "wb") as log:
            with waiting():
                fcntl.flock(lock, fcntl.LOCK_EX)
                build_locked(folder, log)
    except OSError as error:
        raise Failure(INTERNAL, f"{error.filename}: {error.strerror}") from None


def build_locked(folder, log):
    if subprocess.run([os.path.join(ROOT, "tools", "setup"), "run"]).returncode != 0:
        raise Failure(INTERNAL, "what building needs cannot be installed")
    progress("Building...")
    steps = [["cmake", "--build", os.path.join(folder, "windows"), "--target", "drawinghost", "corvanes"]]
    if not os.path.exists(os.path.join(folder, "windows", "build.ninja")):
        steps.insert(0, ["cmake", "--preset", "windows"])
    for step in steps:
        if subprocess.run(step, cwd=ROOT, stdin=subprocess.DEVNULL, stdout=log, stderr=log).returncode != 0:
            raise Failure(INTERNAL, f"the build failed; {log.name} tells why")


def show_desktop(drawing):
    session = Session(ROOT, "--display")
    try:
        session.start()
        Host(ROOT, session, drawing).show()
    finally:
        session.end()


def price(drawing, prices, out, hide_prices):
    """The report as text, once all results are in their places."""
    progress(f"Pricing {drawing}...")
    work = WorkFolder(out)
    session = Session(ROOT)
    try:
        session.start()
        Host(ROOT, session, drawing).price(work, prices, hide_prices)
        for name in RESULTS:
            if not os.path.isfile(work.file(name)) or os.path.getsize(work.file(name)) == 0:
                raise Failure(OUTPUT, f"{os.path.join(out, name)} was not written")
        with open(work.file("report.txt"), "rb") as file:
            report = file.read()
        work.deliver(RESULTS)
        return report
    finally:
        work.remove()
        session.end()


def shown(report):
    """The report for the terminal. The module writes code page 1255, or UTF-8 behind its mark."""
    text = report[3:].decode("utf-8") if report.startswith(b"\xef\xbb\xbf") else report.decode("cp1255", "replace")
    return text.replace("\r", "")


def run(words):
    arguments = parse(words)
    if arguments.help:
        print(HELP, end="")
        return
    drawing, prices = arguments.drawing, arguments.prices
    if drawing is None:
        drawing = os.path.join(ROOT, "samples", "house_plan.dxf")
        prices = None if arguments.desktop else os.path.join(ROOT, "samples", "house_prices.prc")
    if arguments.desktop:
        if not os.environ.get("DISPLAY"):
            raise Failure(USAGE, "--desktop needs a display")
        check_input(drawing, DRAWING)
    else:
        check(drawing, prices, arguments.out, RESULTS)
    if not os.environ.get("CORVANES_SESSION"):
        build()
    if arguments.desktop:
        show_desktop(drawing)
        return
    report = price(drawing, prices, arguments.out, arguments.hide_prices)
    sys.stdout.write(shown(report))
    sys.stdout.flush()


def main():
    catch()
    try:
        run(sys.argv[1:])
        return 0
    except Failure as failure:
        print(failure.line, file=sys.stderr)
        return failure.status
    except BrokenPipeError:
        os.dup2(os.open(os.devnull, os.O_WRONLY), sys.stdout.fileno())  # nobody reads on; the results are in place
        return 0
    except OSError as error:
        print(Failure(OUTPUT, f"{error.filename or 'standard output'}: {error.strerror}").line, file=sys.stderr)
        return OUTPUT
    except Stopped as stopped:
        signal.signal(stopped.number, signal.SIG_DFL)
        os.kill(os.getpid(), stopped.number)
        return INTERNAL


if __name__ == "__main__":
    sys.exit(main())
