#!/usr/bin/env python3
"""Writes a drawing of many block references: generate_inserts.py OUT [INSERTS] [BLOCKS] [SEED].

The drawing is AC1015 text with LF line ends. The same arguments always give the same bytes; the defaults
(1,000,000 references of 200 blocks) give about 130 MB.
"""

import random
import sys

LAYERS = 12
HEAD = """  0
SECTION
  2
HEADER
  9
$ACADVER
  1
AC1015
  9
$DWGCODEPAGE
  3
ANSI_1255
  9
$HANDSEED
  5
{seed:X}
  0
ENDSEC
"""
INSERT = """  0
INSERT
  5
{handle:X}
100
AcDbEntity
  8
LAYER_{layer}
100
AcDbBlockReference
  2
BLOCK_{block:04d}
 10
{x:.3f}
 20
{y:.3f}
 30
0.0
 50
{angle}
"""


class Handles:
    """Gives each record a handle of its own."""

    def __init__(self):
        self.last = 0x20

    def take(self):
        self.last += 1
        return self.last


def table(name, entries, handles):
    lines = [f"  0\nTABLE\n  2\n{name}\n  5\n{handles.take():X}\n330\n0\n100\nAcDbSymbolTable\n 70\n{len(entries)}\n"]
    lines += entries
    lines.append("  0\nENDTAB\n")
    return "".join(lines)


def layer(name, colour, handles):
    return (f"  0\nLAYER\n  5\n{handles.take():X}\n100\nAcDbSymbolTableRecord\n100\nAcDbLayerTableRecord\n"
            f"  2\n{name}\n 70\n0\n 62\n{colour}\n  6\nCONTINUOUS\n")


def block_record(name, handles):
    return (f"  0\nBLOCK_RECORD\n  5\n{handles.take():X}\n100\nAcDbSymbolTableRecord\n"
            f"100\nAcDbBlockTableRecord\n  2\n{name}\n")


def block(name, lines, handles):
    text = (f"  0\nBLOCK\n  5\n{handles.take():X}\n100\nAcDbEntity\n  8\n0\n100\nAcDbBlockBegin\n  2\n{name}\n"
            f" 70\n0\n 10\n0.0\n 20\n0.0\n 30\n0.0\n  3\n{name}\n  1\n\n")
    for i in range(lines):
        text += (f"  0\nLINE\n  5\n{handles.take():X}\n100\nAcDbEntity\n  8\n0\n100\nAcDbLine\n"
                 f" 10\n0.0\n 20\n{i}.0\n 30\n0.0\n 11\n1.0\n 21\n{i}.5\n 31\n0.0\n")
    return text + f"  0\nENDBLK\n  5\n{handles.take():X}\n100\nAcDbEntity\n  8\n0\n100\nAcDbBlockEnd\n"


def body(inserts, blocks, seed):
    """Yields what follows the header, piece by piece."""
    handles = Handles()
    names = ["*Model_Space", "*Paper_Space"] + [f"BLOCK_{i:04d}" for i in range(blocks)]
    yield "  0\nSECTION\n  2\nTABLES\n"
    yield table("LAYER", [layer("0", 7, handles)] +
                         [layer(f"LAYER_{i}", i % 7 + 1, handles) for i in range(LAYERS)], handles)
    yield table("BLOCK_RECORD", [block_record(name, handles) for name in names], handles)
    yield "  0\nENDSEC\n  0\nSECTION\n  2\nBLOCKS\n"
    for i, name in enumerate(names):
        yield block(name, 0 if i < 2 else 4, handles)
    yield "  0\nENDSEC\n  0\nSECTION\n  2\nENTITIES\n"
    source = random.Random(seed)
    for _ in range(inserts):
        yield INSERT.format(handle=handles.take(), layer=source.randrange(LAYERS),
                                     block=source.randrange(blocks), x=source.uniform(0, 10000),
                                     y=source.uniform(0, 10000), angle=source.choice((0.0, 45.0, 90.0, 180.0)))
    yield "  0\nENDSEC\n  0\nEOF\n"


def main(path, inserts=1_000_000, blocks=200, seed=1):
    with open(path, "w", encoding="ascii", newline="") as out:
        out.write(HEAD.format(seed=0x1000000000))
        for text in body(int(inserts), int(blocks), int(seed)):
            out.write(text)


if __name__ == "__main__":
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    main(*sys.argv[1:])
