"""Reads drawings with ezdxf, a judge independent of our own reader. Callers must expect any exception of ezdxf on a broken
drawing."""

import collections
import re

import ezdxf
from ezdxf import recover

import names
from host import ROOT

SHARED = ROOT.parent / "shared" / "drawings"  # drawings that other programs made, where there are some


def drawings():
    """The paths of the samples, the test data, and the shared drawings."""
    folders = [ROOT / "samples", ROOT / "tests" / "dxf" / "data", SHARED]
    return [path for folder in folders for path in sorted(folder.glob("*.dxf"))]


def load(path):
    try:
        return ezdxf.readfile(path)
    except (ezdxf.DXFError, UnicodeDecodeError, ValueError):
        return recover.readfile(path)[0]


def decoded(name):
    """A name without the escapes that ezdxf leaves in names."""
    return re.sub(r"\\U\+([0-9A-Fa-f]{4})", lambda match: chr(int(match.group(1), 16)), name)


def nested_in(drawing, taken):
    """How often each block stands inside the references `taken`, through all levels: {block name: number}."""
    held = {block.name.lower(): collections.Counter(i.dxf.name.lower() for i in block.query("INSERT"))
            for block in drawing.blocks}
    nested, level = collections.Counter(), taken
    while level:
        deeper = collections.Counter()
        for name, number in level.items():
            for inner, times in held.get(name, {}).items():
                if inner in held:
                    deeper[inner] += number * times
        for name, number in deeper.items():
            nested[names.lower(decoded(name))] += number
        level = deeper
    return nested


class Selection:
    """What a selection of everything takes from the model space: `handles` of the references by the lower-case name of
    their block, and `notes`: the handles of arrays, and how many references of each block are on frozen layers and inside
    blocks."""

    def __init__(self, path):
        drawing = load(path)
        frozen = {layer.dxf.name.lower() for layer in drawing.layers if layer.is_frozen()}
        self.handles, arrays, on_frozen, taken = collections.defaultdict(set), set(), collections.Counter(), collections.Counter()
        for insert in drawing.modelspace().query("INSERT"):
            name = names.lower(decoded(insert.dxf.name))
            if insert.dxf.layer.lower() in frozen:
                on_frozen[name] += 1
                continue
            taken[insert.dxf.name.lower()] += 1
            self.handles[name].add(insert.dxf.handle)
            if insert.mcount > 1:
                arrays.add(insert.dxf.handle)
        self.notes = {"array": arrays, "frozen": on_frozen, "nested": nested_in(drawing, taken)}
