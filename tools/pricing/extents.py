"""Where a drawing says that it lies, from its header."""

import struct

from references import BINARY, binary_groups, text_groups

HEADER_SIZE = 1 << 20  # bytes; a header is far shorter


def extents(path):
    """The corners of the drawing's extents as [x, y, x, y]; fewer numbers where the header does not tell them."""
    try:
        with open(path, "rb") as file:
            return corners(file.read(HEADER_SIZE))
    except (OSError, ValueError, IndexError, struct.error):
        return []


def corners(data):
    found, variable = {}, b""
    for code, value in binary_groups(data) if data.startswith(BINARY) else text_groups(data):
        if (code, value) == (0, b"ENDSEC"):
            break
        if code == 9:
            variable = value
        elif variable in (b"$EXTMIN", b"$EXTMAX") and code in (10, 20):
            found[variable, code] = float(value)
    return [found[key] for key in ((b"$EXTMIN", 10), (b"$EXTMIN", 20), (b"$EXTMAX", 10), (b"$EXTMAX", 20)) if key in found]
