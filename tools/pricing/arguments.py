"""The arguments of ./run."""

import pathlib
import re

from failure import Failure, USAGE

VERSION_FILE = pathlib.Path(__file__).parents[2] / "module/resources/version.h"
FORMATS = ("text", "csv", "json")

HELP = """\
Prices a drawing: opens it in the drawing host, runs "QXBOMC" with a price list, and prints the report.

  ./run                                  the samples; results in out/
  ./run DRAWING [PRICES] [OPTION...]     your files; without PRICES, without prices
  ./run --desktop [DRAWING]              the host's window, for a person with a display

  --out DIR         where the results go (out/ by default); "-" makes no folder
  --format FORMAT   what is printed: text, csv or json
  --hide-prices     leaves the money out
  --dynamic-names   counts dynamic blocks under their true names
  --strict          exit status 5 when there is any note on the bill
  --quiet           no notes, no progress
  --version, --help

DIR gets report.txt, report.csv, report.json, drawing.dxf (with the report as a table beside it), dialog.png, drawing.png and
table.png, and drawing-detail.png where things far away make the drawing a speck: all of this run, or none. Notes on what the bill leaves out go to standard error.

Examples:
  ./run plan.dxf prices.prc --out bill
  ./run plan.dxf prices.prc --format json --out - | python3 -m json.tool
  ./run plan.dxf prices.prc --strict --quiet >bill.txt || echo "look at the notes in out/report.json"

exit status: 0 the report was made, 1 an internal error, 2 wrong usage, 3 the drawing cannot be read, 4 the price list
cannot be read, 5 there is nothing to report, or with --strict there are notes, 6 the output cannot be written
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
        self.answer = None  # what is printed in place of any work
        self.format = "text"
        self.out = "out"
        self.files = []

    @property
    def drawing(self):
        return self.files[0] if self.files else None

    @property
    def prices(self):
        return self.files[1] if len(self.files) > 1 else None


def parse(words):
    """The arguments; what comes behind "--" are files. Raises a Failure of wrong usage."""
    arguments = Arguments()
    words = list(words)
    while words:
        word = words.pop(0)
        if word == "--":
            arguments.files += words
            break
        if word in ("--desktop", "--hide-prices", "--dynamic-names", "--strict", "--quiet"):
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
        elif word.startswith("-"):
            raise Failure(USAGE, f"there is no option {word} (./run --help)")
        else:
            arguments.files.append(word)
    most = 1 if arguments.desktop else 2
    if len(arguments.files) > most:
        raise Failure(USAGE, f"too many files: {' '.join(arguments.files)}")
    if "" in arguments.files or not arguments.out:
        raise Failure(USAGE, "a file or folder has an empty name")
    return arguments
