"""What attacks came to, as docs/attacks.md shows it."""


def table(results):
    """A table of (what was tried in words, how often, how often it was survived)."""
    rows = [("attack", "tried", "survived"), ("---", "---:", "---:")]
    rows += [(words, str(tried), str(survived)) for words, tried, survived in results]
    widths = [max(len(row[column]) for row in rows) for column in range(3)]
    return "\n".join("| " + " | ".join(cell.ljust(width) for cell, width in zip(row, widths)) + " |" for row in rows)
