#!/usr/bin/python3
"""Places the table in the host's window with the mouse, as a person does, and reads the saved drawing with ezdxf.

usage: placing_test.py DRAWINGHOST.exe MODULE.arx
"""

import shutil

import ezdxf

from desktop import DesktopTest, main, wait_until
from host import PRICES, SAMPLE, windows_path

CORNER, RIGHT, BELOW = (640, 90), (760, 130), (700, 390)  # pixels of the drawing view


class Placing(DesktopTest):
    def setUp(self):
        super().setUp()
        for file in (SAMPLE, PRICES):
            shutil.copy(file, self.folder)
        self.open("house_plan.dxf")

    def insert_table(self):
        """Goes up to the question for the table's corner: chooses the price list, selects everything, and presses Insert in the
        report."""
        desktop = self.desktop
        desktop.type("qxbomc")
        desktop.type(windows_path(self.folder / "house_prices.prc"), title="^Open$")
        desktop.hear("Select objects: ")
        desktop.type("all")
        desktop.hear("Select objects: ")
        desktop.click(CORNER, button=3)  # the same as Return
        desktop.key("alt+i", title="^BOM Report$")
        desktop.hear("Upper left corner of table: ")
        desktop.face(" - Drawing Host$")

    def place_table(self, corner, *pointer):
        """Drags the frame along the pixels of `pointer` and picks at the last."""
        self.insert_table()
        self.desktop.click(corner)
        self.desktop.hear("Lower right corner (or RETURN): ")
        for at in pointer:
            self.desktop.move(at)
        self.desktop.click(pointer[-1])
        self.desktop.hear("\nCommand: ")

    def saved_tables(self):
        """The table blocks of a saved copy with their sizes, and its references to them: (name, place, scale)."""
        copy = self.folder / "copy.dxf"
        self.desktop.type("save")
        self.desktop.type(windows_path(copy), title="^Save drawing as$")
        self.desktop.hear("\nCommand: ")
        drawing = ezdxf.readfile(copy)
        sizes = {}
        for block in drawing.blocks:
            if block.name.upper().startswith("KVO"):
                ends = [end for line in block.query("LINE") for end in (line.dxf.start, line.dxf.end)]
                sizes[block.name] = (max(x for x, _, _ in ends), 2 - min(y for _, y, _ in ends))
        placed = [(insert.dxf.name, tuple(insert.dxf.insert)[:2], (insert.dxf.xscale, insert.dxf.yscale))
                  for insert in drawing.modelspace().query("INSERT") if insert.dxf.name.upper().startswith("KVO")]
        return sizes, placed

    def test_the_frame_drawn_last_gives_the_scale(self):
        corner, right, below = self.desktop.points(CORNER, RIGHT, BELOW)
        self.place_table(CORNER, (700, 300), RIGHT)
        self.place_table(CORNER, (700, 300), BELOW)
        sizes, placed = self.saved_tables()
        self.assertEqual([name for name, _, _ in placed], ["KVO0001", "KVO0002"])
        self.assertEqual(sizes["KVO0002"], sizes["KVO0001"])
        width, height = sizes["KVO0001"]
        scales = [(right[0] - corner[0]) / width, (corner[1] - below[1]) / height]
        for (_, place, scale), expected in zip(placed, scales):
            self.assertEqual(place, corner)
            self.assertEqual(scale[0], scale[1])
            self.assertAlmostEqual(scale[0] / expected, 1, delta=0.002)  # less than a pixel

    def test_return_takes_the_natural_size(self):
        before = self.desktop.settled_picture()
        (corner,) = self.desktop.points(CORNER)
        self.insert_table()
        self.desktop.click(CORNER)
        self.desktop.hear("Lower right corner (or RETURN): ")
        self.desktop.key("Return")
        self.desktop.hear("\nCommand: ")
        self.assertEqual(self.saved_tables()[1], [("KVO0001", corner, (1, 1))])
        # The host erased a frame that it had never drawn, which draws one. It stays until the next redrawing.
        self.desktop.run("u")
        self.assertNotEqual(self.desktop.settled_picture(), before)
        self.desktop.run("redraw")
        self.desktop.rest()
        wait_until(lambda: self.desktop.picture() == before, "the drawing as it was")

    def test_escape_while_dragging_inserts_in_natural_size(self):
        before = self.desktop.settled_picture()
        (corner,) = self.desktop.points(CORNER)
        self.insert_table()
        self.desktop.click(CORNER)
        self.desktop.hear("Lower right corner (or RETURN): ")
        for at in (RIGHT, BELOW, (300, 20)):
            self.desktop.move(at)
        wait_until(lambda: self.desktop.picture() != before, "the frame")
        self.desktop.key("Escape")
        self.assertEqual(self.desktop.hear("\nCommand: "), "\n*CANCEL*\n\nCommand: ")
        self.assertEqual(self.saved_tables()[1], [("KVO0001", corner, (1, 1))])
        self.desktop.run("u")
        self.desktop.rest()
        wait_until(lambda: self.desktop.picture() == before, "the drawing without a trace of the frame")

if __name__ == "__main__":
    main()
