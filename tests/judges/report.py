"""Computes the report for a count and a price list from the rules of the report alone, without the module."""

import functools

import names
import prices

WIDTHS = (10, 10, 10, 20, 10)
HEADINGS = ("Block name", "Item Price", "Quantity", "Description", "Total")
MONEY = (1, 4)


def rows(counted, price_list):
    """Five texts a row, the summary last. `counted` are block names in the order of the drawing; `price_list` is the
    bytes of the file, or None."""
    found = {}
    table = []  # [name, price, quantity, description, total]
    for name, price, description in prices.entries(price_list or b""):
        table.append([names.lower(name), prices.value(price), 0, description, 0.0])
        found[table[-1][0]] = table[-1]
    for name in map(names.lower, counted):
        if name not in found and price_list is None:
            table.append([name, 0.0, 0, "", 0.0])
            found[name] = table[-1]
        if name in found:
            found[name][2] += 1
            found[name][4] += found[name][1]
    shown = [row for row in table if row[2] > 0 or price_list is None]
    total = 0.0
    for row in shown:
        total += row[4]
    texts = [[row[0], f"{row[1]:.2f}", str(row[2]), row[3], f"{row[4]:.2f}"] for row in shown]
    return texts + ([["Summary:", "", "", "", f"{total:.2f}"]] if texts else [])


def clicked(texts, headings):
    """The rows after clicks on headings, one after another; sorting is stable."""
    column, ascending = 0, True
    summary = texts[-1:]
    for heading in headings:
        ascending = not ascending if heading == column else True
        column = heading
        texts = sorted(texts[:-1], key=functools.cmp_to_key(lambda a, b: order(a[column], b[column], column, ascending)))
        texts += summary
    return texts


def order(one, other, column, ascending):
    """Empty texts last in both directions; numbers by their values, names and descriptions without regard to case."""
    if names.lower(one) == names.lower(other):
        return 0
    if not one or not other:
        return -1 if one else 1
    keys = [prices.value(text) if column in (1, 2, 4) else names.lower(text) for text in (one, other)]
    direction = 1 if ascending else -1
    return direction * ((keys[0] > keys[1]) - (keys[0] < keys[1]))


def report_bytes(texts, show_prices):
    """The saved file: the system's code page, or UTF-8 behind its mark where that lacks a character."""
    lines = [HEADINGS] + [row for row in texts if show_prices or row[0] != "Summary:"]
    columns = [column for column in range(5) if show_prices or column not in MONEY]
    text = "".join(" ".join(line[c].rjust(WIDTHS[c]) for c in columns) + "\r\n" for line in lines)
    try:
        data = b"".join(to_byte(unit) for unit in text)
    except UnicodeEncodeError:
        data = None
    if data is None or prices.is_utf8(data):
        data = b"\xef\xbb\xbf" + names.joined(text).encode("utf-8")
    return data


def to_byte(unit):
    return bytes([ord(unit) - 0xF700]) if 0xF700 <= ord(unit) < 0xF800 else unit.encode("cp1255")
