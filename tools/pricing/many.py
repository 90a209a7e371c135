"""Many drawings: each priced as one would be, by few runs of the host, and their joined bill."""

import contextlib
import hashlib
import os
import shutil
import sys

from arguments import version
from drawing_host import Host, last_line, price_script, turn_of, values_for
from dwg import Converter
from failure import DRAWING, INTERNAL, NOTHING, OUTPUT, PRICES, Failure, one_line
from inputs import check_folder, check_input, dwg_mark
from results import DETAIL, RESULTS, complete, convert
from total import Total, entry, failed_entry
from windows_names import windows_path
from work_folder import WorkFolder

BATCH = 256  # drawings that one run of the host prices
CONVERTED = 16  # of them DWG, since their DXF takes room on the disk
MOST_AHEAD = 16 << 20  # bytes of a drawing that is read while the one before it is in memory
WORST_FIRST = (INTERNAL, OUTPUT, PRICES, DRAWING, NOTHING)


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
        ahead = following.drawing if following and os.path.getsize(following.drawing) <= MOST_AHEAD else None
        return ["OPEN", windows_path(self.drawing), "SETENV", "CORVANES_JSON", windows_path(self.file("report.json")),
                "SETENV", "CORVANES_SOURCE", source, *price_script(self, prices, hide_prices, ahead), "CLOSE"]

    def deliver(self):
        """The bill, once all of its files are in their places."""
        bill = complete(self)
        is_new = not os.path.isdir(self.out)
        work = WorkFolder(self.out)
        try:
            for name in filter(os.path.exists, map(self.file, (*RESULTS, DETAIL))):
                os.rename(name, work.file(os.path.basename(name)))
            work.deliver(RESULTS, (DETAIL,))
            return bill
        finally:
            remove(work, is_new)

    def remove(self):
        shutil.rmtree(self.path, ignore_errors=True)


class Pricing:
    """The drawings of a run, one after another; the folders of their results go beside the work folder `work`."""

    def __init__(self, root, session, prices, arguments, work):
        self.root, self.session, self.prices, self.arguments, self.work = root, session, prices, arguments, work
        self.converter = Converter(root)
        self.entries, self.statuses, self.bill = [], set(), None

    def run(self, items):
        self.number = len(items)
        try:
            for batch in batches(items):
                self.price(list(filter(None, map(self.prepared, batch))))
        finally:
            self.converter.close()
        self.entries.sort(key=lambda one: one["name"])

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
        taken = len(jobs)

        def take_finished():
            with open(self.work.file("host.log"), "rb") as file:
                finished = file.read().replace(b"\r", b"").count(b"\nCommand: CLOSE\n")
            while taken - len(jobs) < finished and jobs:
                self.finish(jobs[0])
                jobs.pop(0).remove()

        with open(self.work.file("host.log"), "w+b") as said:
            status, words = Host(self.root, self.session).run(
                said, "--script", windows_path(script.name), "--hidden", "--verbose", watch=take_finished, **values_for(None, None, self.arguments))
        take_finished()
        return last_line(words) if status != 0 else None

    def finish(self, job):
        try:
            self.bill = job.deliver()
        except Failure as failure:
            self.fail(job.item, failure)
            return
        self.entries.append(entry(job.item, self.bill))
        self.say(job.item, self.bill.sum or "done", len(self.bill.note_lines))
        if self.bill.note_lines and self.arguments.strict:
            self.statuses.add(NOTHING)

    def fail(self, item, failure):
        if failure.status == PRICES:
            raise failure  # no other drawing will do better
        self.entries.append(failed_entry(item, failure))
        self.statuses.add(failure.status)
        print(failure.line, file=sys.stderr, flush=True)

    def say(self, item, words, notes):
        if not self.arguments.quiet:
            more = f", {notes} note{'s' if notes > 1 else ''}" if notes else ""
            print(f"[{len(self.entries)}/{self.number}]", one_line(f"{item.name}: {words}{more}"), file=sys.stderr, flush=True)

    @property
    def status(self):
        return next((status for status in WORST_FIRST if status in self.statuses), 0)


def price_all(root, items, arguments, session, out):
    """Prices the drawings of this run's share; the exit status, and the joined bill (None when there is none)."""
    items, share = of_share(items, arguments.share)
    is_new = not os.path.isdir(out)
    work = WorkFolder(out)
    try:
        pricing = Pricing(root, session, arguments.prices, arguments, work)
        pricing.run(items)
        if not pricing.bill and not share:
            return pricing.status, None
        total = Total(head_of(pricing.bill, share), pricing.entries)
        total.deliver(work)
        return pricing.status, total
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


def head_of(bill, share):
    members = bill.members if bill else {"program": version().strip(), "prices": None, "columns": None}
    return {"schema": 1, **{key: members[key] for key in ("program", "prices", "columns")}, **share}
