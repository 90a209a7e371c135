"""The drawings that a run is given, as files, folders and patterns, each with its factor and the name of its results."""

import os
import re

from failure import DRAWING, USAGE, Failure

KINDS = (".dxf", ".dwg")
FACTOR = re.compile(r"(.+)=(\d+)", re.DOTALL)
MOST = 9999
RESERVED = re.compile(r"total\.(txt|csv|json)|\.run\..*", re.IGNORECASE | re.DOTALL)  # other names in the output folder


class Item:
    def __init__(self, path):
        self.path, self.factor = path, 1
        self.name = ""  # the folder of its results; no two items share one


def factor_of(word):
    """Splits "FILE=3" into file and factor; None without a factor. Where a file really has that name, the whole word is the
    file."""
    found = FACTOR.fullmatch(word)
    if not found or os.path.exists(word):
        return word, None
    factor = int(found.group(2))
    if not 1 <= factor <= MOST:
        raise Failure(USAGE, f"{word}: a factor is a number from 1 to {MOST}")
    return found.group(1), factor


def is_pattern(word):
    return not os.path.lexists(word) and any(character in word for character in "*?[")


def is_drawing_name(word):
    """Whether a word of the command line can only mean drawings."""
    word, factor = factor_of(word)
    return factor is not None or word.lower().endswith(KINDS) or os.path.isdir(word) or is_pattern(word)


def drawings_and_prices(words):
    """The words for drawings, and the price list: the last word, unless that can only mean drawings; else None."""
    if len(words) > 1 and not is_drawing_name(words[-1]):
        return words[:-1], words[-1]
    return words, None


def own_prices(words):
    """The price list in the one folder that is named, when the folder holds just one; else None."""
    folders = [word for word in map(lambda word: factor_of(word)[0], words) if os.path.isdir(word)]
    lists = [name for name in os.listdir(folders[0]) if name.lower().endswith(".prc")] if len(folders) == 1 else []
    return os.path.join(folders[0], lists[0]) if len(lists) == 1 else None


def is_many(words):
    """Whether these words ask for a joined bill: more than one drawing, or one by way of a folder, a pattern or a factor."""
    return len(words) > 1 or any(factor_of(word)[1] is not None or os.path.isdir(word) or is_pattern(word) for word in words)


def files_of(word):
    if os.path.isdir(word):
        found = [os.path.join(word, name) for name in os.listdir(word)]
        nothing = "there is no drawing in this folder"
    elif is_pattern(word):
        import glob  # takes its time, and few runs need it

        found, nothing = glob.glob(word), "no drawing has such a name"
    else:
        return [word]
    found = [path for path in found if path.lower().endswith(KINDS) and os.path.isfile(path)]
    if not found:
        raise Failure(DRAWING, f"{word}: {nothing}")
    return found


def drawings(words):
    """The drawings in the order of their names. A file that is named twice counts once, with the factor that is given."""
    items = {}
    for word in words:
        word, factor = factor_of(word)
        for path in files_of(word):
            item = items.setdefault(os.path.realpath(path), Item(path))
            item.factor = factor or item.factor
    name_all(list(items.values()))
    return sorted(items.values(), key=lambda item: item.name)


def name_all(items):
    """Gives each item a name of its own: the file's, behind as many names of its folders as it takes to tell it from the
    others."""
    unnamed, depth = items, 1
    while unnamed:
        for item in unnamed:
            item.name = "-".join(os.path.realpath(item.path).strip("/").split("/")[-depth:])
        seen = {}
        for item in items:
            seen.setdefault(item.name.casefold(), []).append(item)
        unnamed = [item for name, same in seen.items() if len(same) > 1 or RESERVED.fullmatch(name) for item in same]
        depth += 1
        if depth > 100:
            raise Failure(USAGE, "drawings whose names differ only in case cannot be told apart")
