"""The joined bill of many drawings: a row for each block, with its quantity in each drawing and the sum."""

import csv
import decimal
import io
import os

from bill import SUMMARY, json_text, plain
from failure import one_line

NAMES = ("total.txt", "total.csv", "total.json")


def entry(item, bill):
    """What the total keeps of a drawing that was priced."""
    rows = [{key: row[key] for key in ("block", "price", "quantity", "description", "total")} for row in bill.rows]
    return {"name": item.name, "factor": item.factor, "drawing": bill.members["drawing"], "error": None, "sum": bill.sum,
            "note_lines": bill.note_lines, "rows": rows}


def failed_entry(item, failure):
    reason = one_line(str(failure).replace(os.path.realpath(item.path), item.name).replace(item.path, item.name))
    return {"name": item.name, "factor": item.factor, "drawing": None, "error": {"status": failure.status, "reason": reason},
            "sum": None, "note_lines": [], "rows": []}


def times(money, factor):
    return None if money is None else decimal.Decimal(money) * factor


def joined_rows(entries):
    """The joined rows, in the order in which the blocks first occur."""
    rows = {}
    for one in entries:
        for row in one["rows"]:
            joined = rows.setdefault(row["block"], {"block": row["block"], "price": row["price"], "quantity": 0,
                                                    "description": row["description"], "total": None, "quantities": {}})
            number = row["quantity"] * one["factor"]
            joined["quantity"] += number
            joined["quantities"][one["name"]] = number
            if row["total"] is not None:
                joined["total"] = (joined["total"] or 0) + times(row["total"], one["factor"])
    for row in rows.values():
        row["total"] = None if row["total"] is None else f"{row['total']:.2f}"
    return list(rows.values())


class Total:
    """The total of `entries`, which must be in the order of their names."""

    def __init__(self, head, entries):
        self.head, self.entries = head, entries
        self.rows = joined_rows(entries)
        self.columns = head["columns"] or {"block": "Block name", "quantity": "Quantity", "description": "Description"}
        sums = [times(one["sum"], one["factor"]) for one in entries if one["sum"] is not None]
        self.sum = f"{sum(sums):.2f}" if sums else None
        self.note_lines = [f"{one['name']}: {line}" for one in entries for line in notes_of(one)]

    def json(self):
        return json_text(self.head | {"drawings": self.entries, "rows": self.rows, "sum": self.sum, "note_lines": self.note_lines})

    def table(self, named):
        """The cells of all lines; with `named`, a column for each drawing before the sum of the quantities."""
        drawings = [one for one in self.entries if named and one["error"] is None]
        headings = [heading_of(one) for one in drawings]
        at = list(self.columns).index("quantity")
        keys = list(self.columns)
        lines = [[self.columns[key] for key in keys[:at]] + headings + [self.columns[key] for key in keys[at:]]]
        for row in self.rows:
            own = [str(row["quantities"].get(one["name"], 0)) for one in drawings]
            lines.append([str(row[key]) for key in keys[:at]] + own + [str(row[key]) for key in keys[at:]])
        if self.sum is not None:
            cells = dict.fromkeys(keys, "") | {"block": SUMMARY, "total": self.sum}
            lines.append([cells[key] for key in keys[:at]] + [""] * len(drawings) + [cells[key] for key in keys[at:]])
        return lines

    def csv(self):
        """RFC 4180, UTF-8 behind a byte-order mark."""
        text = io.StringIO()
        texts = {list(self.columns).index("block"), len(self.table(True)[0]) - len(self.columns) + list(self.columns).index("description")}
        csv.writer(text).writerows([plain(cell) if column in texts else cell for column, cell in enumerate(line)]
                                   for line in self.table(True))
        return b"\xef\xbb\xbf" + text.getvalue().encode("utf-8")

    def text(self):
        """Columns as in report.txt, and the notes. UTF-8 behind a byte-order mark."""
        lines = self.table(False)
        widths = [max(len(line[column]) for line in lines) for column in range(len(lines[0]))]
        texts = [" ".join(cell.rjust(width) for cell, width in zip(line, widths)) for line in lines]
        texts += ([""] + self.note_lines) if self.note_lines else []
        return ("\ufeff" + "\r\n".join(texts) + "\r\n").encode("utf-8")

    def form(self, kind):
        return {"text": self.text, "csv": self.csv, "json": self.json}[kind]()

    def deliver(self, work):
        """Puts the total's files into the folder of the work folder."""
        for name, kind in zip(NAMES, ("text", "csv", "json")):
            with open(work.file(name), "wb") as file:
                file.write(self.form(kind))
        work.deliver(NAMES)


def heading_of(one):
    return plain(one["name"] if one["factor"] == 1 else f"{one['name']} x {one['factor']}")


def notes_of(one):
    return one["note_lines"] if one["error"] is None else [f"not in this bill: {one['error']['reason']}"]
