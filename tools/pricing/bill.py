"""The bill of a run, as the module wrote it, and the forms in which it is handed on."""

import csv
import io
import json
import re

SUMMARY = "Summary:"
FORMULA = ("=", "+", "-", "@", "\t", "\r")


def plain(text):
    """The text, behind an apostrophe where a spreadsheet would take it for a formula."""
    return "'" + text if text.startswith(FORMULA) else text


def json_text(members):
    """An object in the layout of report.json: a line for each member, and one for each item of its lists."""
    def value(held):
        if isinstance(held, list):
            return "[" + ",\n".join(json.dumps(item, ensure_ascii=False) for item in held) + "]"
        return json.dumps(held, ensure_ascii=False)
    return ("{" + ",\n".join(f'"{name}": {value(held)}' for name, held in members.items()) + "}\n").encode("utf-8")


def without_handles(data):
    """A report.json with its lists of handles emptied. Within texts every quotation mark has a backslash before it, so none ends
    the search early."""
    return re.sub(rb'"handles": \[[^\]]*\]', b'"handles": []', data)


class Bill:
    def __init__(self, data):
        self.members = bill = json.loads(data)
        self.columns, self.rows, self.sum = bill["columns"], bill["rows"], bill["sum"]
        self.note_lines = bill["note_lines"]

    def csv(self):
        """RFC 4180, UTF-8 behind a byte-order mark: the columns and rows that the report shows."""
        rows = list(self.rows)
        if self.sum is not None:
            rows.append(dict.fromkeys(self.columns, "") | {"block": SUMMARY, "total": self.sum})
        table = io.StringIO()
        writer = csv.writer(table)
        writer.writerow(self.columns.values())
        for row in rows:
            writer.writerow(plain(row[key]) if key in ("block", "description") else row[key] for key in self.columns)
        return b"\xef\xbb\xbf" + table.getvalue().encode("utf-8")
