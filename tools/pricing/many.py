"""Many drawings: each priced as one would be, by few runs of the host, and their joined bill."""

import contextlib
import functools
import hashlib
import os
import shutil

from arguments import version
from drawing_host import Host, last_line, price_script, turn_of, values_for
from dwg import Converter
from failure import DRAWING, OUTPUT, PRICES, Failure
from inputs import check_folder, check_input, dwg_mark
from ledger import Ledger, failed, finished
from results import DETAIL, RESULTS, complete, convert
from total import Total
from windows_names import windows_path
from work_folder import WorkFolder
from workers import LARGE, parts, work_side_by_side

BATCH = 256  # drawings that one run of the host prices
CONVERTED = 16  # of them DWG, since their DXF takes room on the disk


def batches(items):
    batch = []
    for item in items:
        batch.append(item)
        if len(batch) == BATCH or sum(bool(dwg_mark(one.path)) for one in batch) == CONVERTED:
            yield batch
            batch = []
    if batch:
        yield batch


def remove(work, is_new):
    """Removes a work folder, and an output folder that was made for it and holds nothing."""
    work.remove()
    if is_new:
        with contextlib.suppress(OSError):
            os.rmdir(work.out)


class Occurrences:
    """Counts a text in a file that grows."""

    def __init__(self, text, file):
        self.text, self.file = text, file
        self.rest = b""  # which may be the begin of one

    def new(self):
        """How many there are behind those that were counted."""
        read = self.rest + self.file.read().replace(b"\r", b"")
        self.rest = read[max(read.rfind(self.text) + 1, len(read) - len(self.text) + 1):]
        return read.count(self.text)


class Job:
    """A drawing that waits for the host, and the folder `path` of what is made for it; `out` is where the results go."""

    def __init__(self, item, work, converter):
        check_input(item.path, DRAWING)
        self.item = item
        self.out = os.path.join(work.out, item.name)
        check_folder(self.out, (*RESULTS, DETAIL))
        self.path = os.path.join(work.file("drawings"), item.name)
        os.makedirs(self.path)
        try:
            self.converted = convert(item.path, self, converter if dwg_mark(item.path) else None)
        except BaseException:
            self.remove()
            raise

    def file(self, name):
        return os.path.join(self.path, name)

    def is_there(self):
        return os.path.isdir(self.path)

    @property
    def drawing(self):
        """The file that the host opens."""
        return self.converted.path if self.converted else self.item.path

    def script(self, prices, hide_prices, following):
        source = windows_path(self.converted.told) if self.converted else ""
        ahead = following.drawing if following and os.path.getsize(following.drawing) <= LARGE else None
        return ["OPEN", windows_path(self.drawing), "SETENV", "CORVANES_JSON", windows_path(self.file("report.json")),
                "SETENV", "CORVANES_SOURCE", source, *price_script(self, prices, hide_prices, ahead), "CLOSE"]

    def deliver(self):
        """The bill, once all of its files are in their places."""
        bill = complete(self)
        is_new = not os.path.isdir(self.out)
        work = WorkFolder(self.out)
        try:
            work.deliver(RESULTS, (DETAIL,), self.path)
            return bill
        finally:
            remove(work, is_new)

    def remove(self):
        shutil.rmtree(self.path, ignore_errors=True)


class Pricing:
    """Prices drawings one after another, and has `report` called with the news of each (see ledger). The folders of their
    results go beside the work folder `work`."""

    def __init__(self, root, session, arguments, work, report):
        self.root, self.session, self.arguments, self.work, self.report = root, session, arguments, work, report
        self.prices = arguments.prices
        self.converter = Converter(root)

    def run(self, items):
        try:
            for batch in batches(items):
                self.price(list(filter(None, map(self.prepared, batch))))
        finally:
            self.converter.close()

    def prepared(self, item):
        try:
            return Job(item, self.work, self.converter)
        except Failure as failure:
            self.fail(item, failure)
            return None

    def price(self, jobs):
        """The host ends at a drawing that fails; another run of it goes on behind that."""
        self.session.wait()
        try:
            while jobs:
                with turn_of(self.session):
                    reason = self.run_host(jobs)
                if reason is not None and jobs:
                    job = jobs[0]
                    host = Host(self.root, self.session, job.item.path, job.drawing)
                    failure = host.pricing_failure(reason, job, self.prices)
                    self.fail(job.item, job.converted.explained(failure) if job.converted else failure)
                    jobs.pop(0).remove()
        finally:
            for job in jobs:
                job.remove()

    def run_host(self, jobs):
        """Prices and delivers jobs from the front of the list until the host ends; its last words when it failed."""
        hidden = self.arguments.hide_prices
        with open(self.work.file("host.scr"), "w", encoding="utf-8") as script:
            following = [*jobs[1:], None]
            lines = [line for job, after in zip(jobs, following) for line in job.script(self.prices, hidden, after)]
            script.write("\n".join([*lines, "QUIT"]) + "\n")
        with open(self.work.file("host.log"), "w+b") as said, open(said.name, "rb") as log:
            closed = Occurrences(b"\nCommand: CLOSE\n", log)

            def take_finished():
                for _ in range(min(closed.new(), len(jobs))):
                    self.finish(jobs[0])
                    jobs.pop(0).remove()

            status, words = Host(self.root, self.session).run(
                said, "--script", windows_path(script.name), "--hidden", "--verbose", watch=take_finished, **values_for(self.work.path, None, None, self.arguments))
            take_finished()
        return last_line(words) if status != 0 else None

    def finish(self, job):
        try:
            bill = job.deliver()
        except Failure as failure:
            self.fail(job.item, failure)
            return
        self.report(finished(job.item, bill, self.arguments.strict))

    def fail(self, item, failure):
        if failure.status == PRICES:
            raise failure  # no other drawing will do better
        self.report(failed(item, failure))


def price_part(root, items, arguments, session, out, report):
    """Prices drawings in a work folder of its own within the folder `out`."""
    session.settle()
    work = WorkFolder(out)
    try:
        Pricing(root, session, arguments, work, report).run(items)
    except OSError as error:
        raise Failure(OUTPUT, f"{out}: the folder cannot be written ({error.strerror})") from None
    finally:
        work.remove()


def price_all(root, items, arguments, sessions, out):
    """Prices the drawings of this run's share, side by side in as many sessions; the exit status, and the joined bill (None
    when there is none)."""
    items, share = of_share(items, arguments.share)
    is_new = not os.path.isdir(out)
    work = WorkFolder(out)
    try:
        ledger = Ledger(len(items), arguments.quiet)
        if len(sessions) == 1:
            price_part(root, items, arguments, sessions[0], out, ledger.take)
        else:
            work_side_by_side([(part, functools.partial(price_part, root, part, arguments, session, out))
                               for part, session in zip(parts(items, len(sessions)), sessions)], ledger.take)
        if not ledger.head and not share:
            return ledger.status, None
        total = Total(head_of(ledger, share), ledger.in_order())
        total.deliver(work)
        return ledger.status, total
    except OSError as error:
        raise Failure(OUTPUT, f"{out}: the folder cannot be written ({error.strerror})") from None
    finally:
        remove(work, is_new)


def of_share(items, share):
    """The drawings of a share, and what its total says of the list that it is of."""
    if share is None:
        return items, {}
    number, of = share
    names = "\n".join(f"{item.name}={item.factor}" for item in items)
    told = {"number": number, "of": of, "drawings": len(items), "sha256": hashlib.sha256(names.encode("utf-8", "surrogateescape")).hexdigest()}
    return items[number - 1::of], {"share": told}


def head_of(ledger, share):
    """The members of the total that all of its drawings share."""
    return {"schema": 1, **(ledger.head or {"program": version().strip(), "prices": None, "columns": None}), **share}
