#!/usr/bin/python3
"""Makes a price list in the BOM Template dialog and a report with it, once with the keyboard and once with the mouse, as
a new user does, and compares the bytes of both files.

usage: template_by_hand_test.py DRAWINGHOST.exe MODULE.arx [TEST...]
"""

import os
import re
import shutil
import subprocess

from desktop import DesktopTest, main, wait_until, xdotool
from host import SAMPLE, windows_path

TEMPLATE, REPORT = "^BOM Template$", "^BOM Report$"

# For each Hebrew letter the character of its key on the American keyboard; and the keycodes of all keys.
HEBREW = dict(zip("אבגדהוזחטיכךלמםנןסעפףצץקרשת/", "tcdsvuzjyhflknobixgp;m.era,/"))
KEYCODES = {character: first + place for first, row in ((24, "qwertyuiop"), (38, "asdfghjkl;"), (52, "zxcvbnm,./"), (10, "1234567890"))
            for place, character in enumerate(row)} | {" ": 65}

# The centres of the buttons, in dialog units.
BUTTONS = {"Insert Row": (357, 37), "Move Up": (357, 77), "New": (357, 139), "Save": (357, 179), "Close": (357, 219),
           "Close the report": (35, 257), "Save the report": (155, 257)}

# What is typed in each row: the letters that find the name in the drop list, the price, and the description.
ROWS = [("DOOR", "590", "דגם פנים"), ("W", "320/5", "כיור רחצה"), ("SOF", "2100", "ספה 3 מושבים"),
        ("WIN", "1280", "חלון גדול"), ("נ", "45", "נורה חמה")]
# The lines of the price list that result. On the Hebrew keyboard the slash key gives a point within a number.
LINES = ["DOOR_80|590|דגם פנים", "WASH_BASIN|320.5|כיור רחצה", "SOFA 3 SEATS|2100|ספה 3 מושבים",
         "WINDOW_160|1280|חלון גדול", "נברשת|45|נורה חמה"]
# Where the drop list shows each name, less the names of the rows above: turns of the wheel, and then the line.
LISTED = [(3, 2), (20, 5), (20, 1), (20, 7), (20, 10)]
REPORTED = {"door_80": ("590.00", 2), "wash_basin": ("320.50", 3), "sofa 3 seats": ("2100.00", 1),
            "window_160": ("1280.00", 10), "נברשת": ("45.00", 2)}


def list_of(*rows):
    return "".join(LINES[row] + "\r\n" for row in rows)


class TemplateByHand(DesktopTest):
    def setUp(self):
        super().setUp()
        shutil.copy(SAMPLE, self.folder)
        self.addCleanup(subprocess.run, ["setxkbmap", "us,il"], check=False)
        subprocess.run(["setxkbmap", "us"], check=True)
        self.open("house_plan.dxf")

    def hebrew(self, text):
        """Types on the Hebrew keyboard, by the keys that a person presses; capitals with Shift."""
        for character in text:
            code = KEYCODES[HEBREW.get(character, character.lower())]
            if character.isupper():
                xdotool("keydown", "Shift_L", "key", code, "keyup", "Shift_L")
            else:
                xdotool("key", code)

    def read(self, name):
        path = self.folder / name
        return path.read_bytes().decode("cp1255") if path.exists() else ""

    def expect_list(self, *rows):
        expected = list_of(*rows)
        wait_until(lambda: self.read("list.prc") == expected, f"the list {expected!r}")

    def new_list(self):
        self.desktop.type(windows_path(self.folder / "list.prc"), title="^New$")
        self.desktop.face(TEMPLATE)
        subprocess.run(["setxkbmap", "il"], check=True)

    def expect_report(self):
        """Checks the five prices, quantities and totals of the report, and their sum."""
        wait_until(lambda: (self.folder / "report.txt").exists(), "the report")
        lines = [re.split(r"\s{2,}", line.strip()) for line in self.read("report.txt").splitlines()]
        found = {line[0]: line[1:] for line in lines if line[0] in REPORTED}
        total = 0
        for name, (price, count) in REPORTED.items():
            total += float(price) * count
            self.assertEqual(found[name][:2] + found[name][-1:], [price, str(count), f"{float(price) * count:.2f}"])
        self.assertEqual(lines[-1], ["Summary:", f"{total:.2f}"])

    # The keyboard.

    def press(self, _button, steps, back=0):
        """Goes from the grid to a button and presses it. Only the buttons that move a row keep the focus."""
        xdotool("key", *["Tab"] * steps, "space", *["shift+Tab"] * back)

    def test_with_the_keyboard(self):
        desktop = self.desktop
        desktop.type("qxbomt")
        desktop.key("alt+n", title=TEMPLATE)
        self.new_list()
        for name, price, description in ROWS:
            if name != ROWS[0][0]:
                self.press("Insert Row", 1)
            xdotool("key", "F4")
            self.hebrew(name)
            xdotool("key", "Return", "Right", "F2", "BackSpace")  # deletes the 0 of a new row
            self.hebrew(price)
            xdotool("key", "Tab", "F2")
            self.hebrew(description)
            xdotool("key", "Return")
        xdotool("key", "Home", "Right", "F3", "ctrl+End")  # sorts by the price
        self.press("Move Up", 3, back=3)
        self.press("Move Up", 3, back=3)
        xdotool("key", *["Tab"] * 7, "space")  # a button that goes grey leaves the focus to the grid
        self.expect_list(4, 1, 2, 0, 3)
        xdotool("key", "Escape")
        desktop.hear("\nCommand: ")

        subprocess.run(["setxkbmap", "us"], check=True)
        desktop.type("qxbomc")
        desktop.key("Return", title="^Open$")
        desktop.hear("Select objects: ")
        desktop.type("all")
        desktop.hear("Select objects: ")
        desktop.key("Return")
        desktop.face(REPORT)
        desktop.key("alt+s", title=REPORT)
        desktop.type(windows_path(self.folder / "report.txt"), title="^Save as$")
        self.expect_report()
        desktop.key("alt+c", title=REPORT)
        desktop.hear("\nCommand: ")

    def describe(self, *strokes):
        """A list of one row with a Hebrew name: its description is typed by keycodes, or by "keydown" and the like."""
        desktop = self.desktop
        desktop.type("qxbomt")
        desktop.key("alt+n", title=TEMPLATE)
        self.new_list()
        self.hebrew("א")
        xdotool("key", "Return", "Right", "Right", "F2", "keydown", "Control_R", "key", "Shift_R", "keyup", "Control_R")
        for stroke in strokes:
            xdotool(*stroke.split()) if stroke.startswith("key") else xdotool("key", "--delay", 12, *stroke.split())
        xdotool("key", "Return")
        self.face_dialog()
        self.click("Save")
        return wait_until(lambda: (self.folder / "list.prc").read_bytes(), "the list")

    def test_keys_of_all_kinds(self):
        a, s, n1, n2, n5, slash, x, v, z, comma, full_stop, semicolon = 38, 39, 10, 11, 14, 61, 53, 55, 52, 59, 60, 47
        saved = self.describe(
            f"{a} {s} {n1} {n2} {slash} {n5} {a}",  # a number inside Hebrew
            "--clearmodifiers shift+Right shift+Right", f"ctrl+{x} ctrl+{v}", f"ctrl+{z} ctrl+{z}",  # cut, paste, and undo both
            "keydown Control_L key Shift_L keyup Control_L", f"{a} shift+{a}",  # English, at the left
            f"Caps_Lock {a} {n1} Caps_Lock",
            "keydown Alt_L key Shift_L keyup Alt_L", f"{a}",  # Hebrew again
            "87 83 Num_Lock 87 83 Num_Lock",  # End and Left, then 1 and 4
            "keydown Control_R key Shift_R keyup Control_R",
            f"{n1} {comma} {full_stop} {semicolon} shift+{comma}")  # the Hebrew letters of punctuation keys, after a number
        self.assertEqual(saved.decode("cp1255"), "א|0|aAA!ששד12.141תץף<5ש\r\n")

        # The keyboard gives Hebrew letters even where the system's code page has none.
        self.desktop.key("Escape", title=TEMPLATE)
        subprocess.run(["setxkbmap", "us"], check=True)
        self.desktop.quit()
        os.environ["LC_ALL"] = "C.UTF-8"
        self.addCleanup(os.environ.update, LC_ALL="he_IL.UTF-8")
        (self.folder / "list.prc").unlink()
        self.open("house_plan.dxf")
        self.assertEqual(self.describe(f"{a} {n1} {s} {comma}").decode("utf-8-sig"), "א|0|ש1דת\r\n")

    # The mouse.

    def point_at(self, x, y, *button):
        """Moves to a pixel, counted from the dialog's corner, and clicks."""
        xdotool("mousemove", self.left + x, self.top + y, *button)

    def click(self, button):
        """Clicks a button by its place in the layout. A dialog unit is 7/4 pixels wide and 13/8 high; the frame takes 3 and 22
        pixels."""
        x, y = BUTTONS[button]
        self.point_at(3 + x * 7 // 4, 22 + y * 13 // 8, "click", 1)

    def click_cell(self, column, row, from_right=30):
        self.point_at((212, 277, 537)[column] - from_right, 86 + 16 * row, "click", 1)

    @staticmethod
    def windows():
        return len(xdotool("search", "--onlyvisible", "--name", ".*").split())

    def face_dialog(self, title=TEMPLATE):
        self.desktop.face(title)
        window = xdotool("search", "--onlyvisible", "--name", title)
        shape = dict(re.findall(r"(\w+)=(-?\d+)", xdotool("getwindowgeometry", "--shell", window)))
        self.left, self.top = int(shape["X"]), int(shape["Y"])

    def accept_file(self, title, name=""):
        """Types a name, or takes the one that is proposed, and clicks the file dialog's own button."""
        self.face_dialog(title)
        if name:
            xdotool("type", windows_path(self.folder / name))
        self.point_at(62, 324, "click", 1)

    def test_with_the_mouse(self):
        desktop = self.desktop
        desktop.type("qxbomt")
        self.face_dialog()
        self.click("New")
        self.accept_file("^New$", "list.prc")
        self.face_dialog()
        subprocess.run(["setxkbmap", "il"], check=True)
        for row, (_, price, description) in enumerate(ROWS):
            if row > 0:
                self.click("Insert Row")
            shown = self.windows()
            self.click_cell(0, row, from_right=6)
            wait_until(lambda: self.windows() > shown, "the drop list")
            notches, line = LISTED[row]
            self.point_at(80, 106 + 16 * row + 13 * line, "click", "--repeat", notches, 5)
            xdotool("click", 1)
            self.click_cell(1, row)
            xdotool("key", "BackSpace")
            self.hebrew(price)
            self.click_cell(2, row)
            self.hebrew(description)
        self.point_at(240, 68, "click", 1)  # the heading of the prices
        self.click_cell(2, 4)
        self.click("Move Up")
        self.click("Save")
        self.expect_list(4, 1, 0, 2, 3)
        self.click("Close")
        desktop.hear("\nCommand: ")

        subprocess.run(["setxkbmap", "us"], check=True)
        desktop.type("qxbomc")
        self.accept_file("^Open$")
        desktop.hear("Select objects: ")
        desktop.type("all")
        desktop.hear("Select objects: ")
        desktop.click((400, 300), button=3)
        self.face_dialog(REPORT)
        self.click("Save the report")
        self.accept_file("^Save as$", "report.txt")
        self.expect_report()
        self.face_dialog(REPORT)
        self.click("Close the report")
        desktop.hear("\nCommand: ")


if __name__ == "__main__":
    main()
