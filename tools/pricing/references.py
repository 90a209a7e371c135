"""Finds out why a drawing has no block reference that can be selected."""

import struct

BINARY = b"AutoCAD Binary DXF\r\n\x1a\0"
PLACES = (("frozen", "on frozen layers", "on a frozen layer"), ("paper", "in paper space", "in paper space"),
          ("inside", "inside blocks", "inside a block"))


def text_groups(data):
    lines = iter(data.splitlines())
    for code in lines:
        value = next(lines, None)
        if value is None or not code.strip().lstrip(b"-").isdigit():
            return
        yield int(code), value.strip()


def binary_groups(data):
    """Yields the groups of a binary drawing. Group codes have one byte in R12, and two later."""
    at = len(BINARY)
    wide = data[at + 1:at + 2] == b"\0"
    while at < len(data):
        code = data[at]
        at += 1
        if wide or code == 255:
            code = struct.unpack_from("<H", data, at - 1 if wide else at)[0]
            at += 1 if wide else 2
        size, form = binary_value(code)
        if form == "text":
            end = data.index(b"\0", at)
            yield code, data[at:end]
            at = end + 1
        elif form == "chunk":
            at += 1 + data[at]
        else:
            yield code, str(struct.unpack_from(form, data, at)[0]).encode()
            at += size


def binary_value(code):
    """How the value of a group with this code is stored: its size, and what reads it."""
    for first, last, size, form in ((10, 59, 8, "<d"), (60, 79, 2, "<h"), (90, 99, 4, "<i"), (110, 149, 8, "<d"),
                                    (160, 169, 8, "<q"), (170, 179, 2, "<h"), (210, 239, 8, "<d"), (270, 289, 2, "<h"),
                                    (290, 299, 1, "<b"), (310, 319, 0, "chunk"), (370, 389, 2, "<h"), (400, 409, 2, "<h"),
                                    (420, 429, 4, "<i"), (440, 459, 4, "<i"), (460, 469, 8, "<d"), (1004, 1004, 0, "chunk"),
                                    (1010, 1059, 8, "<d"), (1060, 1070, 2, "<h"), (1071, 1071, 4, "<i")):
        if first <= code <= last:
            return size, form
    return 0, "text"


def records(data):
    """Yields for each record its section, its type, and the first value of each of its group codes."""
    section, kind, groups = b"", b"", {}
    for code, value in binary_groups(data) if data.startswith(BINARY) else text_groups(data):
        if code != 0:
            groups.setdefault(code, value)
            continue
        if kind == b"SECTION":
            section = groups.get(2, b"")
        yield section, kind, groups
        kind, groups = value, {}
    yield section, kind, groups


def count(data):
    """Counts block references that cannot be selected, as "frozen", "paper" and "inside", and the others as "free"."""
    counts = {"frozen": 0, "paper": 0, "inside": 0, "free": 0}
    frozen, block = set(), b""
    for section, kind, groups in records(data):
        if kind == b"LAYER" and section == b"TABLES" and int(groups.get(70, b"0")) & 1:
            frozen.add(groups.get(2, b"").lower())
        elif kind == b"BLOCK":
            block = groups.get(2, b"").lower()
        elif kind == b"INSERT" and section in (b"BLOCKS", b"ENTITIES"):
            in_block = section == b"BLOCKS" and not block.startswith((b"*model_space", b"*paper_space"))
            in_paper = groups.get(67) == b"1" or (section == b"BLOCKS" and block.startswith(b"*paper_space"))
            on_frozen = groups.get(8, b"0").lower() in frozen
            counts["inside" if in_block else "paper" if in_paper else "frozen" if on_frozen else "free"] += 1
    return counts


def words_of(counts):
    total = counts["frozen"] + counts["paper"] + counts["inside"]
    if total == 0 or counts["free"]:
        return "it has no block references to report"
    there = [(counts[key], words, word) for key, words, word in PLACES if counts[key]]
    if total == 1:
        return f"its only block reference is {there[0][2]}"
    if len(there) == 1:
        return f"its {total:,} block references are {there[0][1]}"
    places = [f"{number:,} {word if number == 1 else words}" for number, words, word in there]
    return f"its {total:,} block references cannot be selected: {', '.join(places)}"


def why_none(path):
    try:
        with open(path, "rb") as file:
            return words_of(count(file.read()))
    except (OSError, ValueError, IndexError, struct.error):
        return "it has no block references to report"
