"""The arguments of ./run."""

from failure import Failure, USAGE

HELP = """\
Prices a drawing: opens it in the drawing host, runs "QXBOMC" with a price list, and prints the report.

  ./run                                  the samples; results in out/
  ./run DRAWING [PRICES] [--out DIR] [--hide-prices]
                                         your files; without PRICES, without prices
  ./run --desktop [DRAWING]              the host's window, for a person with a display
  ./run --help                           this page

DIR (out/ by default) gets report.txt, drawing.dxf (with the report as a table beside it), dialog.png and drawing.png:
all four of this run, or none.

exit status: 0 the report was made, 1 an internal error, 2 wrong usage, 3 the drawing cannot be read, 4 the price list
cannot be read, 5 there is nothing to report, 6 the output cannot be written
"""


class Arguments:
    def __init__(self):
        self.desktop = False
        self.hide_prices = False
        self.help = False
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
        if word in ("--desktop", "--hide-prices"):
            setattr(arguments, word[2:].replace("-", "_"), True)
        elif word in ("--help", "-h"):
            arguments.help = True
            return arguments
        elif word == "--out":
            if not words:
                raise Failure(USAGE, "--out needs a folder")
            arguments.out = words.pop(0)
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
