"""Processes that price drawings side by side, each with a Windows session of its own."""

import json
import os
import selectors
import signal
import sys

from failure import INTERNAL, Failure
from inputs import dwg_mark
from interruption import Stopped, end_with_parent, waiting
from ledger import failed

MOST = 8  # workers that are started without being asked for
LARGE = 16 << 20  # bytes; of such drawings no two are in memory at a time
DWG_AS_DXF = 5  # times as large is a drawing in DXF

# What a drawing takes, and its bytes beside that; a worker takes longer than LEAST to start.
SECONDS, SECONDS_A_BYTE, LEAST = 0.1, 0.03e-6, 0.5


def weight(item):
    """Bytes of the drawing, or about those of its DXF."""
    try:
        size = os.path.getsize(item.path)
    except OSError:
        return 0
    return size * DWG_AS_DXF if dwg_mark(item.path) else size


def number_of_workers(items, wanted):
    """As many as wanted, or as there are processors and work for."""
    seconds = sum(SECONDS + SECONDS_A_BYTE * weight(item) for item in items)
    processors = len(os.sched_getaffinity(0))
    return max(1, min(len(items), wanted or min(processors, MOST, int(seconds / LEAST))))


def processors_for(number):
    """A processor for each worker, where that takes all of them; else None for each, and the system places them."""
    processors = sorted(os.sched_getaffinity(0))
    return processors if number == len(processors) else [None] * number


def parts(items, number):
    """The items of each worker, in the order of `items`; the work is about the same. Large drawings go to the same worker."""
    own, loads = [[] for _ in range(number)], [0.0] * number
    weights = list(map(weight, items))
    for place in sorted(range(len(items)), key=lambda place: -weights[place]):
        size = weights[place]
        worker = 0 if size > LARGE else loads.index(min(loads))
        own[worker].append(place)
        loads[worker] += SECONDS + SECONDS_A_BYTE * size
    return [[items[place] for place in sorted(places)] for places in own]


class Worker:
    """A process that calls `work` with a function that takes the news of one of the items."""

    def __init__(self, items, work):
        self.unfinished = {item.name: item for item in items}
        self.said = b""
        sys.stdout.flush()
        parent = os.getpid()
        try:
            mine, its = os.pipe()
            self.process = os.fork()
        except OSError as error:
            raise Failure(INTERNAL, f"no process can be started to price drawings side by side ({error.strerror}); --jobs 1 needs none") from None
        if self.process == 0:
            os.close(mine)
            self.live(parent, work, its)
        os.close(its)
        self.pipe = mine

    def live(self, parent, work, pipe):
        """The worker's whole life: it ends with this program, however this one ends."""
        def tell(news):
            rest = memoryview(json.dumps(news).encode() + b"\n")
            while rest:
                rest = rest[os.write(pipe, rest):]

        try:
            end_with_parent(signal.SIGTERM)
            if os.getppid() == parent:
                work(tell)
        except Failure as failure:
            tell({"stop": [failure.status, str(failure)]})
        except (Stopped, BrokenPipeError):
            pass
        except BaseException as fault:
            tell({"stop": [INTERNAL, f"{type(fault).__name__}: {fault}"]})
        finally:
            os._exit(0)

    def read(self):
        """The news that came; None at the end."""
        part = os.read(self.pipe, 1 << 16)
        if not part:
            return None
        *lines, self.said = (self.said + part).split(b"\n")
        return [json.loads(line) for line in lines]

    def end(self):
        """Asks the process to tidy up and end, if it has not, and waits for that."""
        os.close(self.pipe)
        try:
            os.kill(self.process, signal.SIGTERM)
        finally:
            os.waitpid(self.process, 0)


def work_side_by_side(tasks, take):
    """Runs the tasks, pairs of items and a function for a Worker, and has `take` called with all news. Raises the Failure that
    stops one of them, once all have ended. What a worker that was killed had left undone is news as well."""
    workers = []
    try:
        with selectors.DefaultSelector() as pipes:
            for items, work in tasks:
                workers.append(Worker(items, work))
                pipes.register(workers[-1].pipe, selectors.EVENT_READ, workers[-1])
            while pipes.get_map():
                with waiting():
                    ready = pipes.select()
                for key, _ in ready:
                    if not take_from(key.data, take):
                        pipes.unregister(key.fileobj)
    finally:
        for worker in workers:
            worker.end()


def take_from(worker, take):
    """False at the worker's end."""
    news = worker.read()
    for one in news or ():
        if "stop" in one:
            raise Failure(*one["stop"])
        worker.unfinished.pop(one["entry"]["name"], None)
        take(one)
    if news is None:
        for item in worker.unfinished.values():
            take(failed(item, Failure(INTERNAL, f"{item.path}: the process that was to price it was killed")))
    return news is not None
