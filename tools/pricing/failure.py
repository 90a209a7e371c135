"""What ends a run early: one line for standard error, and the exit status."""

INTERNAL, USAGE, DRAWING, PRICES, NOTHING, OUTPUT = 1, 2, 3, 4, 5, 6


def one_line(words):
    """Words for a terminal, whatever stands in the names of files and blocks."""
    return "".join(c if c.isprintable() else ascii(c)[1:-1] for c in words)


class Failure(Exception):
    def __init__(self, status, reason):
        super().__init__(reason)
        self.status = status

    @property
    def line(self):
        """The reason in one line."""
        return one_line(f"run: {self}")
