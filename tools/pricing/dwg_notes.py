"""Notes on what a bill lacks of a DWG drawing: compares the references and attributes that the DWG reader found with those in the
DXF drawing that the host reads."""

import collections
import mmap
import re

# Finds a reference with its block's name, or an attribute, which belongs to the reference before it. Groups are pairs of lines.
COUNTED = re.compile(rb"\n  0\n(?:INSERT\n(?:(?!  [02]\n)[^\n]*\n[^\n]*\n)*  2\n([^\n]*)|ATTRIB)(?=\n)")
SHOWN = 5  # kinds or blocks in a line


def count_dxf(path):
    """Counts the references and attributes of each block in a drawing that platform/dwg wrote."""
    references, attributes, name = collections.Counter(), collections.Counter(), ""
    with open(path, "rb") as file, mmap.mmap(file.fileno(), 0, access=mmap.ACCESS_READ) as data:
        for found in COUNTED.finditer(data):
            if found.group(1) is None:
                attributes[name] += 1
            else:
                name = found.group(1).decode("utf-8").replace("^ ", "^")
                references[name] += 1
    return references, attributes


def note(code, text, number, **members):
    return {"code": code, "text": text, **members, "number": number}


def differences(read, seen, word):
    """A note for each block of which the host sees another number than was read."""
    return [note("lost", f"{word} of {name} {seen[name]} of {read.get(name, 0)}", abs(seen[name] - read.get(name, 0)), block=name)
            for name in sorted(set(read) | set(seen)) if seen[name] != read.get(name, 0)]


def line(words, notes):
    if not notes:
        return []
    more = f" and {len(notes) - SHOWN} more" if len(notes) > SHOWN else ""
    return [f"{words} ({sum(one['number'] for one in notes):,}): {', '.join(one['text'] for one in notes[:SHOWN])}{more}"]


def notes_of(inventory, dxf):
    """The notes for programs, and their lines for people."""
    references, attributes = count_dxf(dxf)
    lost = [note("lost", f"{kind} of unknown blocks {number}", number) for kind, number in inventory["lost"].items() if number]
    lost += differences(inventory["references"], references, "references")
    lost += differences(inventory["attributes"], attributes, "attributes")
    unread = [note("not-read", f"{kind} {number}", number)
              for group in ("unread", "unwritten") for kind, number in sorted(inventory[group].items())]
    return lost + unread, line("Lost from the DWG", lost) + line("Not read from the DWG, objects", unread)
