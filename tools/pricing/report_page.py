"""report.html: the bill beside its drawing in one file that loads nothing, made of the sources in page/."""

import base64
import hashlib
import json
import os
import re

SOURCES = os.path.join(os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__)))), "page")
MOST_ELEMENTS = 100_000  # of a drawing that stays alive: a browser opens it in some 4 s. Of a larger one there is a picture
MONEY = ("price", "total")
QUOTES_PRICES = "partly-read-price"  # the code of notes that do


def source(name):
    with open(os.path.join(SOURCES, name), encoding="utf-8") as file:
        return file.read()


def digest(text):
    return f"'sha256-{base64.b64encode(hashlib.sha256(text.encode('utf-8')).digest()).decode('ascii')}'"


def notes_of(bill, with_prices, lit):
    """A row for each kind of note: its line, and the references that it tells of: by their handles, or all of some blocks
    (where handles say nothing), or what has some blocks inside."""
    by_code = {}
    for note in bill["notes"]:
        by_code.setdefault(note["code"], []).append(note)
    for (code, notes), line in zip(by_code.items(), bill["note_lines"]):
        if code == QUOTES_PRICES and not with_prices:
            line = "Prices read in part: " + ", ".join(f"line {note['line']}" for note in notes)
        blocks = sorted({note["block"] for note in notes if "block" in note}) if lit else []
        yield {"text": line, "handles": [handle for note in notes for handle in note.get("handles", ())] if lit else [],
               "blocks": blocks if code == "unpriced" else [], "inside": blocks if code == "nested" else []}


def data_of(bill, with_prices, lit):
    """What the script needs. `lit`: the references can be seen, and need their handles."""
    columns = {key: heading for key, heading in bill["columns"].items() if with_prices or key not in MONEY}
    return {"drawing": bill["drawing"]["name"], "key": bill["drawing"]["sha256"], "columns": columns,
            "rows": [{key: row[key] for key in columns} | {"block": row["block"], "handles": row["handles"] if lit else []}
                     for row in bill["rows"]],
            "sum": bill["sum"] if with_prices else None, "notes": list(notes_of(bill, with_prices, lit))}


def for_script(value):
    """JSON that no text within it can end the element of, in ASCII."""
    return json.dumps(value, separators=(",", ":")).replace("<", "\\u003c")


def page(bill, drawing, alive):
    """The page of report.json's object. `drawing`: the bytes of an SVG file where it is alive, else of a PNG file."""
    with_prices = any(key in bill["columns"] for key in MONEY)
    script, style = source("report.js"), source("report.css")
    styles, images = [style], []
    if alive:
        shown = drawing.decode("utf-8")
        styles.append(re.search("<style>(.*?)</style>", shown, re.DOTALL)[1])
    else:
        shown = f'<img alt="The drawing" src="data:image/png;base64,{base64.b64encode(drawing).decode("ascii")}">'
        images.append("img-src data:")
    policy = ["default-src 'none'", f"script-src {digest(script)}", f"style-src {' '.join(map(digest, styles))}", *images,
              "base-uri 'none'", "form-action 'none'"]
    parts = {"policy": "; ".join(policy), "style": style, "drawing": shown, "script": script,
             "data": for_script(data_of(bill, with_prices, alive))}
    return re.sub(r"\{\{(\w+)\}\}", lambda match: parts[match[1]], source("report.html")).encode("utf-8")
