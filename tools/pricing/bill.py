"""The bill of a run, as the module wrote it, and the forms in which it is handed on."""

import csv
import io
import json

HEADINGS = {"block": "Block name", "price": "Item Price", "quantity": "Quantity", "description": "Description", "total": "Total"}
SUMMARY = "Summary:"
FORMULA = ("=", "+", "-", "@", "\t", "\r")


def plain(text):
    """A text that a spreadsheet does not take for a formula: an apostrophe stands before what would be one."""
    return "'" + text if text.startswith(FORMULA) else text


class Bill:
    def __init__(self, data):
        self.data = data
        bill = json.loads(data)
        self.rows, self.sum = bill["rows"], bill["sum"]
        self.note_lines = bill["note_lines"]

    def csv(self, with_prices):
        """RFC 4180, UTF-8 behind a byte-order mark: the columns and rows that the report shows."""
        columns = [key for key in HEADINGS if with_prices or key not in ("price", "total")]
        rows = list(self.rows)
        if with_prices and self.sum is not None:
            rows.append({"block": SUMMARY, "price": "", "quantity": "", "description": "", "total": self.sum})
        table = io.StringIO()
        writer = csv.writer(table)
        writer.writerow(HEADINGS[key] for key in columns)
        for row in rows:
            writer.writerow(plain(row[key]) if key in ("block", "description") else row[key] for key in columns)
        return b"\xef\xbb\xbf" + table.getvalue().encode("utf-8")
