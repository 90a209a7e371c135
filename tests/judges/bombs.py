"""Attacks by small drawings that ask for very much: the host must open, show and picture them within bounds of memory and
time."""

import os

from host import windows_path

MOST_MEMORY = 1 << 30  # bytes, besides four times the file
MOST_SECONDS = 20  # of the processor


def groups(*pairs):
    return "".join(f"{code:3}\n{value}\n" for code, value in pairs)


def block(name, contents):
    return groups((0, "BLOCK"), (8, 0), (2, name), (70, 0), (10, 0), (20, 0)) + contents + groups((0, "ENDBLK"), (8, 0))


def insert(name, *more):
    return groups((0, "INSERT"), (8, 0), (2, name), (10, 0), (20, 0), *more)


LINE = groups((0, "LINE"), (8, 0), (10, 0), (20, 0), (11, 1), (21, 1))


def arrays(count):
    """Arrays, each of a thousand million lines."""
    return block("B", LINE), insert("B", (70, 32767), (71, 32767), (44, 2), (45, 2)) * count


def nested(levels):
    """Nested blocks: each holds ten references to the one before."""
    blocks = block("B0", LINE)
    for level in range(1, levels):
        blocks += block(f"B{level}", insert(f"B{level - 1}", (70, 10), (44, 3 ** level)))
    return blocks, insert(f"B{levels - 1}")


def wide_polylines(count):
    def polyline(x, y):
        return groups((0, "LWPOLYLINE"), (8, 0), (90, 4), (70, 1)) + "".join(
            groups((10, x + i), (20, y + i % 3), (40, 0.2), (41, 0.4), (42, 0.7)) for i in range(4))
    return "", "".join(polyline(i % 300 * 5, i // 300 * 5) for i in range(count))


def dense_hatches(count):
    edges = "".join(groups((10, x), (20, y)) for x, y in ((0, 0), (1000, 0), (1000, 1000), (0, 1000)))
    hatch = groups((0, "HATCH"), (8, 0), (10, 0), (20, 0), (30, 0), (2, "ANSI31"), (70, 0), (71, 0), (91, 1), (92, 2), (72, 0),
                   (73, 1), (93, 4)) + edges + groups((97, 0), (75, 0), (76, 1), (52, 0), (41, 1), (77, 0), (78, 1), (53, 45),
                                                      (43, 0), (44, 0), (45, -0.01), (46, 0.01), (79, 0), (98, 0))
    return "", hatch * count


def texts(count):
    return "", "".join(groups((0, "TEXT"), (8, 0), (10, i % 300), (20, i // 300), (40, 0.8), (1, f"text {i}")) for i in range(count))


BOMBS = [(arrays, 500), (nested, 30), (wide_polylines, 30000), (dense_hatches, 20000), (texts, 30000)]


def bombs(bench):
    survived = 0
    for make, count in BOMBS:
        blocks, entities = make(count)
        path, picture = bench.folder / f"{make.__name__}.dxf", bench.folder / f"{make.__name__}.png"
        header = groups((0, "SECTION"), (2, "HEADER"), (9, "$ACADVER"), (1, "AC1015"), (0, "ENDSEC"))
        path.write_text(header + groups((0, "SECTION"), (2, "BLOCKS")) + blocks + groups((0, "ENDSEC"), (0, "SECTION"), (2, "ENTITIES"))
                        + entities + groups((0, "ENDSEC"), (0, "EOF")), encoding="ascii")
        process = bench.run(["ZOOM", "E", "PNGOUT", windows_path(picture)], drawing=path).process
        process.stdin.close()
        _, status, used = os.wait4(process.pid, 0)
        process.returncode = os.waitstatus_to_exitcode(status)
        seconds, memory = used.ru_utime + used.ru_stime, used.ru_maxrss * 1024
        good = process.returncode == 0 and picture.stat().st_size > 100 and seconds < MOST_SECONDS \
            and memory < MOST_MEMORY + 4 * path.stat().st_size
        survived += good
        if not good:
            print(f"{make.__name__}: status {process.returncode}, {seconds:.1f} s, {memory >> 20} MB", flush=True)
    return len(BOMBS), survived


CASES = [(bombs, "drawings that ask for far more than they are long")]
