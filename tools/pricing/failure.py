"""Failure: ends a run early with one line for standard error and an exit status."""

INTERNAL, USAGE, DRAWING, PRICES, NOTHING, OUTPUT = 1, 2, 3, 4, 5, 6


def one_line(words):
    """The words as one line that is safe for a terminal, whatever characters names of files and blocks hold."""
    return "".join(c if c.isprintable() else ascii(c)[1:-1] for c in words)


class Failure(Exception):
    def __init__(self, status, reason):
        super().__init__(reason)
        self.status = status

    @property
    def line(self):
        """The reason in one line."""
        return one_line(f"run: {self}")
