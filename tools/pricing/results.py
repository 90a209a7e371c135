"""The files that a priced drawing leaves, and their way from the work folder to the output folder."""

import os

from bill import Bill, without_handles
from failure import OUTPUT, Failure
from work_folder import contents

RESULTS = ("report.txt", "report.csv", "report.json", "report.html", "drawing.dxf", "dialog.png", "drawing.png", "table.png")
DETAIL = "drawing-detail.png"  # where the whole drawing is a speck in its picture
PRINTED = {"text": "report.txt", "csv": "report.csv", "json": "report.json"}


def convert(drawing, work, converter):
    """A DWG drawing as DXF in the work folder; None for a drawing that the host reads itself."""
    if converter is None:
        return None
    from dwg import Converted  # takes its time, and most drawings are DXF

    return Converted(drawing, work.file("dwg"), converter)


def complete(work):
    """The bill of what the host made in the work folder, where nothing is missing from then on."""
    try:
        bill = Bill(without_handles(contents(work.file("report.json"))))  # which may be a million, and nobody asks for them
        with open(work.file("report.csv"), "wb") as file:
            file.write(bill.csv())
    except OSError as error:
        raise Failure(OUTPUT, f"{work.out}: the results cannot be written ({error.strerror})") from None
    for name in RESULTS:
        if not os.path.isfile(work.file(name)) or os.path.getsize(work.file(name)) == 0:
            raise Failure(OUTPUT, f"{os.path.join(work.out, name)} was not written")
    return bill
