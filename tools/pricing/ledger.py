"""What a run over many drawings has come to: each drawing's entry in the total, the exit status, and what is said meanwhile."""

import sys

from failure import DRAWING, INTERNAL, NOTHING, OUTPUT, PRICES, one_line
from total import entry, failed_entry

WORST_FIRST = (INTERNAL, OUTPUT, PRICES, DRAWING, NOTHING)


def worst(statuses):
    """The exit status of a run whose drawings had these."""
    return next((status for status in WORST_FIRST if status in statuses), 0)


def finished(item, bill, strict):
    """The news of a drawing that was priced. News goes as JSON from one process to another."""
    notes = len(bill.note_lines)
    more = f", {notes} note{'s' if notes > 1 else ''}" if notes else ""
    return {"entry": entry(item, bill), "status": NOTHING if notes and strict else 0, "progress": f"{item.name}: {bill.sum or 'done'}{more}",
            "head": {key: bill.members[key] for key in ("program", "prices", "columns")}}


def failed(item, failure):
    """The news of a drawing that failed."""
    return {"entry": failed_entry(item, failure), "status": failure.status, "line": failure.line}


class Ledger:
    def __init__(self, number, quiet):
        self.number, self.quiet = number, quiet
        self.entries, self.statuses, self.head = [], set(), None

    def take(self, news):
        self.entries.append(news["entry"])
        self.statuses.add(news["status"])
        self.head = news.get("head") or self.head
        if "line" in news:
            print(news["line"], file=sys.stderr, flush=True)
        elif not self.quiet:
            print(f"[{len(self.entries)}/{self.number}]", one_line(news["progress"]), file=sys.stderr, flush=True)

    def in_order(self):
        return sorted(self.entries, key=lambda one: one["name"])

    @property
    def status(self):
        return worst(self.statuses)
