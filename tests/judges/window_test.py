#!/usr/bin/python3
"""Looks at a drawing, selects in it and leaves it with the mouse and the keyboard, in the host's own window.

usage: window_test.py DRAWINGHOST.exe MODULE.arx
"""

from bombs import groups
from desktop import DesktopTest, main, xdotool
from host import windows_path

LEFT_TOP, RIGHT_BOTTOM = (200, 100), (800, 450)  # pixels of the drawing view


def drawing():
    """Four references, 30 apart in a row, to a block of a square of 10 with an attribute."""
    square = [(0, 0), (10, 0), (10, 10), (0, 10), (0, 0)]
    lines = "".join(groups((0, "LINE"), (8, 0), (10, a), (20, b), (11, c), (21, d))
                    for (a, b), (c, d) in zip(square, square[1:]))
    text = groups((0, "ATTDEF"), (8, 0), (10, 1), (20, 1), (40, 2), (1, "oak"), (3, "Kind of wood"), (2, "WOOD"), (70, 0))
    places = "".join(groups((0, "INSERT"), (8, 0), (2, "BOX"), (10, 30 * x), (20, 0)) for x in range(4))
    return (groups((0, "SECTION"), (2, "BLOCKS"), (0, "BLOCK"), (8, 0), (2, "BOX"), (70, 2), (10, 0), (20, 0), (3, "BOX"))
            + lines + text + groups((0, "ENDBLK"), (8, 0), (0, "ENDSEC"), (0, "SECTION"), (2, "ENTITIES")) + places
            + groups((0, "ENDSEC"), (0, "EOF")))


class Window(DesktopTest):
    def setUp(self):
        super().setUp()
        self.file = self.folder / "boxes.dxf"
        self.file.write_text(drawing(), encoding="ascii")
        self.open("boxes.dxf")

    def pixel(self, x, y):
        """Where a place in the drawing is seen."""
        (left, top), (right, bottom) = self.corners
        return tuple(round(first + (place - start) / (end - start) * (last - first)) for place, start, end, first, last in (
            (x, left, right, LEFT_TOP[0], RIGHT_BOTTOM[0]), (y, top, bottom, LEFT_TOP[1], RIGHT_BOTTOM[1])))

    def insert(self):
        desktop = self.desktop
        for words, answer in (("name: ", "box"), ("point: ", "0,40"), ("<1>: ", "2"), ("factor>: ", ""), ("<0>: ", ""),
                              ("Enter attribute values\nKind of wood <oak>: ", "ash")):
            desktop.type("insert") if answer == "box" else None
            desktop.hear(words)
            desktop.type(answer) if answer else desktop.key("Return")
        desktop.hear("\nCommand: ")

    def test_selects_by_picks_windows_and_crossings(self):
        desktop = self.desktop
        self.corners = desktop.points(LEFT_TOP, RIGHT_BOTTOM)
        desktop.type("qxbomc")
        desktop.key("Escape", title="^Open$")
        desktop.hear("Select objects: ")
        for first, second, found in (((-1, -1), (35, 15), "1 found"),  # all of the first, half of the second
                                     ((35, 15), (25, -1), "1 found, 2 total"),  # touches the second
                                     ((60, 3), None, "1 found, 3 total"),
                                     ((100, 3), None, "1 found, 4 total"),
                                     ((101, 12), (-1, -1), "4 found (4 duplicates), 4 total")):
            desktop.click(self.pixel(*first))
            if second:
                desktop.hear("Specify opposite corner: ")
                desktop.click(self.pixel(*second))
            self.assertEqual(desktop.hear("\nSelect objects: ").split("\n")[1], found)
        xdotool("keydown", "Shift_L")
        desktop.drag(self.pixel(-1, -1), self.pixel(35, 15), 1)
        self.assertIn("\n1 found, 1 removed, 3 total", desktop.hear("\nSelect objects: "))
        xdotool("keyup", "Shift_L")
        desktop.drag(self.pixel(35, 15), self.pixel(-1, -1), 1)
        self.assertIn("\n2 found (1 duplicate), 4 total", desktop.hear("\nSelect objects: "))
        desktop.key("Escape")
        desktop.hear("\nCommand: ")

    def test_file_dialogs_open_whatever_is_proposed(self):
        desktop = self.desktop
        (self.folder / "plans").mkdir()
        (self.folder / "plans" / "prices.prc").write_text("box|2|\n", encoding="ascii")
        desktop.type("saveas")
        desktop.type(windows_path(self.folder / "plans" / "copy.dxf"), title="^Save drawing as$")
        desktop.hear("copy.dxf saved.\nCommand: ")
        for damaged in ("a|b?.prc", 400 * "long", "Z:\\gone\\prices.prc", "Z:\\" + 80 * "deep\\" + "prices.prc"):
            (self.folder / "filename.set").write_text(damaged, encoding="ascii")
            desktop.type("qxbomc")
            desktop.face("^Open$")
            xdotool("key", "ctrl+a")
            desktop.type("prices.prc", title="^Open$")  # of the drawing's folder
            desktop.hear("\nSelect objects: ")
            desktop.key("Escape")
            desktop.hear("\nCommand: ")

    def test_quitting_asks_whether_to_save(self):
        before = self.file.read_bytes()
        desktop = self.desktop
        self.insert()
        desktop.face(r"^\*boxes.dxf - Drawing Host$")
        desktop.type("quit")
        desktop.key("Escape", title="^Drawing Host$")
        self.assertEqual(desktop.hear("\nCommand: "), "quit\nCommand: ")
        desktop.type("quit")
        desktop.key("Right", "Return", title="^Drawing Host$")
        self.assertEqual(desktop.process.wait(timeout=20), 0)
        self.assertEqual(self.file.read_bytes(), before)

        desktop = self.open("boxes.dxf")
        self.insert()
        xdotool("mousemove", desktop.left + desktop.width - 12, desktop.top + 12, "click", 1)  # the title bar's close box
        desktop.key("Escape", title="^Drawing Host$")
        desktop.hear("\nCommand: ")
        desktop.run("u")
        desktop.face("^boxes.dxf - Drawing Host$")
        desktop.type("quit")  # all is as it was
        self.assertEqual(desktop.process.wait(timeout=20), 0)

        desktop = self.open("boxes.dxf")
        self.insert()
        xdotool("mousemove", desktop.left + desktop.width - 12, desktop.top + 12, "click", 1)
        desktop.key("Return", title="^Drawing Host$")
        self.assertEqual(desktop.process.wait(timeout=20), 0)
        added = self.file.read_text(encoding="ascii")
        self.assertIn("ash", added)
        self.assertEqual(added.count("INSERT"), 5)


if __name__ == "__main__":
    main()
