#!/usr/bin/python3
"""Looks at a drawing, selects in it and leaves it with the mouse and the keyboard, in the host's own window.

usage: window_test.py DRAWINGHOST.exe MODULE.arx
"""

import re

from bombs import groups
from desktop import DesktopTest, main, wait_until, xdotool
from host import SAMPLE, windows_path

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
        """The pixel of a place in the drawing."""
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
            desktop.type("prices.prc", title="^Open$")  # a name in the drawing's folder
            desktop.hear("\nSelect objects: ")
            desktop.key("Escape")
            desktop.hear("\nCommand: ")

    def test_menu_keys_and_selection_type_commands(self):
        desktop = self.desktop
        self.corners = desktop.points(LEFT_TOP, RIGHT_BOTTOM)
        desktop.key("alt+v", "w")
        desktop.hear("'ZOOM\n")
        self.assertIn(": Window\n", desktop.hear("first corner: "))
        desktop.key("alt+v", "i")  # while that waits
        self.assertIn("Resuming", desktop.hear("first corner: "))
        desktop.key("F1")
        desktop.hear("QXBOMC: in the menu, BOM > Report")
        desktop.key("ctrl+s", "F2")
        self.assertIn("*Cancel*", desktop.hear("Command: QSAVE"))
        desktop.hear("TEXTSCR\nCommand: ")
        desktop.run("zoom", "e")
        for first, second in (((60, 3), None), ((25, -1), (45, 15))):  # one by a pick, one by a window
            desktop.click(self.pixel(*first))
            if second:
                desktop.click(self.pixel(*second))
        desktop.key("Delete")
        self.assertEqual(desktop.hear("\nCommand: "), "ERASE\n2 found\nCommand: ")
        desktop.key("ctrl+z", "ctrl+a", "Delete", "ctrl+z", "ctrl+z")
        self.assertEqual(desktop.hear("Nothing to undo.\nCommand: "),
                         "U\nERASE\nCommand: AI_SELALL\nSelecting objects...done.\nCommand: ERASE\n4 found\n"
                         "Command: U\nERASE\nCommand: U\nNothing to undo.\nCommand: ")

    def test_line_helps_to_type(self):
        desktop = self.desktop
        desktop.key("q", "x", "Tab", "Tab", "Up", "Down", "Return")
        desktop.key("Escape", title="^BOM Template$")
        self.assertIn("QXBOMT", desktop.hear("\nCommand: "))
        desktop.key("Up", "Return")
        desktop.key("Escape", title="^BOM Template$")
        desktop.hear("QXBOMT\nCommand: ")
        self.assertIn('"QXBOMTT". Did you mean QXBOMT?', desktop.run("qxbomtt"))
        desktop.type("background")
        desktop.hear("[Black/White]: ")
        white = desktop.screen((232, desktop.height - 77))  # of the prompt
        xdotool("mousemove", *white, "click", 1)
        self.assertEqual(desktop.hear("\nCommand: "), "White\nCommand: ")

    def test_window_remembers_its_place_and_drawings(self):
        settings = self.folder / "window.set"
        desktop = self.desktop
        desktop.face("Drawing Host$")
        xdotool("mousemove", desktop.left + desktop.width - 29, desktop.top + 12, "click", 1)  # the title bar's box to maximise
        desktop.type("quit")
        desktop.process.wait(timeout=20)
        drawing = windows_path(self.file)
        kept = f"window=0 0 1000 700 maximised\nfolder={windows_path(self.folder)}\nrecent={drawing}\n"
        self.assertEqual(settings.read_text(encoding="utf-8"), kept)
        settings.write_text(kept.replace("0 0 1000 700 maximised", "100 50 700 500"), encoding="utf-8")
        desktop = self.open("boxes.dxf")
        self.assertEqual((desktop.left, desktop.top, desktop.width, desktop.height), (100, 50, 700, 500))
        desktop.key("alt+f", "r", "1")
        self.assertIn(drawing, desktop.hear("boxes.dxf\nCommand: "))
        settings.write_bytes(b"window=broken\nrecent=\xff\x00\n")
        desktop.key("ctrl+o")  # another running host, or a person, may write there at any time
        desktop.type(drawing, title="^Open drawing$")
        desktop.hear("\nCommand: ")
        desktop.type("quit")
        desktop.process.wait(timeout=20)
        self.assertTrue(settings.read_text(encoding="utf-8").startswith("window=100 50 700 500\n"))

    def test_layers_are_frozen_for_the_count(self):
        self.desktop.type("quit")
        self.desktop.process.wait(timeout=20)
        self.file.write_bytes(SAMPLE.read_bytes())
        desktop = self.open("boxes.dxf", "--load", "Layers.arx")
        desktop.key("alt+v", "l")
        desktop.key("space", "Right", "Right", "space", title="^Layers$")  # the name, and the current layer's frozen
        desktop.key("Return", title="^Drawing Host$")
        desktop.key("Down", "Down", "Down", "space", "Escape", title="^Layers$")  # the seven doors
        desktop.hear("\nCommand: ")
        desktop.type("erase")
        desktop.hear("Select objects: ")
        self.assertIn("\n322 found", desktop.run("all", ""))
        desktop.run("u")
        desktop.run("qsave")
        changed = [(old, new) for old, new in zip(SAMPLE.read_bytes().split(b"\n"), self.file.read_bytes().split(b"\n")) if old != new]
        self.assertEqual(changed, [(b"0", b"1")])

    def test_page_shows_the_last_bill_of_this_drawing(self):
        self.desktop.type("quit")
        self.desktop.process.wait(timeout=20)
        desktop = self.open("boxes.dxf", "--load", "Page.arx")
        said = lambda: desktop.hear("\nCommand: ")
        desktop.key("alt+f", "g")
        self.assertIn("make a report first", said())
        desktop.type("qxbomc")
        desktop.key("Escape", title="^Open$")
        desktop.hear("Select objects: ")
        desktop.type("all")
        desktop.key("Return")
        desktop.key("alt+c", title="^BOM Report$")
        said()
        desktop.key("ctrl+a", "Delete")  # what is counted then is still in the bill
        desktop.hear("4 found\nCommand: ")
        desktop.key("alt+f", "g")
        desktop.type("page", title="^Save page as$")
        self.assertIn("page.html saved.", said())
        page = (self.folder / "page.html").read_text(encoding="utf-8")
        self.assertEqual((page.count('"block": "box", "price": '), page.count("<svg ")), (1, 2))
        desktop.run("u")
        desktop.type("open")
        desktop.type("boxes.dxf", title="^Open drawing$")
        said()
        self.assertIn("make a report first", desktop.run("pageout"))

    def test_report_lights_the_references_of_its_row(self):
        desktop = self.desktop
        beside = lambda: [row[:4 * 140] for row in desktop.picture()]  # what the dialog leaves free
        desktop.settled_picture()
        before = beside()
        for look_closer in (False, True):
            desktop.type("qxbomc")
            desktop.key("Escape", title="^Open$")
            desktop.hear("Select objects: ")
            desktop.type("all")
            desktop.key("Return")
            desktop.face("^BOM Report$")
            lit = wait_until(lambda: (seen := beside()) != before and seen, "the boxes lit")
            if look_closer:
                shape = dict(re.findall(r"(\w+)=(-?\d+)", xdotool("search", "--name", "^BOM Report$", "getwindowgeometry", "--shell")))
                xdotool("mousemove", int(shape["X"]) + 280, int(shape["Y"]) + 91, "click", "--repeat", 2, "--delay", 50, 1)
                wait_until(lambda: beside() not in (before, lit), "the boxes larger")
            desktop.key("alt+c", title="^BOM Report$")
            desktop.hear("\nCommand: ")
            if not look_closer:
                wait_until(lambda: beside() == before, "the boxes as they were")

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
