"""./run: prices a drawing and prints its bill of materials."""

import contextlib
import fcntl
import os
import shutil
import signal
import subprocess
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from arguments import parse  # noqa: E402
from drawing_host import Host  # noqa: E402
from failure import DRAWING, INTERNAL, NOTHING, OUTPUT, USAGE, Failure, one_line  # noqa: E402
from inputs import check, check_input, check_name, dwg_mark  # noqa: E402
from interruption import Stopped, catch, waiting  # noqa: E402
from progress import Progress, of_build, of_host  # noqa: E402
from results import DETAIL, PRINTED, RESULTS, complete, convert  # noqa: E402
from session import Session  # noqa: E402
from work_folder import WorkFolder, contents  # noqa: E402

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))


# What changes when something is installed or removed.
INSTALLED = ("/var/lib/dpkg/status", "/usr/lib/locale/locale-archive")


def set_up(folder):
    """Installs what is missing. That nothing is takes a while to find out, and is remembered."""
    command, found = os.path.join(ROOT, "tools", "setup"), os.path.join(folder, "set-up")
    try:
        if os.path.getmtime(found) > max(os.path.getmtime(path) for path in (command, *INSTALLED)):
            return
    except OSError:
        pass
    if subprocess.run([command, "run"]).returncode != 0:
        raise Failure(INTERNAL, "what building needs cannot be installed")
    with open(found, "w"):
        pass


def build(sessions, progress):
    """Brings the programs up to date, one run at a time, while the sessions come up."""
    check_name(ROOT, INTERNAL)
    folder = os.path.join(ROOT, "build")
    try:
        os.makedirs(folder, exist_ok=True)
        with open(os.path.join(folder, "run.lock"), "w") as lock, open(os.path.join(folder, "run.log"), "wb") as log:
            with waiting():
                fcntl.flock(lock, fcntl.LOCK_EX)
                set_up(folder)
                for session in sessions:
                    session.begin()
                with progress.following(log.name, of_build):
                    build_locked(folder, log)
    except OSError as error:
        raise Failure(INTERNAL, f"{error.filename}: {error.strerror}") from None


def build_locked(folder, log):
    steps = [["ninja", "-C", os.path.join(folder, "windows"), "drawinghost", "corvanes", "layers", "page"]]
    if not os.path.exists(os.path.join(folder, "windows", "build.ninja")):
        steps.insert(0, ["cmake", "--preset", "windows"])
    for step in steps:
        if subprocess.run(step, cwd=ROOT, stdin=subprocess.DEVNULL, stdout=log, stderr=log).returncode != 0:
            raise Failure(INTERNAL, f"the build failed; {log.name} tells why")


def show_desktop(drawing, session):
    session.wait()
    Host(ROOT, session, drawing).show()


@contextlib.contextmanager
def output_folder(arguments):
    """The folder of the results: what --out names, or for "-" one that goes afterwards."""
    if arguments.out != "-":
        yield arguments.out
        return
    scratch = os.path.join(os.environ.get("TMPDIR") or "/tmp", f"corvanes.{os.urandom(8).hex()}")
    try:
        yield scratch
    finally:
        shutil.rmtree(scratch, ignore_errors=True)


def price(drawing, prices, arguments, session, progress):
    """The bill, and what of it is to be printed, once all results are in their places."""
    with output_folder(arguments) as out:
        return price_into(out, drawing, prices, arguments, session, progress)


def price_into(out, drawing, prices, arguments, session, progress):
    converter = None
    work = WorkFolder(out)
    try:
        if dwg_mark(drawing):
            from dwg import Converter  # takes its time, and most drawings are DXF

            converter = Converter(ROOT)
        with progress.following(work.file("host.log"), of_host):
            converted = convert(drawing, work, converter)
            session.wait()
            try:
                Host(ROOT, session, drawing, converted and converted.path).price(work, prices, arguments, converted)
            except Failure as failure:
                raise converted.explained(failure) if converted else failure
        bill = complete(work)
        printed = contents(work.file(PRINTED[arguments.format]))
        if arguments.out != "-":
            work.deliver(RESULTS, (DETAIL,))
        return bill, printed
    finally:
        if converter:
            converter.close()
        work.remove()


def shown(report):
    """The report for the terminal. The module writes code page 1255, or UTF-8 behind its mark."""
    text = report[3:].decode("utf-8") if report.startswith(b"\xef\xbb\xbf") else report.decode("cp1255", "replace")
    return text.replace("\r", "").encode("utf-8")


def write_out(printed, arguments):
    sys.stdout.buffer.write(shown(printed) if arguments.format == "text" else printed)
    sys.stdout.flush()


def run_many(arguments):
    """Prices drawings and prints their joined bill; the exit status."""
    from drawing_list import drawings, own_prices
    from many import of_share, price_all
    from total import NAMES
    from workers import number_of_workers, processors_for

    items = drawings(arguments.drawings)
    if arguments.prices is None:
        arguments.prices = own_prices(arguments.drawings)
        if arguments.prices and not arguments.quiet:
            print(one_line(f"Prices: {arguments.prices}"), file=sys.stderr)
    check(None, arguments.prices, None if arguments.out == "-" else arguments.out, NAMES)
    number = number_of_workers(of_share(items, arguments.share)[0], arguments.jobs)
    sessions = [Session(ROOT, "--unseen", number=place, processor=processor)
                for place, processor in enumerate(processors_for(number), 1)]
    try:
        if not os.environ.get("CORVANES_SESSION"):
            build(sessions, Progress(not arguments.quiet))
        for session in sessions:
            session.begin()
        with output_folder(arguments) as out:
            status, total = price_all(ROOT, items, arguments, sessions, out)
    finally:
        for session in sessions:
            session.end()
    if total:
        write_out(total.form(arguments.format), arguments)
    return status


def run(words):
    """The exit status."""
    arguments = parse(words)
    if arguments.answer:
        print(arguments.answer, end="")
        return 0
    if arguments.join:
        from joining import join

        with output_folder(arguments) as out:
            status, total = join(arguments, out)
        write_out(total.form(arguments.format), arguments)
        return status
    if arguments.many:
        return run_many(arguments)
    drawing, prices = arguments.drawing, arguments.prices
    if drawing is None:
        drawing = os.path.join(ROOT, "samples", "house_plan.dxf")
        prices = None if arguments.desktop else os.path.join(ROOT, "samples", "house_prices.prc")
    if arguments.desktop:
        if not os.environ.get("DISPLAY"):
            raise Failure(USAGE, "--desktop needs a display")
        check_input(drawing, DRAWING)
    else:
        check(drawing, prices, None if arguments.out == "-" else arguments.out, (*RESULTS, DETAIL))
    progress = Progress(not arguments.quiet)
    session = Session(ROOT, "--display" if arguments.desktop else "--unseen")
    try:
        if not os.environ.get("CORVANES_SESSION"):
            build([session], progress)
        elif arguments.desktop:
            session.begin()
        if arguments.desktop:
            show_desktop(drawing, session)
            return 0
        bill, printed = price(drawing, prices, arguments, session, progress)
    finally:
        session.end()
    if not arguments.quiet:
        for line in bill.note_lines:
            print(one_line(line), file=sys.stderr)
        detail = os.path.join(arguments.out, DETAIL)
        if arguments.out != "-" and os.path.exists(detail):
            print(f"The drawing is a speck in drawing.png, for a few things lie far away; {detail} shows most of it.", file=sys.stderr)
    write_out(printed, arguments)
    return NOTHING if arguments.strict and bill.note_lines else 0


def main():
    catch()
    try:
        return run(sys.argv[1:])
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
