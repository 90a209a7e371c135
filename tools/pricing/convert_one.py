"""tools/dwg2dxf: converts one DWG drawing within the limits, and tells what was lost."""

import os
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from dwg import Converter  # noqa: E402
from dwg_notes import notes_of  # noqa: E402
from failure import Failure, one_line  # noqa: E402

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))


def main(drawing, dxf, messages):
    converter = Converter(ROOT)
    try:
        _, lines = notes_of(converter.convert(drawing, dxf), dxf)
        status = 0
    except Failure as failure:
        lines, status = [str(failure).removeprefix(f"{drawing}: ")], failure.status
    finally:
        converter.close()
    with open(messages, "w", encoding="utf-8") as file:
        file.write("".join(one_line(line) + "\n" for line in lines))
    return status


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
