"""Reads the arguments of ./run."""

import pathlib
import re

from drawing_list import drawings_and_prices, is_many
from failure import Failure, USAGE

VERSION_FILE = pathlib.Path(__file__).parents[2] / "base/version.h"
FORMATS = ("text", "csv", "json")

HELP = """\
Prices drawings, DXF or DWG: opens each in the drawing host, runs "QXBOMC" with a price list, and prints the report.

  ./run                                  the sample; results in out/
  ./run DRAWING [PRICES] [OPTION...]     your files; without PRICES, without prices
  ./run DRAWING... [PRICES] [OPTION...]  many drawings and their joined bill; a DRAWING may be a folder or a pattern,
                                         and floor2.dxf=3 counts three times; without PRICES the one list in a folder
  ./run --join DIR... [OPTION...]        the joined bill of shares
  ./run --desktop [DRAWING]              the host's window, for a person with a display

  --out DIR         where the results go (out/ by default); "-" makes no folder
  --format FORMAT   what is printed: text, csv or json
  --hide-prices     leaves the money out
  --dynamic-names   counts dynamic blocks under their true names
  --strict          exit status 5 when there is any note on the bill
  --jobs N          prices N drawings at a time (as many as there are processors by default)
  --share N/M       of the drawings in the order of their names, the Nth and every Mth from there
  --quiet           no notes, no progress
  --version, --help

DIR gets report.html (the bill beside its drawing, for any browser), report.txt, report.csv, report.json, drawing.dxf (with the
report as a table beside it), dialog.png, drawing.png and table.png, and drawing-detail.png where things far away make the drawing a speck: all of this run, or none. Notes on what the bill leaves out go to standard error.
Of many drawings each has that in DIR/NAME, and DIR gets total.txt, total.csv and total.json; one that fails does not stop the others.

Examples:
  ./run plan.dxf prices.prc --out bill
  ./run plan.dxf prices.prc --format json --out - | python3 -m json.tool
  ./run plans/ prices.prc --out bill
  ./run ground.dwg floor.dwg=3 roof.dxf prices.prc
  ./run plan.dxf prices.prc --strict --quiet >bill.txt || echo "look at the notes in out/report.json"

exit status: 0 the report was made, 1 an internal error, 2 wrong usage, 3 the drawing cannot be read, 4 the price list
cannot be read, 5 there is nothing to report, or with --strict there are notes, 6 the output cannot be written; of many
drawings the worst: 1, 6, 4, 3, 5, 0
"""


def version():
    return "Corvanes " + re.search('CORVANES_VERSION "(.*)"', VERSION_FILE.read_text(encoding="utf-8")).group(1) + "\n"


class Arguments:
    def __init__(self):
        self.desktop = False
        self.hide_prices = False
        self.dynamic_names = False
        self.strict = False
        self.quiet = False
        self.answer = None  # --version or --help: the text to print instead of working
        self.format = "text"
        self.out = "out"
        self.join = False
        self.share = None  # (number, of how many)
        self.jobs = None
        self.files = []
        self.drawings, self.prices = [], None

    @property
    def drawing(self):
        return self.drawings[0] if self.drawings else None

    @property
    def many(self):
        return not self.desktop and bool(self.drawings) and (self.share is not None or is_many(self.drawings))


def parse(words):
    """The arguments; words behind "--" are files. Raises a Failure when the usage is wrong."""
    arguments = Arguments()
    words = list(words)
    while words:
        word = words.pop(0)
        if word == "--":
            arguments.files += words
            break
        if word in ("--desktop", "--join", "--hide-prices", "--dynamic-names", "--strict", "--quiet"):
            setattr(arguments, word[2:].replace("-", "_"), True)
        elif word in ("--help", "-h", "--version"):
            arguments.answer = version() if word == "--version" else HELP
            return arguments
        elif word == "--out":
            if not words:
                raise Failure(USAGE, "--out needs a folder")
            arguments.out = words.pop(0)
        elif word == "--format":
            arguments.format = words.pop(0) if words else ""
            if arguments.format not in FORMATS:
                raise Failure(USAGE, f"--format needs one of {', '.join(FORMATS)}")
        elif word == "--share":
            arguments.share = share_of(words.pop(0) if words else "")
        elif word == "--jobs":
            arguments.jobs = jobs_of(words.pop(0) if words else "")
        elif word.startswith("-"):
            raise Failure(USAGE, f"there is no option {word} (./run --help)")
        else:
            arguments.files.append(word)
    check_files(arguments)
    return arguments


def share_of(word):
    found = re.fullmatch(r"(\d{1,6})/(\d{1,6})", word)
    if not found or not 1 <= int(found.group(1)) <= int(found.group(2)):
        raise Failure(USAGE, "--share needs a number and of how many, as 2/8")
    return int(found.group(1)), int(found.group(2))


def jobs_of(word):
    if not re.fullmatch(r"[1-9]\d?", word):
        raise Failure(USAGE, "--jobs needs a number from 1 to 99")
    return int(word)


def check_files(arguments):
    """Tells drawings and price list apart. Raises a Failure when the options do not go with them."""
    files = arguments.files
    if "" in files or not arguments.out:
        raise Failure(USAGE, "a file or folder has an empty name")
    if arguments.desktop and len(files) > 1:
        raise Failure(USAGE, f"too many files: {' '.join(files)}")
    if arguments.join and not files:
        raise Failure(USAGE, "--join needs the folders of the shares")
    if arguments.share and (arguments.join or arguments.desktop or not files):
        raise Failure(USAGE, "--share goes with drawings")
    if not arguments.join:
        arguments.drawings, arguments.prices = drawings_and_prices(files)
